#include <gtest/gtest.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/resource.h>

#include <chrono>
#include <filesystem>
#include <future>
#include <vector>

#include "agent/AgentSession.h"
#include "tests/support/Await.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/ScriptedAgent.h"

namespace quorvi {
namespace {

const Bytes kRequest = BareRequest(AgentCommand::listContacts);

// A payload of a leading word and two records of one word each.
const Bytes kPayload = Join({Word(0), Word(7), Word(8)});

std::size_t OpenDescriptors() {
    const std::filesystem::directory_iterator entries("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

long PeakMemoryKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

TEST(AgentSession, APayloadReplyIsReadWhole) {
    LoopbackAgent agent({.bytes = Framed(kPayload)});
    const PayloadReply reply = AgentSession(agent.Port()).RunPayload(kRequest);
    EXPECT_EQ(reply.outcome, SessionOutcome::complete);
    EXPECT_TRUE(reply.HasPayload());
    EXPECT_EQ(Bytes(reply.buffer.Data(), reply.buffer.Data() + reply.buffer.Length()), kPayload);
}

TEST(AgentSession, ABareRequestIsItsFourBytesInOneSend) {
    LoopbackAgent agent({.bytes = Framed(kPayload)});
    ASSERT_TRUE(AgentSession(agent.Port()).RunPayload(kRequest).HasPayload());
    const auto exchanges = agent.Exchanges(1);
    ASSERT_EQ(exchanges.size(), 1u);
    EXPECT_EQ(exchanges[0].firstPiece, Word(870101));
    EXPECT_EQ(exchanges[0].rest, Bytes());
}

TEST(AgentSession, AFramedRequestGoesOutWholeInOneSend) {
    LoopbackAgent agent({.bytes = Word(1)});
    RequestBuilder request(AgentCommand::deleteContacts);
    for (std::uint32_t id = 0; id < 1000; ++id) {
        request.BeginItem().AddUInt32(id);
    }
    const Bytes frame = request.Take();
    ASSERT_TRUE(AgentSession(agent.Port()).RunAcknowledged(frame).Connected());
    const auto exchanges = agent.Exchanges(1);
    ASSERT_EQ(exchanges.size(), 1u);
    EXPECT_EQ(exchanges[0].firstPiece, frame);
    EXPECT_EQ(exchanges[0].rest, Bytes());
}

TEST(AgentSession, TheConnectionIsClosedWhenTheReplyHasBeenRead) {
    LoopbackAgent agent({.bytes = Framed(kPayload), .end = Answer::End::wait});
    const PayloadReply reply = AgentSession(agent.Port()).RunPayload(kRequest);
    // The agent sees the close while the reply is still held.
    const auto exchanges = agent.Exchanges(1);
    ASSERT_EQ(exchanges.size(), 1u);
    EXPECT_TRUE(exchanges[0].closedByPeer);
    EXPECT_TRUE(reply.HasPayload());
}

TEST(AgentSession, TheStepsOfAnExchangeCanBeTakenOneByOne) {
    LoopbackAgent agent({.bytes = Framed(kPayload)});
    AgentSession session(agent.Port());
    EXPECT_FALSE(session.IsOpen());
    ASSERT_TRUE(session.Open());
    session.SendBare(AgentCommand::listContacts);
    EXPECT_EQ(session.ReadPayload().outcome, SessionOutcome::complete);
    EXPECT_FALSE(session.IsOpen());
    const auto exchanges = agent.Exchanges(1);
    ASSERT_EQ(exchanges.size(), 1u);
    EXPECT_EQ(exchanges[0].firstPiece, Word(870101));
}

TEST(AgentSession, TheFourBytesOfARequestLeaveAtOnce) {
    LoopbackAgent agent({});
    const TcpSocket socket = TcpSocket::Connect(agent.Port());
    int noDelay = 0;
    socklen_t size = sizeof noDelay;
    ASSERT_EQ(getsockopt(socket.Descriptor(), IPPROTO_TCP, TCP_NODELAY, &noDelay, &size), 0);
    EXPECT_NE(noDelay, 0);
}

TEST(AgentSession, AConnectThatIsRefusedIsConnectFailed) {
    const AgentSession session(UnusedPort());
    EXPECT_EQ(session.RunPayload(kRequest).outcome, SessionOutcome::connectFailed);
    const AcknowledgedReply reply = session.RunAcknowledged(kRequest);
    EXPECT_EQ(reply.outcome, SessionOutcome::connectFailed);
    EXPECT_FALSE(reply.Connected());
}

TEST(AgentSession, NoDataMarkIsAnEmptyResult) {
    LoopbackAgent agent({.bytes = Word(NoDataMark)});
    const PayloadReply reply = AgentSession(agent.Port()).RunPayload(kRequest);
    EXPECT_EQ(reply.outcome, SessionOutcome::noData);
    EXPECT_FALSE(reply.HasPayload());
    EXPECT_EQ(reply.buffer.Length(), 0u);
}

TEST(AgentSession, APayloadOfTheReservedLengthCannotBeToldFromNoDataMark) {
    LoopbackAgent agent({.bytes = Join({Word(123456791), kPayload})});
    EXPECT_EQ(AgentSession(agent.Port()).RunPayload(kRequest).outcome, SessionOutcome::noData);
}

TEST(AgentSession, APayloadOfNoBytesCountsAsNoDataMark) {
    LoopbackAgent agent({.bytes = Word(0)});
    EXPECT_EQ(AgentSession(agent.Port()).RunPayload(kRequest).outcome, SessionOutcome::noData);
}

TEST(AgentSession, ACloseInPlaceOfTheLengthWordIsNoReply) {
    LoopbackAgent agent({.end = Answer::End::close});
    const PayloadReply reply = AgentSession(agent.Port()).RunPayload(kRequest);
    EXPECT_EQ(reply.outcome, SessionOutcome::noReply);
    EXPECT_FALSE(reply.HasPayload());
}

TEST(AgentSession, AResetInPlaceOfTheLengthWordIsNoReply) {
    LoopbackAgent agent({.end = Answer::End::reset});
    EXPECT_EQ(AgentSession(agent.Port()).RunPayload(kRequest).outcome, SessionOutcome::noReply);
}

TEST(AgentSession, ACutPayloadIsHandedOverWithTheRestZero) {
    LoopbackAgent agent({
        .bytes = Join({Word(12), Word(0), Word(7)}),  // 8 bytes of 12
        .end = Answer::End::close,
    });
    const PayloadReply reply = AgentSession(agent.Port()).RunPayload(kRequest);
    EXPECT_EQ(reply.outcome, SessionOutcome::cut);
    ASSERT_TRUE(reply.HasPayload());
    EXPECT_EQ(reply.buffer.Length(), 12u);
    EXPECT_EQ(reply.buffer.Received(), 8u);
    EXPECT_EQ(Bytes(reply.buffer.Data(), reply.buffer.Data() + 12),
              Join({Word(0), Word(7), Word(0)}));
}

TEST(AgentSession, OfAPayloadThatTheConnectionBrokeInNothingIsKept) {
    LoopbackAgent agent({
        .bytes = Join({Word(12), Word(0), Word(7)}),
        .end = Answer::End::reset,
    });
    const PayloadReply reply = AgentSession(agent.Port()).RunPayload(kRequest);
    EXPECT_EQ(reply.outcome, SessionOutcome::receiveFailed);
    EXPECT_FALSE(reply.HasPayload());
    EXPECT_EQ(reply.buffer.Length(), 0u);
}

TEST(AgentSession, AReplyThatFailsAtAnyByteEndsInItsOutcome) {
    const Bytes whole = Framed(kPayload);
    for (std::size_t sent = 0; sent <= whole.size(); ++sent) {
        for (const auto end : {Answer::End::close, Answer::End::reset}) {
            LoopbackAgent agent(
                {.bytes = Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(sent)),
                 .end = end});
            const PayloadReply reply = AgentSession(agent.Port()).RunPayload(kRequest);
            // Up to three bytes of the length word 00 00 00 0C are a length of zero.
            const SessionOutcome expected = sent == 0              ? SessionOutcome::noReply
                                            : sent < 4             ? SessionOutcome::noData
                                            : sent == whole.size() ? SessionOutcome::complete
                                            : end == Answer::End::close
                                                ? SessionOutcome::cut
                                                : SessionOutcome::receiveFailed;
            EXPECT_EQ(reply.outcome, expected) << sent;
            if (reply.HasPayload()) {
                EXPECT_EQ(reply.buffer.Received(), sent - 4);
            }
        }
    }
}

TEST(AgentSession, AReplyThatComesByteByByteIsReadWhole) {
    LoopbackAgent agent({
        .bytes = Framed(kPayload),
        .piece = 1,
        .pause = std::chrono::milliseconds(1),
    });
    const PayloadReply reply = AgentSession(agent.Port()).RunPayload(kRequest);
    EXPECT_EQ(reply.outcome, SessionOutcome::complete);
    EXPECT_EQ(Bytes(reply.buffer.Data(), reply.buffer.Data() + reply.buffer.Length()), kPayload);
}

TEST(AgentSession, BytesBehindThePayloadAreNotRead) {
    LoopbackAgent agent({.bytes = Join({Framed(kPayload), Word(0xFFFFFFFF)})});
    const PayloadReply reply = AgentSession(agent.Port()).RunPayload(kRequest);
    EXPECT_EQ(reply.outcome, SessionOutcome::complete);
    EXPECT_EQ(reply.buffer.Length(), kPayload.size());
}

TEST(AgentSession, APayloadOfAFewBytesIsComplete) {
    for (std::size_t size = 1; size < 8; ++size) {
        LoopbackAgent agent({.bytes = Framed(Bytes(size, std::byte{0x11}))});
        const PayloadReply reply = AgentSession(agent.Port()).RunPayload(kRequest);
        EXPECT_EQ(reply.outcome, SessionOutcome::complete) << size;
        EXPECT_EQ(reply.buffer.Received(), size);
    }
}

TEST(AgentSession, ALengthThatNothingStandsBehindCostsNothing) {
    for (const std::uint32_t claim : {3u << 30, 0x80000000u, 0xFFFFFFFFu}) {
        LoopbackAgent agent({
            .bytes = Join({Word(claim), Bytes(10, std::byte{0x11})}),
            .end = Answer::End::close,
        });
        const long before = PeakMemoryKilobytes();
        const PayloadReply reply = AgentSession(agent.Port()).RunPayload(kRequest);
        EXPECT_LT(PeakMemoryKilobytes() - before, 4096) << claim;
        EXPECT_EQ(reply.outcome, SessionOutcome::cut);
        EXPECT_EQ(reply.buffer.Length(), claim);
        EXPECT_EQ(reply.buffer.Received(), 10u);
        // Its last byte is there, and zero.
        EXPECT_EQ(reply.buffer.Data()[claim - 1], std::byte{0});
    }
}

TEST(AgentSession, AnAcknowledgementIsOneWord) {
    LoopbackAgent agent({.bytes = Word(20)});
    const AcknowledgedReply reply = AgentSession(agent.Port()).RunAcknowledged(kRequest);
    EXPECT_EQ(reply.outcome, SessionOutcome::complete);
    EXPECT_EQ(reply.word, 20u);
    const auto exchanges = agent.Exchanges(1);
    ASSERT_EQ(exchanges.size(), 1u);
    EXPECT_TRUE(exchanges[0].closedByPeer);
}

TEST(AgentSession, AnAcknowledgementIsNoLengthAndNoMark) {
    LoopbackAgent agent({.bytes = Word(NoDataMark)});
    const AcknowledgedReply reply = AgentSession(agent.Port()).RunAcknowledged(kRequest);
    EXPECT_EQ(reply.outcome, SessionOutcome::complete);
    EXPECT_EQ(reply.word, NoDataMark);
}

TEST(AgentSession, AnAcknowledgementThatDoesNotComeIsZero) {
    for (const auto end : {Answer::End::close, Answer::End::reset}) {
        LoopbackAgent agent({.end = end});
        const AcknowledgedReply reply = AgentSession(agent.Port()).RunAcknowledged(kRequest);
        EXPECT_EQ(reply.outcome, SessionOutcome::noReply);
        EXPECT_TRUE(reply.Connected());
        EXPECT_EQ(reply.word, 0u);
    }
}

TEST(AgentSession, OfAnAcknowledgementCutShortTheMissingBytesAreZero) {
    LoopbackAgent agent({
        .bytes = Bytes{std::byte{0x01}, std::byte{0x02}},
        .end = Answer::End::close,
    });
    const AcknowledgedReply reply = AgentSession(agent.Port()).RunAcknowledged(kRequest);
    EXPECT_EQ(reply.word, 0x01020000u);
    EXPECT_EQ(reply.outcome, SessionOutcome::noReply);  // nothing was acknowledged
}

TEST(AgentSession, ProgressGrowsToTheLength) {
    LoopbackAgent agent({.bytes = Framed(Bytes(3'000'000, std::byte{0x11}))});
    std::uint32_t last = 0;
    const PayloadReply reply =
        AgentSession(agent.Port())
            .RunPayload(kRequest, [&](std::uint32_t received, std::uint32_t length) {
                EXPECT_GT(received, last);
                EXPECT_EQ(length, 3'000'000u);
                last = received;
            });
    EXPECT_EQ(reply.outcome, SessionOutcome::complete);
    EXPECT_EQ(last, 3'000'000u);
}

TEST(AgentSession, SessionsOfSeveralPagesRunAtTheSameTime) {
    constexpr std::size_t kPages = 4;
    ScriptedAgent agent;
    agent.AnswerPayload(AgentCommand::listContacts, kPayload);
    agent.Hold(AgentCommand::listContacts);
    std::vector<std::future<SessionOutcome>> sessions;
    for (std::size_t page = 0; page < kPages; ++page) {
        sessions.push_back(std::async(std::launch::async, [&agent] {
            return AgentSession(agent.Port()).RunPayload(kRequest).outcome;
        }));
    }
    // The agent answers nobody before all have asked.
    EXPECT_TRUE(Await([&] { return agent.Requests().size() == kPages; }));
    agent.Release();
    for (std::future<SessionOutcome>& session : sessions) {
        EXPECT_EQ(session.get(), SessionOutcome::complete);
    }
}

TEST(AgentSession, AThousandSessionsLeaveNoDescriptorBehind) {
    LoopbackAgent agent({.bytes = Framed(kPayload)});
    LoopbackAgent silent({.end = Answer::End::close});
    const std::uint16_t unused = UnusedPort();
    const std::size_t before = OpenDescriptors();
    for (int i = 0; i < 1000; ++i) {
        ASSERT_EQ(AgentSession(agent.Port()).RunPayload(kRequest).outcome,
                  SessionOutcome::complete);
        ASSERT_EQ(AgentSession(silent.Port()).RunAcknowledged(kRequest).word, 0u);
        ASSERT_EQ(AgentSession(unused).RunPayload(kRequest).outcome, SessionOutcome::connectFailed);
    }
    // The agents' own ends of the last connections close a moment later.
    static_cast<void>(agent.Exchanges(1000));
    static_cast<void>(silent.Exchanges(1000));
    EXPECT_LE(OpenDescriptors(), before + 2);
}

}  // namespace
}  // namespace quorvi

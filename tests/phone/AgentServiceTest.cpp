#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "agent/AgentSession.h"
#include "phone/PhoneServer.h"
#include "phone/agent/AgentService.h"
#include "tests/support/Bytes.h"

namespace quorvi::phone {
namespace {

class AgentServiceTest : public testing::Test {
  protected:
    // Sends the bytes, closes, and waits for the log to say something of them.
    std::string LogOf(const Bytes& bytes) {
        phones_.Control(0, "log clear");
        {
            const TcpSocket socket = Connect();
            socket.Send(bytes);
        }
        for (int i = 0; i < 500; ++i) {
            const std::string log = phones_.Control(0, "log");
            if (log != "ok\n") {
                return log;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return "nothing logged";
    }

    [[nodiscard]] TcpSocket Connect() { return TcpSocket::Connect(port_); }

    void Fault(std::string_view words) {
        EXPECT_EQ(phones_.Control(0, "fault " + std::string(words)), "ok\n");
    }

    RunningPhones phones_{ServerOptions{{AgentAlone()}, std::nullopt}};
    std::uint16_t port_ = phones_.AgentPort(0);
    AgentSession session_{port_};
};

const Bytes kVersionRequest = Join({{0, 0x0d, 0x46, 0x73}});  // 870003

TEST_F(AgentServiceTest, AnswersItsVersion) {
    EXPECT_EQ(session_.RunAcknowledged(kVersionRequest).word, 20u);
    phones_.Control(0, "agent version 19");
    EXPECT_EQ(session_.RunAcknowledged(kVersionRequest).word, 19u);
}

TEST_F(AgentServiceTest, AnswersTheWholeSystemInformation) {
    const auto reply = session_.RunPayload(BareRequest(AgentCommand::systemInformation));
    ASSERT_EQ(reply.outcome, SessionOutcome::complete);
    ReplyCursor cursor(reply.buffer);
    EXPECT_EQ(cursor.TakeTextOrEmpty(), "Aurora S2");
    EXPECT_GT(cursor.TakeUInt64(), 2 * 24 * 3600 * 1000u);  // up for more than two days
    EXPECT_EQ(cursor.TakeTextOrEmpty(), "Android 2.3.4");
    EXPECT_EQ(cursor.TakeTextOrEmpty(), "355402041234567");
    EXPECT_EQ(cursor.TakeTextOrEmpty(), "460002512345678");
    EXPECT_EQ(cursor.TakeTextOrEmpty(), "480 x 800");
    EXPECT_EQ(cursor.TakeTextOrEmpty(), "82");
    for (int skipped = 0; skipped < 4; ++skipped) {  // CPU, RAM, ROM, SD card
        EXPECT_FALSE(cursor.TakeTextOrEmpty().empty());
    }
    EXPECT_EQ(cursor.TakeUInt32(), 0u);  // GPS
    EXPECT_EQ(cursor.TakeUInt32(), 0u);  // Bluetooth
    EXPECT_EQ(cursor.TakeUInt32(), 1u);  // WiFi
    EXPECT_EQ(cursor.TakeUInt32(), 1u);  // gravity
    EXPECT_FALSE(cursor.TakeTextOrEmpty().empty());
    EXPECT_FALSE(cursor.TakeTextOrEmpty().empty());
    EXPECT_LE(cursor.TakeUInt32(), 255u);  // brightness
    EXPECT_TRUE(cursor.AtEnd());
    EXPECT_FALSE(cursor.Overran());
}

TEST_F(AgentServiceTest, AnswersTheDeviceSummary) {
    const auto reply = session_.RunPayload(BareRequest(AgentCommand::deviceSummary));
    ReplyCursor cursor(reply.buffer);
    EXPECT_EQ(cursor.TakeUInt32(), 1u);
    EXPECT_EQ(cursor.TakeUInt32(), 10u);
    EXPECT_EQ(cursor.TakeTextOrEmpty(), "Aurora S2");
    EXPECT_TRUE(cursor.AtEnd());
}

TEST_F(AgentServiceTest, LogsARequestWithoutDeviations) {
    EXPECT_EQ(LogOf(kVersionRequest), "1 870003 agentVersion 4 bytes 000d4673\nok\n");
    EXPECT_EQ(phones_.Control(0, "deviations"), "ok\n");
}

TEST_F(AgentServiceTest, NamesBytesBehindABareRequest) {
    EXPECT_EQ(LogOf(Join({{0, 0x0d, 0x46, 0x73}, {0, 0, 0, 8}})),
              "1 870003 agentVersion 8 bytes 000d467300000008"
              "; deviation: 4 bytes behind the frame of 4\nok\n");
}

TEST_F(AgentServiceTest, NamesARequestThatIsCutShort) {
    EXPECT_EQ(LogOf(Join({{0, 0x0d}})),
              "1 0 none 2 bytes 000d; deviation: closed after 2 bytes of the request\nok\n");
    EXPECT_EQ(LogOf(Join({{0, 0x0d, 0x47, 0x3a}})),  // 870202 without its conversation
              "2 870202 readConversation 4 bytes 000d473a"
              "; deviation: closed after 4 bytes of the request\nok\n");
}

TEST_F(AgentServiceTest, NamesAConnectionWithoutARequest) {
    EXPECT_EQ(LogOf({}), "1 0 none 0 bytes ; deviation: closed without a request\nok\n");
}

TEST_F(AgentServiceTest, NamesACodeOutsideTheTable) {
    EXPECT_EQ(LogOf(Join({{0, 0, 0, 1}})),
              "1 1 unknown 4 bytes 00000001; deviation: no command has this code\nok\n");
}

TEST_F(AgentServiceTest, NamesATotalThatCannotBe) {
    const std::string log = LogOf(Join({
        {0, 0x0d, 0x46, 0xd6},  // 870102
        {0, 0, 0, 4},           // total
        {0, 0, 0, 1},           // items
    }));
    EXPECT_NE(log.find("deviation: total 4 is less than the 12 bytes of the header"),
              std::string::npos);
}

TEST_F(AgentServiceTest, ClosesWithoutAReplyWhenTold) {
    Fault("870003 close");
    EXPECT_EQ(session_.RunAcknowledged(kVersionRequest).word, 0u);
}

TEST_F(AgentServiceTest, CutsAReply) {
    Fault("systemInformation cut 30");
    const auto reply = session_.RunPayload(BareRequest(AgentCommand::systemInformation));
    EXPECT_EQ(reply.outcome, SessionOutcome::cut);
    EXPECT_EQ(reply.buffer.Received(), 26u);
}

TEST_F(AgentServiceTest, ResetsAReply) {
    Fault("870004 reset 30");
    const auto reply = session_.RunPayload(BareRequest(AgentCommand::systemInformation));
    EXPECT_EQ(reply.outcome, SessionOutcome::receiveFailed);
}

TEST_F(AgentServiceTest, ClaimsMoreThanItSends) {
    Fault("870004 length 3000000000 10");
    const auto reply = session_.RunPayload(BareRequest(AgentCommand::systemInformation));
    EXPECT_EQ(reply.buffer.Length(), 3'000'000'000u);
    EXPECT_EQ(reply.buffer.Received(), 10u);
}

TEST_F(AgentServiceTest, TricklesTheWholeReply) {
    Fault("870004 trickle 40 1");
    const auto reply = session_.RunPayload(BareRequest(AgentCommand::systemInformation));
    EXPECT_EQ(reply.buffer.Received(), reply.buffer.Length());
    EXPECT_GT(reply.buffer.Length(), 200u);
}

TEST_F(AgentServiceTest, StallsUntilReleased) {
    Fault("870004 stall 8");
    std::thread releaser;
    bool released = false;
    const auto reply = session_.RunPayload(BareRequest(AgentCommand::systemInformation),
                                           [&](std::uint32_t received, std::uint32_t length) {
                                               if (!released && received < length) {
                                                   released = true;
                                                   phones_.Control(0, "release");
                                               }
                                           });
    EXPECT_TRUE(released);
    EXPECT_EQ(reply.buffer.Received(), reply.buffer.Length());
}

TEST_F(AgentServiceTest, AnswersLate) {
    Fault("870003 delay 80");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(session_.RunAcknowledged(kVersionRequest).word, 20u);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(80));
}

TEST_F(AgentServiceTest, ACallerThatLeavesADelayedReplyDoesNoHarm) {
    Fault("870003 delay 30");
    LogOf(kVersionRequest);
    // Comes behind the reply that nobody waits for any more.
    EXPECT_EQ(session_.RunAcknowledged(kVersionRequest).word, 20u);
}

TEST_F(AgentServiceTest, NamesASecondRequestOnOneConnection) {
    const TcpSocket socket = Connect();
    socket.Send(kVersionRequest);
    std::array<std::byte, 4> word{};
    EXPECT_EQ(socket.Receive(word), 4);
    socket.Send(kVersionRequest);
    std::string log;
    for (int i = 0; i < 500 && log.find("unasked") == std::string::npos; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        log = phones_.Control(0, "deviations");
    }
    EXPECT_EQ(log, "2 0 unasked 4 bytes 000d4673; deviation: bytes behind the one request\nok\n");
}

}  // namespace
}  // namespace quorvi::phone

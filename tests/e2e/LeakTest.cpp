// Nothing is left behind: no descriptor, no thread, no zombie, no stream on the phone.
#include <gmock/gmock.h>
#include <sys/wait.h>

#include <array>
#include <filesystem>
#include <thread>

#include "agent/AgentSession.h"
#include "tests/support/LinkRun.h"

namespace quorvi::e2e {
namespace {

constexpr int kSessions = 1000;

struct Held {
    std::ptrdiff_t descriptors;
    std::ptrdiff_t threads;

    [[nodiscard]] bool NoMoreThan(const Held& other) const {
        return descriptors <= other.descriptors && threads <= other.threads;
    }
};

std::ptrdiff_t CountEntries(const std::string& directory) {
    return std::distance(std::filesystem::directory_iterator(directory), {});
}

Held HeldBy(const std::string& process) {
    return {CountEntries("/proc/" + process + "/fd"), CountEntries("/proc/" + process + "/task")};
}

bool HasZombie() {
    siginfo_t ended{};
    return waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT) == 0 && ended.si_pid != 0;
}

// The peers close a little later than we do.
template <typename Test>
bool Settles(Test test) {
    for (int i = 0; i < 500 && !test(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return test();
}

class Leak : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(rig_.Error(), "");
        ASSERT_EQ(rig_.BringAgentUp(0), "");
    }

    PhoneRig rig_{1};
    AgentSession session_{AgentPort};
};

TEST_F(Leak, AThousandSessionsLeaveNothing) {
    const Bytes request = BareRequest(AgentCommand::systemInformation);
    ASSERT_EQ(session_.RunPayload(request).outcome, SessionOutcome::complete);
    const Held before = HeldBy("self");
    const Held serverBefore = HeldBy(std::to_string(rig_.ServerProcess()));
    for (int i = 0; i < kSessions; ++i) {
        ASSERT_EQ(session_.RunPayload(request).outcome, SessionOutcome::complete) << i;
    }
    EXPECT_TRUE(Settles([&] { return HeldBy("self").NoMoreThan(before); }))
        << HeldBy("self").descriptors;
    EXPECT_TRUE(Settles([&] {
        return HeldBy(std::to_string(rig_.ServerProcess())).descriptors <= serverBefore.descriptors;
    }));
    EXPECT_TRUE(Settles(
        [&] { return rig_.Control(0, "status").find("streams 0\n") != std::string::npos; }));
    EXPECT_FALSE(HasZombie());
}

TEST_F(Leak, AThousandSessionsOfEveryFaultLeaveNothing) {
    const Bytes request = BareRequest(AgentCommand::systemInformation);
    const std::array<const char*, 8> faults{"nodata",   "absent",
                                            "close",    "cut 40",
                                            "reset 9",  "length 3000000000 10",
                                            "length 5", "string 2 4000000000"};
    const Held before = HeldBy("self");
    for (int i = 0; i < kSessions; ++i) {
        if (i % 125 == 0) {
            rig_.Control(0, std::string("fault all ") + faults[static_cast<std::size_t>(i / 125)]);
        }
        const PayloadReply reply = session_.RunPayload(request);
        ASSERT_NE(reply.outcome, SessionOutcome::connectFailed) << i;
    }
    EXPECT_TRUE(Settles([&] { return HeldBy("self").NoMoreThan(before); }));
    EXPECT_TRUE(Settles(
        [&] { return rig_.Control(0, "status").find("streams 0\n") != std::string::npos; }));
}

TEST_F(Leak, TheLinkProcedureLeavesNothing) {
    LinkRun run(rig_);
    run.Run();
    const auto settled = [&] { return !HasZombie(); };
    ASSERT_TRUE(Settles(settled));
    const Held before = HeldBy("self");
    for (int i = 0; i < 20; ++i) {
        ASSERT_EQ(run.Run().back().state, BannerState::success) << i;
    }
    EXPECT_TRUE(Settles([&] { return HeldBy("self").NoMoreThan(before); }))
        << HeldBy("self").descriptors << " and " << before.descriptors;
    EXPECT_TRUE(Settles(settled));
}

}  // namespace
}  // namespace quorvi::e2e

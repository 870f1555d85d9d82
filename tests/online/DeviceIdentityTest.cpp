#include <gtest/gtest.h>

#include "base/Text.h"
#include "online/DeviceIdentity.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/WireBytes.h"

namespace quorvi {
namespace {

class DeviceIdentityReading : public testing::Test {
  protected:
    SessionOutcome Read(const Bytes& reply) {
        LoopbackAgent agent({.bytes = reply, .end = Answer::End::close});
        const SessionOutcome outcome = ReadDeviceIdentity(AgentSession(agent.Port()), identity_);
        EXPECT_EQ(agent.Exchanges(1).at(0).firstPiece, Word(870002));
        return outcome;
    }
    DeviceIdentity identity_{.client = 1, .api = 2, .model = "before"};
};

TEST_F(DeviceIdentityReading, ReadsTheThreeFields) {
    const auto reply = WireBytes()
                           .U32(0)            // leading word
                           .U32(7)            // the agent's version
                           .U32(8)            // API level
                           .Text("奎维 Q1");  // model
    EXPECT_EQ(Read(Framed(reply.Get())), SessionOutcome::complete);
    EXPECT_EQ(identity_.client, 7);
    EXPECT_EQ(identity_.api, 8);
    EXPECT_EQ(identity_.model, Ansi(u8"奎维 Q1"));
}

TEST_F(DeviceIdentityReading, AnAbsentModelLeavesTheOneBefore) {
    const auto reply = WireBytes()
                           .U32(0)     // leading word
                           .U32(7)     // the agent's version
                           .U32(8)     // API level
                           .Absent();  // model
    EXPECT_EQ(Read(Framed(reply.Get())), SessionOutcome::complete);
    EXPECT_EQ(identity_.client, 7);
    EXPECT_EQ(identity_.model, "before");
}

TEST_F(DeviceIdentityReading, NoDataLeavesAllAsItWas) {
    EXPECT_EQ(Read(Word(NoDataMark)), SessionOutcome::noData);
    EXPECT_EQ(identity_.client, 1);
    EXPECT_EQ(identity_.api, 2);
    EXPECT_EQ(identity_.model, "before");
}

}  // namespace
}  // namespace quorvi

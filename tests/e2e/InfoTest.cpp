// quorvictl info over the real adb, the agent well and ill.
#include <gtest/gtest.h>
#include <json/json.h>

#include <sstream>

#include "tests/support/PhoneRig.h"

namespace quorvi::e2e {
namespace {

class Info : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(rig_.Error(), "");
        ASSERT_EQ(rig_.BringAgentUp(0), "");
    }

    // What info says while the agent misbehaves so at its command.
    ProgramResult With(const std::string& fault) {
        EXPECT_EQ(rig_.Control(0, "fault 870004 " + fault), "ok\n");
        return rig_.Suite({"info", "--json"}, {}, limit_);
    }

    PhoneRig rig_{1};
    std::chrono::milliseconds limit_ = std::chrono::seconds(20);
};

TEST_F(Info, PrintsNineteenRows) {
    const ProgramResult info = rig_.Suite({"info", "--json"});
    EXPECT_EQ(info.status, 0);
    Json::Value rows;
    std::istringstream(info.output) >> rows;
    ASSERT_EQ(rows.size(), 19u);
    EXPECT_EQ(rows[0]["text"].asString(), "Aurora S2");
    EXPECT_EQ(rows[6]["text"].asString(), "82 %");
    EXPECT_EQ(rig_.Control(0, "deviations"), "ok\n");
}

TEST_F(Info, ARequestThatMetAFaultIsWellAgainAfterwards) {
    With("close");
    EXPECT_EQ(With("none").status, 0);
    EXPECT_NE(rig_.Suite({"info"}).output.find("Aurora S2"), std::string::npos);
}

TEST_F(Info, IsEmptyWithoutData) {
    const ProgramResult info = With("nodata");
    EXPECT_EQ(info.status, 0);
    EXPECT_EQ(info.output, "[]\n");
}

TEST_F(Info, IsEmptyWithoutAModel) {
    EXPECT_EQ(With("absent").output, "[]\n");
}

TEST_F(Info, HasNoAnswerWhenTheAgentClosesWithoutAReply) {
    for (const char* fault : {"close", "cut 0"}) {
        const ProgramResult info = With(fault);
        EXPECT_EQ(info.status, 2) << fault;
        EXPECT_EQ(info.output, "") << fault;
        EXPECT_NE(info.messages.find("没有回答"), std::string::npos) << fault;
    }
}

TEST_F(Info, ReadsWhatCameOfAReplyThatIsCut) {
    for (const int bytes : {3, 4, 8, 15, 40, 100}) {
        const ProgramResult info = With("cut " + std::to_string(bytes));
        EXPECT_EQ(info.status, 0) << bytes;
        EXPECT_FALSE(info.timedOut) << bytes;
    }
}

TEST_F(Info, EndsWhenTheStreamBreaksOff) {
    EXPECT_EQ(With("reset 40").status, 0);
}

TEST_F(Info, EndsWhenTheCableIsPulled) {
    // The forward goes with the phone, and may take what has been sent of the reply with it.
    const ProgramResult info = With("unplug 40");
    EXPECT_EQ(info.status, info.output.empty() ? 2 : 0);
    EXPECT_EQ(rig_.Suite({"info"}).status, 2);
}

TEST_F(Info, WaitsForAReplyThatStallsAsLongAsItTakes) {
    limit_ = std::chrono::milliseconds(700);
    EXPECT_TRUE(With("stall 40").timedOut);
    rig_.Control(0, "fault 870004 none");
    EXPECT_EQ(rig_.Suite({"info"}).status, 0);
}

TEST_F(Info, ReadsAReplyThatTrickles) {
    const ProgramResult info = With("trickle 3 1");
    EXPECT_EQ(info.status, 0);
    EXPECT_NE(info.output.find("Aurora S2"), std::string::npos);
}

TEST_F(Info, DoesNotBelieveALengthOfThreeGigabytes) {
    EXPECT_EQ(With("length 3000000000 10").status, 0);
}

TEST_F(Info, ReadsNoFurtherThanALengthThatIsTooSmall) {
    for (const int length : {1, 4, 5, 8, 21, 60}) {
        EXPECT_EQ(With("length " + std::to_string(length)).status, 0) << length;
    }
}

TEST_F(Info, DoesNotBelieveALengthInsideThePayload) {
    for (const char* fault : {"string 0 4000000000", "string 0 4294967295", "string 3 100000",
                              "string 10 2147483647", "string 0 0"}) {
        const ProgramResult info = With(fault);
        EXPECT_EQ(info.status, 0) << fault;
    }
}

TEST_F(Info, HasNoLinkWhenNothingIsForwarded) {
    rig_.Control(0, "unplug");
    ASSERT_TRUE(rig_.WaitForDevices(0));
    const ProgramResult info = rig_.Suite({"info", "--json"});
    EXPECT_EQ(info.status, 2);
    EXPECT_NE(info.messages.find("连接错误"), std::string::npos);
}

TEST_F(Info, HasNoAnswerWhenTheAgentDoesNotRun) {
    rig_.Control(0, "agent stop");
    const ProgramResult info = rig_.Suite({"info", "--json"});
    EXPECT_FALSE(info.timedOut);
    EXPECT_EQ(info.status, 2);
    EXPECT_EQ(info.output, "");
}

}  // namespace
}  // namespace quorvi::e2e

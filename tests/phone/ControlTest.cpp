#include <gtest/gtest.h>

#include "base/ByteText.h"
#include "phone/Control.h"
#include "phone/PhoneServer.h"
#include "phone/adb/Packet.h"

namespace quorvi::phone {
namespace {

class ControlTest : public testing::Test {
  protected:
    std::string Say(std::string_view line) { return phones_.Control(0, line); }

    RunningPhones phones_{ServerOptions{{AgentAlone(), AgentAlone()}, 0}};
};

TEST_F(ControlTest, ListsAndEndsFaults) {
    EXPECT_EQ(Say("fault 870101 cut 100 times 2"), "ok\n");
    EXPECT_EQ(Say("fault all close"), "ok\n");
    EXPECT_EQ(Say("faults"), "all close\n870101 cut 100 times 2\nok\n");
    EXPECT_EQ(Say("fault all none"), "ok\n");
    EXPECT_EQ(Say("faults"), "870101 cut 100 times 2\nok\n");
    EXPECT_EQ(Say("faults clear"), "ok\n");
    EXPECT_EQ(Say("faults"), "ok\n");
}

TEST_F(ControlTest, SaysWhatIsWrong) {
    EXPECT_EQ(Say("fault 1 close"), "error: no command 1\n");
    EXPECT_EQ(Say("fault all explode"), "error: no fault explode\n");
    EXPECT_EQ(Say("dance"), "error: unknown command dance\n");
    EXPECT_EQ(Say("agent"), "error: agent missing|version N|start|stop|crashes|works\n");
}

TEST_F(ControlTest, TakesEachAmountByItsName) {
    EXPECT_EQ(Say("data processes 5 icon-bytes 9 auto-starts 2 files 3"), "ok\n");
    EXPECT_EQ(Say("data thoughts 5"), "error: data [NAME NUMBER]...\n");
}

TEST_F(ControlTest, SetsTheFormOfTheScreen) {
    EXPECT_EQ(Say("screen size 1080x2400x32 version 2 order bgr waits 1 ends 1"), "ok\n");
    EXPECT_EQ(Say("screen fault size 4000000000"), "ok\n");
    EXPECT_EQ(Say("screen fault refuse"), "ok\n");
    EXPECT_EQ(Say("screen fault none"), "ok\n");
    for (const char* const wrong :
         {"screen", "screen size 0x1", "screen version", "screen order x", "screen fault",
          "screen fault cut", "screen fault cut -1", "screen colour 1"}) {
        EXPECT_TRUE(Say(wrong).starts_with("error: screen ")) << wrong;
    }
}

TEST_F(ControlTest, TakesAnEmptyLine) {
    EXPECT_EQ(Say(""), "ok\n");
}

TEST_F(ControlTest, AMissingAgentDoesNotStart) {
    EXPECT_EQ(Say("agent missing"), "ok\n");
    EXPECT_EQ(Say("agent start"), "error: the agent is not installed\n");
    EXPECT_NE(Say("status").find("agent missing\n"), std::string::npos);
}

TEST_F(ControlTest, AVersionChangesUnderARunningAgent) {
    Say("agent start");
    Say("agent version 19");
    EXPECT_NE(Say("status").find("agent 19\nrunning 1\n"), std::string::npos);
}

TEST_F(ControlTest, CountsTheStartsOfAnAgentThatDoesNotComeUp) {
    Say("agent crashes");
    Say("agent start");
    EXPECT_NE(Say("status").find("running 0\nstarts 1\n"), std::string::npos);
}

TEST_F(ControlTest, EachPhoneHasItsOwnState) {
    Say("agent version 3");
    EXPECT_NE(phones_.Control(1, "status").find("agent 20\n"), std::string::npos);
}

TEST_F(ControlTest, AnswersLineByLineOnItsPort) {
    const TcpSocket socket = TcpSocket::Connect(phones_.ControlPort());
    socket.Send(ToBytes("agent vers"));
    socket.Send(ToBytes("ion 5\r\nphone 2 agent version 6\nphone 3 status\nphone x\n"));
    const std::string expected = "ok\nok\nerror: no such phone\nerror: no such phone\n";
    std::string got;
    std::array<std::byte, 256> chunk;
    while (got.size() < expected.size()) {
        const auto count = socket.Receive(chunk);
        ASSERT_GT(count, 0);
        got += AsText(std::span(chunk).first(static_cast<std::size_t>(count)));
    }
    EXPECT_EQ(got, expected);
    EXPECT_NE(phones_.Control(0, "status").find("agent 5\n"), std::string::npos);
    EXPECT_NE(phones_.Control(1, "status").find("agent 6\n"), std::string::npos);
}

}  // namespace
}  // namespace quorvi::phone

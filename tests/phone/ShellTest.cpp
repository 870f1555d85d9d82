#include <gtest/gtest.h>

#include "base/ByteText.h"
#include "phone/Shell.h"
#include "phone/adb/Packet.h"

namespace quorvi::phone {
namespace {

class Shell : public testing::Test {
  protected:
    std::string Run(std::string_view command) { return RunShell(handset_, command); }

    Handset handset_{DeliveredProfile(0)};
};

TEST_F(Shell, ListsPropertiesInBracketsWithATerminalsLineEnds) {
    const std::string all = Run("getprop");
    EXPECT_NE(all.find("[ro.product.manufacturer]: [Aurora]\r\n"), std::string::npos);
    EXPECT_NE(all.find("[ro.build.version.sdk]: [10]\r\n"), std::string::npos);
}

TEST_F(Shell, PrintsOneProperty) {
    EXPECT_EQ(Run("getprop ro.product.model"), "S2\r\n");
    EXPECT_EQ(Run("getprop no.such.thing"), "\r\n");
}

TEST_F(Shell, ListsPackagesByTheShortWordToo) {
    EXPECT_NE(Run("pm list package").find("package:com.quorvi.Quorvi\r\n"), std::string::npos);
    EXPECT_EQ(Run("pm list packages"), Run("pm list package"));
    EXPECT_EQ(Run("pm list packages quorvi"), "package:com.quorvi.Quorvi\r\n");
}

TEST_F(Shell, APhoneWithoutTheAgentDoesNotListIt) {
    handset_.SetAgent(std::nullopt);
    EXPECT_EQ(Run("pm list package").find("quorvi"), std::string::npos);
}

TEST_F(Shell, StartsTheAgent) {
    EXPECT_EQ(Run("am start -n com.quorvi.Quorvi/.Quorvi"),
              "Starting: Intent { cmp=com.quorvi.Quorvi/.Quorvi }\r\n");
    EXPECT_TRUE(handset_.AgentRuns());
}

TEST_F(Shell, AnotherActivityOfTheAgentDoesNotExist) {
    EXPECT_NE(Run("am start -n com.quorvi.Quorvi/.Other").find("does not exist"),
              std::string::npos);
    EXPECT_FALSE(handset_.AgentRuns());
}

TEST_F(Shell, AMissingAgentDoesNotStart) {
    handset_.SetAgent(std::nullopt);
    EXPECT_NE(Run("am start -n com.quorvi.Quorvi/.Quorvi").find("Error type 3\r\n"),
              std::string::npos);
    EXPECT_FALSE(handset_.AgentRuns());
}

TEST_F(Shell, InstallsAPushedPackageFromAQuotedPath) {
    ASSERT_TRUE(handset_.PutFile("/sdcard/my game.apk", {0100644, 0, ToBytes("PK\x03\x04")}));
    EXPECT_EQ(Run("pm install -r '/sdcard/my game.apk'"),
              "\tpkg: /sdcard/my game.apk\r\nSuccess\r\n");
}

TEST_F(Shell, RemovesAFileAndMindsNoRedirection) {
    ASSERT_TRUE(handset_.PutFile("/data/local/tmp/a.apk", {}));
    EXPECT_EQ(Run("rm -f '/data/local/tmp/a.apk' </dev/null"), "");
    EXPECT_FALSE(handset_.FindFile("/data/local/tmp/a.apk"));
    EXPECT_NE(Run("rm /data/local/tmp/a.apk").find("No such file"), std::string::npos);
}

TEST_F(Shell, SaysWhatItDoesNotKnow) {
    EXPECT_EQ(Run("reboot"), "reboot: not found\r\n");
    EXPECT_EQ(Run(""), "");
    EXPECT_EQ(Run("pm"), "Error: unknown command ''\r\n");
}

TEST(SplitCommand, TakesQuotesAndBackslashesOff) {
    EXPECT_EQ(SplitCommand(R"(a 'b c' "d e" f\ g '')"),
              (std::vector<std::string>{"a", "b c", "d e", "f g", ""}));
}

}  // namespace
}  // namespace quorvi::phone

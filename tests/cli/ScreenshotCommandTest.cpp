// quorvictl screenshot: what it refuses, and what it says without a phone.
#include <gtest/gtest.h>

#include "tests/support/RunProgram.h"
#include "tests/support/ToldAdb.h"

namespace quorvi::cli {
namespace {

void ExpectRefused(const std::string& arguments, const std::string& line) {
    const Ended ended = Err("screenshot " + arguments);
    EXPECT_EQ(ended.status, 1) << arguments;
    EXPECT_EQ(ended.output, "quorvictl: " + line + "\n");
}

TEST(ScreenshotCommand, OtherExtensionsAreRefusedBeforeAdbIsAsked) {
    const ToldAdb adb;
    adb.Print("devices", "List of devices attached\none\tdevice\n\n");
    for (const std::string name : {"a.jpeg", "a.tif", "jpg"}) {
        ExpectRefused(name, name + ": 扩展名不是 jpg、gif、png 或 bmp");
    }
}

TEST(ScreenshotCommand, RotationOutsideZeroToThreeIsRefused) {
    for (const std::string value : {"-1", "4", "x", "1x", "\"\""}) {
        ExpectRefused("a.png --rotate=" + value, "--rotate 的值应为 0 到 3");
    }
}

TEST(ScreenshotCommand, QualityOutsideFiftyToAHundredIsRefused) {
    for (const std::string value : {"49", "101", "x", "90%", "\"\""}) {
        ExpectRefused("a.png --quality=" + value, "--quality 的值应为 50 到 100");
    }
}

TEST(ScreenshotCommand, WithoutAFileItIsWrongUsage) {
    EXPECT_EQ(Err("screenshot").status, 1);
    EXPECT_EQ(Err("screenshot a.png b.png").status, 1);
}

TEST(ScreenshotCommand, WithoutAPhoneItSaysSo) {
    const ToldAdb adb;
    adb.Print("devices", "List of devices attached\n\n");
    const Ended ended = Err("screenshot a.png");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.output, "quorvictl: 没有找到手机，请连接手机后再试\n");
}

TEST(ScreenshotCommand, OfSeveralPhonesTheLinkedOneIsMeant) {
    const ToldAdb adb;
    adb.Print("devices", "List of devices attached\none\tdevice\ntwo\tdevice\n\n");
    const Ended none = Err("screenshot a.png");
    EXPECT_EQ(none.status, 2);
    EXPECT_EQ(none.output, "quorvictl: 有多个设备，请先用 link --serial 连接其中一个\n");
    adb.Print("forward --list", "one tcp:6000 tcp:50505\ntwo tcp:50505 tcp:50505\n");
    // Nobody listens on adb's own port here.
    const Ended linked = Err("screenshot a.png");
    EXPECT_EQ(linked.status, 2);
    EXPECT_EQ(linked.output, "quorvictl: 连接不到 adb，请重新连接手机后再试\n");
}

}  // namespace
}  // namespace quorvi::cli

// quorvictl devices over what adb prints.
#include <gtest/gtest.h>

#include "base/Json.h"
#include "tests/support/BuildPlaces.h"
#include "tests/support/RunProgram.h"
#include "tests/support/ToldAdb.h"

namespace quorvi::cli {
namespace {

TEST(DevicesCommand, GivesEachPhoneWithWhatItTellsOfItself) {
    const ToldAdb adb;
    adb.Print("devices",
              "List of devices attached\r\n"
              "M9-0001\tdevice\r\n"
              "emulator-5554\tdevice\r\n"
              "\r\n");
    adb.Print("-s M9-0001 shell getprop",
              "[ro.build.version.sdk]: [10]\r\n"
              "[ro.product.manufacturer]: [meizu]\r\n"
              "[ro.product.model]: [meizu_m9]\r\n");
    adb.Print("-s emulator-5554 shell getprop",
              "[ro.product.model]: [Nexus S]\n"
              "[ro.product.manufacturer]: [Samsung]\n"
              "[ro.build.version.sdk]: [16]\n");
    const Ended ended = Out("devices --json");
    EXPECT_EQ(ended.status, 0);
    const auto phones = ParseJson(ended.output);
    ASSERT_TRUE(phones && phones->isArray());
    ASSERT_EQ(phones->size(), 2u);

    const Json::Value& first = (*phones)[0];
    EXPECT_EQ(first["serial"], "M9-0001");
    EXPECT_EQ(first["manufacturer"], "meizu");
    EXPECT_EQ(first["model"], "m9");
    EXPECT_EQ(first["brand"], "魅族");
    EXPECT_EQ(first["api_level"], 10);
    EXPECT_EQ(first["android_version"], "Android 2.3.X");
    EXPECT_EQ(first["brand_image"], 21007);
    EXPECT_EQ(first.size(), 7u);

    const Json::Value& second = (*phones)[1];
    EXPECT_EQ(second["serial"], "emulator-5554");
    EXPECT_EQ(second["manufacturer"], "Samsung");
    EXPECT_EQ(second["brand"], "Samsung");
    EXPECT_EQ(second["android_version"], "未知版本");
    EXPECT_EQ(second["brand_image"], 21011);
}

TEST(DevicesCommand, ATableForPeopleHasOneLineAPhone) {
    const ToldAdb adb;
    adb.Print("devices", "List of devices attached\nM9-0001\tdevice\n\n");
    const Ended ended = Out("devices");
    EXPECT_EQ(ended.status, 0);
    EXPECT_NE(ended.output.find("\nM9-0001 "), std::string::npos);
}

TEST(DevicesCommand, APhoneThatVanishedInBetweenHasNoBrandAndLevelZero) {
    const ToldAdb adb;
    adb.Print("devices", "List of devices attached\nM9-0001\tdevice\n\n");
    const auto phones = ParseJson(Out("devices --json").output);
    ASSERT_TRUE(phones && phones->size() == 1);
    EXPECT_EQ((*phones)[0]["brand"], "");
    EXPECT_EQ((*phones)[0]["api_level"], 0);
    EXPECT_EQ((*phones)[0]["brand_image"], 21004);
}

TEST(DevicesCommand, NoPhoneIsAnEmptyArray) {
    const ToldAdb adb;
    adb.Print("devices", "List of devices attached\n\n");
    const Ended ended = Out("devices --json");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output, "[]\n");
}

TEST(DevicesCommand, WithoutAdbItSaysSoWithStatusTwo) {
    const Ended ended =
        RunLine("PATH=/nonexistent " QUORVI_BIN_DIR "/quorvictl devices --json 2>/dev/null");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.output, "");
}

}  // namespace
}  // namespace quorvi::cli

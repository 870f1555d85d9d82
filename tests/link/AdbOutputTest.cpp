#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "link/AdbOutput.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What adb 29.0.6 writes when it has to start its server first, on a pipe that takes both outputs.
constexpr std::string_view kServerStart =
    "* daemon not running; starting now at tcp:5037\n"
    "* daemon started successfully\n";

TEST(ParseDevices, ListWithoutPhonesIsEmpty) {
    EXPECT_THAT(ParseDevices("List of devices attached\n\n"), IsEmpty());
}

TEST(ParseDevices, SerialIsWhatIsLeftOfTheLine) {
    EXPECT_THAT(ParseDevices("List of devices attached\n"
                             "HT04CPL00123\tdevice\n"
                             "\n"),
                ElementsAre("HT04CPL00123"));
}

TEST(ParseDevices, ServerStartUpNoiseIsNoDevice) {
    EXPECT_THAT(ParseDevices(std::string(kServerStart) + "List of devices attached\n\n"),
                IsEmpty());
    EXPECT_THAT(ParseDevices(std::string(kServerStart) +
                             "List of devices attached\nemulator-5554\tdevice\n\n"),
                ElementsAre("emulator-5554"));
}

TEST(ParseDevices, OlderServerStartUpNoiseIsNoDevice) {
    EXPECT_THAT(ParseDevices("* daemon not running. starting it now on port 5037 *\n"
                             "* daemon started successfully *\n"
                             "List of devices attached \n"
                             "HT04CPL00123\tdevice\n\n"),
                ElementsAre("HT04CPL00123"));
    EXPECT_THAT(ParseDevices("adb server version (41) doesn't match this client (39); killing...\n"
                             "* daemon started successfully\n"
                             "List of devices attached\n\n"),
                IsEmpty());
}

TEST(ParseDevices, CarriageReturnsAreTrimmed) {
    EXPECT_THAT(ParseDevices("List of devices attached\r\n"
                             "emulator-5554\tdevice\r\n"
                             "HT04CPL00123\tdevice\r\n"
                             "\r\n"),
                ElementsAre("emulator-5554", "HT04CPL00123"));
}

TEST(ParseDevices, OfflineAndUnauthorizedPhonesAreNotCounted) {
    EXPECT_THAT(ParseDevices("List of devices attached\n"
                             "HT04CPL00123\toffline\n"
                             "0123456789ABCDEF\tunauthorized\n"
                             "emulator-5554\tbootloader\n"
                             "\n"),
                IsEmpty());
}

TEST(ParseDevices, HintOfAPhoneWithoutPermissionsIsNoDeviceLine) {
    EXPECT_THAT(
        ParseDevices("List of devices attached\n"
                     "0123456789ABCDEF\tno permissions (user in plugdev group; are your udev "
                     "rules wrong?); see [http://developer.android.com/tools/device.html]\n"
                     "????????????\tno permissions\n"
                     "emulator-5554\tdevice\n"
                     "\n"),
        ElementsAre("emulator-5554"));
}

TEST(ParseDevices, ReadingStopsAtTheFirstEmptyLine) {
    EXPECT_THAT(ParseDevices("List of devices attached\n"
                             "one\tdevice\n"
                             "\n"
                             "two\tdevice\n"),
                ElementsAre("one"));
    EXPECT_THAT(ParseDevices("\none\tdevice\n"), IsEmpty());
}

TEST(ParseDevices, PhonesWithTheSameSerialAreBothCounted) {
    EXPECT_THAT(ParseDevices("List of devices attached\n"
                             "0123456789ABCDEF\tdevice\n"
                             "0123456789ABCDEF\tdevice\n\n"),
                ElementsAre("0123456789ABCDEF", "0123456789ABCDEF"));
}

// The position of "devices" must be below 1, that of "device" above 0.
TEST(ParseDevices, PositionsOfTheTwoWordsDecide) {
    EXPECT_THAT(ParseDevices("device\n"), IsEmpty());
    EXPECT_THAT(ParseDevices("devices\tdevice\n"), IsEmpty());
    EXPECT_THAT(ParseDevices("one\tdevices\n"), IsEmpty());
    EXPECT_THAT(ParseDevices("one device\n"), ElementsAre("one"));
}

// Every "device" and every blank goes, those inside the serial too: kept on purpose, since it is
// how the list has always been read.
TEST(ParseDevices, WordInsideASerialIsRemovedToo) {
    EXPECT_THAT(ParseDevices("my device 1\tdevice\n"), ElementsAre("my1"));
}

TEST(ParseDevices, LastLineNeedsNoLineEnd) {
    EXPECT_THAT(ParseDevices("List of devices attached\none\tdevice"), ElementsAre("one"));
}

TEST(ParseGetprop, ReadsTheThreeProperties) {
    const DeviceProperties properties = ParseGetprop(
        "[ro.build.version.release]: [2.3.7]\n"
        "[ro.build.version.sdk]: [10]\n"
        "[ro.product.brand]: [htc_wwe]\n"
        "[ro.product.manufacturer]: [HTC]\n"
        "[ro.product.model]: [HTC Desire]\n");
    EXPECT_EQ(properties.apiLevel, 10);
    EXPECT_EQ(properties.manufacturer, "HTC");
    EXPECT_EQ(properties.model, "HTC Desire");
}

TEST(ParseGetprop, CarriageReturnsDoNotMatter) {
    const DeviceProperties properties = ParseGetprop(
        "[ro.build.version.sdk]: [15]\r\n"
        "[ro.product.manufacturer]: [motorola]\r\n"
        "[ro.product.model]: [XT910]\r\n");
    EXPECT_EQ(properties.apiLevel, 15);
    EXPECT_EQ(properties.manufacturer, "motorola");
    EXPECT_EQ(properties.model, "XT910");
}

TEST(ParseGetprop, EmptyOutputGivesEmptyBrandAndLevelZero) {
    const DeviceProperties properties = ParseGetprop("");
    EXPECT_EQ(properties.apiLevel, 0);
    EXPECT_EQ(properties.manufacturer, "");
    EXPECT_EQ(properties.model, "");
}

TEST(ParseGetprop, LevelThatIsNoNumberIsZero) {
    EXPECT_EQ(ParseGetprop("[ro.build.version.sdk]: [REL]\n").apiLevel, 0);
    EXPECT_EQ(ParseGetprop("[ro.build.version.sdk]: []\n").apiLevel, 0);
    EXPECT_EQ(ParseGetprop("[ro.build.version.sdk]: [99999999999999]\n").apiLevel, 2147483647);
}

TEST(ParseGetprop, ValueStandsBetweenTheLastBrackets) {
    EXPECT_EQ(ParseGetprop("[ro.product.model]: [A[B]\n").model, "B");
    EXPECT_EQ(ParseGetprop("ro.product.model\n").model, "");
    EXPECT_EQ(ParseGetprop("]ro.product.model[\n").model, "");
    EXPECT_EQ(ParseGetprop("[ro.product.model\n").model, "");
}

TEST(ParseGetprop, TextsComeInUtf8) {
    EXPECT_EQ(ParseGetprop("[ro.product.manufacturer]: [\xE9\xAD\x85\xE6\x97\x8F]\n").manufacturer,
              Ansi(u8"魅族"));
}

TEST(HoldsPackage, FindsTheAgentAmongOthers) {
    EXPECT_TRUE(
        HoldsPackage("package:com.android.phone\r\n"
                     "package:com.quorvi.Quorvi\r\n"
                     "package:com.android.mms\r\n",
                     "com.quorvi.Quorvi"));
    EXPECT_FALSE(
        HoldsPackage("package:com.android.phone\npackage:com.android.mms\n", "com.quorvi.Quorvi"));
    EXPECT_FALSE(HoldsPackage("", "com.quorvi.Quorvi"));
}

// The name may stand anywhere in a line: kept on purpose, as part of the compatibility rule.
TEST(HoldsPackage, LongerPackageNamePassesTheTest) {
    EXPECT_TRUE(HoldsPackage("package:com.quorvi.Quorvi.plugin\n", "com.quorvi.Quorvi"));
}

TEST(HoldsPackage, LinesBehindTheFirstEmptyOneDoNotCount) {
    EXPECT_FALSE(HoldsPackage("package:a\n \r\npackage:com.quorvi.Quorvi\n", "com.quorvi.Quorvi"));
}

TEST(HoldsPackage, ErrorOfAdbHoldsNoPackage) {
    EXPECT_FALSE(HoldsPackage("error: device 'HT04CPL00123' not found\n", "com.quorvi.Quorvi"));
}

TEST(ParseInstall, EachResultHasItsWord) {
    EXPECT_EQ(
        ParseInstall("Performing Push Install\n"
                     "com.quorvi.Quorvi.apk: 1 file pushed. 1.1 MB/s (20480 bytes in 0.017s)\n"
                     "\tpkg: /data/local/tmp/com.quorvi.Quorvi.apk\n"
                     "Success\n"),
        InstallResult::success);
    EXPECT_EQ(ParseInstall("adb: failed to install com.quorvi.Quorvi.apk: Failure "
                           "[INSTALL_PARSE_FAILED_INCONSISTENT_CERTIFICATES]"),
              InstallResult::otherSignature);
    EXPECT_EQ(ParseInstall("\tpkg: /data/local/tmp/com.quorvi.Quorvi.apk\r\n"
                           "Failure [INSTALL_FAILED_INSUFFICIENT_STORAGE]\r\n"),
              InstallResult::phoneFull);
    EXPECT_EQ(ParseInstall("Failure [INSTALL_FAILED_OLDER_SDK]"), InstallResult::failed);
    EXPECT_EQ(ParseInstall("Performing Push Install\n"
                           "adb: error: failed to get feature set: device 'nosuch' not found\n"),
              InstallResult::failed);
    EXPECT_EQ(ParseInstall(""), InstallResult::failed);
}

TEST(ParseInstall, WordsAreTriedInTheOrderOfTheTable) {
    EXPECT_EQ(ParseInstall("INSTALL_FAILED_INSUFFICIENT_STORAGE "
                           "INSTALL_PARSE_FAILED_INCONSISTENT_CERTIFICATES"),
              InstallResult::otherSignature);
    EXPECT_EQ(ParseInstall("INSTALL_FAILED_INSUFFICIENT_STORAGE Success"), InstallResult::success);
}

}  // namespace
}  // namespace quorvi

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/Text.h"
#include "link/DeviceList.h"
#include "link/FindDevice.h"
#include "link/LinkText.h"
#include "tests/support/FakeAdb.h"

namespace quorvi {
namespace {

constexpr const char* kTwoPhones =
    "printf 'List of devices attached\\nHT04CPL00123\\tdevice\\nemulator-5554\\tdevice\\n\\n'";

// Fails the test when it is asked.
void NobodyChooses(std::string_view) {
    ADD_FAILURE() << "asked to choose";
}

TEST(FindDevice, OnePhoneIsTheChosenOne) {
    const FakeAdb adb("printf 'List of devices attached\\nHT04CPL00123\\tdevice\\n\\n'");
    DeviceContext device;
    EXPECT_EQ(FindDevice(device, NobodyChooses, adb.Environment()), FindDeviceResult::found);
    EXPECT_EQ(device.Serial(), "HT04CPL00123");
    EXPECT_EQ(adb.Runs(), std::vector<std::string>{"devices"});
}

TEST(FindDevice, PhoneBehindTheServersStartUpNoiseIsFound) {
    const FakeAdb adb(
        "printf '* daemon not running; starting now at tcp:5037\\n' >&2\n"
        "printf '* daemon started successfully\\n' >&2\n"
        "printf 'List of devices attached\\nHT04CPL00123\\tdevice\\n\\n'");
    DeviceContext device;
    EXPECT_EQ(FindDevice(device, NobodyChooses, adb.Environment()), FindDeviceResult::found);
    EXPECT_EQ(device.Serial(), "HT04CPL00123");
}

TEST(FindDevice, MissingAdbIsTold) {
    LinkEnvironment environment;
    environment.adbPath = [] { return std::string("/nonexistent/adb"); };
    DeviceContext device;
    EXPECT_EQ(FindDevice(device, NobodyChooses, environment), FindDeviceResult::noAdb);
}

TEST(FindDevice, EmptyListIsTold) {
    const FakeAdb adb("printf 'List of devices attached\\n\\n'");
    DeviceContext device;
    EXPECT_EQ(FindDevice(device, NobodyChooses, adb.Environment()), FindDeviceResult::noDevice);
}

TEST(FindDevice, SerialStaysWhenThePhoneHasGone) {
    const FakeAdb adb("printf 'List of devices attached\\n\\n'");
    DeviceContext device;
    device.SetSerial("HT04CPL00123");
    EXPECT_EQ(FindDevice(device, NobodyChooses, adb.Environment()), FindDeviceResult::noDevice);
    EXPECT_EQ(device.Serial(), "HT04CPL00123");
}

TEST(FindDevice, OfSeveralPhonesTheChooserDecides) {
    const FakeAdb adb(kTwoPhones);
    DeviceContext device;
    device.SetSerial("old");
    const auto choose = [&](std::string_view title) {
        EXPECT_EQ(title, Ansi(u8"连接管理器 - Quorvi"));
        EXPECT_EQ(device.Serial(), "");  // cleared before
        device.SetSerial("emulator-5554");
    };
    EXPECT_EQ(FindDevice(device, choose, adb.Environment()), FindDeviceResult::found);
    EXPECT_EQ(device.Serial(), "emulator-5554");
}

TEST(FindDevice, SeveralPhonesAndNoChoiceIsTold) {
    const FakeAdb adb(kTwoPhones);
    DeviceContext device;
    device.SetSerial("old");
    EXPECT_EQ(FindDevice(
                  device, [](std::string_view) {}, adb.Environment()),
              FindDeviceResult::noneChosen);
    EXPECT_EQ(device.Serial(), "");
}

TEST(FindDevice, TwoPhonesWithTheSameSerialAreSeveral) {
    const FakeAdb adb("printf 'List of devices attached\\nsame\\tdevice\\nsame\\tdevice\\n\\n'");
    DeviceContext device;
    int asked = 0;
    const auto choose = [&](std::string_view) {
        ++asked;
        device.SetSerial("same");
    };
    EXPECT_EQ(FindDevice(device, choose, adb.Environment()), FindDeviceResult::found);
    EXPECT_EQ(asked, 1);
}

TEST(FindDevice, EachCodeHasItsBannerText) {
    EXPECT_EQ(BannerText(FindDeviceResult::found), "");
    EXPECT_EQ(BannerText(FindDeviceResult::noPipe), Ansi(u8"【内部错误】，请重新安装"));
    EXPECT_EQ(BannerText(FindDeviceResult::noDevice), Ansi(u8"【错误】没有找到Android设备"));
    EXPECT_EQ(BannerText(FindDeviceResult::noneChosen), Ansi(u8"【错误】没有选择任何设备"));
}

// As it stands.
TEST(FindDevice, TextOfAMissingAdbHasNoClosingBracket) {
    EXPECT_EQ(BannerText(FindDeviceResult::noAdb), Ansi(u8"【组件丢失，请重新安装"));
}

TEST(ListDevices, AsksEachPhoneInTurn) {
    const FakeAdb adb(
        "case \"$*\" in\n"
        "devices) printf 'List of devices attached\\nHT04\\tdevice\\nmeizu9\\tdevice\\n\\n';;\n"
        "'-s HT04 shell getprop') printf '[ro.build.version.sdk]: [10]\\r\\n"
        "[ro.product.manufacturer]: [HTC]\\r\\n[ro.product.model]: [HTC Desire]\\r\\n';;\n"
        "'-s meizu9 shell getprop') printf '[ro.build.version.sdk]: [8]\\n"
        "[ro.product.manufacturer]: [meizu]\\n[ro.product.model]: [meizu_m9]\\n';;\n"
        "esac");
    const DeviceList list = ListDevices(adb.Environment());
    EXPECT_EQ(list.outcome, RunOutcome::started);
    ASSERT_EQ(list.rows.size(), 2U);

    EXPECT_EQ(list.rows[0].record.serial, "HT04");
    EXPECT_EQ(list.rows[0].record.androidVersion, "Android 2.3.X");
    EXPECT_EQ(list.rows[0].record.brandImage, 21015);
    EXPECT_EQ(HardwareText(list.rows[0].properties), "HTC [ HTC Desire ]");
    EXPECT_EQ(ApiLevelText(list.rows[0].properties), "API Level 10");
    EXPECT_EQ(ConnectionText(list.rows[0].record), Ansi(u8"USB 数据线"));

    EXPECT_EQ(list.rows[1].record.serial, "meizu9");
    EXPECT_EQ(list.rows[1].record.brandImage, 21007);
    EXPECT_EQ(HardwareText(list.rows[1].properties), Ansi(u8"魅族 [ m9 ]"));
}

TEST(ListDevices, RealGetpropIsLongerThanACapture) {
    const FakeAdb adb(
        "case \"$*\" in\n"
        "devices) printf 'List of devices attached\\nHT04\\tdevice\\n\\n';;\n"
        "*) head -c 60000 /dev/zero | tr '\\0' '\\n'; echo '[ro.product.model]: [Desire]';;\n"
        "esac");
    EXPECT_EQ(ListDevices(adb.Environment()).rows.at(0).properties.model, "Desire");
}

TEST(ListDevices, PhoneThatVanishedGivesARowWithoutBrand) {
    const FakeAdb adb(
        "test \"$*\" = devices && printf 'List of devices attached\\nHT04\\tdevice\\n\\n'");
    const DeviceList list = ListDevices(adb.Environment());
    ASSERT_EQ(list.rows.size(), 1U);
    EXPECT_EQ(list.rows[0].record.serial, "HT04");
    EXPECT_EQ(list.rows[0].record.brandImage, 21004);
    EXPECT_EQ(list.rows[0].record.androidVersion, Ansi(u8"未知版本"));
    EXPECT_EQ(HardwareText(list.rows[0].properties), " [  ]");
    EXPECT_EQ(ApiLevelText(list.rows[0].properties), "API Level 0");
}

TEST(ListDevices, MissingAdbIsTold) {
    LinkEnvironment environment;
    environment.adbPath = [] { return std::string("/nonexistent/adb"); };
    EXPECT_EQ(ListDevices(environment).outcome, RunOutcome::noProcess);
}

TEST(ConnectionText, AnyKindButZeroIsWireless) {
    DeviceRecord record;
    record.connectionKind = 7;
    EXPECT_EQ(ConnectionText(record), Ansi(u8"WiFi 无线网络"));
}

}  // namespace
}  // namespace quorvi

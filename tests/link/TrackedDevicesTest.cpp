#include <gtest/gtest.h>

#include <string>

#include "link/TrackedDevices.h"

namespace quorvi {
namespace {

TrackedDevices Read(std::string_view bytes) {
    TrackReader reader;
    reader.Feed(bytes);
    return reader.Take().value_or(TrackedDevices{{"nothing was read", DeviceState::other}});
}

TEST(TrackedDevices, EachStateHasItsWord) {
    EXPECT_EQ(ParseDeviceState("device"), DeviceState::ready);
    EXPECT_EQ(ParseDeviceState("unauthorized"), DeviceState::unauthorized);
    EXPECT_EQ(ParseDeviceState("offline"), DeviceState::offline);
    for (const char* word : {"authorizing", "connecting", "bootloader", "recovery", "sideload",
                             "host", "unknown", "", "device2", "a device"}) {
        EXPECT_EQ(ParseDeviceState(word), DeviceState::other) << word;
    }
}

TEST(TrackedDevices, NoPermissionsIsReadWhateverHintStandsBehindIt) {
    EXPECT_EQ(ParseDeviceState("no permissions"), DeviceState::noPermissions);
    EXPECT_EQ(ParseDeviceState("no permissions (user in plugdev group; are your udev rules "
                               "wrong?); see [http://developer.android.com/tools/device.html]"),
              DeviceState::noPermissions);
}

TEST(TrackedDevices, AListIsALineAPhone) {
    EXPECT_EQ(Read("002F"                           // length: 47
                   "HT04CPL00123\tdevice\n"         // ready
                   "emulator-5554\tunauthorized\n"  // waits for its user
                   ),
              (TrackedDevices{{"HT04CPL00123", DeviceState::ready},
                              {"emulator-5554", DeviceState::unauthorized}}));
}

TEST(TrackedDevices, AnEmptyListIsAListToo) {
    EXPECT_EQ(Read("0000"), TrackedDevices());
}

TEST(TrackedDevices, TwoPhonesOfOneSerialAreTwo) {
    EXPECT_EQ(ParseTrackedDevices("one\tdevice\none\toffline\n").size(), 2U);
}

TEST(TrackedDevices, ALineWithoutSerialOrStateIsNoPhone) {
    EXPECT_EQ(ParseTrackedDevices("\tdevice\none device\n\n\n"), TrackedDevices());
    EXPECT_EQ(ParseTrackedDevices("one\t\n"), (TrackedDevices{{"one", DeviceState::other}}));
}

TEST(TrackedDevices, CarriageReturnsBehindTheStateDoNotCount) {
    EXPECT_EQ(ParseTrackedDevices("one\tdevice\r\n"),
              (TrackedDevices{{"one", DeviceState::ready}}));
}

TEST(TrackedDevices, MorePhonesThanTheLimitAreDropped) {
    std::string list;
    for (std::size_t i = 0; i < 3 * kMostTrackedDevices; ++i) {
        list += "phone" + std::to_string(i) + "\tdevice\n";
    }
    EXPECT_EQ(ParseTrackedDevices(list).size(), kMostTrackedDevices);
}

TEST(TrackedDevices, MessagesMayBeCutAnywhere) {
    const std::string bytes =
        "000B"           // length: 11
        "one\tdevice\n"  //
        "0000"           // all gone
        "000C"           // length: 12
        "two\toffline\n";
    TrackReader reader;
    std::vector<TrackedDevices> lists;
    for (const char byte : bytes) {
        reader.Feed(std::string_view(&byte, 1));
        while (auto list = reader.Take()) {
            lists.push_back(*list);
        }
    }
    ASSERT_EQ(lists.size(), 3U);
    EXPECT_EQ(lists[0], (TrackedDevices{{"one", DeviceState::ready}}));
    EXPECT_EQ(lists[1], TrackedDevices());
    EXPECT_EQ(lists[2], (TrackedDevices{{"two", DeviceState::offline}}));
    EXPECT_FALSE(reader.Broken());
}

TEST(TrackedDevices, ALengthInSmallLettersIsRead) {
    EXPECT_EQ(Read("000bone\tdevice\n"), (TrackedDevices{{"one", DeviceState::ready}}));
}

TEST(TrackedDevices, ALengthThatIsNoNumberEndsTheReading) {
    for (const char* bytes : {"00G0one\tdevice\n", "-001x", "+001x", " 001x", "FAIL", "0x01a"}) {
        TrackReader reader;
        reader.Feed(bytes);
        EXPECT_FALSE(reader.Take().has_value()) << bytes;
        EXPECT_TRUE(reader.Broken()) << bytes;
        reader.Feed("0000");
        EXPECT_FALSE(reader.Take().has_value()) << bytes;
    }
}

TEST(TrackedDevices, ALongerListThanHasComeIsWaitedFor) {
    TrackReader reader;
    reader.Feed("FFFFone\tdevice\n");
    EXPECT_FALSE(reader.Take().has_value());
    EXPECT_FALSE(reader.Broken());
}

TEST(TrackedDevices, WirelessPhonesAreKnownByTheirSerials) {
    for (const char* serial : {"192.168.1.23:5555", "[fe80::1]:5555", "phone.lan:41234",
                               "adb-HT04CPL00123-x1Y2z3._adb-tls-connect._tcp",
                               "adb-HT04CPL00123-x1Y2z3._adb-tls-connect._tcp."}) {
        EXPECT_TRUE(IsWirelessSerial(serial)) << serial;
    }
    for (const char* serial : {"HT04CPL00123", "emulator-5554", "", "????????????", "._tcp.x"}) {
        EXPECT_FALSE(IsWirelessSerial(serial)) << serial;
    }
}

}  // namespace
}  // namespace quorvi

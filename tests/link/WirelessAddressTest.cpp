#include <gmock/gmock.h>

#include <string>

#include "link/WirelessAddress.h"
#include "tests/support/MemorySettings.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kStored = "wireless_phones";

TEST(WirelessAddress, AnAddressHasAHostAndAPort) {
    EXPECT_EQ(NormalAddress("192.168.1.23:41234"), "192.168.1.23:41234");
    EXPECT_EQ(NormalAddress(" phone.lan:5555\r\n"), "phone.lan:5555");
    EXPECT_EQ(NormalAddress("[fe80::1]:41234"), "[fe80::1]:41234");
    EXPECT_EQ(NormalAddress("host:65535"), "host:65535");
}

TEST(WirelessAddress, APortThatIsMissingIsTheUsualOne) {
    EXPECT_EQ(NormalAddress("192.168.1.23"), "192.168.1.23:5555");
    EXPECT_EQ(NormalAddress("fe80::1"), "[fe80::1]:5555");
    EXPECT_EQ(NormalAddress("[fe80::1]"), "[fe80::1]:5555");
}

TEST(WirelessAddress, APortThatIsMissingIsNoAddressWhereNoneIsUsual) {
    for (const char* typed : {"192.168.1.23", "fe80::1", "[fe80::1]"}) {
        EXPECT_EQ(NormalAddress(typed, std::nullopt), std::nullopt) << typed;
    }
}

TEST(WirelessAddress, APortIsANumberFrom1To65535) {
    for (const char* typed : {"host:", "host:0", "host:65536", "host:-1", "host:+1", "host:0x10",
                              "host:55 55", "host:5555x", "[::1]:", "[::1]5555"}) {
        EXPECT_EQ(NormalAddress(typed), std::nullopt) << typed;
    }
}

TEST(WirelessAddress, WhatAdbOrAShellWouldTakeForSomethingElseIsNoAddress) {
    for (const char* typed :
         {"-s",  "--help", "-a:5555",     ".host",     "host;reboot", "$(reboot)",
          "a b", "a\tb:1", "host\n-s",    "'host'",    "host/..",     "user@host",
          "[",   "[]",     "[host]:5555", "[1:2",      "]:1",         "",
          " ",   ":5555",  "host:1:x",    "电话:5555", "host%eth0:1"}) {
        EXPECT_EQ(NormalAddress(typed), std::nullopt) << typed;
    }
    EXPECT_EQ(NormalAddress(std::string("host\0x:1", 8)), std::nullopt);
}

TEST(WirelessAddress, AHostLongerThanNamesAreIsNone) {
    EXPECT_TRUE(NormalAddress(std::string(253, 'a')).has_value());
    EXPECT_FALSE(NormalAddress(std::string(254, 'a')).has_value());
    EXPECT_FALSE(NormalAddress(std::string(300, ':')).has_value());
}

TEST(WirelessAddress, APairingCodeIsSixDigits) {
    EXPECT_TRUE(IsPairingCode("012345"));
    for (const char* text : {"", "12345", "1234567", "12345a", "-12345", " 12345", "12 345"}) {
        EXPECT_FALSE(IsPairingCode(text)) << text;
    }
}

TEST(WirelessAddress, TheLastAddressIsRememberedInFront) {
    MemorySettings settings;
    EXPECT_THAT(RememberedAddresses(settings), IsEmpty());
    EXPECT_TRUE(RememberAddress(settings, "one:1"));
    EXPECT_TRUE(RememberAddress(settings, "[fe80::1]:2"));
    EXPECT_TRUE(RememberAddress(settings, "one:1"));
    EXPECT_THAT(RememberedAddresses(settings), ElementsAre("one:1", "[fe80::1]:2"));
}

TEST(WirelessAddress, OldAddressesGiveWay) {
    MemorySettings settings;
    for (int i = 1; i <= 20; ++i) {
        RememberAddress(settings, "host:" + std::to_string(i));
    }
    const std::vector<std::string> addresses = RememberedAddresses(settings);
    ASSERT_EQ(addresses.size(), kMostRememberedAddresses);
    EXPECT_EQ(addresses.front(), "host:20");
    EXPECT_EQ(addresses.back(), "host:13");
}

TEST(WirelessAddress, WhatSomebodyWroteIntoTheSettingsIsNotRemembered) {
    MemorySettings settings;
    settings.WriteText(kSettingsKey, kStored, "--help one:1 $(reboot) one  one:1 two:2 -s:5");
    EXPECT_THAT(RememberedAddresses(settings), ElementsAre("one:1", "two:2"));
}

}  // namespace
}  // namespace quorvi

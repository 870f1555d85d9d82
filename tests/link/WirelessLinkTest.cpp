#include <gmock/gmock.h>

#include "base/Text.h"
#include "link/AdbCommand.h"
#include "link/DeviceList.h"
#include "link/WirelessLink.h"
#include "tests/support/FakeAdb.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr FoundPhone::Waits kToConnect = FoundPhone::Waits::toConnect;
constexpr FoundPhone::Waits kToPair = FoundPhone::Waits::toPair;

TEST(MdnsServices, EachServiceOfAPhoneIsRead) {
    EXPECT_THAT(ParseMdnsServices("List of discovered mdns services\n"
                                  "adb-HT04-x1Y2z3\t_adb-tls-connect._tcp\t192.168.1.23:41234\n"
                                  "adb-HT04-x1Y2z3\t_adb-tls-pairing._tcp.\t192.168.1.23:37123\r\n"
                                  "adb-OLD\t_adb._tcp\t[fe80::1]:5555\n"),
                ElementsAre(FoundPhone{"adb-HT04-x1Y2z3", "192.168.1.23:41234", kToConnect},
                            FoundPhone{"adb-HT04-x1Y2z3", "192.168.1.23:37123", kToPair},
                            FoundPhone{"adb-OLD", "[fe80::1]:5555", kToConnect}));
}

TEST(MdnsServices, OtherServicesAndOtherTextsAreLeftOut) {
    EXPECT_THAT(ParseMdnsServices(""), IsEmpty());
    EXPECT_THAT(ParseMdnsServices("adb: unknown command mdns\n"), IsEmpty());
    EXPECT_THAT(ParseMdnsServices("printer\t_ipp._tcp\t192.168.1.9:631\n"
                                  "two fields\t_adb._tcp\n"
                                  "four\t_adb._tcp\t192.168.1.9:631\tfields\n"
                                  "\t_adb._tcp\t192.168.1.9:631\n"),
                IsEmpty());
}

TEST(MdnsServices, AServiceWhoseAddressIsNoneIsLeftOut) {
    EXPECT_THAT(ParseMdnsServices("evil\t_adb._tcp\t--help\n"
                                  "evil\t_adb._tcp\t-s:5555\n"
                                  "evil\t_adb._tcp\t$(reboot):5555\n"
                                  "evil\t_adb._tcp\t192.168.1.9\n"
                                  "evil\t_adb._tcp\t192.168.1.9:99999\n"),
                IsEmpty());
}

TEST(MdnsServices, MoreServicesThanTheLimitAreDropped) {
    std::string text;
    for (std::size_t i = 0; i < 3 * kMostFoundPhones; ++i) {
        text += "phone\t_adb._tcp\thost:1\n";
    }
    EXPECT_EQ(ParseMdnsServices(text).size(), kMostFoundPhones);
}

TEST(ConnectResult, EachAnswerOfAdbIsTold) {
    EXPECT_EQ(ParseConnect("connected to host:5555\n"), ConnectResult::connected);
    EXPECT_EQ(ParseConnect("already connected to host:5555\n"), ConnectResult::connected);
    EXPECT_EQ(ParseConnect("* daemon not running; starting now at tcp:5037\n"
                           "* daemon started successfully\nconnected to host:5555\n"),
              ConnectResult::connected);
    EXPECT_EQ(ParseConnect("failed to authenticate to host:5555\n"), ConnectResult::notAllowed);
    EXPECT_EQ(ParseConnect("failed to connect to 'host:5555': Connection refused\n"),
              ConnectResult::failed);
    EXPECT_EQ(ParseConnect("failed to resolve host: 'connected to x'\n"), ConnectResult::failed);
    EXPECT_EQ(ParseConnect(""), ConnectResult::failed);
}

TEST(PairResult, EachAnswerOfAdbIsTold) {
    EXPECT_EQ(ParsePair("Successfully paired to host:37123 [guid=adb-HT04-x1Y2z3]\n"),
              PairResult::paired);
    EXPECT_EQ(ParsePair("Failed: Wrong password or connection was dropped.\n"),
              PairResult::wrongCode);
    EXPECT_EQ(ParsePair("Failed: Unable to start pairing client.\n"), PairResult::failed);
    EXPECT_EQ(ParsePair("adb: unknown command pair\n"), PairResult::tooOld);
    EXPECT_EQ(ParsePair("error: unknown host service\n"), PairResult::tooOld);
    EXPECT_EQ(ParsePair(""), PairResult::failed);
}

TEST(WirelessLink, ConnectGivesAdbTheAddressAsOneArgument) {
    const FakeAdb adb("echo connected to it");
    EXPECT_EQ(ConnectWireless(" 192.168.1.23 ", adb.Environment()), ConnectResult::connected);
    EXPECT_THAT(adb.Calls(), ElementsAre(ElementsAre("connect", "192.168.1.23:5555")));
}

TEST(WirelessLink, PairGivesAdbTheAddressAndTheSixDigits) {
    const FakeAdb adb("echo 'Successfully paired to it'");
    EXPECT_EQ(PairWireless("192.168.1.23:37123", "012345", adb.Environment()), PairResult::paired);
    EXPECT_THAT(adb.Calls(), ElementsAre(ElementsAre("pair", "192.168.1.23:37123", "012345")));
}

TEST(WirelessLink, WhatIsNoAddressOrNoCodeNeverReachesAdb) {
    const FakeAdb adb("echo connected to it");
    for (const char* address : {"--help", "-s", "a b", "", "host;reboot"}) {
        EXPECT_EQ(ConnectWireless(address, adb.Environment()), ConnectResult::noAddress) << address;
        EXPECT_EQ(PairWireless(address, "123456", adb.Environment()), PairResult::noAddress)
            << address;
    }
    // The port of a pairing is another each time.
    EXPECT_EQ(PairWireless("192.168.1.23", "123456", adb.Environment()), PairResult::noAddress);
    for (const char* code : {"", "12345", "-12345", "1234 6"}) {
        EXPECT_EQ(PairWireless("host:1", code, adb.Environment()), PairResult::noCode) << code;
    }
    EXPECT_THAT(adb.Runs(), IsEmpty());
}

TEST(WirelessLink, PhonesInTheNetworkAreAskedForByTheirServices) {
    const FakeAdb adb("printf 'adb-HT04\\t_adb._tcp\\thost:1\\n'");
    EXPECT_THAT(FindWirelessPhones(adb.Environment()),
                ElementsAre(FoundPhone{"adb-HT04", "host:1", kToConnect}));
    EXPECT_THAT(adb.Runs(), ElementsAre("mdns services"));
}

TEST(WirelessLink, AMissingAdbIsTold) {
    LinkEnvironment environment;
    environment.adbPath = [] { return std::string("/nonexistent/adb"); };
    EXPECT_EQ(ConnectWireless("host", environment), ConnectResult::noAdb);
    EXPECT_EQ(PairWireless("host:1", "123456", environment), PairResult::noAdb);
    EXPECT_THAT(FindWirelessPhones(environment), IsEmpty());
}

TEST(WirelessLink, EachEndHasItsText) {
    EXPECT_EQ(StatusText(ConnectResult::connected), Ansi(u8"无线连接成功"));
    for (int i = 1; i <= static_cast<int>(ConnectResult::noAdb); ++i) {
        EXPECT_TRUE(StatusText(static_cast<ConnectResult>(i)).starts_with(Ansi(u8"【错误】"))) << i;
    }
    EXPECT_EQ(StatusText(PairResult::paired), Ansi(u8"配对成功，可以连接了"));
    for (int i = 1; i <= static_cast<int>(PairResult::noAdb); ++i) {
        EXPECT_TRUE(StatusText(static_cast<PairResult>(i)).starts_with(Ansi(u8"【错误】"))) << i;
    }
}

TEST(WirelessLink, APhoneInTheNetworkIsMarkedAsOne) {
    EXPECT_EQ(ConnectionText(MakeDeviceRow("192.168.1.23:5555", "").record),
              Ansi(u8"WiFi 无线网络"));
    EXPECT_EQ(ConnectionText(MakeDeviceRow("HT04CPL00123", "").record), Ansi(u8"USB 数据线"));
}

}  // namespace
}  // namespace quorvi

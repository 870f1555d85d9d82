#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "base/ByteText.h"
#include "base/Text.h"
#include "link/AdbHostClient.h"
#include "link/LinkText.h"
#include "tests/support/LoopbackAgent.h"

namespace quorvi {
namespace {

using testing::ElementsAre;

std::vector<ForwardEvent> Forward(const AdbHostClient& client, std::string_view serial) {
    std::vector<ForwardEvent> events;
    const bool stands =
        client.ForwardAgentPort(serial, [&](ForwardEvent event) { events.push_back(event); });
    EXPECT_EQ(stands, events.back() == ForwardEvent::standing);
    return events;
}

TEST(AdbHostClient, LengthPrefixCountsBytesInUpperCase) {
    EXPECT_EQ(AdbHostClient::Frame("host:transport:HT04CPL0012"), "001Ahost:transport:HT04CPL0012");
    EXPECT_EQ(AdbHostClient::Frame(""), "0000");
    EXPECT_EQ(AdbHostClient::Frame("\xC4\xA7"), "0002\xC4\xA7");  // two bytes, one character
}

TEST(AdbHostClient, ForwardIsOneFrameInOneSend) {
    LoopbackAgent server({ToBytes("OKAY"), Answer::End::wait});
    EXPECT_THAT(Forward(AdbHostClient(server.Port()), "HT04CPL00123"),
                ElementsAre(ForwardEvent::standing));
    const Exchange exchange = server.Exchanges(1).front();
    EXPECT_EQ(AsText(exchange.firstPiece),
              "0034"                            // length of the service
              "host-serial:HT04CPL00123"        // of which phone
              ":forward:tcp:50505;tcp:50505");  // from which port to which
    EXPECT_TRUE(exchange.rest.empty());
    EXPECT_TRUE(exchange.closedByPeer);
}

TEST(AdbHostClient, SecondStatusWordIsLeftUnread) {
    LoopbackAgent server({ToBytes("OKAYOKAY"), Answer::End::wait});
    EXPECT_THAT(Forward(AdbHostClient(server.Port()), "x"), ElementsAre(ForwardEvent::standing));
}

TEST(AdbHostClient, ForwardThatStandsIsSetAgainWithoutHarm) {
    LoopbackAgent server({ToBytes("OKAY"), Answer::End::wait});
    const AdbHostClient client(server.Port());
    EXPECT_THAT(Forward(client, "x"), ElementsAre(ForwardEvent::standing));
    EXPECT_THAT(Forward(client, "x"), ElementsAre(ForwardEvent::standing));
    EXPECT_EQ(server.Exchanges(2).size(), 2U);
}

TEST(AdbHostClient, EveryOtherWordIsAFailure) {
    for (const char* const word : {"FAIL0012device 'x' not found", "okay", "OKA", "", "OKAX"}) {
        LoopbackAgent server({ToBytes(word), Answer::End::close});
        EXPECT_THAT(Forward(AdbHostClient(server.Port()), "x"), ElementsAre(ForwardEvent::refused))
            << word;
    }
}

TEST(AdbHostClient, ConnectionThatBreaksIsAFailure) {
    LoopbackAgent server({ToBytes(""), Answer::End::reset});
    EXPECT_THAT(Forward(AdbHostClient(server.Port()), "x"), ElementsAre(ForwardEvent::refused));
}

TEST(AdbHostClient, ServerThatDoesNotRunIsAFailure) {
    EXPECT_THAT(Forward(AdbHostClient(UnusedPort()), "x"), ElementsAre(ForwardEvent::refused));
}

// Both texts are shown, the second in place of the first; kept on purpose,
// since both are told as they happen.
TEST(AdbHostClient, EmptySerialIsToldAndThenRefused) {
    LoopbackAgent server({ToBytes("OKAY"), Answer::End::wait});
    EXPECT_THAT(Forward(AdbHostClient(server.Port()), ""),
                ElementsAre(ForwardEvent::noSerial, ForwardEvent::refused));
    EXPECT_TRUE(server.Exchanges(1).front().firstPiece.empty());
}

// As for the empty serial.
TEST(AdbHostClient, SendOfNothingIsToldAndThenRefused) {
    LoopbackAgent server({ToBytes("OKAY"), Answer::End::wait});
    const AdbHostClient client(
        server.Port(),
        [](const TcpSocket&, std::span<const std::byte>) -> std::ptrdiff_t { return 0; });
    EXPECT_THAT(Forward(client, "x"), ElementsAre(ForwardEvent::sendFailed, ForwardEvent::refused));
}

TEST(AdbHostClient, SerialWithABlankIsSentAsItStands) {
    LoopbackAgent server({ToBytes("OKAY"), Answer::End::wait});
    Forward(AdbHostClient(server.Port()), "a b");
    EXPECT_EQ(AsText(server.Exchanges(1).front().firstPiece),
              "002Bhost-serial:a b:forward:tcp:50505;tcp:50505");
}

TEST(AdbHostClient, LongestSerialIsWhatFitsIntoTheRequest) {
    // 4 for the length, 12 for "host-serial:", 28 for ":forward:tcp:50505;tcp:50505" and the serial
    constexpr std::size_t kRest = 4 + 12 + 28;
    LoopbackAgent server({ToBytes("OKAY"), Answer::End::wait});
    const AdbHostClient client(server.Port());
    EXPECT_THAT(Forward(client, std::string(kHostRequestBytes - kRest, 's')),
                ElementsAre(ForwardEvent::standing));
    EXPECT_THAT(Forward(client, std::string(kHostRequestBytes - kRest + 1, 's')),
                ElementsAre(ForwardEvent::refused));
    const auto exchanges = server.Exchanges(2);
    EXPECT_EQ(exchanges[0].firstPiece.size(), kHostRequestBytes);
    EXPECT_TRUE(exchanges[1].firstPiece.empty());
}

int DelayOption(const TcpSocket& socket) {
    int off = -1;
    socklen_t size = sizeof off;
    getsockopt(socket.Descriptor(), IPPROTO_TCP, TCP_NODELAY, &off, &size);
    return off;
}

TEST(AdbHostClient, DelayIsKeptWhereToldSo) {
    LoopbackAgent server({ToBytes("OKAY"), Answer::End::wait});
    const AdbHostClient client(server.Port());
    EXPECT_EQ(DelayOption(client.Open(TcpSocket::Delay::keep)), 0);
    EXPECT_EQ(DelayOption(client.Open()), 1);
}

TEST(AdbHostClient, LengthIsInLowerCaseWhereToldSo) {
    EXPECT_EQ(AdbHostClient::Frame("framebuffer:", LengthDigits::lowerCase), "000cframebuffer:");
    LoopbackAgent server({ToBytes("OKAY"), Answer::End::wait});
    const AdbHostClient client(server.Port());
    {
        const TcpSocket socket = client.Open();
        EXPECT_EQ(client.Send(socket, "framebuffer:", LengthDigits::lowerCase), 16);
    }
    EXPECT_EQ(AsText(server.Exchanges(1).front().firstPiece), "000cframebuffer:");
}

TEST(AdbServerPort, VariableOfAdbNamesAnotherPort) {
    const char* const before = std::getenv("ANDROID_ADB_SERVER_PORT");
    const std::string kept = before == nullptr ? "" : before;
    setenv("ANDROID_ADB_SERVER_PORT", "5038", 1);
    EXPECT_EQ(AdbServerPort(), 5038);
    for (const char* const unusable : {"", "0", "65536", "-1", "50x", "port"}) {
        setenv("ANDROID_ADB_SERVER_PORT", unusable, 1);
        EXPECT_EQ(AdbServerPort(), 5037) << unusable;
    }
    unsetenv("ANDROID_ADB_SERVER_PORT");
    EXPECT_EQ(AdbServerPort(), 5037);
    if (before != nullptr) {
        setenv("ANDROID_ADB_SERVER_PORT", kept.c_str(), 1);
    }
}

TEST(ForwardText, BannerAndStatusHaveTheirOwnTexts) {
    EXPECT_EQ(BannerText(ForwardEvent::noSerial), Ansi(u8"【错误】没有找到Android设备"));
    EXPECT_EQ(BannerText(ForwardEvent::sendFailed), Ansi(u8"【错误】连接端口失败"));
    EXPECT_EQ(BannerText(ForwardEvent::refused), Ansi(u8"【错误】连接协议失败"));
    EXPECT_EQ(StatusText(ForwardEvent::noSerial), Ansi(u8"【错误】没有找到设备"));
    EXPECT_EQ(StatusText(ForwardEvent::sendFailed), Ansi(u8"【错误】连接端口失败"));
    EXPECT_EQ(StatusText(ForwardEvent::refused), Ansi(u8"【错误】连接协议失败"));
    EXPECT_EQ(StatusText(ForwardEvent::standing), Ansi(u8"连接协议成功"));
}

}  // namespace
}  // namespace quorvi

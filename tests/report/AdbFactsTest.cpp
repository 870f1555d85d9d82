#include <gtest/gtest.h>
#include <sys/socket.h>

#include <array>
#include <span>
#include <thread>

#include "base/Text.h"
#include "report/AdbFacts.h"
#include "tests/support/FakeAdb.h"
#include "tests/support/LoopbackPort.h"

namespace quorvi {
namespace {

// A server that takes one connection and says one thing.
class SayingServer {
  public:
    explicit SayingServer(std::string says)
        : thread_([this, says = std::move(says)] {
              const TcpSocket peer(accept4(listener_.Descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
              std::array<char, 22> request{};  // "0012host:track-devices"
              peer.ReceiveAll(std::as_writable_bytes(std::span(request)));
              EXPECT_EQ(std::string_view(request.data(), request.size()), "0012host:track-devices");
              peer.Send(std::as_bytes(std::span(says)));
          }) {}
    ~SayingServer() { thread_.join(); }
    [[nodiscard]] std::uint16_t Port() const { return PortOf(listener_); }

  private:
    TcpSocket listener_ = ListenOn(0);
    std::thread thread_;
};

AdbFacts Ask(const FakeAdb& adb, std::string says) {
    const SayingServer server(std::move(says));
    LinkEnvironment environment = adb.Environment();
    environment.hostPort = server.Port();
    return AskAdb(environment);
}

TEST(AdbVersion, BothAreReadAndThePathIsNot) {
    EXPECT_EQ(ParseAdbVersion("Android Debug Bridge version 1.0.41\n"
                              "Version 28.0.2-debian\n"
                              "Installed as /home/lin/adb\n"),
              (AdbVersion{"1.0.41", "28.0.2-debian"}));
}

TEST(AdbVersion, OldOnesTellOneAndOthersNone) {
    EXPECT_EQ(ParseAdbVersion("Android Debug Bridge version 1.0.32\r\n"),
              (AdbVersion{"1.0.32", "unknown"}));
    EXPECT_EQ(ParseAdbVersion("adb: 13861234567"), (AdbVersion{"unknown", "unknown"}));
    EXPECT_EQ(ParseAdbVersion(""), (AdbVersion{"unknown", "unknown"}));
}

TEST(AdbFacts, PhonesOfTheServerAreToldWithTheirStates) {
    const FakeAdb adb("echo 'Android Debug Bridge version 1.0.41'");
    const AdbFacts facts = Ask(adb,
                               "OKAY"
                               "0046"  // bytes of the list
                               "HT04XPL00342\tdevice\n"
                               "192.168.1.23:5555\tunauthorized\n"
                               "QV12345678\toffline\n");
    EXPECT_EQ(facts.version, (AdbVersion{"1.0.41", "unknown"}));
    ASSERT_TRUE(facts.devices);
    EXPECT_EQ(ToUtf8(AdbFactsText(facts)),
              "adb: 1.0.41\n"
              "adb 的发行版本: unknown\n"
              "adb 服务: 正在运行\n"
              "adb 列出的手机: 3\n"
              "  HT..42，数据线，可以使用\n"
              "  19..55，无线，手机还没有允许这台电脑\n"
              "  QV..78，数据线，没有回答\n");
}

TEST(AdbFacts, AServerThatRefusesOrTalksOtherwiseDoesNotAnswer) {
    const FakeAdb adb("exit 0");
    EXPECT_FALSE(Ask(adb, "FAIL0002no").devices);
    EXPECT_FALSE(Ask(adb, "OK").devices);
    EXPECT_FALSE(Ask(adb, "OKAYnone").devices);
    EXPECT_FALSE(Ask(adb, "OKAY0010HT04").devices);
    EXPECT_FALSE(Ask(adb, "").devices);
}

TEST(AdbFacts, AnAdbThatIsNotThereIsTold) {
    LinkEnvironment environment;
    environment.adbPath = [] { return std::string("/nowhere/adb"); };
    environment.hostPort = UnusedPort();
    EXPECT_EQ(ToUtf8(AdbFactsText(AskAdb(environment))),
              "adb: 无法运行\nadb 服务: 没有运行，或者没有回答\n");
}

}  // namespace
}  // namespace quorvi

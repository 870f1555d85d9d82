#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <condition_variable>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "base/ByteText.h"
#include "base/Text.h"
#include "base/Utf8.h"
#include "link/PhoneLink.h"
#include "tests/support/Await.h"
#include "tests/support/FakeAdb.h"
#include "tests/support/LoopbackAgent.h"

namespace quorvi {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::Pair;

constexpr auto kWorking = BannerState::working;
constexpr auto kError = BannerState::error;
constexpr auto kSuccess = BannerState::success;

// Remembers the banners and waits for the procedure's end.
class RecordingFace : public LinkFace {
  public:
    void ShowBanner(std::string text, BannerState state) override {
        const std::lock_guard lock(mutex_);
        banners_.emplace_back(ToUtf8(text), state);
        changed_.notify_all();
    }
    void ChooseDevice(std::string_view title) override {
        titles.push_back(ToUtf8(title));
        if (choose) {
            choose();
        }
    }
    void LinkUp() override {
        const std::lock_guard lock(mutex_);
        ++linkUps_;
    }
    void LinkEnded() override {
        const std::lock_guard lock(mutex_);
        ++ends_;
        changed_.notify_all();
    }

    bool Ended(int times = 1) {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, 60s, [&] { return ends_ >= times; });
    }
    std::vector<std::pair<std::string, BannerState>> Banners() {
        const std::lock_guard lock(mutex_);
        return banners_;
    }
    int LinkUps() {
        const std::lock_guard lock(mutex_);
        return linkUps_;
    }

    std::vector<std::string> titles;
    std::function<void()> choose;

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::pair<std::string, BannerState>> banners_;
    int linkUps_ = 0;
    int ends_ = 0;
};

class RecordingClock : public Clock {
  public:
    void SleepFor(std::chrono::milliseconds time) override {
        std::unique_lock lock(mutex_);
        sleeps_.push_back(time);
        changed_.notify_all();
        changed_.wait(lock, [&] { return !held_; });
    }
    // Keeps whoever sleeps from waking.
    void Hold(bool held) {
        const std::lock_guard lock(mutex_);
        held_ = held;
        changed_.notify_all();
    }
    void AwaitSleeper() {
        std::unique_lock lock(mutex_);
        changed_.wait_for(lock, 60s, [&] { return !sleeps_.empty(); });
    }
    std::vector<std::chrono::milliseconds> Sleeps() {
        const std::lock_guard lock(mutex_);
        return sleeps_;
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::chrono::milliseconds> sleeps_;
    bool held_ = false;
};

Bytes Okay() {
    return ToBytes("OKAY");
}

// While it lives no thread can be made: none has room for such a stack.
class NoMoreThreads {
  public:
    NoMoreThreads() {
        pthread_getattr_default_np(&usual_);
        pthread_attr_t huge;
        pthread_attr_init(&huge);
        pthread_attr_setstacksize(&huge, std::size_t{1} << 60);
        EXPECT_EQ(pthread_setattr_default_np(&huge), 0);
        pthread_attr_destroy(&huge);
    }
    ~NoMoreThreads() {
        pthread_setattr_default_np(&usual_);
        pthread_attr_destroy(&usual_);
    }
    NoMoreThreads(const NoMoreThreads&) = delete;
    NoMoreThreads& operator=(const NoMoreThreads&) = delete;

  private:
    pthread_attr_t usual_{};
};

// One phone, an adb whose answers are files in its directory, and a server and an agent behind
// ports of their own.
class PhoneLinkTest : public testing::Test {
  protected:
    static constexpr const char* kScript =
        "case \"$*\" in\n"
        "devices) cat \"$dir/devices\";;\n"
        "*'pm list package') cat \"$dir/packages\";;\n"
        "*install*) cat \"$dir/install\"; test -e \"$dir/packages.after\" &&"
        " mv \"$dir/packages.after\" \"$dir/packages\"; true;;\n"
        "esac";

    PhoneLinkTest() {
        Print("devices", "List of devices attached\nHT04CPL00123\tdevice\n\n");
        Print("packages", "package:com.android.phone\npackage:com.quorvi.Quorvi\n");
        Print("install", "Success\n");
        environment = adb.Environment();
    }

    void Print(const char* file, std::string_view text) const {
        std::ofstream(adb.Directory() / file) << text;
    }
    void ServerAnswers(Bytes bytes) {
        server = std::make_unique<LoopbackAgent>(Answer{std::move(bytes), Answer::End::wait});
        environment.hostPort = server->Port();
    }
    void AgentAnswers(Answer answer) {
        agent = std::make_unique<LoopbackAgent>(std::move(answer));
        agentPort = agent->Port();
    }
    void AgentHasVersion(std::uint32_t version) {
        ServerAnswers(Okay());
        AgentAnswers({Word(version), Answer::End::wait});
    }
    PhoneLink MakeLink(DeviceContext& of, LinkFace& told) {
        return PhoneLink(of, told, clock, PackageInstaller(environment), agentPort, environment);
    }
    // Runs the procedure to its end.
    void Connect(bool delay = false) {
        PhoneLink link = MakeLink(device, face);
        link.ConnectPhone(delay);
        EXPECT_TRUE(face.Ended());
    }

    const FakeAdb adb{kScript};
    std::uint16_t agentPort = UnusedPort();
    LinkEnvironment environment;
    DeviceContext device;
    RecordingFace face;
    RecordingClock clock;
    std::unique_ptr<LoopbackAgent> server;
    std::unique_ptr<LoopbackAgent> agent;
};

TEST_F(PhoneLinkTest, GoodAgentTurnsTheBannerGreen) {
    AgentHasVersion(20);
    Connect();
    EXPECT_THAT(face.Banners(), ElementsAre(Pair(Utf8(u8"连接设备中..."), kWorking),
                                            Pair(Utf8(u8"连接成功:)"), kSuccess)));
    EXPECT_EQ(face.LinkUps(), 1);
    EXPECT_EQ(device.Serial(), "HT04CPL00123");
    EXPECT_THAT(clock.Sleeps(), ElementsAre(3000ms));
    EXPECT_EQ(agent->Exchanges(1).front().firstPiece, BareRequest(AgentCommand::agentVersion));
}

TEST_F(PhoneLinkTest, CommandsRunInTheToldOrder) {
    AgentHasVersion(20);
    Connect();
    EXPECT_TRUE(Await([&] { return adb.Runs().size() >= 3; }));  // the link waits for no start
    EXPECT_THAT(adb.Runs(), testing::UnorderedElementsAre(
                                "devices", "-s HT04CPL00123 shell pm list package",
                                "-s HT04CPL00123 shell am start -n com.quorvi.Quorvi/.Quorvi"));
    EXPECT_EQ(adb.Runs().at(0), "devices");
    EXPECT_EQ(adb.Runs().at(1), "-s HT04CPL00123 shell pm list package");
}

TEST_F(PhoneLinkTest, ArrivalWaitsForTheServerFirst) {
    AgentHasVersion(20);
    Connect(true);
    EXPECT_THAT(clock.Sleeps(), ElementsAre(3000ms, 3000ms));
}

TEST_F(PhoneLinkTest, NoPhoneIsAnError) {
    Print("devices", "List of devices attached\n\n");
    Connect();
    EXPECT_THAT(face.Banners(), ElementsAre(Pair(Utf8(u8"连接设备中..."), kWorking),
                                            Pair(Utf8(u8"【错误】没有找到Android设备"), kError)));
    EXPECT_THAT(adb.Runs(), ElementsAre("devices"));
}

TEST_F(PhoneLinkTest, MissingAdbIsAnError) {
    environment.adbPath = [] { return std::string("/nonexistent/adb"); };
    Connect();
    EXPECT_EQ(face.Banners().back(), std::pair(Utf8(u8"【组件丢失，请重新安装"), kError));
}

TEST_F(PhoneLinkTest, AdbThatIsGoneAtThePackageQueryIsAnError) {
    int asked = 0;
    environment.adbPath = [&asked, path = adb.Path()] {
        return ++asked == 2 ? std::string("/nonexistent/adb") : path;
    };
    Connect();
    EXPECT_EQ(face.Banners().back(), std::pair(Utf8(u8"【组件丢失，请重新安装"), kError));
}

TEST_F(PhoneLinkTest, WorkerThatCannotBeMadeIsAnError) {
    {
        const NoMoreThreads none;
        Connect();
    }
    EXPECT_EQ(face.Banners().back(), std::pair(Utf8(u8"【内部错误】，请重新安装"), kError));
    AgentHasVersion(20);
    PhoneLink link = MakeLink(device, face);
    link.ConnectPhone(false);
    ASSERT_TRUE(face.Ended(2));
    EXPECT_EQ(face.Banners().back(), std::pair(Utf8(u8"连接成功:)"), kSuccess));
}

TEST_F(PhoneLinkTest, SeveralPhonesAskForAChoice) {
    AgentHasVersion(20);
    Print("devices", "List of devices attached\none\tdevice\ntwo\tdevice\n\n");
    face.choose = [this] { device.SetSerial("two"); };
    Connect();
    EXPECT_THAT(face.titles, ElementsAre(Utf8(u8"连接管理器 - Quorvi")));
    EXPECT_EQ(face.Banners().back(), std::pair(Utf8(u8"连接成功:)"), kSuccess));
    EXPECT_EQ(adb.Runs().at(1), "-s two shell pm list package");
}

TEST_F(PhoneLinkTest, SeveralPhonesAndNoChoiceIsAnError) {
    Print("devices", "List of devices attached\none\tdevice\ntwo\tdevice\n\n");
    Connect();
    EXPECT_EQ(face.Banners().back(), std::pair(Utf8(u8"【错误】没有选择任何设备"), kError));
}

TEST_F(PhoneLinkTest, RefusedForwardEndsTheProcedure) {
    ServerAnswers(Text("FAIL"));
    Connect();
    EXPECT_THAT(face.Banners(), ElementsAre(Pair(Utf8(u8"连接设备中..."), kWorking),
                                            Pair(Utf8(u8"【错误】连接协议失败"), kError)));
    EXPECT_TRUE(clock.Sleeps().empty());
}

TEST_F(PhoneLinkTest, ServerThatDoesNotRunEndsTheProcedure) {
    environment.hostPort = UnusedPort();
    Connect();
    EXPECT_EQ(face.Banners().back(), std::pair(Utf8(u8"【错误】连接协议失败"), kError));
}

TEST_F(PhoneLinkTest, AgentThatIsNotThereIsAnError) {
    ServerAnswers(Okay());
    agentPort = UnusedPort();
    Connect();
    EXPECT_EQ(face.Banners().back(), std::pair(Utf8(u8"【错误】连接手机端失败"), kError));
    EXPECT_EQ(face.LinkUps(), 0);
}

TEST_F(PhoneLinkTest, AgentThatClosesWithoutAReplyIsAnError) {
    ServerAnswers(Okay());
    AgentAnswers({{}, Answer::End::close});
    Connect();
    EXPECT_EQ(face.Banners().back(), std::pair(Utf8(u8"【错误】连接手机端失败"), kError));
}

TEST_F(PhoneLinkTest, NegativeVersionIsAnError) {
    AgentHasVersion(0x80000014);
    Connect();
    EXPECT_EQ(face.Banners().back(), std::pair(Utf8(u8"【错误】连接手机端失败"), kError));
}

// A longer name passes for the agent's: kept on purpose, see HoldsPackage.
TEST_F(PhoneLinkTest, LongerPackageNamePassesForTheAgent) {
    AgentHasVersion(20);
    Print("packages", "package:com.quorvi.Quorvi.plugin\n");
    Connect();
    EXPECT_EQ(face.Banners().back(), std::pair(Utf8(u8"连接成功:)"), kSuccess));
}

TEST_F(PhoneLinkTest, MissingAgentIsInstalledAndTheLinkTriedOnceMore) {
    AgentHasVersion(20);
    Print("packages", "package:com.android.phone\n");
    Print("packages.after", "package:com.quorvi.Quorvi\n");
    Connect();
    EXPECT_THAT(face.Banners(), ElementsAre(Pair(Utf8(u8"连接设备中..."), kWorking),
                                            Pair(Utf8(u8"【提示】正在安装手机端..."), kWorking),
                                            Pair(Utf8(u8"安装成功"), kSuccess),
                                            Pair(Utf8(u8"连接设备中..."), kWorking),
                                            Pair(Utf8(u8"连接成功:)"), kSuccess)));
    EXPECT_EQ(adb.Runs().at(2),
              "-s HT04CPL00123 install -r " + (adb.Directory() / "com.quorvi.Quorvi.apk").string());
}

TEST_F(PhoneLinkTest, PackageFileInADirectoryWithABlankIsOneArgument) {
    Print("packages", "");
    environment.packageFile = "/opt/my suite/com.quorvi.Quorvi.apk";
    environment.adbPath = [path = adb.Path()] { return path; };
    Connect();
    EXPECT_EQ(adb.Runs().at(2), "-s HT04CPL00123 install -r /opt/my suite/com.quorvi.Quorvi.apk");
}

TEST_F(PhoneLinkTest, OldAgentIsReplacedOnceInTheProcess) {
    AgentHasVersion(19);
    Print("install", "Failure [INSTALL_FAILED_OLDER_SDK]\n");
    Connect();
    const auto upgrading = Pair(Utf8(u8"【提示】正在升级手机端..."), kWorking);
    const auto failed = Pair(Utf8(u8"【错误】安装失败，请到官网重下"), kError);
    const auto connecting = Pair(Utf8(u8"连接设备中..."), kWorking);
    // The second pass installs again and leaves its text.
    EXPECT_THAT(face.Banners(),
                ElementsAre(connecting, upgrading, failed, connecting, upgrading, failed));

    // A later connect replaces it again, but retries no more.
    PhoneLink link = MakeLink(device, face);
    link.ConnectPhone(false);
    ASSERT_TRUE(face.Ended(2));
    EXPECT_EQ(face.Banners().size(), 9U);
}

TEST_F(PhoneLinkTest, VersionsOneToNineteenAreOld) {
    for (const std::uint32_t version : {1U, 19U}) {
        AgentHasVersion(version);
        DeviceContext fresh;
        RecordingFace heard;
        PhoneLink link = MakeLink(fresh, heard);
        link.ConnectPhone(false);
        ASSERT_TRUE(heard.Ended());
        EXPECT_EQ(heard.Banners().at(1).first, Utf8(u8"【提示】正在升级手机端..."));
    }
}

TEST_F(PhoneLinkTest, EachInstallResultHasItsText) {
    const std::pair<const char*, std::string> kResults[] = {
        {"Failure [INSTALL_PARSE_FAILED_INCONSISTENT_CERTIFICATES]",
         Utf8(u8"【错误】签名错误，先卸载老版本")},
        {"Failure [INSTALL_FAILED_INSUFFICIENT_STORAGE]", Utf8(u8"【错误】安装失败，手机空间不足")},
        {"", Utf8(u8"【错误】安装失败，请到官网重下")},
    };
    Print("packages", "package:com.android.phone\n");
    int ends = 0;
    for (const auto& [output, text] : kResults) {
        Print("install", output);
        PhoneLink link = MakeLink(device, face);
        link.ConnectPhone(false);
        ASSERT_TRUE(face.Ended(++ends));
        EXPECT_EQ(face.Banners().back(), std::pair(text, kError));
    }
    for (const std::string& run : adb.Runs()) {
        EXPECT_EQ(run.find("uninstall"), std::string::npos);  // nothing removes the old agent
    }
}

TEST_F(PhoneLinkTest, AdbThatIsGoneAtTheInstallHasItsText) {
    Print("packages", "");
    int asked = 0;
    environment.adbPath = [&asked, path = adb.Path()] {
        return ++asked % 3 == 0 ? std::string("/nonexistent/adb") : path;
    };
    Connect();
    EXPECT_EQ(face.Banners().at(2), std::pair(Utf8(u8"【错误】组件丢失，请到官网重下"), kError));
}

TEST_F(PhoneLinkTest, ConnectDuringAConnectDoesNothing) {
    AgentHasVersion(20);
    clock.Hold(true);
    PhoneLink link = MakeLink(device, face);
    link.ConnectPhone(true);
    clock.AwaitSleeper();
    link.ConnectPhone(false);
    EXPECT_EQ(face.Banners().size(), 1U);
    clock.Hold(false);
    ASSERT_TRUE(face.Ended());
    EXPECT_EQ(face.Banners().size(), 2U);
}

TEST_F(PhoneLinkTest, ArrivalWhileTheAgentComesUpStopsAtThePackageQuery) {
    AgentHasVersion(20);
    clock.Hold(true);
    PhoneLink link = MakeLink(device, face);
    link.ConnectPhone(false);
    clock.AwaitSleeper();  // the worker is through, the reader waits for the agent
    const auto runs = [this](std::string_view line) {
        const auto all = adb.Runs();
        return std::count(all.begin(), all.end(), line);
    };
    const int threads = SettledThreads();
    link.ConnectPhone(false);
    // The second worker has looked for phones, and is gone.
    EXPECT_TRUE(Await([&] { return runs("devices") == 2 && RunningThreads() <= threads; }));
    EXPECT_EQ(runs("-s HT04CPL00123 shell pm list package"), 1);
    clock.Hold(false);
    ASSERT_TRUE(face.Ended());
    EXPECT_EQ(face.Banners().back(), std::pair(Utf8(u8"连接成功:)"), kSuccess));
}

// What comes of the query may connect again, however long the worker is kept from its own end.
TEST_F(PhoneLinkTest, TheWayIsFreeForTheNextConnectBeforeTheQueryStarts) {
    AgentHasVersion(20);
    std::atomic<int> asked = 0;
    PhoneLink* started = nullptr;
    environment.adbPath = [&, path = adb.Path()] {
        if (++asked == 2) {
            started->ConnectPhone(false);
        }
        return path;
    };
    PhoneLink link = MakeLink(device, face);
    started = &link;
    link.ConnectPhone(false);
    ASSERT_TRUE(face.Ended());
    // The second either stops at the query or, being late, has one of its own.
    EXPECT_EQ(face.Banners().at(1), std::pair(Utf8(u8"连接设备中..."), kWorking));
    EXPECT_EQ(face.Banners().back(), std::pair(Utf8(u8"连接成功:)"), kSuccess));
}

TEST_F(PhoneLinkTest, WorkerOutlivesTheLinkThatStartedIt) {
    AgentHasVersion(20);
    clock.Hold(true);
    {
        PhoneLink link = MakeLink(device, face);
        link.ConnectPhone(true);
        clock.AwaitSleeper();
    }
    clock.Hold(false);
    ASSERT_TRUE(face.Ended());
    EXPECT_EQ(face.Banners().back(), std::pair(Utf8(u8"连接成功:)"), kSuccess));
}

TEST_F(PhoneLinkTest, ReaderOutlivesTheLinkThatStartedIt) {
    AgentHasVersion(20);
    clock.Hold(true);
    {
        PhoneLink link = MakeLink(device, face);
        link.ConnectPhone(false);
        clock.AwaitSleeper();
    }
    clock.Hold(false);
    ASSERT_TRUE(face.Ended());
}

TEST_F(PhoneLinkTest, EndOfTheLinkWaitsForNobody) {
    Print("packages", "");
    const FakeAdb stuck(
        "case \"$*\" in devices) printf 'List of devices attached\\nx\\tdevice\\n\\n';;\n"
        "*) touch \"$dir/stuck\"; await go; touch \"$dir/through\";; esac");
    environment.adbPath = [path = stuck.Path()] { return path; };
    std::optional<PhoneLink> link;
    link.emplace(device, face, clock, PackageInstaller(environment), agentPort, environment);
    link->ConnectPhone(false);
    ASSERT_TRUE(Await([&] { return stuck.Has("stuck"); }));
    link.reset();
    EXPECT_FALSE(stuck.Has("through"));
    stuck.Put("go");
    EXPECT_TRUE(face.Ended(1));  // before the things it uses go
}

TEST_F(PhoneLinkTest, HundredConnectsLeaveNothingBehind) {
    AgentHasVersion(20);
    Connect();
    ASSERT_EQ(agent->Exchanges(1).size(), 1U);  // the agent's own end is closed
    const int threads = SettledThreads();
    const int descriptors = OpenDescriptors();
    PhoneLink link = MakeLink(device, face);
    for (int run = 0; run < 100; ++run) {
        link.ConnectPhone(false);
        ASSERT_TRUE(face.Ended(run + 2));
    }
    EXPECT_EQ(agent->Exchanges(101).size(), 101U);
    EXPECT_EQ(SettledThreads(), threads);
    EXPECT_EQ(OpenDescriptors(), descriptors);
    EXPECT_EQ(ZombieChildren(), 0);
}

}  // namespace
}  // namespace quorvi

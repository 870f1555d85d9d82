#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <fstream>
#include <future>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "link/PackageInstaller.h"
#include "tests/support/Await.h"
#include "tests/support/FakeAdb.h"

namespace quorvi {
namespace {

using testing::ElementsAre;

const PackageInstall kInstall{"HT04", "/opt/my suite/a.apk"};

// What an observer heard: "start", or the number of the result.
class Heard {
  public:
    PackageInstaller::Observer Observer() {
        return [this](const InstallEvent& event) {
            EXPECT_EQ(event.install.serial, kInstall.serial);
            EXPECT_EQ(event.install.package, kInstall.package);
            const std::lock_guard lock(mutex_);
            events_.push_back(event.result ? std::to_string(static_cast<int>(*event.result))
                                           : "start");
        };
    }
    std::vector<std::string> Events() {
        const std::lock_guard lock(mutex_);
        return events_;
    }

  private:
    std::mutex mutex_;
    std::vector<std::string> events_;
};

TEST(PackageInstaller, RunsTheToldCommandWithTheFileAsOneArgument) {
    const FakeAdb adb("echo Success");
    const PackageInstaller installer(adb.Environment());
    EXPECT_EQ(installer.Install(kInstall), InstallResult::success);
    EXPECT_THAT(adb.Calls(),
                ElementsAre(ElementsAre("-s", "HT04", "install", "-r", "/opt/my suite/a.apk")));
}

TEST(PackageInstaller, CtrlCOfATerminalDoesNotReachAdb) {
    // The fifth field is the process group, to all of which a terminal sends its signal.
    const FakeAdb adb("cut -d' ' -f5 /proc/self/stat >$dir/group; echo Success");
    ASSERT_EQ(PackageInstaller(adb.Environment()).Install(kInstall), InstallResult::success);
    int group = 0;
    std::ifstream(adb.Directory() / "group") >> group;
    EXPECT_GT(group, 0);
    EXPECT_NE(group, getpgrp());
}

TEST(PackageInstaller, EachResultIsToldApart) {
    const std::pair<const char*, InstallResult> kResults[] = {
        {"Performing\nSuccess", InstallResult::success},
        {"Failure [INSTALL_PARSE_FAILED_INCONSISTENT_CERTIFICATES]", InstallResult::otherSignature},
        {"Failure [INSTALL_FAILED_INSUFFICIENT_STORAGE]", InstallResult::phoneFull},
        {"Failure [INSTALL_FAILED_OLDER_SDK]", InstallResult::failed},
        {"", InstallResult::failed},
    };
    for (const auto& [output, result] : kResults) {
        const FakeAdb adb(std::string("echo '") + output + "'");
        EXPECT_EQ(PackageInstaller(adb.Environment()).Install(kInstall), result) << output;
    }
    LinkEnvironment none;
    none.adbPath = [] { return std::string("/nonexistent/adb"); };
    EXPECT_EQ(PackageInstaller(none).Install(kInstall), InstallResult::noProcess);
}

// As the words that decide may stand behind 4095 bytes of others.
TEST(PackageInstaller, OnlyTheFirstBytesOfTheOutputCount) {
    const FakeAdb adb("head -c 4090 /dev/zero | tr '\\0' a; echo Success");
    EXPECT_EQ(PackageInstaller(adb.Environment()).Install(kInstall), InstallResult::failed);
}

TEST(PackageInstaller, EveryObserverHearsTheStartBeforeAdbRunsAndTheEndBeforeTheCaller) {
    const FakeAdb adb("echo Success");
    const PackageInstaller installer(adb.Environment());
    Heard heard;
    const Subscription one = installer.Observe(heard.Observer());
    std::size_t runsAtStart = 1;
    const Subscription other = installer.Observe([&](const InstallEvent& event) {
        if (!event.result) {
            runsAtStart = adb.Runs().size();
        }
    });
    static_cast<void>(installer.Install(kInstall));
    EXPECT_THAT(heard.Events(), ElementsAre("start", "0"));
    EXPECT_EQ(runsAtStart, 0U);
}

TEST(PackageInstaller, WhoGaveUpTheSubscriptionHearsNothingMore) {
    const FakeAdb adb("echo Success");
    const PackageInstaller installer(adb.Environment());
    Heard gone;
    Subscription subscription = installer.Observe(gone.Observer());
    Heard stays;
    const Subscription kept = installer.Observe(stays.Observer());
    subscription.reset();
    static_cast<void>(installer.Install(kInstall));
    EXPECT_TRUE(gone.Events().empty());
    EXPECT_THAT(stays.Events(), ElementsAre("start", "0"));
}

// A lock held over the call would stop this for ever.
TEST(PackageInstaller, AnObserverMayUseTheServiceAndGiveUpItsSubscription) {
    const FakeAdb adb("echo Success");
    const PackageInstaller installer(adb.Environment());
    std::vector<Subscription> added;
    Heard late;
    Subscription once;
    int calls = 0;
    once = installer.Observe([&](const InstallEvent&) {
        ++calls;
        added.push_back(installer.Observe(late.Observer()));
        once.reset();
    });
    static_cast<void>(installer.Install(kInstall));
    EXPECT_EQ(calls, 1);
    EXPECT_THAT(late.Events(), ElementsAre("0"));
}

TEST(PackageInstaller, StartReturnsWhileAdbStillRuns) {
    const FakeAdb adb("await go; echo Success");
    const PackageInstaller installer(adb.Environment());
    std::promise<InstallResult> done;
    installer.Start(kInstall, [&](InstallResult result) { done.set_value(result); });
    auto end = done.get_future();
    EXPECT_TRUE(Await([&] { return adb.Runs().size() == 1; }));
    EXPECT_EQ(end.wait_for(std::chrono::seconds(0)), std::future_status::timeout);
    adb.Put("go");
    EXPECT_EQ(end.get(), InstallResult::success);
}

TEST(PackageInstaller, AWorkerOutlivesTheService) {
    const FakeAdb adb("await go; echo Success");
    Heard heard;
    std::promise<InstallResult> done;
    Subscription subscription;
    {
        const PackageInstaller installer(adb.Environment());
        subscription = installer.Observe(heard.Observer());
        installer.Start(kInstall, [&](InstallResult result) { done.set_value(result); });
    }
    adb.Put("go");
    EXPECT_EQ(done.get_future().get(), InstallResult::success);
    EXPECT_THAT(heard.Events(), ElementsAre("start", "0"));
}

}  // namespace
}  // namespace quorvi

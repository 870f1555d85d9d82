#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "pages/apps/Uninstaller.h"
#include "tests/support/Await.h"
#include "tests/support/FakeAdb.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Does not end by itself with com.stuck, and says that anything else is gone.
constexpr const char* kScript =
    "if [ \"$2\" = com.stuck ]; then echo $$ > \"$dir/stuck\"; await never; fi\n"
    "echo Success";

class UninstallerTest : public testing::Test {
  protected:
    // What has ended so far.
    std::vector<UninstallEnd> Ends() {
        const std::lock_guard lock(mutex_);
        return ends_;
    }
    bool AwaitEnds(std::size_t count) {
        return Await([&] { return Ends().size() >= count; });
    }
    void Make(LinkEnvironment environment) {
        uninstaller_ =
            std::make_unique<Uninstaller>(std::move(environment), [this](UninstallEnd&& end) {
                const std::lock_guard lock(mutex_);
                ends_.push_back(std::move(end));
            });
    }
    bool Start(const std::string& package) {
        return uninstaller_->Start({"name of " + package, package});
    }
    // Until adb is at it, so that it is cut off there.
    void StartStuck(const FakeAdb& adb) {
        ASSERT_TRUE(Start("com.stuck"));
        ASSERT_TRUE(Await([&] { return adb.IsRunning("stuck"); }));
    }

    std::mutex mutex_;
    std::vector<UninstallEnd> ends_;
    std::unique_ptr<Uninstaller> uninstaller_;
};

TEST_F(UninstallerTest, NamesNoSerial) {
    const FakeAdb adb(kScript);
    Make(adb.Environment());
    ASSERT_TRUE(Start("com.example.a"));
    ASSERT_TRUE(AwaitEnds(1));
    EXPECT_THAT(adb.Calls(), ElementsAre(ElementsAre("uninstall", "com.example.a")));
}

TEST_F(UninstallerTest, OneThatEndsByItselfIsTheLastThatWasWaitedFor) {
    const FakeAdb adb(kScript);
    Make(adb.Environment());
    ASSERT_TRUE(Start("com.a"));
    ASSERT_TRUE(AwaitEnds(1));
    const UninstallEnd end = Ends()[0];
    EXPECT_EQ(end.app.package, "com.a");
    EXPECT_EQ(end.app.name, "name of com.a");
    EXPECT_EQ(end.outcome, UninstallOutcome::done);
    EXPECT_EQ(end.said, "Success\n");
    EXPECT_TRUE(end.last);
    EXPECT_EQ(uninstaller_->Pending(), 0);
}

TEST_F(UninstallerTest, OneAfterTheOtherAreEachTheLast) {
    const FakeAdb adb(kScript);
    Make(adb.Environment());
    for (std::size_t i = 1; i <= 3; ++i) {
        ASSERT_TRUE(Start("com.a"));
        ASSERT_TRUE(AwaitEnds(i));
        EXPECT_TRUE(Ends().back().last);
    }
}

TEST_F(UninstallerTest, TellsWhatAdbSaidOfAFailure) {
    const FakeAdb adb("echo 'Failure [DELETE_FAILED_INTERNAL_ERROR]' >&2; exit 1");
    Make(adb.Environment());
    ASSERT_TRUE(Start("com.a"));
    ASSERT_TRUE(AwaitEnds(1));
    EXPECT_EQ(Ends()[0].outcome, UninstallOutcome::refused);
    EXPECT_EQ(Ends()[0].said, "Failure [DELETE_FAILED_INTERNAL_ERROR]\n");
    EXPECT_TRUE(Ends()[0].last);
}

TEST_F(UninstallerTest, TellsOnceThatAdbWaitsForAPhone) {
    const FakeAdb adb(
        "echo '- waiting for device -' >&2; await phone\n"
        "echo '- waiting for device -' >&2; echo Success");
    std::atomic<int> waits = 0;
    uninstaller_ = std::make_unique<Uninstaller>(
        adb.Environment(),
        [this](UninstallEnd&& end) {
            const std::lock_guard lock(mutex_);
            ends_.push_back(std::move(end));
        },
        [&](const InstalledApp& app) { waits += app.package == "com.a" ? 1 : 100; });
    ASSERT_TRUE(Start("com.a"));
    ASSERT_TRUE(Await([&] { return waits > 0; }));
    EXPECT_THAT(Ends(), IsEmpty());
    adb.Put("phone");
    ASSERT_TRUE(AwaitEnds(1));
    EXPECT_EQ(Ends()[0].outcome, UninstallOutcome::done);
    EXPECT_EQ(waits, 1);
}

TEST_F(UninstallerTest, ReadsTheEndOfWhatIsLong) {
    const FakeAdb adb(
        "i=0; while [ $i -lt 2000 ]; do echo 0123456789; i=$((i+1)); done\n"
        "echo Success");
    Make(adb.Environment());
    ASSERT_TRUE(Start("com.a"));
    ASSERT_TRUE(AwaitEnds(1));
    EXPECT_EQ(Ends()[0].outcome, UninstallOutcome::done);
    EXPECT_EQ(Ends()[0].said.size(), 4096u);
}

TEST_F(UninstallerTest, ABatchCutsItselfOffAndWhatWasCutOffStaysCounted) {
    const FakeAdb adb(kScript);
    Make(adb.Environment());
    StartStuck(adb);
    ASSERT_TRUE(Start("com.b"));
    ASSERT_TRUE(AwaitEnds(1));
    EXPECT_FALSE(adb.IsRunning("stuck"));
    EXPECT_EQ(Ends()[0].app.package, "com.b");
    EXPECT_FALSE(Ends()[0].last);
    EXPECT_EQ(uninstaller_->Pending(), 1);
    // And so for as long as the page lives.
    ASSERT_TRUE(Start("com.c"));
    ASSERT_TRUE(AwaitEnds(2));
    EXPECT_FALSE(Ends()[1].last);
    EXPECT_EQ(uninstaller_->Pending(), 1);
    EXPECT_THAT(adb.Runs(),
                ElementsAre("uninstall com.stuck", "uninstall com.b", "uninstall com.c"));
}

TEST_F(UninstallerTest, OneThatCannotBeStartedStaysCounted) {
    const FakeAdb adb(kScript);
    LinkEnvironment environment = adb.Environment();
    environment.adbPath = [path = adb.Path() + ".gone"] { return path; };
    Make(std::move(environment));
    EXPECT_FALSE(Start("com.a"));
    EXPECT_EQ(uninstaller_->Pending(), 1);
    EXPECT_THAT(Ends(), IsEmpty());
}

TEST_F(UninstallerTest, ANameOfAnotherFormIsNeitherRunNorCounted) {
    const FakeAdb adb(kScript);
    Make(adb.Environment());
    for (const char* name : {"", "-s", "com.a;reboot", "com.a b", "com.a\n", "../a", "com.\xcf\xc9",
                             "$(reboot)", "--user"}) {
        EXPECT_TRUE(Start(name)) << name;
    }
    EXPECT_EQ(uninstaller_->Pending(), 0);
    ASSERT_TRUE(Start("com.a"));
    ASSERT_TRUE(AwaitEnds(1));
    EXPECT_THAT(adb.Runs(), ElementsAre("uninstall com.a"));
}

TEST_F(UninstallerTest, ANameOfAnotherFormCutsNothingOff) {
    const FakeAdb adb(kScript);
    Make(adb.Environment());
    StartStuck(adb);
    EXPECT_TRUE(Start("com.a b"));
    EXPECT_TRUE(adb.IsRunning("stuck"));
    EXPECT_EQ(uninstaller_->Pending(), 1);
}

TEST_F(UninstallerTest, EndsItsAdbWhenItGoes) {
    const FakeAdb adb(kScript);
    Make(adb.Environment());
    StartStuck(adb);
    uninstaller_.reset();
    EXPECT_FALSE(adb.IsRunning("stuck"));
    EXPECT_THAT(Ends(), IsEmpty());
}

}  // namespace
}  // namespace quorvi

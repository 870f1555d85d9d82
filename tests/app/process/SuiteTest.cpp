// The suite put together on a machine of doubles: the order in which it starts, and what reaches
// the window from the cable.
#include <mutex>
#include <thread>

#include "app/process/Suite.h"
#include "backup/DeletedItems.h"
#include "base/Clock.h"
#include "base/LookChoice.h"
#include "base/Places.h"
#include "tests/app/window/MainDlgFixture.h"
#include "tests/support/FakeAdb.h"
#include "ui/look/Theme.h"

namespace quorvi {
namespace {

// What happened, in its order. Any thread.
class Steps {
  public:
    void Note(const std::string& step) {
        const std::lock_guard lock(mutex_);
        steps_.push_back(step);
    }
    [[nodiscard]] std::vector<std::string> Noted() const {
        const std::lock_guard lock(mutex_);
        return steps_;
    }
    void Clear() {
        const std::lock_guard lock(mutex_);
        steps_.clear();
    }

  private:
    mutable std::mutex mutex_;
    std::vector<std::string> steps_;
};

class NotedTray : public FakeTray {
  public:
    explicit NotedTray(Steps& steps) : steps_(steps) {}
    void Add(const QString& tip) override {
        steps_.Note("tray icon");
        FakeTray::Add(tip);
    }
    bool ShowBalloon(const QString& title, const QString& text) override {
        steps_.Note("balloon " + title.toStdString());
        return FakeTray::ShowBalloon(title, text);
    }

  private:
    Steps& steps_;
};

class NotedInstance : public FakeInstance {
  public:
    explicit NotedInstance(Steps& steps) : steps_(steps) {}
    void Announce(std::function<void()> shower) override {
        steps_.Note("instance");
        FakeInstance::Announce(std::move(shower));
    }

  private:
    Steps& steps_;
};

// Notes the waits and waits for nothing.
class NotedClock : public Clock {
  public:
    explicit NotedClock(Steps& steps) : steps_(steps) {}
    void SleepFor(std::chrono::milliseconds time) override {
        steps_.Note("wait " + std::to_string(time.count()));
    }

  private:
    Steps& steps_;
};

class SuiteOnDoubles : public WidgetTest {
  protected:
    ~SuiteOnDoubles() override {
        look::ChooseTheme(std::nullopt);
        // As in the program it is never torn down: a worker of the link may still be about to tell
        // it its end.
        Window().hide();
        static_cast<void>(suite_.release());
    }

    void Start(bool hidden = false) {
        suite_ = std::make_unique<Suite>(
            MachineParts{
                .settings = settings_,
                .tray = tray_,
                .notifier = notifier_,
                .sounds = sounds_,
                .instance = instance_,
                .clock = clock_,
                .desktop = std::make_shared<FakeDesktop>(),
                .agent = 1,  // nobody listens there
                .link = Link(),
                .taskDatabase = {},
                .watchUsb =
                    [this](UsbWatch::Listener listener) {
                        steps_.Note("usb watch on page " + std::to_string(ShownPage()));
                        usb_ = std::move(listener);
                    },
                .trackDevices =
                    [this](DeviceTracker::Listener listener) { track_ = std::move(listener); },
                .endProcess = [this] { steps_.Note("end"); },
            },
            NotedPages());
        suite_->Start(hidden);
    }
    [[nodiscard]] LinkEnvironment Link() {
        LinkEnvironment link = adb_.Environment();
        link.adbPath = [this, path = adb_.Path()] {
            steps_.Note("adb");
            return path;
        };
        return link;
    }
    // Probes; the first that is made, and what the window has by then, is noted.
    [[nodiscard]] PageMakers NotedPages() {
        PageMakers makers = ProbePages();
        for (auto& [dialog, make] : makers) {
            make = [this, make = make](PageHost& host, const Services& services, QWidget* parent) {
                if (!madePages_) {
                    madePages_ = true;
                    themeOfPages_ = look::CurrentTheme();
                    steps_.Note("pages of " + parent->window()->windowTitle().toStdString());
                }
                return make(host, services, parent);
            };
        }
        return makers;
    }

    [[nodiscard]] CMainDlg& Window() { return suite_->Window(); }
    // -1 before the first.
    [[nodiscard]] int ShownPage() {
        return Window().ShownPage() == nullptr ? -1 : Window().MainPage();
    }
    void AwaitLinksEnd() {
        EXPECT_TRUE(WaitFor([&] { return Window().Link().HasEnded(); }));
    }
    // What the watch tells, as it does: on a thread of its own.
    void Tell(UsbEvent::Kind kind) {
        std::thread([&] { usb_({kind, "/sys/devices/usb1/1-1"}); }).join();
    }

    void TellDevices(const TrackedDevices& devices) {
        std::thread([&] { track_(devices); }).join();
    }

    Steps steps_;
    NotedTray tray_{steps_};
    FakeNotifier notifier_;
    FakeSounds sounds_;
    NotedInstance instance_{steps_};
    NotedClock clock_{steps_};
    MemorySettings settings_;
    FakeAdb adb_{"echo 'List of devices attached'"};
    UsbWatch::Listener usb_;
    DeviceTracker::Listener track_;
    bool madePages_ = false;
    look::Theme themeOfPages_ = look::Theme::light;
    std::unique_ptr<Suite> suite_;
};

TEST_F(SuiteOnDoubles, TakesItsFirstStepsInTheirOrder) {
    Start();
    AwaitLinksEnd();
    EXPECT_EQ(steps_.Noted(),
              (std::vector<std::string>{"instance", "tray icon", "balloon 欢迎使用",
                                        "pages of 奎维掌上工坊", "usb watch on page 0", "adb"}));
    EXPECT_TRUE(Window().isVisible());
}

TEST_F(SuiteOnDoubles, TheWindowIsMadeInTheLookThatTheUserHasChosen) {
    ChooseLook(settings_, LookChoice::dark);
    Start();
    AwaitLinksEnd();
    EXPECT_EQ(themeOfPages_, look::Theme::dark);
    EXPECT_EQ(look::CurrentTheme(), look::Theme::dark);
}

TEST_F(SuiteOnDoubles, AHiddenStartTakesTheSameStepsWithoutAWindow) {
    Start(true);
    AwaitLinksEnd();
    EXPECT_EQ(steps_.Noted().size(), 6U);
    EXPECT_FALSE(Window().isVisible());
}

TEST_F(SuiteOnDoubles, WhatWasKeptOfDeletesAMonthAgoGoesAtTheStart) {
    const DeletedItems items(ThePlaces().DeletedItems());
    const std::int64_t now = std::time(nullptr);
    const auto keep = [&](std::int64_t made) {
        return items.Keep(/*agent=*/1, std::vector<CallLogRow>(1), made, StopSignal()).backup;
    };
    const auto old = keep(now - kKeptSeconds - 60);
    const auto young = keep(now);
    ASSERT_TRUE(std::filesystem::exists(old));
    Start();
    EXPECT_TRUE(WaitFor([&] { return !std::filesystem::exists(old); }));
    EXPECT_TRUE(std::filesystem::exists(young));
    AwaitLinksEnd();
}

TEST_F(SuiteOnDoubles, AnArrivalReachesTheWindowAndTheLinkAfterItsDelay) {
    Start();
    AwaitLinksEnd();
    steps_.Clear();
    Tell(UsbEvent::Kind::arrival);
    EXPECT_TRUE(steps_.Noted().empty());  // not on the watch's thread
    ASSERT_TRUE(WaitFor([&] { return steps_.Noted().size() >= 3; }));
    EXPECT_EQ(steps_.Noted(),
              (std::vector<std::string>{"balloon 奎维掌上工坊", "wait 3000", "adb"}));
    EXPECT_EQ(tray_.balloons.back().text, ToQString(u8"检测到Android设备，正在尝试连接..."));
    EXPECT_TRUE(WaitFor([&] { return adb_.Runs().size() == 2; }));
}

TEST_F(SuiteOnDoubles, ARemovalReachesTheWindowAndNothingElse) {
    Start();
    AwaitLinksEnd();
    steps_.Clear();
    Tell(UsbEvent::Kind::removal);
    ASSERT_TRUE(WaitFor([&] { return !sounds_.played.empty(); }));
    EXPECT_EQ(sounds_.played, std::vector{Sound::removal});
    EXPECT_EQ(BannerOf(Window()), ToQString(u8"【提示】检测到一个设备断开"));
    EXPECT_EQ(steps_.Noted(), std::vector<std::string>{"balloon 奎维掌上工坊"});
}

TEST_F(SuiteOnDoubles, APhoneThatAdbListsIsLinkedToOnceItAllowsTheComputer) {
    Start();
    AwaitLinksEnd();
    TellDevices({{"one", DeviceState::unauthorized}});
    steps_.Clear();
    TellDevices({{"one", DeviceState::ready}});
    EXPECT_TRUE(steps_.Noted().empty());  // not on the tracker's thread
    ASSERT_TRUE(WaitFor([&] { return !steps_.Noted().empty(); }));
    EXPECT_EQ(steps_.Noted(), std::vector<std::string>{"adb"});  // at once: no wait before it
    EXPECT_TRUE(WaitFor([&] { return adb_.Runs().size() == 2; }));
}

TEST_F(SuiteOnDoubles, TheLinksBannersReachTheWindow) {
    Start();
    AwaitLinksEnd();
    EXPECT_EQ(Window().Link().Banner(), BannerState::error);
    EXPECT_EQ(BannerOf(Window()), ToQString(u8"【错误】没有找到Android设备"));
}

TEST_F(SuiteOnDoubles, TheEndOfTheWindowEndsTheProcess) {
    Start();
    AwaitLinksEnd();
    Window().close();
    EXPECT_EQ(steps_.Noted().back(), "end");
    EXPECT_EQ(tray_.removed, 1);
}

}  // namespace
}  // namespace quorvi

// Doubles of what a main window is given, and the window. A base of whoever needs one.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "agent/Wire.h"
#include "app/platform/Notifier.h"
#include "app/platform/RunningInstance.h"
#include "app/platform/Sounds.h"
#include "app/window/MainDlg.h"
#include "link/DeviceContext.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/MemorySettings.h"
#include "tests/support/TestServices.h"

namespace quorvi {

struct Balloon {
    QString title;
    QString text;
    bool operator==(const Balloon&) const = default;
};

class FakeTray : public Tray {
  public:
    bool available = true;
    int removed = 0;
    std::vector<QString> tips;
    std::vector<Balloon> balloons;
    TrayEvents events;

    void Listen(TrayEvents listener) override { events = std::move(listener); }
    [[nodiscard]] bool Available() const override { return available; }
    void Add(const QString& tip) override { tips.push_back(tip); }
    bool ShowBalloon(const QString& title, const QString& text) override {
        if (available) {
            balloons.push_back({title, text});
        }
        return available;
    }
    void Remove() override { ++removed; }
};

class FakeNotifier : public Notifier {
  public:
    bool available = true;
    std::vector<Balloon> notices;
    std::function<void()> clicked;

    void Notify(const QString& title, const QString& text, std::function<void()> failed) override {
        if (available) {
            notices.push_back({title, text});
        } else {
            failed();
        }
    }
    void Listen(std::function<void()> listener) override { clicked = std::move(listener); }
};

class FakeSounds : public Sounds {
  public:
    std::vector<Sound> played;
    void Play(Sound sound) override { played.push_back(sound); }
};

class FakeInstance : public RunningInstance {
  public:
    std::function<void()> show;  // set from the announcement on
    [[nodiscard]] bool ShowOther() override { return false; }
    void Announce(std::function<void()> shower) override { show = std::move(shower); }
    void Withdraw() override { show = nullptr; }
};

class MainDoubles {
  protected:
    FakeTray tray_;
    FakeNotifier notifier_;
    FakeSounds sounds_;
    FakeInstance instance_;
    MemorySettings settings_;
    DeviceContext device_;
    std::shared_ptr<FakeDesktop> desktop_ = std::make_shared<FakeDesktop>();
    // The downloads' table: there is none.
    std::shared_ptr<TaskStore> taskStore_ = NoTaskStore();
    // What its pages are made from; to be changed before the window is made.
    Services services_{.agent = AgentPort,
                       .attribution = MakeNumberAttribution(),
                       .device = device_,
                       .desktop = desktop_,
                       .installer = PackageInstaller(),
                       .taskStore = taskStore_,
                       .taskQueue = TaskQueue(taskStore_, PackageInstaller(),
                                              [this] { return device_.Serial(); })};
    std::vector<std::string> steps_;  // what the window asked of the link, in order
    std::function<void()> devicesDone_;
    int ended_ = 0;
    std::unique_ptr<CMainDlg> window_;

    // What stands behind the window's asking; to be changed before the window is made.
    std::function<void(bool)> connectPhone_ = [this](bool delay) {
        steps_.push_back(delay ? "connect later" : "connect");
    };
    std::function<void(QWidget*, const QString&, std::function<void()>)> openDeviceManager_ =
        [this](QWidget*, const QString& title, const std::function<void()>& done) {
            steps_.push_back("devices:" + title.toStdString());
            devicesDone_ = done;
        };

    // The window with pages of these makers, shown unless it starts hidden.
    template <typename Window = CMainDlg>
    Window& MakeWindowOf(PageMakers makers, bool hidden = false,
                         const std::function<void(CMainDlg&)>& beforeInit = nullptr) {
        auto window = std::make_unique<Window>(MainParts{
            .settings = settings_,
            .tray = tray_,
            .notifier = notifier_,
            .sounds = sounds_,
            .instance = instance_,
            .services = services_,
            .makers = std::move(makers),
            .siteAddress = QStringLiteral("http://www.quorvi.example/"),
            .connectPhone = connectPhone_,
            .watchUsb = [this] { steps_.push_back("watch"); },
            .openDeviceManager = openDeviceManager_,
            .endProcess = [this] { ++ended_; },
        });
        Window& made = *window;
        window_ = std::move(window);
        made.SetStartHidden(hidden);
        if (beforeInit) {
            beforeInit(made);
        }
        made.OnInitDialog();
        if (!hidden) {
            made.show();
        }
        return made;
    }
};

}  // namespace quorvi

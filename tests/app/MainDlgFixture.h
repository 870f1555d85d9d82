// The main window on doubles: a tray, a desktop, sounds and a link that note what they are asked.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/MainDlg.h"
#include "app/Notifier.h"
#include "app/RunningInstance.h"
#include "app/Sounds.h"
#include "link/DeviceContext.h"
#include "tests/app/WidgetTest.h"
#include "tests/base/MemorySettings.h"
#include "ui/ControlNumber.h"
#include "ui/QtText.h"

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

// A page that notes what it is told.
class ProbePage : public Page {
  public:
    int loads = 0;
    std::vector<int> commands;
    std::vector<std::pair<Message, int>> messages;
    QStringList drops;
    QStringList searches;
    int loadKey = PageRow::kNoKey;

    using Page::Page;
    void Load() override {
        ++loads;
        if (loadKey != PageRow::kNoKey) {
            Host().LoadState().Set(loadKey, PageLoadState::kEnded);
        }
    }
    void OnCommand(int index) override { commands.push_back(index); }
    void OnMessage(Message message, int, int second) override {
        messages.emplace_back(message, second);
    }
    void OnDropFiles(const QStringList& paths) override { drops += paths; }
    void OnSearch(const QString& text) override { searches.append(text); }
};

class MainDlgTest : public WidgetTest {
  protected:
    FakeTray tray_;
    FakeNotifier notifier_;
    FakeSounds sounds_;
    FakeInstance instance_;
    MemorySettings settings_;
    DeviceContext device_;
    std::vector<std::string> steps_;  // what the window asked of the link, in order
    std::function<void()> devicesDone_;
    int ended_ = 0;
    std::unique_ptr<CMainDlg> window_;

    // Every feature page is a probe.
    [[nodiscard]] PageMakers Probes() const {
        PageMakers makers;
        for (const PageRow& row : kPages) {
            if (row.role == PageRole::feature) {
                makers[row.dialog] = [&row](PageHost& host, const PageParts&, QWidget* parent) {
                    auto* page = new ProbePage(host, row.dialog, parent);
                    page->loadKey = row.loadKey;
                    return page;
                };
            }
        }
        return makers;
    }

    // What stands behind the window's asking; a test may put its own here before it makes the
    // window.
    std::function<void(bool)> connectPhone_ = [this](bool delay) {
        steps_.push_back(delay ? "connect later" : "connect");
    };
    std::function<void(QWidget*, const QString&, std::function<void()>)> openDeviceManager_ =
        [this](QWidget*, const QString& title, const std::function<void()>& done) {
            steps_.push_back("devices:" + title.toStdString());
            devicesDone_ = done;
        };

    template <typename Window = CMainDlg>
    Window& MakeWindow(bool hidden = false,
                       const std::function<void(CMainDlg&)>& beforeInit = nullptr) {
        auto window = std::make_unique<Window>(MainParts{
            .settings = settings_,
            .tray = tray_,
            .notifier = notifier_,
            .sounds = sounds_,
            .instance = instance_,
            .pages = {.device = device_},
            .makers = Probes(),
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
        Settle();
        return made;
    }

    [[nodiscard]] ProbePage& Probe(int page) const {
        return dynamic_cast<ProbePage&>(*window_->PageOfDialog(FindPage(page)->dialog));
    }
    void Send(Message message, int first = 0, int second = 0) {
        window_->Post(message, first, second);
        Settle();
    }
    // The dialog numbers of the pages that can be seen.
    [[nodiscard]] std::vector<int> VisiblePages() const {
        std::vector<int> dialogs;
        const auto pages = window_->findChildren<Page*>();
        for (const Page* page : pages) {
            if (page->isVisibleTo(window_.get())) {
                dialogs.push_back(page->objectName().section(QLatin1Char(' '), 1).toInt());
            }
        }
        return dialogs;
    }
    template <typename Control = QWidget>
    [[nodiscard]] Control& Find(int control) const {
        return *FindControl<Control>(window_.get(), control);
    }
    void Click(int control) {
        QTest::mouseClick(&Find(control), Qt::LeftButton);
        Settle();
    }
    [[nodiscard]] QString StatusText() const { return Find<QLabel>(1366).text(); }
    [[nodiscard]] QString BannerText() const {
        return window_->findChild<QLabel*>(QStringLiteral("banner"))->text();
    }
};

}  // namespace quorvi

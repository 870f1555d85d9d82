// The tour's stops at the downloads: a page over the window's own, with tasks in each state, one of
// which is being downloaded all the while.
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>
#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "download/TaskQueue.h"
#include "download/TaskStore.h"
#include "pages/downloads/DownloadPage.h"
#include "pages/downloads/DuplicateTaskDlg.h"
#include "tour/PageStops.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinTree.h"

namespace quorvi {
namespace {

constexpr int kFileBytes = 200 << 20;
constexpr int kPartBytes = 124 << 20;  // of it, what an earlier download has left

struct SampleTask {
    std::u8string_view title;
    std::string_view package;
    TaskState state;
};
constexpr std::array<SampleTask, 7> kTasks{{
    {u8"星图天气", "com.example.xingtu", TaskState::downloading},
    {u8"晨间听书", "com.example.tingshu", TaskState::waiting},
    {u8"轻影相册", "com.example.qingying", TaskState::paused},
    {u8"速算助手", "com.example.susuan", TaskState::failed},
    {u8"简记便签", "com.example.jianji", TaskState::installFailed},
    {u8"小区公交", "com.example.gongjiao", TaskState::done},
    {u8"掌上词典", "com.example.cidian", TaskState::done},
}};

// Sends the rest of a file, slowly and without an end. The window's thread.
class SlowFile : public QTcpServer {
  public:
    SlowFile() {
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* peer = nextPendingConnection();
            connect(peer, &QTcpSocket::disconnected, peer, &QObject::deleteLater);
            peer->write("HTTP/1.1 206 Partial Content\r\nContent-Length: " +
                        QByteArray::number(kFileBytes - kPartBytes) + "\r\n\r\n");
            auto* tick = new QTimer(peer);
            connect(tick, &QTimer::timeout, peer,
                    [peer] { peer->write(QByteArray(kBlock, '\0')); });
            tick->start(kPause);
        });
        listen(QHostAddress::LocalHost);
    }
    [[nodiscard]] std::string Url() const {
        return "http://127.0.0.1:" + std::to_string(serverPort()) + "/app.apk";
    }

  private:
    static constexpr int kBlock = 21'700;
    static constexpr std::chrono::milliseconds kPause{100};
};

// The page with its tasks. It lives from the first of the stops to the last.
class Stage {
  public:
    explicit Stage(CMainDlg& window) : queue_(Fill(window)) {
        Page* own = window.PageOfDialog(kDownloadsPage.dialog);
        Services services = window.PageServices();
        services.taskStore = store_;
        services.taskQueue = queue_;
        page_ = new CDownloadPage(window, services, own);
        page_->setAutoFillBackground(true);
        page_->resize(own->size());
        page_->show();
        page_->StartNext();
    }
    ~Stage() {
        queue_.StopCurrent();
        delete page_;
    }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    [[nodiscard]] CDownloadPage& ThePage() { return *page_; }
    void Choose(int top, int child) {
        auto& tree = *page_->findChild<CSkinTree*>();
        QTreeWidgetItem* node = tree.topLevelItem(top);
        tree.setCurrentItem(child < 0 ? node : node->child(child));
    }

  private:
    TaskQueue Fill(const CMainDlg& window) {
        const std::filesystem::path folder = folder_.path().toStdString();
        store_ = std::make_shared<TaskStore>(folder / "Config.db");
        for (const SampleTask& sample : kTasks) {
            CDownloadTask task;
            task.title = Ansi(sample.title);
            task.url = file_.Url();
            task.uniqueId = sample.package;
            task.state = sample.state;
            task.savePath = folder.native();
            store_->InsertTask(task);
        }
        const std::filesystem::path part = folder / "com.example.xingtu.tmp";
        std::ofstream(part) << "";
        std::filesystem::resize_file(part, kPartBytes);
        return TaskQueue(store_, window.PageServices().installer, [] { return std::string(); });
    }

    QTemporaryDir folder_;
    SlowFile file_;
    std::shared_ptr<TaskStore> store_;
    TaskQueue queue_;
    QPointer<CDownloadPage> page_;
};

using SharedStage = std::shared_ptr<std::unique_ptr<Stage>>;

// A stop on the stage, which is set up where it does not stand yet.
template <typename Open>
TourStop OnStage(std::string name, const SharedStage& stage, Open open) {
    return {.name = std::move(name), .open = [stage, open](CMainDlg& window) {
                GoTo(window, kDownloadsPage);
                PostToWindow(&window, [stage, open, &window] {
                    if (*stage == nullptr) {
                        *stage = std::make_unique<Stage>(window);
                    }
                    open(**stage);
                });
            }};
}

TourStop NodeStop(std::string name, const SharedStage& stage, int top, int child) {
    return OnStage(std::move(name), stage,
                   [top, child](Stage& shown) { shown.Choose(top, child); });
}

void OpenMenu(Stage& stage) {
    auto& list = *stage.ThePage().findChild<DownloadListCtrl*>();
    list.SelectRow(2);
    Q_EMIT list.menuAsked(2, list.viewport()->mapToGlobal(list.CellRect(2, 3).center()));
}

void AskAboutADuplicate(Stage& stage) {
    const FoundTask task{.found = FoundTask::Found::done,
                         .file = "/home/user/QuorviDownload/com.example.xingtu.apk",
                         .title = Ansi(kTasks[0].title),
                         .datetime = "2026-11-18 09:40:12",
                         .id = 1};
    (new DuplicateTaskDlg(task, true, &stage.ThePage()))->Open();
}

void AskAboutDrops(Stage& stage) {
    stage.ThePage().OnDropFiles(
        {QStringLiteral("/home/user/xingtu.apk"), QStringLiteral("/home/user/tingshu.apk")});
}

}  // namespace

std::vector<TourStop> DownloadStops() {
    const auto stage = std::make_shared<std::unique_ptr<Stage>>();
    std::vector<TourStop> stops = {
        NodeStop("downloads-downloading", stage, 0, 0),
        NodeStop("downloads-installing", stage, 0, 1),
        NodeStop("downloads-finished", stage, 1, -1),
        NodeStop("downloads-done", stage, 1, 0),
        NodeStop("downloads-running", stage, 0, -1),
        OnStage("menu-downloads", stage, &OpenMenu),
        OnStage("dialog-download-settings", stage,
                [](Stage& shown) { shown.ThePage().OpenSettings(); }),
        OnStage("dialog-download-duplicate", stage, &AskAboutADuplicate),
        OnStage("dialog-download-dropped", stage, &AskAboutDrops),
    };
    stops.back().leave = [stage](CMainDlg& window) {
        stage->reset();
        Observed<int> count = window.PageServices().taskCount;
        count.Set(0);
        window.SetStatus(ToQString(u8"就绪"));
    };
    return stops;
}

}  // namespace quorvi

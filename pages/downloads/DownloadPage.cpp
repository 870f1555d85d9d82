#include "pages/downloads/DownloadPage.h"

#include <QHBoxLayout>
#include <QUrl>
#include <algorithm>
#include <filesystem>
#include <utility>
#include <vector>

#include "pages/downloads/DownloadSettingsDlg.h"
#include "pages/downloads/DropInstall.h"
#include "pages/downloads/TaskIntake.h"
#include "pages/downloads/TaskNodes.h"
#include "pages/kit/CountLine.h"
#include "pages/kit/ViewSentences.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinMenu.h"
#include "ui/kit/SkinTree.h"
#include "ui/page/DisabledJob.h"
#include "ui/page/OpenOnDesktop.h"
#include "ui/page/PageKeys.h"

namespace quorvi {

using look::Metric;
using Kind = QueueEvent::Kind;

namespace {

constexpr int kTree = 1222;

constexpr std::u8string_view kNoFile = u8"【提示】文件不在了，请在右键菜单里选“继续下载”";
constexpr std::u8string_view kNoProgram = u8"【X】电脑上没有能打开目录的程序";

// What a load brings.
struct Loaded {
    LoadedTasks list;
    bool tasksLeft = true;  // some task waits, or is being worked on
};

Loaded LoadFrom(const TaskStore& store, TaskFilter filter) {
    Loaded loaded{.list = store.LoadTaskList(filter)};
    loaded.tasksLeft =
        store.NextDownloadTaskId() != kNoTask || store.NextInstallTaskId() != kNoTask;
    return loaded;
}

// The folder of a task's file, which whoever opens it may then write to as well; empty where there
// is no such file. On a worker.
std::filesystem::path FolderOf(const CDownloadTask& task) {
    const auto file = TaskFile(task.savePath, task.uniqueId);
    std::error_code unknown;
    if (!file || !std::filesystem::exists(*file, unknown)) {
        return {};
    }
    std::filesystem::permissions(*file, std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::add, unknown);
    return file->parent_path();
}

}  // namespace

CDownloadPage::CDownloadPage(PageHost& host, const Services& services, QWidget* parent,
                             DisksOf disks)
    : Page(host, kNumbers.dialog, parent),
      store_(services.taskStore),
      queue_(services.taskQueue),
      taskCount_(services.taskCount),
      disks_(std::move(disks)),
      tree_(SetControlNumber(new CSkinTree(this), kTree, ToQString(u8"任务分类"))),
      list_(new DownloadListCtrl(this)),
      intake_(new TaskIntake(*this, host, services, disks_, [this] { LoadUnfinished(); })),
      drops_(new DropInstall(*this, host, services)),
      load_(*this) {
    MakeTree();
    list_->setObjectName(QStringLiteral("downloadList"));
    list_->setAccessibleName(ToQString(u8"下载任务"));
    SayWhenEmpty(*list_, u8"在“软件游戏”里点一个应用的下载，它就会出现在这里");
    list_->SetFailedText(ToQString(u8"任务列表打不开"),
                         ToQString(u8"请检查程序目录和磁盘的权限，然后重新启动程序"));
    ShowCount(*this, *list_);
    HeedKeys(*this, {.refresh = [this] { LoadTaskList(wanted_); },
                     .list = list_,
                     .erase = [this] { RemoveChosen(); }});
    list_->EnableFind();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(Metric::gap2);
    layout->addWidget(tree_);
    layout->addWidget(list_, 1);

    connect(tree_, &QTreeWidget::currentItemChanged, this, &CDownloadPage::OnNodeChosen);
    connect(tree_, &CSkinTree::nodeClicked, this, [this] {
        if (!load_.Running()) {
            OnNodeChosen();  // a click on the node that is selected already
        }
    });
    connect(list_, &CSkinListCtrl::menuAsked, this, &CDownloadPage::OpenMenu);
    watch_ = queue_.Observe([this, page = QPointer<QObject>(this)](const QueueEvent& event) {
        PostToWindow(page, [this, event] { OnEvent(event); });
    });
    list_->SetState(ListState::loading);
    LoadTaskList(TaskFilter::unfinished);
}

void CDownloadPage::MakeTree() {
    std::vector<TreeNode> nodes;
    for (const TaskNode& node : kTaskNodes) {
        auto& siblings = node.child ? nodes.back().children : nodes;
        siblings.push_back(
            {.text = ToQString(node.caption),
             .icon = QString::fromLatin1(node.icon.data(), qsizetype(node.icon.size()))});
    }
    tree_->SetNodes(nodes);
    tree_->expandAll();
    tree_->setCurrentItem(tree_->topLevelItem(0));
    tree_->setFixedWidth(Metric::taskTree);
}

// ---- the list ----------------------------------------------------------------------------------

void CDownloadPage::LoadTaskList(TaskFilter filter) {
    wanted_ = filter;
    const bool started = load_.Start([store = store_, filter] { return LoadFrom(*store, filter); },
                                     [this](Loaded&& loaded) {
                                         Show(std::move(loaded.list));
                                         TellTheEnd(loaded.tasksLeft);
                                         LoadAgainIfAsked();
                                     });
    loadAgain_ = loadAgain_ || !started;
}

void CDownloadPage::LoadAgainIfAsked() {
    if (std::exchange(loadAgain_, false)) {
        // Once the load that has called this counts as ended.
        PostToWindow(this, [this] { LoadTaskList(wanted_); });
    }
}

void CDownloadPage::Show(LoadedTasks list) {
    list_->SetState(list.result == StoreResult::done ? ListState::idle : ListState::failed);
    list_->Show(RowsOf(std::move(list.tasks), notes_));
    taskCount_.Set(list_->RowCount());
    Host().Post(Message::pageCommand, static_cast<int>(PageCommand::repaintContent));
}

// The ticks stay where no other program has changed what is shown.
void CDownloadPage::showEvent(QShowEvent* event) {
    Page::showEvent(event);
    if (event->spontaneous() || load_.Running()) {
        return;
    }
    load_.Start([store = store_, filter = wanted_] { return store->LoadTaskList(filter); },
                [this](LoadedTasks&& list) {
                    const bool same =
                        std::ranges::equal(list_->Records(), list.tasks, {}, &DownloadRow::task);
                    if (!same) {
                        Show(std::move(list));
                    }
                    LoadAgainIfAsked();
                });
}

void CDownloadPage::LoadUnfinished() {
    {
        const QSignalBlocker quiet(tree_);
        tree_->setCurrentItem(tree_->topLevelItem(0));
    }
    LoadTaskList(TaskFilter::unfinished);
}

void CDownloadPage::OnNodeChosen() {
    LoadTaskList(FilterAt(tree_->CurrentPosition()));
}

// ---- what the queue tells ----------------------------------------------------------------------

void CDownloadPage::OnEvent(const QueueEvent& event) {
    notes_.Hear(event);
    ended_.Hear(event);
    if (const int row = list_->RowOf(event.task.id); row >= 0) {
        list_->Edit(row, [&](DownloadRow& shown) {
            ShowInRow(event, shown);
            shown.note = notes_.Of(shown.task);
        });
    }
    Say(event);
    if (event.kind == Kind::reload) {
        LoadUnfinished();
    } else if (event.kind != Kind::progress && load_.Running()) {
        loadAgain_ = true;  // what is being read may be older than what this event has shown
    }
}

void CDownloadPage::Say(const QueueEvent& event) {
    const QString status = ToQString(EventStatus(event));
    if (event.kind == Kind::progress) {
        speed_ = status;
    } else if (event.kind == Kind::complete && !speed_.isEmpty()) {
        Host().TakeBackStatus(std::exchange(speed_, {}));
    }
    if (!status.isEmpty()) {
        Host().SetStatus(status);
    }
}

void CDownloadPage::TellTheEnd(bool tasksLeft) {
    const auto notice = ended_.TakeNotice(tasksLeft);
    const QWidget& shown = *window();
    if (notice && (!shown.isVisible() || shown.isMinimized())) {
        Host().ShowBalloon(ToQString(u8"下载任务都结束了"), ToQString(*notice));
    }
}

// ---- commands ----------------------------------------------------------------------------------

void CDownloadPage::Load() {
    intake_->TakeNextPackage();
}

void CDownloadPage::OnDropFiles(const QStringList& paths) {
    drops_->Drop(paths);
}

void CDownloadPage::RunCommand(int index) {
    switch (index) {
        case commandStart:
            StartNext();
            break;
        case commandStop:
            StopCurrent();
            break;
        case commandRemove:
            RemoveChecked();
            break;
        case commandSettings:
            OpenSettings();
            break;
        default:
            break;
    }
}

void CDownloadPage::StartNext() {
    Change([queue = queue_] { queue.StartNext(); });
}

void CDownloadPage::StopCurrent() {
    Change([queue = queue_] { queue.StopCurrent(); });
}

void CDownloadPage::Remove(const std::vector<std::int32_t>& tasks) {
    RunDisabled(
        *this, [queue = queue_, tasks] { return queue.RemoveTasks(tasks); },
        [this](std::size_t removed) {
            if (removed > 0) {
                Host().SetStatus(ToQString(u8"已删除 %1 个下载任务").arg(removed));
            }
        });
}

void CDownloadPage::OpenSettings() {
    (new DownloadSettingsDlg(Host().Settings(), disks_, this))->Open();
}

void CDownloadPage::OpenMenu(int row, const QPoint& at) {
    if (row < 0 || row >= list_->RowCount()) {
        return;
    }
    auto* menu = new CSkinMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->SetStrip({QStringLiteral("find-target"), QStringLiteral("play"), QStringLiteral("pause"),
                    QStringLiteral("refresh"), QStringLiteral("delete")});
    menu->AddItem(CSkinMenu::normal, menuFind, 0, ToQString(u8"查找目标"));
    menu->AddItem(CSkinMenu::normal, menuResume, 1, ToQString(u8"继续下载"));
    menu->AddItem(CSkinMenu::normal, menuPause, 2, ToQString(u8"暂停下载"));
    menu->AddItem(CSkinMenu::normal, menuInstall, 3, ToQString(u8"重新安装"));
    menu->AddItem(CSkinMenu::normal, menuRemove, 4, ToQString(u8"删除任务"));
    connect(menu, &CSkinMenu::commandChosen, this, &CDownloadPage::OnMenuCommand);
    menu->popup(at);
}

void CDownloadPage::OnMenuCommand(int command) {
    const DownloadRow* row = list_->Current();
    if (row == nullptr || !isEnabled()) {
        return;  // a load took the row away, or a change is on its way
    }
    const std::int32_t task = row->task.id;
    switch (command) {
        case menuFind:
            FindTarget(row->task);
            break;
        case menuResume:
        // It is downloaded anew where its file is not there, and installed behind that. Kept on
        // purpose: the engine knows what is there already
        // (DownloadPage.InstallingAgainFromTheMenuAsksForTheDownloadFirst).
        case menuInstall:
            Change([queue = queue_, task] { queue.ResumeTask(task); });
            break;
        case menuPause:
            Change([queue = queue_, task] { queue.PauseTask(task); });
            break;
        case menuRemove:
            Remove({task});
            break;
        default:
            break;
    }
}

void CDownloadPage::FindTarget(const CDownloadTask& task) {
    RunJob(
        this, [task] { return FolderOf(task); },
        [this](const std::filesystem::path& folder) {
            if (folder.empty()) {
                Host().SetStatus(ToQString(kNoFile));
                return;
            }
            const QUrl address = QUrl::fromLocalFile(QString::fromStdString(folder.native()));
            if (!OpenOnDesktop(address.toString(QUrl::FullyEncoded))) {
                Host().SetStatus(ToQString(kNoProgram));
            }
        });
}

void CDownloadPage::Change(std::function<void()> what) {
    RunDisabled(
        *this,
        [what = std::move(what)] {
            what();
            return true;
        },
        [](bool) {});
}

}  // namespace quorvi

#include "pages/downloads/TaskIntake.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "base/Text.h"
#include "download/QueueText.h"
#include "online/LinkResolver.h"
#include "pages/downloads/DuplicateTaskDlg.h"
#include "ui/kit/QtText.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

constexpr std::u8string_view kOneAtATime = u8"【提示】上一个下载正在添加，请等它添加好再点";
constexpr std::u8string_view kNoFolder = u8"【错误】没有可以保存下载的目录，请点“相关设置”选择一个";

// What became of a package, in words.
struct Added {
    std::string status;
    bool added = false;
};

Added AddTask(const std::string& package, const Deployment& deployment, TaskStore& store,
              SettingsStore& settings, const DisksOf& disks) {
    ResolvedPackage found = ResolvePackage(deployment, package);
    Added outcome{.status = ResolveStatus(found)};
    if (found.outcome != ResolveOutcome::resolved) {
        return outcome;
    }
    const std::filesystem::path folder = DownloadDirectory(settings, disks);
    if (folder.empty()) {
        outcome.status = Ansi(kNoFolder);
        return outcome;
    }
    found.task.savePath = ToAnsi(folder.native());
    const StoreResult kept = store.InsertTask(std::move(found.task));
    outcome.added = kept == StoreResult::done;
    if (!outcome.added) {
        outcome.status = StoreStatus(kept);
    }
    return outcome;
}

}  // namespace

// What the table and the disk know of a package.
struct TaskIntake::Known {
    std::string package;
    FoundTask task;
    bool fileThere = false;
};

TaskIntake::TaskIntake(Page& page, PageHost& host, const Services& services, DisksOf disks,
                       std::function<void()> changed)
    : QObject(&page),
      page_(page),
      host_(host),
      store_(services.taskStore),
      queue_(services.taskQueue),
      waiting_(services.waitingPackages),
      deployment_(services.deployment),
      disks_(std::move(disks)),
      changed_(std::move(changed)) {}

void TaskIntake::TakeNextPackage() {
    if (lookingUp_) {
        return;  // its end takes the next one
    }
    const auto package = waiting_.Take();
    if (!package) {
        return;
    }
    lookingUp_ = true;
    RunJob(
        this,
        [store = store_, package = *package] {
            Known known{.package = package, .task = store->FindTaskByUniqueId(package)};
            std::error_code unknown;
            known.fileThere =
                !known.task.file.empty() && std::filesystem::exists(known.task.file, unknown);
            return known;
        },
        [this](const Known& known) {
            if (known.task.found != FoundTask::Found::none) {
                Ask(known);
                return;
            }
            lookingUp_ = false;
            ResolvePackage(known.package);
            TakeNextPackage();
        });
}

void TaskIntake::Ask(const Known& known) {
    auto* question = new DuplicateTaskDlg(known.task, known.fileThere, page_.window());
    question->Open([this, id = known.task.id](int answer) {
        if (answer == DuplicateTaskDlg::kDownloadAgain) {
            Change([queue = queue_, id] { queue.DownloadAgain(id); });
        } else if (answer == DuplicateTaskDlg::kInstallAgain) {
            Change([queue = queue_, id] { queue.InstallAgain(id); });
        }
        lookingUp_ = false;
        TakeNextPackage();
    });
}

void TaskIntake::ResolvePackage(const std::string& package) {
    if (resolving_) {
        host_.SetStatus(ToQString(kOneAtATime));
        return;
    }
    resolving_ = true;
    RunJob(
        this,
        [package, deployment = deployment_, store = store_, &settings = host_.Settings(),
         disks = disks_] { return AddTask(package, deployment, *store, settings, disks); },
        [this](const Added& outcome) {
            resolving_ = false;
            if (!outcome.status.empty()) {
                host_.SetStatus(ToQString(outcome.status));
            }
            if (outcome.added) {
                changed_();
                Change([queue = queue_] { queue.StartNext(); });
            }
        });
}

void TaskIntake::Change(std::function<void()> what) {
    RunJob(
        this,
        [what = std::move(what)] {
            what();
            return true;
        },
        [this](bool) { changed_(); });
}

}  // namespace quorvi

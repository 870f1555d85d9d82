#include "download/TaskQueue.h"

#include <filesystem>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "download/HttpDownloader.h"
#include "download/PartFile.h"
#include "download/WorkLock.h"

namespace quorvi {

using Kind = QueueEvent::Kind;

namespace {

// A file beside that of the table, by which processes keep out of each other's way; left there.
std::filesystem::path BesideTable(const TaskStore& store, const char* suffix) {
    std::filesystem::path file = store.File();
    return file.empty() ? file : file += suffix;
}

// Of a download that was told to be complete by a process that has ended before the move.
void FinishMove(const std::filesystem::path& file) {
    std::error_code unknown;
    const PartFile part(file);
    if (!std::filesystem::exists(std::filesystem::symlink_status(file, unknown)) &&
        part.Length() > 0) {
        static_cast<void>(part.MoveOnto(file));  // where it can't be, adb tells
    }
}

}  // namespace

struct TaskQueue::State : std::enable_shared_from_this<State> {
    State(std::shared_ptr<TaskStore> table, PackageInstaller install,
          std::function<std::string()> phone, TransferLimits limits)
        : store(std::move(table)),
          installer(std::move(install)),
          serial(std::move(phone)),
          downloads([table = store] { return BesideTable(*table, "-download"); }),
          installs([table = store] { return BesideTable(*table, "-install"); }),
          engine(limits) {}

    // The sink of one run: what the engine tells of it belongs to its own task, even where the next
    // run has started meanwhile.
    class RunSink : public IDownloadSink {
      public:
        RunSink(std::weak_ptr<State> state, CDownloadTask task)
            : state_(std::move(state)), task_(std::move(task)) {}
        void OnDownloadEvent(DownloadEvent event, std::int32_t speed,
                             std::int32_t percent) override {
            if (const auto state = state_.lock()) {
                state->OnDownloadEvent(*this, event, speed, percent);
            }
        }
        [[nodiscard]] const CDownloadTask& Task() const { return task_; }

      private:
        const std::weak_ptr<State> state_;
        const CDownloadTask task_;
    };

    // What became of the look for the next download.
    enum class Look {
        settled,    // it has started, or there is none, or one is running
        again,      // another row is to be looked at
        elsewhere,  // another process downloads, and will look itself
    };

    void StartNext();
    Look StartDownload();
    void InstallNext();
    std::optional<CDownloadTask> TakeInstall();
    void EndInstalls();
    std::optional<CDownloadTask> InstallTask(const CDownloadTask& task);
    void StopCurrent();
    void StopIfCurrent(std::int32_t id);
    void OnDownloadEvent(const RunSink& run, DownloadEvent event, std::int32_t speed,
                         std::int32_t percent);
    bool IsTakenBack(const CDownloadTask& task) const;
    void EndRun(const RunSink* run);
    bool SetState(const CDownloadTask& task, TaskState to);
    bool SetState(std::int32_t id, TaskState to);
    void Reload() { observers.Tell({.kind = Kind::reload}); }

    const std::shared_ptr<TaskStore> store;
    const PackageInstaller installer;
    const std::function<std::string()> serial;
    const WorkLock downloads;
    const WorkLock installs;
    CHttpDownloader engine;
    Observers<QueueEvent> observers;

    // Guards all below. Held while the table is asked what is next, so that no two threads take the
    // same row, and never while an observer is told.
    std::mutex mutex;
    bool downloading = false;
    bool installing = false;
    bool closed = false;
    std::shared_ptr<const void> installHold;  // while `installing`
    std::optional<CDownloadTask> current;
    std::shared_ptr<RunSink> active;              // of the run that `downloading` is about
    std::vector<std::shared_ptr<RunSink>> sinks;  // of all runs that may still tell something
    unsigned stops = 0;                           // calls of StopCurrent
};

bool TaskQueue::State::SetState(const CDownloadTask& task, TaskState to) {
    const StoreResult result = store->SetTaskState(task.id, to);
    if (result == StoreResult::done) {
        return true;
    }
    observers.Tell({.kind = Kind::storeFailed, .task = task, .store = result});
    return false;
}

bool TaskQueue::State::SetState(std::int32_t id, TaskState to) {
    CDownloadTask task;
    task.id = id;
    return SetState(task, to);
}

void TaskQueue::State::StartNext() {
    Look look = Look::again;
    while (look == Look::again) {
        look = StartDownload();
    }
    if (look != Look::elsewhere) {
        InstallNext();
    }
}

TaskQueue::State::Look TaskQueue::State::StartDownload() {
    CDownloadTask task;
    unsigned stopsBefore = 0;
    std::shared_ptr<const void> hold;
    {
        const std::lock_guard lock(mutex);
        if (downloading || closed || store->NextDownloadTaskId() == kNoTask) {
            return Look::settled;
        }
        hold = downloads.Take();
        if (hold == nullptr) {
            return Look::elsewhere;
        }
        // Only now: another process may just have been at that row.
        const auto row = store->LoadTaskForDownload(store->NextDownloadTaskId());
        if (!row) {
            return Look::again;
        }
        task = *row;
        downloading = true;
        stopsBefore = stops;
    }
    const bool stored = SetState(task, TaskState::downloading);
    task.state = TaskState::downloading;
    const auto file = TaskFile(task.savePath, task.uniqueId);
    if (!file) {
        const bool failed = stored && SetState(task, TaskState::failed);
        observers.Tell({.kind = Kind::failed, .task = task, .fault = DownloadFault::cannotWrite});
        Reload();
        EndRun(nullptr);
        // A row that no file can be made of fails at once, and the one behind it is next.
        return failed ? Look::again : Look::settled;
    }
    const auto sink = std::make_shared<RunSink>(weak_from_this(), task);
    {
        const std::lock_guard lock(mutex);
        if (engine.IsIdle()) {
            sinks.clear();
        }
        sinks.push_back(sink);
        active = sink;
        current = task;
    }
    observers.Tell({.kind = Kind::started, .task = task});
    engine.SetSink(sink);
    engine.SetJob(task.url, *file);
    engine.Start(std::move(hold));
    // Whoever wanted to stop it while it was on its way.
    const std::lock_guard lock(mutex);
    if (active == sink && stops != stopsBefore) {
        engine.Stop();
    }
    return Look::settled;
}

// Whether another process has paused or removed it. A table that can't be read has lost it, too.
bool TaskQueue::State::IsTakenBack(const CDownloadTask& task) const {
    const auto row = store->LoadTaskForDownload(task.id);
    return !row || row->state == TaskState::paused;
}

// Another download may start, unless that is of another run already.
void TaskQueue::State::EndRun(const RunSink* run) {
    const std::lock_guard lock(mutex);
    if (active.get() == run) {
        active.reset();
        downloading = false;
    }
}

void TaskQueue::State::OnDownloadEvent(const RunSink& run, DownloadEvent event, std::int32_t speed,
                                       std::int32_t percent) {
    const CDownloadTask& task = run.Task();
    {
        // What an old run tells of a task that has a newer one means nothing any more.
        const std::lock_guard lock(mutex);
        if (active != nullptr && active.get() != &run && active->Task().id == task.id) {
            return;
        }
    }
    switch (event) {
        case DownloadEvent::started:
            break;
        case DownloadEvent::progress:
            observers.Tell(
                {.kind = Kind::progress, .task = task, .speed = speed, .percent = percent});
            if (IsTakenBack(task)) {
                engine.Stop();
            }
            break;
        case DownloadEvent::complete: {
            const bool stored = SetState(task, TaskState::installing);
            observers.Tell(
                {.kind = Kind::complete, .task = task, .speed = speed, .percent = percent});
            Reload();
            EndRun(&run);
            if (stored) {
                StartNext();
                InstallNext();
            }
            break;
        }
        case DownloadEvent::stopped:
            EndRun(&run);
            observers.Tell({.kind = Kind::stopped, .task = task});
            break;
        case DownloadEvent::rangeRefused:
        case DownloadEvent::closedEarly:
        case DownloadEvent::receiveFailed:
        case DownloadEvent::refused: {
            const bool stored = SetState(task, TaskState::failed);
            observers.Tell({.kind = Kind::failed, .task = task, .fault = engine.Fault()});
            Reload();
            EndRun(&run);
            if (stored) {
                StartNext();
            }
            break;
        }
    }
}

void TaskQueue::State::InstallNext() {
    auto task = [this]() -> std::optional<CDownloadTask> {
        const std::lock_guard lock(mutex);
        if (installing || closed) {
            return std::nullopt;
        }
        installHold = installs.Take();
        return installHold == nullptr ? std::nullopt : TakeInstall();
    }();
    if (!task) {
        return;
    }
    try {
        std::thread([self = shared_from_this(), task = std::move(task)]() mutable {
            while (task) {
                task = self->InstallTask(*task);
            }
        }).detach();
    } catch (const std::system_error&) {
        // The row waits for the next call.
        const std::lock_guard lock(mutex);
        EndInstalls();
    }
}

// With the mutex held.
void TaskQueue::State::EndInstalls() {
    installing = false;
    installHold.reset();
}

// The row that is installed next, and that one is installed from now on. With the mutex held.
std::optional<CDownloadTask> TaskQueue::State::TakeInstall() {
    auto row = closed ? std::nullopt : store->LoadTaskForDownload(store->NextInstallTaskId());
    installing = row.has_value();
    if (!installing) {
        EndInstalls();
    }
    return row;
}

// Gives the row that is installed behind this one.
std::optional<CDownloadTask> TaskQueue::State::InstallTask(const CDownloadTask& task) {
    observers.Tell({.kind = Kind::installStarted, .task = task});
    InstallResult result = InstallResult::failed;
    const std::string phone = serial();
    if (const auto file = TaskFile(task.savePath, task.uniqueId)) {
        // Its download has been told to be complete, and may not have moved it yet.
        engine.WaitForMove(*file);
        FinishMove(*file);
        result = installer.Install({.serial = phone, .package = *file});
    }
    const bool stored = SetState(
        task, result == InstallResult::success ? TaskState::done : TaskState::installFailed);
    observers.Tell({.kind = Kind::installEnded,
                    .task = task,
                    .install = result,
                    .phoneChosen = !phone.empty()});
    Reload();
    const std::lock_guard lock(mutex);
    if (!stored) {
        EndInstalls();
        return std::nullopt;
    }
    return TakeInstall();
}

void TaskQueue::State::StopCurrent() {
    {
        const std::lock_guard lock(mutex);
        ++stops;
    }
    engine.Stop();
}

void TaskQueue::State::StopIfCurrent(std::int32_t id) {
    bool isCurrent = false;
    {
        const std::lock_guard lock(mutex);
        isCurrent = current && current->id == id;
    }
    if (isCurrent) {
        StopCurrent();
    }
}

TaskQueue::TaskQueue(std::shared_ptr<TaskStore> store, PackageInstaller installer,
                     std::function<std::string()> serial, TransferLimits limits)
    : state_(std::make_shared<State>(std::move(store), std::move(installer), std::move(serial),
                                     limits)) {}

Subscription TaskQueue::Observe(Observer observer) const {
    return state_->observers.Add(std::move(observer));
}

void TaskQueue::StartNext() const {
    state_->StartNext();
}

void TaskQueue::InstallNext() const {
    state_->InstallNext();
}

void TaskQueue::StopCurrent() const {
    state_->StopCurrent();
}

void TaskQueue::Close() const {
    {
        const std::lock_guard lock(state_->mutex);
        state_->closed = true;
    }
    state_->StopCurrent();
}

void TaskQueue::PauseTask(std::int32_t id) const {
    state_->StopIfCurrent(id);
    state_->SetState(id, TaskState::paused);
    state_->Reload();
}

void TaskQueue::RemoveTask(std::int32_t id) const {
    RemoveTasks({&id, 1});
}

std::size_t TaskQueue::RemoveTasks(std::span<const std::int32_t> ids) const {
    if (ids.empty()) {
        state_->observers.Tell({.kind = Kind::nothingChecked});
        return 0;
    }
    std::size_t removed = 0;
    for (const std::int32_t id : ids) {
        state_->StopIfCurrent(id);
        const StoreResult result = state_->store->DeleteTask(id);
        if (result == StoreResult::done) {
            ++removed;
        } else {
            CDownloadTask task;
            task.id = id;
            state_->observers.Tell({.kind = Kind::storeFailed, .task = task, .store = result});
        }
    }
    state_->Reload();
    return removed;
}

void TaskQueue::ResumeTask(std::int32_t id) const {
    if (state_->SetState(id, TaskState::downloading)) {
        state_->Reload();
        StartNext();
    }
}

void TaskQueue::DownloadAgain(std::int32_t id) const {
    if (const auto file = state_->store->LoadTaskForInstall(id)) {
        std::error_code missing;
        std::filesystem::remove(*file, missing);
    }
    if (state_->SetState(id, TaskState::waiting)) {
        StartNext();
    }
}

void TaskQueue::InstallAgain(std::int32_t id) const {
    if (state_->SetState(id, TaskState::installing)) {
        InstallNext();
    }
}

std::optional<CDownloadTask> TaskQueue::CurrentTask() const {
    const std::lock_guard lock(state_->mutex);
    return state_->current;
}

bool TaskQueue::IsIdle() const {
    const std::lock_guard lock(state_->mutex);
    return !state_->downloading && !state_->installing && state_->engine.IsIdle();
}

}  // namespace quorvi

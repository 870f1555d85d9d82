// Turns the rows of the tasks' table into work: one download at a time and, beside it, one
// installation at a time. There is no list of what is next but the table: the end of a download
// starts the next download and the next installation, the end of an installation the next one.
//
//   TaskQueue queue(store, installer, [] { return serial; });
//   const Subscription heard = queue.Observe([](const QueueEvent& event) { … });
//   queue.StartNext();
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "base/Observers.h"
#include "download/TaskStore.h"
#include "download/Transfer.h"
#include "link/PackageInstaller.h"

namespace quorvi {

// What an observer is told, in the order in which it happens: first that the state stands in the
// table, then what a row's cells and the status line show, then `reload`, and only then what comes
// next.
struct QueueEvent {
    enum class Kind {
        started,         // a download; its row's progress is nothing yet
        progress,        // of a download: `speed`, `percent`
        complete,        // a download: its installation comes next
        stopped,         // a download, at the user's request; nothing starts by itself behind it
        failed,          // a download, for the reason in `fault`
        installStarted,  // an installation
        installEnded,    // an installation, with `install`
        reload,          // the table has changed: a list of unfinished tasks is to be loaded anew
        storeFailed,     // the table could not be changed, for the reason in `store`; what was to
                         // come next does not, since the same row would come again without end
        nothingChecked,  // rows were to be removed, and none was told
    };

    Kind kind;
    CDownloadTask task{};  // whose it is; of none for the last four but `storeFailed`
    std::int32_t speed = -1;
    std::int32_t percent = -1;
    DownloadFault fault = DownloadFault::none;
    InstallResult install = InstallResult::failed;
    bool phoneChosen = true;  // of `installEnded`: there was a phone to install on
    StoreResult store = StoreResult::done;
};

// Idle until somebody calls StartNext: nothing goes on by itself when the program starts. Copies
// are the same service. Any thread; its statements wait for the disk: not for the window's thread.
//
// Several processes may work on one table: one of them downloads at a time, and one installs. What
// is started while another one downloads is dropped like what is started during a download of this
// process: the end of that one looks at the table again. A download whose row another process has
// paused or removed is stopped.
class TaskQueue {
  public:
    using Observer = Observers<QueueEvent>::Observer;

    // `serial` gives that of the selected phone, at each installation; where it is empty, adb
    // fails, and so does the installation.
    TaskQueue(std::shared_ptr<TaskStore> store, PackageInstaller installer,
              std::function<std::string()> serial, TransferLimits limits = {});

    // Tells `observer` from now on, on the thread on which it happens.
    [[nodiscard]] Subscription Observe(Observer observer) const;

    // Starts the next download, unless one runs, and then the next installation, unless one runs.
    void StartNext() const;
    void InstallNext() const;
    // Stops the download that runs. Its row's state stays; nothing starts by itself.
    void StopCurrent() const;
    // The same for good: an installation that runs goes on to its end, and nothing starts from now
    // on, whoever asks.
    void Close() const;

    // The commands on a row. Pausing and removing stop the download when it is the row's own; files
    // stay where they are. RemoveTasks gives how many rows it has removed.
    void PauseTask(std::int32_t id) const;
    void RemoveTask(std::int32_t id) const;
    std::size_t RemoveTasks(std::span<const std::int32_t> ids) const;
    // Both the command "go on" and "install again": asks for the download, which knows what is
    // there already, and starts what is next.
    void ResumeTask(std::int32_t id) const;
    // Of a package that is known already: downloads it anew, without the file that is there; or
    // installs the file that is there.
    void DownloadAgain(std::int32_t id) const;
    void InstallAgain(std::int32_t id) const;

    // The task of the last download that was started; nothing before the first one.
    [[nodiscard]] std::optional<CDownloadTask> CurrentTask() const;
    // Whether nothing runs any more, the move of a file included.
    [[nodiscard]] bool IsIdle() const;

  private:
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace quorvi

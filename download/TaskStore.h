// The table of all downloads, finished or not, in the file Config.db. The table is the queue: what
// comes next is always asked of it, and nothing else remembers it.
//
//   TaskStore store(ThePlaces().TaskDatabase());
//   store.InsertTask(task);
//   const int next = store.NextDownloadTaskId();
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "download/DownloadTask.h"

struct sqlite3;

namespace quorvi {

// What became of a statement.
enum class StoreResult {
    done,
    refused,      // the task is none that the table takes; see InsertTask
    notOpen,      // there is no database: it could not be opened at the start
    diskFull,     // no room is left where the file is
    cannotWrite,  // the file or its folder may not be written
    busy,         // another process has held the file for too long
    failed,       // anything else: the file is no database, or its table is another one
};

// Which tasks a list shows. The numbers are those of the nodes and of the command line.
enum class TaskFilter {
    all = 0,
    unfinished = 1,   // all but those that are done
    downloading = 2,  // waiting, downloading, paused
    installing = 3,   // downloaded: states 5 to 8
    done = 4,
};

// No task: what is next where nothing is.
inline constexpr std::int32_t kNoTask = -1;

// What the table knows of a package. Texts are ANSI.
struct FoundTask {
    enum class Found { none = 0, unfinished = 1, done = 2 };

    Found found = Found::none;
    std::filesystem::path file;  // empty where the row has no folder
    std::string title;
    std::string datetime;
    std::int32_t id = kNoTask;
};

struct LoadedTasks {
    StoreResult result = StoreResult::done;
    std::vector<CDownloadTask> tasks;
};

// One handle to the file. Each operation is one statement, which is done whole or not at all,
// whenever the process ends. Any thread; other processes may work on the same file at once. A
// statement may wait for the disk, and for another process: not for the window's thread.
class TaskStore {
  public:
    // Opens the file, makes it and its folder where they are missing, and the table in it: an
    // existing one keeps all its rows. Where there is no way to open it, every operation fails.
    explicit TaskStore(const std::filesystem::path& file);
    // The same, put off to the first operation, which asks where the file is, too: for who must not
    // wait for the disk. An empty path is no file.
    explicit TaskStore(std::function<std::filesystem::path()> file);
    ~TaskStore();
    TaskStore(const TaskStore&) = delete;
    TaskStore& operator=(const TaskStore&) = delete;

    // `notOpen` where the file could not be opened.
    [[nodiscard]] StoreResult OpenResult() const;
    // The whole path of the file; empty where it could not be opened.
    [[nodiscard]] std::filesystem::path File() const;

    // Adds a row. Its time is that of the clock, and its number that of the table, whatever the
    // task holds. Title, address and folder are kept in UTF-8. The address stays so when it is read
    // again: kept on purpose, addresses are ASCII (TaskStoreTest.AnAddressIsReadAsItIsKept).
    //
    // A title with an apostrophe makes no row. Kept on purpose: such tasks have never come into the
    // table (TaskStoreTest.ATitleWithAnApostropheMakesNoRow). Nor does a text whose file would not
    // lie in its folder: a name that is none of a package, or no folder at all.
    StoreResult InsertTask(CDownloadTask task);
    // Both do nothing for kNoTask, and for a number that no row has.
    StoreResult DeleteTask(std::int32_t id);
    StoreResult SetTaskState(std::int32_t id, TaskState state);

    // What the last row of a package says.
    [[nodiscard]] FoundTask FindTaskByUniqueId(std::string_view uniqueId) const;

    // The first row that waits for its download or is in the middle of it, and the first one that
    // waits for its installation; kNoTask where there is none. The oldest row is the first.
    [[nodiscard]] std::int32_t NextDownloadTaskId() const;
    [[nodiscard]] std::int32_t NextInstallTaskId() const;

    // The row of a number, nothing where there is none.
    [[nodiscard]] std::optional<CDownloadTask> LoadTaskForDownload(std::int32_t id) const;
    // The file of a row, as one argument of a command, without quotes. Nothing where there is none.
    [[nodiscard]] std::optional<std::filesystem::path> LoadTaskForInstall(std::int32_t id) const;

    // The rows of a filter, the oldest first; each one's index is its place among them.
    [[nodiscard]] LoadedTasks LoadTaskList(TaskFilter filter) const;

  private:
    class Statement;
    struct Closer {
        void operator()(sqlite3* database) const;
    };

    // The handle, opened where that has been put off; null where there is none. With the mutex
    // held.
    [[nodiscard]] sqlite3* Database() const;
    void Open(const std::filesystem::path& file) const;

    [[nodiscard]] StoreResult ResultOf(int code) const;
    [[nodiscard]] LoadedTasks Select(const char* sql, std::int64_t number) const;
    [[nodiscard]] std::int32_t FirstId(const char* sql, TaskState state) const;

    mutable std::mutex mutex_;                             // guards all below
    mutable std::function<std::filesystem::path()> file_;  // until it is opened
    mutable std::unique_ptr<sqlite3, Closer> database_;
};

}  // namespace quorvi

#include "download/TaskStore.h"

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <limits>
#include <system_error>
#include <utility>

#include "base/Format.h"
#include "base/PackageName.h"
#include "base/Text.h"

namespace quorvi {
namespace {

constexpr int kPatience = 10'000;  // ms, for what another process does with the file

// Fails, as a rule, because the table is there.
constexpr const char* kCreateTable =
    "CREATE TABLE cdb_task(id INTEGER PRIMARY KEY, type INTEGER, title VARCHAR(100),  "
    "url VARCHAR(512), state INTEGER, length VARCHAR(12), action INTEGER, datetime VARCHAR(32), "
    "unique_id VARCHAR(128), save_path VARCHAR(512) );";

// A process that is killed leaves a whole file, and readers do not wait for writers.
constexpr const char* kKeepALog = "PRAGMA journal_mode=WAL";

constexpr const char* kInsert =
    "INSERT INTO 'cdb_task' VALUES(NULL, ?1, ?2, ?3, ?4, ?5 , ?6 , ?7, ?8, ?9);";
constexpr const char* kDelete = "DELETE FROM cdb_task WHERE id=?1";
constexpr const char* kUpdate = "UPDATE cdb_task SET state=?2 WHERE id=?1";
constexpr const char* kSelectPackage = "SELECT * FROM 'cdb_task' WHERE unique_id=?1";
constexpr const char* kSelectId = "SELECT * FROM cdb_task WHERE id=?1";
constexpr const char* kFirstBelow = "SELECT * FROM cdb_task WHERE state<?1 LIMIT 0,1";
constexpr const char* kFirstAt = "SELECT * FROM cdb_task WHERE state=?1 LIMIT 0,1";

// The columns in the order in which the table was made.
enum Column {
    columnId,
    columnType,
    columnTitle,
    columnUrl,
    columnState,
    columnLength,
    columnAction,
    columnDatetime,
    columnUniqueId,
    columnSavePath,
    columnCount,
};

// A filter's statement, and the state with which it compares.
struct FilterRow {
    const char* sql;
    TaskFilter filter;
    TaskState state;
};
constexpr FilterRow kFilters[] = {
    {"SELECT * FROM cdb_task", TaskFilter::all, TaskState::waiting},
    {"SELECT * FROM cdb_task WHERE state<>?1", TaskFilter::unfinished, TaskState::done},
    {"SELECT * FROM cdb_task WHERE state<?1", TaskFilter::downloading, TaskState::done},
    {"SELECT * FROM cdb_task WHERE state>?1", TaskFilter::installing, TaskState::failed},
    {"SELECT * FROM cdb_task WHERE state=?1", TaskFilter::done, TaskState::done},
};

bool IsNoRoom(int error) {
    return error == ENOSPC || error == EDQUOT || error == EFBIG;
}

}  // namespace

void TaskStore::Closer::operator()(sqlite3* database) const {
    sqlite3_close_v2(database);
}

// One statement, from its making to its end.
class TaskStore::Statement {
  public:
    Statement(sqlite3* database, const char* sql) {
        code_ = sqlite3_prepare_v2(database, sql, -1, &statement_, nullptr);
    }
    ~Statement() { sqlite3_finalize(statement_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& Bind(int place, std::int64_t number) {
        Keep(sqlite3_bind_int64(statement_, place, number));
        return *this;
    }
    // Up to a zero byte, which the table's texts do not have.
    Statement& Bind(int place, std::string_view text) {
        text = text.substr(0, text.find('\0'));
        Keep(sqlite3_bind_text64(statement_, place, text.data() == nullptr ? "" : text.data(),
                                 text.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
        return *this;
    }

    // Goes to the next row; false at the end, and where the statement failed.
    bool Step() {
        if (code_ != SQLITE_OK && code_ != SQLITE_ROW) {
            return false;
        }
        code_ = sqlite3_step(statement_);
        return code_ == SQLITE_ROW;
    }
    // The library's code for all that has happened so far.
    [[nodiscard]] int Code() const { return code_; }

    // Whether its rows are those of the table; of another one nothing is read.
    [[nodiscard]] bool HasTaskColumns() const {
        return sqlite3_column_count(statement_) == columnCount;
    }
    [[nodiscard]] std::int32_t Number(Column column) const {
        return sqlite3_column_int(statement_, column);
    }
    [[nodiscard]] std::string Text(Column column) const {
        const auto* text = sqlite3_column_text(statement_, column);
        const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
        return text == nullptr ? std::string()
                               : std::string(reinterpret_cast<const char*>(text), size);
    }
    [[nodiscard]] CDownloadTask Task() const {
        CDownloadTask task;
        task.id = Number(columnId);
        task.type = static_cast<TaskType>(Number(columnType));
        task.title = ToAnsi(Text(columnTitle));
        task.datetime = Text(columnDatetime);
        task.url = Text(columnUrl);
        task.uniqueId = Text(columnUniqueId);
        task.state = static_cast<TaskState>(Number(columnState));
        task.length = Text(columnLength);
        task.action = Number(columnAction);
        task.savePath = ToAnsi(Text(columnSavePath));
        return task;
    }

  private:
    void Keep(int code) {
        if (code_ == SQLITE_OK) {
            code_ = code;
        }
    }

    sqlite3_stmt* statement_ = nullptr;
    int code_ = SQLITE_OK;
};

TaskStore::TaskStore(const std::filesystem::path& file) {
    Open(file);
}

TaskStore::TaskStore(std::function<std::filesystem::path()> file) : file_(std::move(file)) {}

sqlite3* TaskStore::Database() const {
    if (const auto file = std::exchange(file_, nullptr)) {
        if (const std::filesystem::path path = file(); !path.empty()) {
            Open(path);
        }
    }
    return database_.get();
}

void TaskStore::Open(const std::filesystem::path& file) const {
    std::error_code failed;
    std::filesystem::create_directories(file.parent_path(), failed);
    sqlite3* database = nullptr;
    const int opened = sqlite3_open_v2(
        file.c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX,
        nullptr);
    database_.reset(database);
    if (opened != SQLITE_OK) {
        database_.reset();
        return;
    }
    sqlite3_busy_timeout(database, kPatience);
    sqlite3_exec(database, kKeepALog, nullptr, nullptr, nullptr);
    sqlite3_exec(database, kCreateTable, nullptr, nullptr, nullptr);
}

TaskStore::~TaskStore() = default;

StoreResult TaskStore::OpenResult() const {
    const std::lock_guard lock(mutex_);
    return Database() == nullptr ? StoreResult::notOpen : StoreResult::done;
}

std::filesystem::path TaskStore::File() const {
    const std::lock_guard lock(mutex_);
    const char* const file =
        database_ == nullptr ? nullptr : sqlite3_db_filename(database_.get(), "main");
    return file == nullptr ? "" : file;
}

// Asked while the mutex is held: the system's error is the handle's last one.
StoreResult TaskStore::ResultOf(int code) const {
    switch (code & 0xFF) {
        case SQLITE_OK:
        case SQLITE_ROW:
        case SQLITE_DONE:
            return StoreResult::done;
        case SQLITE_FULL:
            return StoreResult::diskFull;
        case SQLITE_IOERR:
            return IsNoRoom(sqlite3_system_errno(database_.get())) ? StoreResult::diskFull
                                                                   : StoreResult::failed;
        case SQLITE_READONLY:
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
            return StoreResult::cannotWrite;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return StoreResult::busy;
        default:
            return StoreResult::failed;
    }
}

StoreResult TaskStore::InsertTask(CDownloadTask task) {
    if (task.title.find('\'') != std::string::npos || !TaskFile(task.savePath, task.uniqueId)) {
        return StoreResult::refused;
    }
    AnsiToUtf8(task.title);
    AnsiToUtf8(task.url);
    AnsiToUtf8(task.savePath);
    task.datetime = FormatUnixTime(std::time(nullptr));
    const std::lock_guard lock(mutex_);
    if (Database() == nullptr) {
        return StoreResult::notOpen;
    }
    Statement insert(database_.get(), kInsert);
    insert.Bind(columnType, static_cast<std::int32_t>(task.type))
        .Bind(columnTitle, task.title)
        .Bind(columnUrl, task.url)
        .Bind(columnState, static_cast<std::int32_t>(task.state))
        .Bind(columnLength, task.length)
        .Bind(columnAction, task.action)
        .Bind(columnDatetime, task.datetime)
        .Bind(columnUniqueId, task.uniqueId)
        .Bind(columnSavePath, task.savePath)
        .Step();
    return ResultOf(insert.Code());
}

StoreResult TaskStore::DeleteTask(std::int32_t id) {
    if (id == kNoTask) {
        return StoreResult::done;
    }
    const std::lock_guard lock(mutex_);
    if (Database() == nullptr) {
        return StoreResult::notOpen;
    }
    Statement remove(database_.get(), kDelete);
    remove.Bind(1, id).Step();
    return ResultOf(remove.Code());
}

StoreResult TaskStore::SetTaskState(std::int32_t id, TaskState state) {
    if (id == kNoTask) {
        return StoreResult::done;
    }
    const std::lock_guard lock(mutex_);
    if (Database() == nullptr) {
        return StoreResult::notOpen;
    }
    Statement update(database_.get(), kUpdate);
    update.Bind(1, id).Bind(2, static_cast<std::int32_t>(state)).Step();
    return ResultOf(update.Code());
}

FoundTask TaskStore::FindTaskByUniqueId(std::string_view uniqueId) const {
    FoundTask result;
    const std::lock_guard lock(mutex_);
    if (Database() == nullptr) {
        return result;
    }
    Statement select(database_.get(), kSelectPackage);
    select.Bind(1, uniqueId);
    while (select.Step() && select.HasTaskColumns()) {
        const CDownloadTask task = select.Task();
        result.found =
            task.state == TaskState::done ? FoundTask::Found::done : FoundTask::Found::unfinished;
        result.file = TaskFile(task.savePath, task.uniqueId).value_or(std::filesystem::path());
        result.title = task.title;
        result.datetime = task.datetime;
        result.id = task.id;
    }
    return result;
}

// The rows of a statement that compares with one number, or with none.
LoadedTasks TaskStore::Select(const char* sql, std::int64_t number) const {
    LoadedTasks list;
    const std::lock_guard lock(mutex_);
    if (Database() == nullptr) {
        list.result = StoreResult::notOpen;
        return list;
    }
    Statement select(database_.get(), sql);
    if (std::string_view(sql).find('?') != std::string_view::npos) {
        select.Bind(1, number);
    }
    while (select.Step()) {
        if (!select.HasTaskColumns()) {
            list.result = StoreResult::failed;
            return list;
        }
        list.tasks.push_back(select.Task());
        list.tasks.back().index = static_cast<std::int32_t>(list.tasks.size() - 1);
    }
    list.result = ResultOf(select.Code());
    return list;
}

std::int32_t TaskStore::FirstId(const char* sql, TaskState state) const {
    const LoadedTasks first = Select(sql, static_cast<std::int32_t>(state));
    return first.tasks.empty() ? kNoTask : first.tasks.front().id;
}

std::int32_t TaskStore::NextDownloadTaskId() const {
    return FirstId(kFirstBelow, TaskState::paused);
}

std::int32_t TaskStore::NextInstallTaskId() const {
    return FirstId(kFirstAt, TaskState::installing);
}

std::optional<CDownloadTask> TaskStore::LoadTaskForDownload(std::int32_t id) const {
    LoadedTasks list = Select(kSelectId, id);
    if (list.tasks.empty()) {
        return std::nullopt;
    }
    return std::move(list.tasks.front());
}

std::optional<std::filesystem::path> TaskStore::LoadTaskForInstall(std::int32_t id) const {
    const auto task = LoadTaskForDownload(id);
    return task ? TaskFile(task->savePath, task->uniqueId) : std::nullopt;
}

LoadedTasks TaskStore::LoadTaskList(TaskFilter filter) const {
    const auto* row = std::ranges::find(kFilters, filter, &FilterRow::filter);
    if (row == std::end(kFilters)) {
        return {StoreResult::failed, {}};
    }
    return Select(row->sql, static_cast<std::int32_t>(row->state));
}

}  // namespace quorvi

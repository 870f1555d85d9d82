#include <array>
#include <limits>
#include <optional>
#include <string>

#include "base/Json.h"
#include "base/Text.h"
#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/PhoneChange.h"
#include "cli/Tasks.h"
#include "download/QueueText.h"

namespace quorvi::cli {
namespace {

constexpr auto kLastFilter = static_cast<std::uint32_t>(TaskFilter::done);

std::optional<TaskFilter> FilterOf(const Arguments& arguments) {
    const auto number = ReadId(arguments.Option("--filter").value_or("0"));
    return number && *number <= kLastFilter ? std::optional(static_cast<TaskFilter>(*number))
                                            : std::nullopt;
}

// The row of a number that was typed; nothing where the table has none.
std::optional<CDownloadTask> FindTask(const TaskStore& store, std::uint32_t id) {
    if (id > static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max())) {
        return std::nullopt;
    }
    return store.LoadTaskForDownload(static_cast<std::int32_t>(id));
}

// Changes the row of each number, and tells with --json whose were: {"word": [1, 2]}. Numbers that
// no row has are told, and hold up no others.
template <typename Change>
Status ChangeTasks(const Arguments& arguments, const Context& context, const char* word,
                   Output& output, const Change& change) {
    const auto ids = ReadIds(arguments.operands, u8"不是下载任务的编号", output);
    if (!ids) {
        return Status::wrongUsage;
    }
    const auto store = OpenTasks(context, output);
    if (store == nullptr) {
        return Status::noLink;
    }
    Status status = Status::done;
    std::vector<std::uint32_t> changed;
    for (const std::uint32_t id : *ids) {
        const auto task = FindTask(*store, id);
        if (!task) {
            output.Complain(std::to_string(id) + Ansi(u8": 没有这个下载任务"));
            status = status == Status::done ? Status::notFound : status;
            continue;
        }
        if (const StoreResult result = change(*store, *task); result != StoreResult::done) {
            output.Complain(StoreStatus(result));
            status = Status::noLink;
            break;
        }
        changed.push_back(id);
    }
    if (output.Json()) {
        Json::Value document(Json::objectValue);
        document[word] = JsonIds(changed);
        output.PrintDocument(document);
    }
    return status;
}

Status SetStates(const Arguments& arguments, const Context& context, const char* word,
                 TaskState state, Output& output) {
    return ChangeTasks(arguments, context, word, output,
                       [state](TaskStore& store, const CDownloadTask& task) {
                           return store.SetTaskState(task.id, state);
                       });
}

}  // namespace

Status RunDownloadsList(const Arguments& arguments, const Context& context, Output& output) {
    const auto filter = FilterOf(arguments);
    if (!filter) {
        output.Complain(Ansi(u8"--filter 的值应为 0 到 4"));
        return Status::wrongUsage;
    }
    const auto store = OpenTasks(context, output);
    if (store == nullptr) {
        return Status::noLink;
    }
    Json::Value document(Json::arrayValue);
    Table table{u8"编号", u8"名称", u8"类型", u8"状态", u8"创建时间", u8"包名", u8"保存目录"};
    for (const CDownloadTask& task : store->LoadTaskList(*filter).tasks) {
        document.append(DocumentOf(task));
        table.AddRow({std::to_string(task.id), task.title, Ansi(TypeCaption(task.type)),
                      Ansi(StateCaption(task.state)), task.datetime, task.uniqueId, task.savePath});
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
    return Status::done;
}

// Whoever downloads the task stops it when it finds its row so.
Status RunDownloadsPause(const Arguments& arguments, const Context& context, Output& output) {
    return SetStates(arguments, context, "paused", TaskState::paused, output);
}

Status RunDownloadsResume(const Arguments& arguments, const Context& context, Output& output) {
    return SetStates(arguments, context, "resumed", TaskState::downloading, output);
}

// Kept on purpose: it asks for the download, as resuming does, which finds what is there already
// (DownloadsCommand.ReinstallingAsksForTheDownload).
Status RunDownloadsReinstall(const Arguments& arguments, const Context& context, Output& output) {
    return SetStates(arguments, context, "reinstalled", TaskState::downloading, output);
}

// Files stay where they are.
Status RunDownloadsRemove(const Arguments& arguments, const Context& context, Output& output) {
    return ChangeTasks(
        arguments, context, "removed", output,
        [](TaskStore& store, const CDownloadTask& task) { return store.DeleteTask(task.id); });
}

}  // namespace quorvi::cli

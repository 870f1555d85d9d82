#include "cli/Tasks.h"

#include "base/Json.h"
#include "base/Text.h"
#include "download/QueueText.h"

namespace quorvi::cli {

std::shared_ptr<TaskStore> OpenTasks(const Context& context, Output& output) {
    auto store = std::make_shared<TaskStore>(context.tasks);
    // What is no database shows only when it is read.
    const StoreResult result = store->LoadTaskList(TaskFilter::unfinished).result;
    if (result != StoreResult::done) {
        output.Complain(StoreStatus(result));
        return nullptr;
    }
    return store;
}

Json::Value DocumentOf(const CDownloadTask& task) {
    Json::Value item(Json::objectValue);
    item["id"] = task.id;
    item["type"] = static_cast<std::int32_t>(task.type);
    item["title"] = JsonText(task.title);
    item["url"] = task.url;  // in UTF-8 as the table has it
    item["state"] = static_cast<std::int32_t>(task.state);
    item["caption"] = JsonText(Ansi(StateCaption(task.state)));
    item["length"] = JsonText(task.length);
    item["datetime"] = JsonText(task.datetime);
    item["unique_id"] = JsonText(task.uniqueId);
    item["save_path"] = JsonText(task.savePath);
    return item;
}

}  // namespace quorvi::cli

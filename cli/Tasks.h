// What the commands of the downloads have in common.
#pragma once

#include <json/value.h>

#include <memory>

#include "cli/Command.h"
#include "cli/Output.h"
#include "download/TaskStore.h"

namespace quorvi::cli {

// The table of the tasks, that of the window; nothing, and a complaint, when it can't be used. What
// a command then ends with is noLink.
[[nodiscard]] std::shared_ptr<TaskStore> OpenTasks(const Context& context, Output& output);

// {id, type, title, url, state, caption, length, datetime, unique_id, save_path}
[[nodiscard]] Json::Value DocumentOf(const CDownloadTask& task);

}  // namespace quorvi::cli

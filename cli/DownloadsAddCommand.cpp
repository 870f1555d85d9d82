#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

#include "base/Json.h"
#include "base/PackageName.h"
#include "base/Places.h"
#include "base/SettingsFile.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/Tasks.h"
#include "download/DownloadDirectory.h"
#include "download/QueueText.h"
#include "online/LinkResolver.h"

namespace quorvi::cli {
namespace {

// What became of one package.
struct Added {
    Status status = Status::done;
    bool isNew = false;
    std::string text;                  // in a sentence, ANSI
    std::optional<CDownloadTask> row;  // as the table has it: the new one, or the one it had before
};

// The folder that was named, whole, as tasks keep it; nothing, and a complaint, where it is none.
std::optional<std::string> NamedFolder(const std::string& named, Output& output) {
    std::error_code failed;
    const std::filesystem::path folder = std::filesystem::canonical(named, failed);
    if (failed || !std::filesystem::is_directory(folder, failed)) {
        output.Complain(ToAnsi(named) + Ansi(u8": 没有这个目录"));
        return std::nullopt;
    }
    if (!FitsCodePage(folder.native())) {
        output.Complain(ToAnsi(named) + Ansi(u8": 目录的名称有不支持的字符，请换一个目录"));
        return std::nullopt;
    }
    return ToAnsi(folder.native());
}

// The folder in which the window's tasks are kept, too.
std::optional<std::string> UsualFolder(Output& output) {
    SettingsFile settings;
    const std::filesystem::path folder = DownloadDirectory(settings, FixedDisksOf(ThePlaces()));
    if (folder.empty()) {
        output.Complain(Ansi(u8"没有可以保存下载的磁盘，请用 --to 指定目录"));
        return std::nullopt;
    }
    return ToAnsi(folder.native());
}

Added KnownAlready(const TaskStore& store, const FoundTask& found) {
    Added known{Status::done, false, {}, store.LoadTaskForDownload(found.id)};
    if (known.row) {
        known.text = Ansi(u8"任务已经存在：") + found.title + Ansi(u8"，") +
                     Ansi(StateCaption(known.row->state));
    }
    return known;
}

Added AddPackage(TaskStore& store, const Context& context, const std::string& package,
                 const std::string& folder) {
    if (const FoundTask found = store.FindTaskByUniqueId(package); found.id != kNoTask) {
        return KnownAlready(store, found);
    }
    ResolvedPackage resolved = ResolvePackage(context.deployment, package, context.limits);
    if (resolved.outcome != ResolveOutcome::resolved) {
        if (resolved.outcome == ResolveOutcome::noAnswer) {
            return {Status::noLink, false, Ansi(u8"【错误】网站没有给出这个应用，请稍后再试"), {}};
        }
        return {IsPackageName(package) ? Status::notFound : Status::wrongUsage,
                false,
                ResolveStatus(resolved),
                {}};
    }
    // The site may call the package otherwise.
    const std::string name = resolved.task.uniqueId;
    if (const FoundTask found = store.FindTaskByUniqueId(name); found.id != kNoTask) {
        return KnownAlready(store, found);
    }
    resolved.task.savePath = folder;
    const StoreResult stored = store.InsertTask(resolved.task);
    if (stored != StoreResult::done) {
        return {Status::noLink, false, StoreStatus(stored), {}};
    }
    return {Status::done, true, ResolveStatus(resolved),
            store.LoadTaskForDownload(store.FindTaskByUniqueId(name).id)};
}

}  // namespace

// A task that is there already stays as it is.
Status RunDownloadsAdd(const Arguments& arguments, const Context& context, Output& output) {
    const auto named = arguments.Option("--to");
    const auto folder = named ? NamedFolder(*named, output) : UsualFolder(output);
    if (!folder) {
        return named ? Status::wrongUsage : Status::noLink;
    }
    const auto store = OpenTasks(context, output);
    if (store == nullptr) {
        return Status::noLink;
    }
    Status worst = Status::done;
    Json::Value document(Json::arrayValue);
    for (const std::string& package : arguments.operands) {
        const Added added = AddPackage(*store, context, package, *folder);
        const std::string text = ToAnsi(package) + ": " + added.text;
        if (output.Json()) {
            Json::Value item(Json::objectValue);
            item["package"] = package;
            item["added"] = added.isNew;
            item["text"] = JsonText(added.text);
            item["task"] = added.row ? DocumentOf(*added.row) : Json::Value();
            document.append(std::move(item));
        } else if (added.status == Status::done) {
            output.PrintLine(text);
        }
        if (added.status != Status::done) {
            output.Complain(text);
        }
        worst = std::max(worst, added.status);
    }
    if (output.Json()) {
        output.PrintDocument(document);
    }
    return worst;
}

}  // namespace quorvi::cli

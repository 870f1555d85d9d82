// Backing a phone up, bringing a backup back to it, and looking at a backup.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <filesystem>

#include "backup/Backup.h"
#include "backup/BackupReader.h"
#include "backup/BackupTexts.h"
#include "backup/Restore.h"
#include "base/Format.h"
#include "base/Json.h"
#include "base/Text.h"
#include "base/os/Interrupt.h"
#include "cli/Commands.h"
#include "cli/Output.h"

namespace quorvi::cli {
namespace {

// A path as it was typed; the system's names of files are bytes.
std::filesystem::path PathOf(const std::string& operand) {
    return operand;
}

// "--only contacts,groups"; all without it. Nothing, and a complaint, for an unknown word.
std::optional<std::vector<BackupKind>> KindsOf(const Arguments& arguments, Output& output) {
    std::vector<BackupKind> kinds;
    const auto only = arguments.Option("--only");
    if (!only) {
        for (const BackupKindName& kind : kBackupKinds) {
            kinds.push_back(kind.kind);
        }
        return kinds;
    }
    for (const std::string_view word : SplitAt(*only, ',')) {
        const auto kind = BackupKindOf(word);
        if (!kind) {
            std::string known;
            for (const BackupKindName& name : kBackupKinds) {
                known.append(known.empty() ? "" : ", ").append(name.word);
            }
            output.Complain(ToAnsi(word) + Ansi(u8": 不是备份的内容，可以写 ") + known);
            return std::nullopt;
        }
        kinds.push_back(*kind);
    }
    return kinds;
}

Json::Value CountsOf(const Manifest& manifest) {
    Json::Value counts(Json::objectValue);
    for (const BackedUpKind& kind : manifest.kinds) {
        counts[std::string(WordOf(kind.kind))] = kind.count;
    }
    return counts;
}

Json::Value DocumentOf(const Manifest& manifest) {
    Json::Value document(Json::objectValue);
    document["phone"] = JsonText(manifest.phone);
    document["made"] = JsonText(FormatUnixTime(manifest.made));
    document["counts"] = CountsOf(manifest);
    document["skipped_count"] = manifest.skippedCount;
    document["skipped"] = SkippedDocument(manifest.skipped);
    return document;
}

void PrintSkipped(const Manifest& manifest, Output& output) {
    if (manifest.skippedCount == 0) {
        return;
    }
    output.PrintLine(fmt::format(fmt::runtime(Ansi(u8"{} 项没有备份:")), manifest.skippedCount));
    for (const SkippedItem& item : manifest.skipped) {
        output.PrintLine("  " + NameOf(item.kind) + " " + item.what + ": " + item.why);
    }
}

Status StatusOf(BackupEnd end) {
    return end == BackupEnd::whole        ? Status::done
           : end == BackupEnd::stopped    ? Status::interrupted
           : end == BackupEnd::diskFailed ? Status::wrongUsage
                                          : Status::noLink;
}

Status StatusOf(RestoreEnd end) {
    return end == RestoreEnd::whole       ? Status::done
           : end == RestoreEnd::stopped   ? Status::interrupted
           : end == RestoreEnd::backupBad ? Status::wrongUsage
                                          : Status::noLink;
}

std::unique_ptr<BackupReader> OpenOrComplain(const std::string& operand, Output& output) {
    OpenedBackup opened = BackupReader::Open(PathOf(operand));
    if (!opened.reader) {
        output.Complain(ToAnsi(operand) + ": " + opened.why);
    }
    return std::move(opened.reader);
}

struct ActionName {
    RestoreAction action;
    const char* word;
    std::u8string_view name;
};
constexpr std::array<ActionName, 4> kActions{{
    {RestoreAction::add, "added", u8"新增"},
    {RestoreAction::change, "changed", u8"补充"},
    {RestoreAction::there, "there", u8"已存在"},
    {RestoreAction::impossible, "impossible", u8"无法写入"},
}};

Json::Value DocumentOf(const RestorePlan& plan) {
    Json::Value document(Json::objectValue);
    Json::Value& counts = document["counts"] = Json::Value(Json::objectValue);
    for (const BackupKindName& kind : kBackupKinds) {
        for (const ActionName& action : kActions) {
            if (const auto count = plan.Count(kind.kind, action.action); count > 0) {
                counts[std::string(kind.word)][action.word] = static_cast<Json::UInt64>(count);
            }
        }
    }
    Json::Value& items = document["items"] = Json::Value(Json::arrayValue);
    for (const RestoreItem& item : plan.items) {
        if (item.action == RestoreAction::there && item.why.empty()) {
            continue;
        }
        Json::Value row(Json::objectValue);
        row["kind"] = std::string(WordOf(item.kind));
        row["action"] = std::ranges::find(kActions, item.action, &ActionName::action)->word;
        row["what"] = JsonText(item.what);
        if (!item.why.empty()) {
            row["why"] = JsonText(item.why);
        }
        items.append(std::move(row));
    }
    return document;
}

void PrintPlan(const RestorePlan& plan, Output& output) {
    Table table{u8"内容", u8"操作", u8"名称", u8"说明"};
    for (const RestoreItem& item : plan.items) {
        if (item.action != RestoreAction::there || !item.why.empty()) {
            table.AddRow({NameOf(item.kind),
                          Ansi(std::ranges::find(kActions, item.action, &ActionName::action)->name),
                          item.what, item.why});
        }
    }
    output.PrintTable(table);
}

std::string SumText(const RestorePlan& plan) {
    std::string text;
    for (const ActionName& action : kActions) {
        text += text.empty() ? std::string() : Ansi(u8"，");
        text += Ansi(action.name) + " " + std::to_string(plan.Count(action.action));
    }
    return text;
}

}  // namespace

Status RunBackup(const Arguments& arguments, const Context& context, Output& output) {
    const auto kinds = KindsOf(arguments, output);
    if (!kinds) {
        return Status::wrongUsage;
    }
    const Interrupt interrupt;
    const std::string& target = arguments.operands.front();
    const BackupResult result = quorvi::RunBackup(
        context.agent,
        {.target = PathOf(target),
         .kinds = *kinds,
         .now = std::time(nullptr),
         .attribution = context.attribution},
        [](const BackupProgress&) {}, interrupt.Signal());
    const bool whole = result.end == BackupEnd::whole;
    if (!whole) {
        output.Complain(result.why);
        if (const std::string reached = ReachedText(result); !reached.empty() && !output.Json()) {
            output.Complain(reached + Ansi(u8"，没有留下备份"));
        }
    }
    if (output.Json()) {
        Json::Value document = DocumentOf(result.manifest);
        document["backup"] = target;
        document["whole"] = whole;
        if (!whole) {
            document["why"] = JsonText(result.why);
        }
        output.PrintDocument(document);
    } else if (whole) {
        output.PrintLine(Ansi(u8"已备份到 ") + ToAnsi(target));
        output.PrintLine(CountsText(result.manifest));
        PrintSkipped(result.manifest, output);
    }
    return StatusOf(result.end);
}

Status RunRestore(const Arguments& arguments, const Context& context, Output& output) {
    const auto kinds = KindsOf(arguments, output);
    const auto reader = kinds ? OpenOrComplain(arguments.operands.front(), output) : nullptr;
    if (!reader) {
        return Status::wrongUsage;
    }
    const Interrupt interrupt;
    Restore restore(context.agent, *reader, *kinds);
    RestoreStatus status = restore.Prepare(interrupt.Signal());
    if (status.end != RestoreEnd::whole) {
        output.Complain(status.why);
        return StatusOf(status.end);
    }
    const bool dryRun = arguments.Has("--dry-run");
    if (!dryRun) {
        status = restore.Run([](std::size_t, std::size_t) {}, interrupt.Signal());
    }
    if (status.end != RestoreEnd::whole) {
        output.Complain(status.why);
    }
    if (output.Json()) {
        Json::Value document = DocumentOf(restore.Plan());
        document["dry_run"] = dryRun;
        document["done"] = static_cast<Json::UInt64>(restore.Done());
        document["whole"] = !dryRun && status.end == RestoreEnd::whole;
        output.PrintDocument(document);
    } else {
        PrintPlan(restore.Plan(), output);
        output.PrintLine(SumText(restore.Plan()));
        if (!dryRun) {
            output.PrintLine(fmt::format(fmt::runtime(Ansi(u8"已完成 {} 项")), restore.Done()));
        }
    }
    return StatusOf(status.end);
}

Status RunVerify(const Arguments& arguments, const Context&, Output& output) {
    const auto reader = OpenOrComplain(arguments.operands.front(), output);
    if (!reader) {
        return Status::wrongUsage;
    }
    const Interrupt interrupt;
    const std::string why = reader->Verify(interrupt.Signal());
    if (interrupt.Signal().IsStopped()) {
        return Status::interrupted;
    }
    const Manifest& manifest = reader->TheManifest();
    if (!why.empty()) {
        output.Complain(why);
    }
    if (output.Json()) {
        Json::Value document = DocumentOf(manifest);
        document["whole"] = why.empty();
        if (!why.empty()) {
            document["why"] = JsonText(why);
        }
        output.PrintDocument(document);
    } else if (why.empty()) {
        output.PrintLine(Ansi(u8"备份完好: ") + manifest.phone + "  " +
                         FormatUnixTime(manifest.made));
        output.PrintLine(CountsText(manifest));
        PrintSkipped(manifest, output);
    }
    return why.empty() ? Status::done : Status::wrongUsage;
}

}  // namespace quorvi::cli

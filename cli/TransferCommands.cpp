// Records of one kind into a file, and from a file to the phone.
#include <fmt/format.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "backup/Export.h"
#include "backup/Import.h"
#include "base/Json.h"
#include "base/Text.h"
#include "base/os/Interrupt.h"
#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "cli/Output.h"

namespace quorvi::cli {
namespace {

struct KindWord {
    std::string_view word;
    FileKind kind;
};
constexpr std::array<KindWord, 4> kKinds{{
    {"contacts", FileKind::contacts},
    {"messages", FileKind::messages},
    {"calls", FileKind::calls},
    {"bookmarks", FileKind::bookmarks},
}};

const KindWord* FindKind(std::string_view word) {
    for (const KindWord& kind : kKinds) {
        if (kind.word == word) {
            return &kind;
        }
    }
    return nullptr;
}

// Of any end but `whole`. A link that is lost is told as by every other command.
Status Complain(const TransferStatus& status, Output& output) {
    if (status.end == TransferEnd::linkLost) {
        return output.Report(status.outcome);
    }
    output.Complain(status.why);
    return status.end == TransferEnd::fileFailed ? Status::wrongUsage
           : status.end == TransferEnd::stopped  ? Status::interrupted
                                                 : Status::noLink;
}

Json::Value DocumentOf(const SkippedRecords& records) {
    Json::Value list(Json::arrayValue);
    for (const SkippedRecord& record : records.list) {
        Json::Value row(Json::objectValue);
        row["what"] = JsonText(record.what);
        row["why"] = JsonText(record.why);
        list.append(std::move(row));
    }
    return list;
}

void PrintRecords(const SkippedRecords& records, std::u8string_view heading, Output& output) {
    if (records.count == 0) {
        return;
    }
    output.PrintLine(std::to_string(records.count) + Ansi(heading));
    for (const SkippedRecord& record : records.list) {
        output.PrintLine("  " + record.what + ": " + record.why);
    }
}

std::string Counted(std::u8string_view verb, std::size_t count, const KindWord& kind) {
    return Ansi(verb) + " " + CountedRecords(kind.kind, count);
}

ExportResult Export(const KindWord& kind, std::optional<std::uint32_t> conversation,
                    const std::string& file, const Context& context, const TransferWatch& watch) {
    switch (kind.kind) {
        case FileKind::contacts:
            return ExportContacts(context.agent, file, watch);
        case FileKind::messages:
            return ExportMessages(context.agent, context.attribution, conversation, file, watch);
        case FileKind::calls:
            return ExportCalls(context.agent, context.attribution, file, watch);
        case FileKind::bookmarks:
            return ExportBookmarks(context.agent, file, watch);
    }
    return {};
}

void ComplainOfEnding(const std::string& file, std::string_view endings, Output& output) {
    output.Complain(ToAnsi(file) + Ansi(u8": 扩展名应为 ") + ToAnsi(endings));
}

}  // namespace

Status RunExport(const Arguments& arguments, const Context& context, Output& output) {
    const KindWord* kind = FindKind(arguments.operands[0]);
    const std::string& file = arguments.operands[1];
    if (!kind) {
        output.Complain(ToAnsi(arguments.operands[0]) +
                        Ansi(u8": 应为 contacts、messages、calls 或 bookmarks"));
        return Status::wrongUsage;
    }
    if (!CanExportTo(kind->kind, file)) {
        ComplainOfEnding(file, ExportEndings(kind->kind), output);
        return Status::wrongUsage;
    }
    std::optional<std::uint32_t> conversation;
    if (const auto option = arguments.Option("--conversation")) {
        conversation = ReadId(*option);
        if (!conversation || kind->kind != FileKind::messages) {
            output.Complain(Ansi(u8"--conversation 的值应为会话的编号，只用于 messages"));
            return Status::wrongUsage;
        }
    }
    const Interrupt interrupt;
    const ExportResult result =
        Export(*kind, conversation, file, context, {.stop = &interrupt.Signal()});
    if (result.status.end != TransferEnd::whole) {
        return Complain(result.status, output);
    }
    if (output.Json()) {
        Json::Value document(Json::objectValue);
        document["exported"] = static_cast<Json::UInt64>(result.exported);
        document["skipped_count"] = static_cast<Json::UInt64>(result.skipped.count);
        document["skipped"] = DocumentOf(result.skipped);
        output.PrintDocument(document);
    } else {
        output.PrintLine(Counted(u8"已导出", result.exported, *kind));
        PrintRecords(result.skipped, u8" 项没有导出:", output);
    }
    return Status::done;
}

Status RunImport(const Arguments& arguments, const Context& context, Output& output) {
    const KindWord* kind = FindKind(arguments.operands[0]);
    const std::string& file = arguments.operands[1];
    if (!kind || ImportEndings(kind->kind).empty()) {
        output.Complain(ToAnsi(arguments.operands[0]) + Ansi(u8": 应为 contacts 或 bookmarks"));
        return Status::wrongUsage;
    }
    if (!CanImportFrom(kind->kind, file)) {
        ComplainOfEnding(file, ImportEndings(kind->kind), output);
        return Status::wrongUsage;
    }
    const bool dryRun = arguments.Has("--dry-run");
    const ImportMode mode = dryRun ? ImportMode::tellOnly : ImportMode::send;
    const ImportContent content = ReadImportFile(kind->kind, file);
    const Interrupt interrupt;
    const TransferWatch watch{.stop = &interrupt.Signal()};
    const ImportResult result = kind->kind == FileKind::contacts
                                    ? ImportContacts(context.agent, content, mode, watch)
                                    : ImportBookmarks(context.agent, content, mode, watch);
    if (output.Json()) {
        Json::Value document(Json::objectValue);
        document["dry_run"] = dryRun;
        document["added"] = static_cast<Json::UInt64>(result.added);
        document["there"] = static_cast<Json::UInt64>(result.there);
        document["skipped_count"] = static_cast<Json::UInt64>(result.skipped.count);
        document["skipped"] = DocumentOf(result.skipped);
        document["left_out_count"] = static_cast<Json::UInt64>(result.leftOut.count);
        document["left_out"] = DocumentOf(result.leftOut);
        output.PrintDocument(document);
    } else if (content.status.end == TransferEnd::whole) {
        output.PrintLine(Counted(dryRun ? u8"将导入" : u8"已导入", result.added, *kind));
        output.PrintLine(Counted(u8"手机上已有", result.there, *kind));
        PrintRecords(result.skipped, u8" 项没有导入:", output);
        PrintRecords(result.leftOut, u8" 项的一部分内容没有导入:", output);
    }
    if (content.status.end != TransferEnd::whole) {
        output.Complain(ToAnsi(file) + ": " + content.status.why);
        return Status::wrongUsage;
    }
    return result.status.end == TransferEnd::whole ? Status::done : Complain(result.status, output);
}

}  // namespace quorvi::cli

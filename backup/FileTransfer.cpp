#include "backup/FileTransfer.h"

#include <algorithm>
#include <array>

#include "backup/FileEnding.h"
#include "base/Text.h"

namespace quorvi {
namespace {

struct KindRow {
    FileKind kind;
    std::string_view exports;  // endings, "、" between them
    std::string_view imports;
    std::u8string_view counted;
};
constexpr std::array<KindRow, 4> kKinds{{
    {FileKind::contacts, "vcf、csv", "vcf、csv", u8" 个联系人"},
    {FileKind::messages, "txt、csv、html、htm、json", "", u8" 条短信"},
    {FileKind::calls, "csv、json", "", u8" 条通话记录"},
    {FileKind::bookmarks, "html、htm", "html、htm", u8" 个书签"},
}};

const KindRow& RowOf(FileKind kind) {
    return *std::ranges::find(kKinds, kind, &KindRow::kind);
}

bool Has(std::string_view endings, std::string_view fileName) {
    const std::string ending = EndingOf(fileName);
    constexpr std::string_view kBetween = "、";
    while (!endings.empty()) {
        const std::size_t end = std::min(endings.find(kBetween), endings.size());
        if (endings.substr(0, end) == ending) {
            return true;
        }
        endings.remove_prefix(std::min(end + kBetween.size(), endings.size()));
    }
    return false;
}

}  // namespace

bool CanExportTo(FileKind kind, std::string_view fileName) {
    return Has(RowOf(kind).exports, fileName);
}

bool CanImportFrom(FileKind kind, std::string_view fileName) {
    return Has(RowOf(kind).imports, fileName);
}

std::string_view ExportEndings(FileKind kind) {
    return RowOf(kind).exports;
}

std::string_view ImportEndings(FileKind kind) {
    return RowOf(kind).imports;
}

std::string CountedRecords(FileKind kind, std::size_t count) {
    return std::to_string(count) + Ansi(RowOf(kind).counted);
}

void SkippedRecords::Add(std::string what, std::u8string_view why) {
    if (++count <= kMostListedSkips) {
        list.push_back({std::move(what), Ansi(why)});
    }
}

TransferStatus LinkLost(SessionOutcome outcome) {
    return {TransferEnd::linkLost, outcome,
            Ansi(outcome == SessionOutcome::noReply ? u8"手机端没有回答，请重新连接手机后再试"
                                                    : u8"【X】连接错误，请连接手机后再试")};
}

TransferStatus NotWhole() {
    return {TransferEnd::notWhole, SessionOutcome::cut,
            Ansi(u8"连接中断，资料没有读全，请重新连接手机后再试")};
}

TransferStatus FileFailed(std::u8string_view why) {
    return {TransferEnd::fileFailed, SessionOutcome::complete, Ansi(why)};
}

TransferStatus Stopped() {
    return {TransferEnd::stopped, SessionOutcome::complete, Ansi(u8"已停止")};
}

}  // namespace quorvi

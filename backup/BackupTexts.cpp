#include "backup/BackupTexts.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::size_t kDigitsOfAGroup = 3;

}  // namespace

std::string GroupedDigits(std::uint64_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t at = digits.size(); at > kDigitsOfAGroup;) {
        at -= kDigitsOfAGroup;
        digits.insert(at, ",");
    }
    return digits;
}

std::string SavingText(const BackupProgress& progress) {
    return fmt::format(fmt::runtime(Ansi(u8"正在保存{} {} / {}")), NameOf(progress.kind),
                       GroupedDigits(progress.done), GroupedDigits(progress.of));
}

int PercentSaved(const BackupProgress& progress, std::span<const BackupKind> kinds) {
    constexpr std::uint64_t kWhole = 100;
    std::uint64_t before = 0;  // kinds that have ended
    for (const BackupKindName& kind : kBackupKinds) {
        if (kind.kind == progress.kind) {
            break;
        }
        before += std::ranges::find(kinds, kind.kind) != kinds.end() ? 1 : 0;
    }
    if (kinds.empty()) {
        return 0;
    }
    const std::uint64_t ofThis =
        progress.of == 0 ? 0 : kWhole * std::min(progress.done, progress.of) / progress.of;
    return static_cast<int>(std::min(kWhole, (before * kWhole + ofThis) / kinds.size()));
}

std::string ReachedText(const BackupResult& result) {
    std::string text = CountsText(result.manifest);
    const BackupProgress& reached = result.reached;
    if (reached.of > 0 && result.manifest.Find(reached.kind) == nullptr) {
        text += text.empty() ? std::string() : Ansi(u8"，");
        text += fmt::format("{} {}/{}", NameOf(reached.kind), reached.done, reached.of);
    }
    return text.empty() ? text : Ansi(u8"已读取 ") + text;
}

std::string SkippedText(const Manifest& manifest) {
    std::string text;
    for (const SkippedItem& item : manifest.skipped) {
        text += NameOf(item.kind) + " " + item.what + ": " + item.why + "\n";
    }
    if (manifest.skippedCount > manifest.skipped.size()) {
        text += fmt::format(fmt::runtime(Ansi(u8"还有 {} 项\n")),
                            manifest.skippedCount - manifest.skipped.size());
    }
    return text;
}

}  // namespace quorvi

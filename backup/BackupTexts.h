// What is said of a backup while it is made, and at its end. All texts are ANSI.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "backup/Backup.h"

namespace quorvi {

// "12,400".
[[nodiscard]] std::string GroupedDigits(std::uint64_t number);

// "正在保存短信 7,688 / 12,400".
[[nodiscard]] std::string SavingText(const BackupProgress& progress);

// How far a backup of these kinds is, 0 to 100. Each kind counts alike: how much the next ones hold
// is not known before they are listed.
[[nodiscard]] int PercentSaved(const BackupProgress& progress, std::span<const BackupKind> kinds);

// "已读取 联系人分组 8，联系人 12/48": how far a backup came that did not become whole; empty where
// nothing was read.
[[nodiscard]] std::string ReachedText(const BackupResult& result);

// A line for each item that was skipped, with the reason; of those that are counted only, how many.
[[nodiscard]] std::string SkippedText(const Manifest& manifest);

}  // namespace quorvi

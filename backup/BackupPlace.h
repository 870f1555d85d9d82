// Where backups stand: the names that new ones get, and those that a folder holds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "agent/AgentAddress.h"
#include "backup/Manifest.h"
#include "base/os/StopSignal.h"

namespace quorvi {

enum class BackupForm { zip, folder };

// The model of the phone, ANSI; empty where it does not tell, and after a stop. Blocks.
[[nodiscard]] std::string FetchModel(AgentAddress agent, const StopSignal& stop);

// A name in `folder` that nothing has: "Aurora S2 2026-11-22.zip", then "Aurora S2
// 2026-11-22 2.zip". `model` is ANSI; what no file may be called is left out of it, and one that is
// empty then is called 手机. `now` in seconds since 1970. Looks at the disk.
[[nodiscard]] std::filesystem::path NewBackupPath(const std::filesystem::path& folder,
                                                  std::string_view model, std::int64_t now,
                                                  BackupForm form);

struct FoundBackup {
    std::filesystem::path path;  // for BackupReader::Open
    Manifest manifest;
};

// So many entries of a folder are opened at most, those that were changed last.
inline constexpr std::size_t kMostLookedAt = 200;

// The backups in `folder`, the newest first; empty where there is no such folder. Of each the
// manifest is read and no more. Looks at the disk.
[[nodiscard]] std::vector<FoundBackup> FindBackups(const std::filesystem::path& folder);

// What was chosen as a backup: a .zip, a folder, or the manifest in one, by which a folder can be
// chosen where only files can.
[[nodiscard]] std::filesystem::path ChosenBackup(const std::filesystem::path& chosen);

// "2026-11-22 21:30 Aurora S2", in local time. ANSI; without a model the time alone.
[[nodiscard]] std::string BackupTitle(const Manifest& manifest);

}  // namespace quorvi

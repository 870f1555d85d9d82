// The folder in which new downloads are kept.
//
//   const auto folder = DownloadDirectory(settings, FixedDisksOf(ThePlaces()));
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "base/Places.h"
#include "base/SettingsStore.h"
#include "base/os/FixedDisks.h"

namespace quorvi {

// The setting under kSettingsKey that holds it.
inline constexpr std::string_view kDownloadPathSetting = "DownloadPath";
// Its name on the disk that is chosen.
inline constexpr std::string_view kDownloadFolder = "QuorviDownload";

// The disks among which is chosen. Called where one has to be chosen, and not before.
using DisksOf = std::function<std::vector<FixedDisk>()>;

// Those of this computer.
[[nodiscard]] DisksOf FixedDisksOf(const Places& places);

// Whole megabytes, as disks are compared and shown.
[[nodiscard]] constexpr std::uint64_t MegabytesOf(std::uint64_t bytes) {
    return bytes >> 20;
}

// Those that the user may still fill where `folder` is, or will be once it is made; nothing where
// not even its beginning exists. Looks at the disk: on a worker.
[[nodiscard]] std::optional<std::uint64_t> FreeMegabytes(const std::filesystem::path& folder);

// The place of the disk with the most free megabytes, 500 at least; of several that have as many
// the last one. Empty where there is none.
[[nodiscard]] std::filesystem::path ChooseDisk(std::span<const FixedDisk> disks);

// The stored folder where it exists; otherwise one is chosen, made and stored. Empty where no disk
// has room for it, or it can't be made: then nothing is stored. Looks at the disk: on a worker.
[[nodiscard]] std::filesystem::path DownloadDirectory(SettingsStore& settings,
                                                      const DisksOf& disks);

// The stored folder, whether it exists or not; empty where there is none.
[[nodiscard]] std::filesystem::path StoredDownloadDirectory(const SettingsStore& settings);

// Makes the folder and what is missing above it, and stores it once it exists: false where it does
// not, where it is no whole path, and where its name does not fit the code page, in which tasks
// keep it. On a worker.
[[nodiscard]] bool KeepDownloadDirectory(SettingsStore& settings,
                                         const std::filesystem::path& folder);

}  // namespace quorvi

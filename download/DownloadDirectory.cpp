#include "download/DownloadDirectory.h"

#include <string>
#include <system_error>

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::uint64_t kLeastMegabytes = 500;

}  // namespace

DisksOf FixedDisksOf(const Places& places) {
    return [home = places.home] { return FixedDisks(home); };
}

std::optional<std::uint64_t> FreeMegabytes(const std::filesystem::path& folder) {
    const auto bytes = FreeBytes(folder);
    return bytes ? std::optional(MegabytesOf(*bytes)) : std::nullopt;
}

std::filesystem::path ChooseDisk(std::span<const FixedDisk> disks) {
    std::filesystem::path best;
    std::uint64_t most = kLeastMegabytes;
    for (const FixedDisk& disk : disks) {
        if (const std::uint64_t room = MegabytesOf(disk.freeBytes); room >= most) {
            most = room;
            best = disk.place;
        }
    }
    return best;
}

std::filesystem::path StoredDownloadDirectory(const SettingsStore& settings) {
    const auto stored = settings.ReadText(kSettingsKey, kDownloadPathSetting);
    return stored ? std::filesystem::path(ToUtf8(*stored)) : std::filesystem::path();
}

std::filesystem::path DownloadDirectory(SettingsStore& settings, const DisksOf& disks) {
    std::filesystem::path stored = StoredDownloadDirectory(settings);
    std::error_code unknown;
    if (!stored.empty() && std::filesystem::is_directory(stored, unknown)) {
        return stored;
    }
    const std::filesystem::path disk = ChooseDisk(disks());
    if (disk.empty()) {
        return {};
    }
    std::filesystem::path chosen = disk / kDownloadFolder;
    return KeepDownloadDirectory(settings, chosen) ? chosen : std::filesystem::path();
}

bool KeepDownloadDirectory(SettingsStore& settings, const std::filesystem::path& folder) {
    const std::string kept = ToAnsi(folder.native());
    if (!folder.is_absolute() || ToUtf8(kept) != folder.native()) {
        return false;
    }
    std::error_code failed;
    std::filesystem::create_directories(folder, failed);
    return std::filesystem::is_directory(folder, failed) &&
           settings.WriteText(kSettingsKey, kDownloadPathSetting, kept);
}

}  // namespace quorvi

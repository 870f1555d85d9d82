#include "backup/BackupPlace.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "backup/BackupReader.h"
#include "backup/SideBySide.h"
#include "base/Format.h"
#include "base/Text.h"
#include "pages/phoneinfo/SystemInfo.h"

namespace quorvi {
namespace {

constexpr std::string_view kZipEnding = ".zip";
// Of a model's name, in bytes of UTF-8: names of files have 255 at most.
constexpr std::size_t kMostModelBytes = 120;
// "2026-11-22" and "2026-11-22 21:30" of FormatUnixTime.
constexpr std::size_t kDateLength = 10;
constexpr std::size_t kMinuteLength = 16;

bool MayBeInAName(char c) {
    constexpr std::string_view kRefused = "/\\:*?\"<>|";
    return static_cast<unsigned char>(c) >= ' ' && c != '\x7F' &&
           kRefused.find(c) == std::string_view::npos;
}

// UTF-8. No point in front: such files are hidden.
std::string NameOfModel(std::string_view ansi) {
    std::string name;
    for (const char c : ToUtf8(ansi)) {
        if (MayBeInAName(c) && !(name.empty() && (c == '.' || c == ' '))) {
            name += c;
        }
    }
    if (name.size() > kMostModelBytes) {
        std::size_t end = kMostModelBytes;
        while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U) {
            --end;  // not in the middle of a character
        }
        name.resize(end);
    }
    while (name.ends_with(' ')) {
        name.pop_back();
    }
    return name.empty() ? ToUtf8(Ansi(u8"手机")) : name;
}

bool MayBeABackup(const std::filesystem::directory_entry& entry) {
    std::error_code unknown;
    if (entry.path().filename().string().starts_with('.')) {
        return false;
    }
    if (entry.is_directory(unknown)) {
        return std::filesystem::exists(entry.path() / kManifestName, unknown);
    }
    return entry.is_regular_file(unknown) &&
           EqualsNoCase(entry.path().extension().native(), kZipEnding);
}

}  // namespace

std::string FetchModel(AgentAddress agent, const StopSignal& stop) {
    const auto reply = RunUntilStopped<SystemInfoReply>(
        [agent] { return FetchSystemInfo(AgentSession(agent)); }, stop);
    return reply && reply->info ? reply->info->model : std::string();
}

std::filesystem::path NewBackupPath(const std::filesystem::path& folder, std::string_view model,
                                    std::int64_t now, BackupForm form) {
    const std::string name = NameOfModel(model) + " " + FormatUnixTime(now).substr(0, kDateLength);
    const std::string_view ending = form == BackupForm::zip ? kZipEnding : std::string_view();
    std::filesystem::path path = folder / (name + std::string(ending));
    std::error_code unknown;
    for (int number = 2; std::filesystem::exists(path, unknown); ++number) {
        path = folder / (name + " " + std::to_string(number) + std::string(ending));
    }
    return path;
}

std::vector<FoundBackup> FindBackups(const std::filesystem::path& folder) {
    std::vector<std::pair<std::filesystem::file_time_type, std::filesystem::path>> entries;
    std::error_code failed;
    std::filesystem::directory_iterator entry(folder, failed);
    for (; !failed && entry != std::filesystem::directory_iterator(); entry.increment(failed)) {
        std::error_code unknown;
        if (MayBeABackup(*entry)) {
            entries.emplace_back(entry->last_write_time(unknown), entry->path());
        }
    }
    std::ranges::sort(entries, std::greater());
    if (entries.size() > kMostLookedAt) {
        entries.resize(kMostLookedAt);
    }
    std::vector<FoundBackup> found;
    for (auto& [changed, path] : entries) {
        if (const OpenedBackup opened = BackupReader::Open(path); opened.reader) {
            found.push_back({std::move(path), opened.reader->TheManifest()});
        }
    }
    std::ranges::stable_sort(found, std::greater(),
                             [](const FoundBackup& backup) { return backup.manifest.made; });
    return found;
}

std::filesystem::path ChosenBackup(const std::filesystem::path& chosen) {
    return chosen.filename() == kManifestName ? chosen.parent_path() : chosen;
}

std::string BackupTitle(const Manifest& manifest) {
    const std::string time = FormatUnixTime(manifest.made).substr(0, kMinuteLength);
    return manifest.phone.empty() ? time : time + " " + manifest.phone;
}

}  // namespace quorvi

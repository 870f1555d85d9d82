#include "pages/screen/SavePlace.h"

#include <fmt/format.h>

#include <system_error>

#include "base/Text.h"
#include "desktop/DesktopFolder.h"

namespace quorvi {

std::filesystem::path DefaultSaveFolder(const Places& places) {
    return DocumentsFolder(places) / u8"奎维掌上工坊";
}

std::filesystem::path SaveFolder(const SettingsStore& settings, const Places& places) {
    std::error_code unknown;
    if (const auto chosen = settings.ReadText(kSettingsKey, kSaveFolderSetting)) {
        std::filesystem::path folder = ToUtf8(*chosen);
        if (std::filesystem::exists(folder, unknown)) {
            return folder;
        }
    }
    std::filesystem::path folder = DefaultSaveFolder(places);
    std::filesystem::create_directories(folder, unknown);
    return folder;
}

bool KeepSaveFolder(SettingsStore& settings, const std::filesystem::path& folder) {
    return settings.WriteText(kSettingsKey, kSaveFolderSetting, ToAnsi(folder.native()));
}

std::string BatchName(const std::tm& localTime, SaveFormat format) {
    return fmt::format("{:02}{:02}-{:02}{:02}{:02}.{}", localTime.tm_mon + 1, localTime.tm_mday,
                       localTime.tm_hour, localTime.tm_min, localTime.tm_sec,
                       RowOf(format).extension);
}

}  // namespace quorvi

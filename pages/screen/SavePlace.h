// Where pictures of the screen are saved without asking, and under which names.
#pragma once

#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>

#include "base/Places.h"
#include "base/SettingsStore.h"
#include "pages/screen/SaveFormats.h"

namespace quorvi {

// The setting under kSettingsKey that holds the folder which the user chose.
inline constexpr std::string_view kSaveFolderSetting = "screen_shot";

// The folder of the user's documents, and in it the suite's own. Need not be there yet; reads the
// user's configuration.
[[nodiscard]] std::filesystem::path DefaultSaveFolder(const Places& places);

// The chosen folder if it names an existing path, else the default one, which is created where it
// is absent. Looks at the disk: on a worker.
[[nodiscard]] std::filesystem::path SaveFolder(const SettingsStore& settings, const Places& places);

// Keeps a choice. False when it could not be written.
bool KeepSaveFolder(SettingsStore& settings, const std::filesystem::path& folder);

// "1122-074500.jpg": month and day, then hour, minute and second of the local time. There is no
// year in it, and a picture of the same second replaces the one before: kept on purpose, since
// users' folders are full of these names (SavePlace.TwoPicturesOfOneSecondHaveOneName).
[[nodiscard]] std::string BatchName(const std::tm& localTime, SaveFormat format);

}  // namespace quorvi

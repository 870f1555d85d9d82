// The user's settings in a file, for the window and the command line alike.
#pragma once

#include <filesystem>

#include "base/Places.h"
#include "base/SettingsStore.h"

namespace quorvi {

// Values under their own keys and names: "Software\Quorvi" and `exit_mode` stand in the file as
// `Quorvi\exit_mode` of the group `Software` (see base/IniFile.h). Keys and names are found without
// regard to case.
//
// Each read takes the file as it is now, and each write replaces it in one step, under a lock that
// all programs of the suite share: what one writes the other reads, and none loses the other's
// value. A file that is there and cannot be read, or is too large to be one of settings, is never
// replaced. Any thread.
class SettingsFile : public SettingsStore {
  public:
    explicit SettingsFile(std::filesystem::path file = ThePlaces().SettingsFile());

    [[nodiscard]] std::optional<std::string> ReadText(std::string_view key,
                                                      std::string_view name) const override;
    [[nodiscard]] std::optional<std::uint32_t> ReadNumber(std::string_view key,
                                                          std::string_view name) const override;
    bool WriteText(std::string_view key, std::string_view name, std::string_view text) override;
    bool WriteNumber(std::string_view key, std::string_view name, std::uint32_t value) override;
    void Delete(std::string_view key, std::string_view name) override;

  private:
    std::filesystem::path file_;
};

}  // namespace quorvi

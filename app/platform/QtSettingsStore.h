// The user's settings in a file of the desktop's configuration folder.
#pragma once

#include <QSettings>
#include <filesystem>
#include <mutex>

#include "base/SettingsStore.h"

namespace quorvi {

// Values under their own keys and names: "Software\Quorvi" and `exit_mode` stand in the file as
// `Quorvi\exit_mode` of the group `Software`. Keys and names are found without regard to case.
// Writes reach the file a little later, or at Flush. Any thread.
class QtSettingsStore : public SettingsStore {
  public:
    // The user's own file.
    QtSettingsStore();
    explicit QtSettingsStore(const std::filesystem::path& file);

    [[nodiscard]] std::optional<std::string> ReadText(std::string_view key,
                                                      std::string_view name) const override;
    [[nodiscard]] std::optional<std::uint32_t> ReadNumber(std::string_view key,
                                                          std::string_view name) const override;
    bool WriteText(std::string_view key, std::string_view name, std::string_view text) override;
    bool WriteNumber(std::string_view key, std::string_view name, std::uint32_t value) override;
    void Delete(std::string_view key, std::string_view name) override;

    // Writes what has not reached the file yet.
    void Flush();

  private:
    [[nodiscard]] QString PlaceOf(std::string_view key, std::string_view name) const;
    bool Write(std::string_view key, std::string_view name, const QVariant& value);

    mutable std::mutex mutex_;
    mutable QSettings file_;
};

}  // namespace quorvi

#include "base/SettingsFile.h"

#include <charconv>
#include <functional>
#include <system_error>
#include <utility>

#include "base/IniFile.h"
#include "base/Text.h"
#include "base/os/FileLock.h"
#include "base/os/SmallFile.h"

namespace quorvi {
namespace {

constexpr const char* kLockSuffix = ".quorvi-lock";

std::string PlaceOf(std::string_view key, std::string_view name) {
    std::string place = ToUtf8(key) + "/" + ToUtf8(name);
    for (char& c : place) {
        if (c == '\\') {
            c = '/';
        }
    }
    return place;
}

std::optional<std::string> Value(const std::filesystem::path& file, std::string_view key,
                                 std::string_view name) {
    return IniValue(ReadSmallFile(file).value_or(""), PlaceOf(key, name));
}

// Puts what `edit` makes of the file's text in its place. False when it could not be written.
bool Edit(const std::filesystem::path& file,
          const std::function<std::string(std::string_view text)>& edit) {
    std::error_code failed;
    std::filesystem::create_directories(file.parent_path(), failed);
    const FileLock lock(file.string() + kLockSuffix);
    const std::optional<std::string> text = ReadSmallFile(file);
    if (!lock.IsHeld() || (!text && std::filesystem::exists(file, failed))) {
        return false;
    }
    const std::string edited = edit(text.value_or(""));
    return edited == text || ReplaceFile(file, edited, FileMode::ownersOnly);
}

}  // namespace

SettingsFile::SettingsFile(std::filesystem::path file) : file_(std::move(file)) {}

std::optional<std::string> SettingsFile::ReadText(std::string_view key,
                                                  std::string_view name) const {
    const auto value = Value(file_, key, name);
    return value ? std::optional(ToAnsi(*value)) : std::nullopt;
}

std::optional<std::uint32_t> SettingsFile::ReadNumber(std::string_view key,
                                                      std::string_view name) const {
    const std::string value = Value(file_, key, name).value_or("");
    const std::string_view digits = Trim(value);
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() && end == digits.data() + digits.size() ? std::optional(number)
                                                                        : std::nullopt;
}

bool SettingsFile::WriteText(std::string_view key, std::string_view name, std::string_view text) {
    return Edit(file_, [&](std::string_view file) {
        return WithIniValue(file, PlaceOf(key, name), ToUtf8(text));
    });
}

bool SettingsFile::WriteNumber(std::string_view key, std::string_view name, std::uint32_t value) {
    return Edit(file_, [&](std::string_view file) {
        return WithIniValue(file, PlaceOf(key, name), std::to_string(value));
    });
}

void SettingsFile::Delete(std::string_view key, std::string_view name) {
    std::error_code failed;
    if (std::filesystem::exists(file_, failed)) {
        Edit(file_,
             [&](std::string_view file) { return WithoutIniValue(file, PlaceOf(key, name)); });
    }
}

}  // namespace quorvi

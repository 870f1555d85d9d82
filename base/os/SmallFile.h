// Files that are read and replaced whole.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace quorvi {

// Nothing that is read this way is larger, unless its reader says so.
inline constexpr std::size_t kSmallFileBytes = 1024 * 1024;

// The bytes of a file; nothing when it cannot be read or is larger than `most`.
[[nodiscard]] std::optional<std::string> ReadSmallFile(const std::filesystem::path& file,
                                                       std::size_t most = kSmallFileBytes);

enum class FileMode {
    plain,
    executable,
    ownersOnly,  // nobody else may read or write it
};

// Puts `text` in the place of the file in one step, making its folder where it is missing. What a
// link points to is replaced, and not the link. False when it could not be written: then the file
// is as it was. For the window's thread: it waits for no disk.
bool ReplaceFile(const std::filesystem::path& file, std::string_view text,
                 FileMode mode = FileMode::plain);

// The same for a file whose folder must be there, and with the reason: no error when all of it is
// written. On an error the file is as it was, and nothing is left beside it. Any bytes; blocks as
// long as the disk does.
[[nodiscard]] std::error_code WriteWhole(const std::filesystem::path& file, std::string_view bytes,
                                         FileMode mode = FileMode::plain);

}  // namespace quorvi

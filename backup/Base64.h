// Base64, as vCards hold their photos.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

// Characters that so many bytes become.
[[nodiscard]] constexpr std::size_t Base64Size(std::size_t bytes) {
    return (bytes + 2) / 3 * 4;
}
// Puts them, padded, from `to` on, where there is room for all of them; where they end.
char* PutBase64(std::string_view bytes, char* to);
// One line, padded.
[[nodiscard]] std::string ToBase64(std::string_view bytes);

// Blanks and line ends between the characters are passed over, and the padding may be missing.
// Nothing when there is any other character, or a single one is left over.
[[nodiscard]] std::optional<std::string> FromBase64(std::string_view text);

}  // namespace quorvi

// Base64, as vCards hold their photos.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

// One line, padded.
[[nodiscard]] std::string ToBase64(std::string_view bytes);

// Blanks and line ends between the characters are passed over, and the padding may be missing.
// Nothing when there is any other character, or a single one is left over.
[[nodiscard]] std::optional<std::string> FromBase64(std::string_view text);

}  // namespace quorvi

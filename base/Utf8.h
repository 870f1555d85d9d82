// The program's own texts, where they stay UTF-8 instead of becoming ANSI.
#pragma once

#include <string>
#include <string_view>

namespace quorvi {

// The text's bytes. The view lives as long as they do: for ever where they are a literal's.
[[nodiscard]] inline std::string_view Utf8View(std::u8string_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size()};
}
[[nodiscard]] inline std::string Utf8(std::u8string_view text) {
    return std::string(Utf8View(text));
}

}  // namespace quorvi

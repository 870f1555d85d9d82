// The sample site's own texts, which it sends in UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace quorvi::site {

[[nodiscard]] inline std::string Utf8(std::u8string_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size()};
}

}  // namespace quorvi::site

// The phone's own texts, which are UTF-8 in memory too.
#pragma once

#include <string>
#include <string_view>

namespace quorvi::phone {

[[nodiscard]] inline std::string Utf8(std::u8string_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size()};
}

}  // namespace quorvi::phone

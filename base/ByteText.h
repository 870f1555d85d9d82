// Bytes as a text, and a text as bytes.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace quorvi {

// The view lives as long as the bytes do.
[[nodiscard]] inline std::string_view AsText(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

[[nodiscard]] inline std::vector<std::byte> ToBytes(std::string_view text) {
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

}  // namespace quorvi

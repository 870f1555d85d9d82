// Bytes in hexadecimal digits.
#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace quorvi {

// Two digits a byte, in lower case.
[[nodiscard]] inline std::string HexOf(std::span<const std::byte> bytes) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string hex;
    for (const std::byte byte : bytes) {
        hex += kDigits[std::to_integer<std::size_t>(byte >> 4)];
        hex += kDigits[std::to_integer<std::size_t>(byte & std::byte{0x0F})];
    }
    return hex;
}

}  // namespace quorvi

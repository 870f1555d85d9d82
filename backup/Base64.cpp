#include "backup/Base64.h"

#include <array>
#include <cstdint>

namespace quorvi {
namespace {

constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
// From a character to its digit; of any other character, kNoDigit.
constexpr unsigned char kNoDigit = 0xFF;
constexpr auto kDigitOf = [] {
    std::array<unsigned char, 256> digits{};
    digits.fill(kNoDigit);
    for (std::size_t i = 0; i < kDigits.size(); ++i) {
        digits[static_cast<unsigned char>(kDigits[i])] = static_cast<unsigned char>(i);
    }
    return digits;
}();

constexpr char kPadding = '=';
constexpr unsigned kBitsADigit = 6;
constexpr unsigned kBitsAByte = 8;

}  // namespace

std::string ToBase64(std::string_view bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    std::uint32_t bits = 0;
    unsigned count = 0;
    for (const char byte : bytes) {
        bits = bits << kBitsAByte | static_cast<unsigned char>(byte);
        for (count += kBitsAByte; count >= kBitsADigit; count -= kBitsADigit) {
            text += kDigits[bits >> (count - kBitsADigit) & 0x3F];
        }
    }
    if (count > 0) {
        text += kDigits[bits << (kBitsADigit - count) & 0x3F];
    }
    text.append((4 - text.size() % 4) % 4, kPadding);
    return text;
}

std::optional<std::string> FromBase64(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::uint32_t bits = 0;
    unsigned count = 0;
    bool ended = false;
    for (const char c : text) {
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n') {
            continue;
        }
        if (c == kPadding) {
            ended = true;
            continue;
        }
        const unsigned char digit = kDigitOf[static_cast<unsigned char>(c)];
        if (ended || digit == kNoDigit) {
            return std::nullopt;
        }
        bits = bits << kBitsADigit | digit;
        count += kBitsADigit;
        if (count >= kBitsAByte) {
            count -= kBitsAByte;
            bytes += static_cast<char>(bits >> count & 0xFF);
        }
    }
    // Six bits are no byte.
    return count == kBitsADigit ? std::nullopt : std::optional(std::move(bytes));
}

}  // namespace quorvi

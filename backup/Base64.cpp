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

char* PutBase64(std::string_view bytes, char* to) {
    const auto put = [&to](std::uint32_t bits, unsigned digits) {
        for (unsigned i = 0, shift = 3 * kBitsADigit; i < digits; ++i, shift -= kBitsADigit) {
            *to++ = kDigits[bits >> shift & 0x3F];
        }
    };
    const auto byteAt = [bytes](std::size_t at) {
        return std::uint32_t{static_cast<unsigned char>(bytes[at])};
    };
    std::size_t at = 0;
    for (; at + 3 <= bytes.size(); at += 3) {
        put(byteAt(at) << (2 * kBitsAByte) | byteAt(at + 1) << kBitsAByte | byteAt(at + 2), 4);
    }
    if (at + 1 == bytes.size()) {
        put(byteAt(at) << (2 * kBitsAByte), 2);
        *to++ = kPadding;
        *to++ = kPadding;
    } else if (at + 2 == bytes.size()) {
        put(byteAt(at) << (2 * kBitsAByte) | byteAt(at + 1) << kBitsAByte, 3);
        *to++ = kPadding;
    }
    return to;
}

std::string ToBase64(std::string_view bytes) {
    std::string text(Base64Size(bytes.size()), '\0');
    PutBase64(bytes, text.data());
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

#include "pages/messages/OutgoingMessage.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/Text.h"

namespace quorvi {
namespace {

// GSM 03.38, the characters that text in memory can hold; the extension table costs an escape each.
constexpr std::u32string_view kDefaultAlphabet =
    U"@£$¥èéùìòÇ\nØø\rÅåΔ_ΦΓΛΩΠΨΣΘΞÆæßÉ !\"#¤%&'()*+,-./0123456789:;<=>?¡"
    U"ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§¿abcdefghijklmnopqrstuvwxyzäöñüà";
constexpr std::u32string_view kExtensionTable = U"\f^{}\\[~]|€";

// Units that a character takes in the default alphabet, by its code point; 0 where it lacks it.
constexpr std::size_t kWidthsEnd =
    std::max(std::ranges::max(kDefaultAlphabet), std::ranges::max(kExtensionTable)) + 1;
constexpr auto kDefaultWidths = [] {
    std::array<std::uint8_t, kWidthsEnd> widths{};
    for (const char32_t point : kDefaultAlphabet) {
        widths[point] = 1;
    }
    for (const char32_t point : kExtensionTable) {
        widths[point] = 2;
    }
    return widths;
}();

std::size_t DefaultWidth(char32_t point) {
    return point < kWidthsEnd ? kDefaultWidths[point] : 0;
}

std::size_t Ucs2Width(char32_t point) {
    return point > 0xFFFF ? 2 : 1;
}

struct Alphabet {
    std::size_t single;  // units of a message that stands alone
    std::size_t joined;  // of each of several
    std::size_t (*width)(char32_t point);
};
constexpr Alphabet kDefault{160, 153, DefaultWidth};
constexpr Alphabet kUcs2{70, 67, Ucs2Width};

// Well-formed UTF-8 to code points.
std::u32string CodePoints(std::string_view utf8) {
    std::u32string points;
    for (std::size_t i = 0; i < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        char32_t point = length == 1 ? lead : lead & (0xFFu >> (length + 1));
        for (std::size_t k = 1; k < length && i + k < utf8.size(); ++k) {
            point = point << 6 | (static_cast<unsigned char>(utf8[i + k]) & 0x3Fu);
        }
        points.push_back(point);
        i += length;
    }
    return points;
}

}  // namespace

Bytes SendMessageRequest(std::span<const std::string> numbers, std::string_view text) {
    RequestBuilder request(AgentCommand::sendMessage);
    for (const std::string& number : numbers) {
        request.BeginItem().AddRawText(number);
    }
    return request.AddText(text).Take();
}

MessageLength MeasureMessage(std::string_view text) {
    const std::u32string points = CodePoints(ToUtf8(text));
    const bool inDefault =
        std::all_of(points.begin(), points.end(), [](char32_t p) { return DefaultWidth(p) != 0; });
    const Alphabet& alphabet = inDefault ? kDefault : kUcs2;

    std::size_t characters = 0;
    std::size_t messages = 0;  // if it takes several
    std::size_t left = 0;      // in the last of them
    for (const char32_t point : points) {
        const std::size_t width = alphabet.width(point);
        characters += width;
        if (width > left) {  // one that takes two is not cut in its middle
            ++messages;
            left = alphabet.joined;
        }
        left -= width;
    }
    if (characters <= alphabet.single) {
        return {characters, std::min<std::size_t>(messages, 1), alphabet.single - characters};
    }
    return {characters, messages, left};
}

}  // namespace quorvi

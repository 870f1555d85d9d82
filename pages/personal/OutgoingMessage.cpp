#include "pages/personal/OutgoingMessage.h"

#include <optional>

#include "base/Text.h"

namespace quorvi {
namespace {

// GSM 03.38, the characters that text in memory can hold; the extension table costs an escape each.
constexpr std::u32string_view kDefaultAlphabet =
    U"@£$¥èéùìòÇ\nØø\rÅåΔ_ΦΓΛΩΠΨΣΘΞÆæßÉ !\"#¤%&'()*+,-./0123456789:;<=>?¡"
    U"ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§¿abcdefghijklmnopqrstuvwxyzäöñüà";
constexpr std::u32string_view kExtensionTable = U"\f^{}\\[~]|€";

struct Alphabet {
    std::size_t single;  // characters of a message that stands alone
    std::size_t joined;  // of each of several
};
constexpr Alphabet kDefault{160, 153};
constexpr Alphabet kUcs2{70, 67};

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

// Characters in the default alphabet; nothing when it lacks one.
std::optional<std::size_t> DefaultLength(std::u32string_view points) {
    std::size_t length = 0;
    for (const char32_t point : points) {
        if (kDefaultAlphabet.find(point) != std::u32string_view::npos) {
            length += 1;
        } else if (kExtensionTable.find(point) != std::u32string_view::npos) {
            length += 2;
        } else {
            return std::nullopt;
        }
    }
    return length;
}

std::size_t Ucs2Length(std::u32string_view points) {
    std::size_t length = 0;
    for (const char32_t point : points) {
        length += point > 0xFFFF ? 2 : 1;
    }
    return length;
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
    const auto inDefault = DefaultLength(points);
    const Alphabet alphabet = inDefault ? kDefault : kUcs2;
    const std::size_t characters = inDefault ? *inDefault : Ucs2Length(points);
    if (characters == 0) {
        return {0, 0, alphabet.single};
    }
    if (characters <= alphabet.single) {
        return {characters, 1, alphabet.single - characters};
    }
    const std::size_t messages = (characters + alphabet.joined - 1) / alphabet.joined;
    return {characters, messages, messages * alphabet.joined - characters};
}

}  // namespace quorvi

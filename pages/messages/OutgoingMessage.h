// A message on its way out: the request that sends it, and how many messages it will be on the air.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "agent/Request.h"

namespace quorvi {

// The request of command 870204. Numbers go out as they were typed; the text is ANSI and is turned
// to UTF-8.
[[nodiscard]] Bytes SendMessageRequest(std::span<const std::string> numbers, std::string_view text);

// Says that a text has characters that the code page lacks.
inline constexpr std::u8string_view kMessageCharactersLost = u8"有些字符无法发送，会变成“?”";

// How long a text is, as a network counts.
struct MessageLength {
    std::size_t characters = 0;  // as its alphabet counts them
    std::size_t messages = 0;    // that it is cut into; 0 for an empty text
    std::size_t left = 0;        // characters that the last message still takes
};

// Of an ANSI text. In the default alphabet of GSM 03.38 a message takes 160 characters (153 each
// when there are several), those of its extension table counting twice; a text with any other
// character goes out in UCS-2, 70 (67) code units a message. A character that counts twice is never
// cut in two by the end of a message.
[[nodiscard]] MessageLength MeasureMessage(std::string_view text);

}  // namespace quorvi

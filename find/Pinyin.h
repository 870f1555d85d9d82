// How a Chinese character is read.
#pragma once

#include <string_view>

namespace quorvi {

// The readings of a character in pinyin, in small letters without tones, the most frequent one
// first, with a blank between two: "zeng ceng". A ü is written v and u: "lv lu". Empty for what is
// no character of the two blocks U+3400 to U+9FFF, or of which no reading is known. Any thread.
[[nodiscard]] std::string_view ReadingsOf(char32_t character);

}  // namespace quorvi

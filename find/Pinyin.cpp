#include "find/Pinyin.h"

#include <array>
#include <cstdint>

namespace quorvi {
namespace {

// Made by the build: kFirstRead, the first character of the table; kReadings, every set of readings
// that occurs, the empty one first; kReadingsOf, for each character its place in kReadings.
#include "find/PinyinTable.inc"

}  // namespace

std::string_view ReadingsOf(char32_t character) {
    if (character < kFirstRead || character - kFirstRead >= kReadingsOf.size()) {
        return {};
    }
    return kReadings[kReadingsOf[character - kFirstRead]];
}

}  // namespace quorvi

#include "cli/DisplayWidth.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <cstdint>

#include "base/Text.h"

namespace quorvi::cli {
namespace {

// Calls visit(character, its bytes) for each character; a malformed sequence is character -1.
template <typename Visit>
void ForEachCharacter(std::string_view utf8, Visit visit) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(utf8.data());
    const auto length = static_cast<std::int64_t>(utf8.size());
    for (std::int64_t at = 0; at < length;) {
        const std::int64_t start = at;
        UChar32 character = 0;
        U8_NEXT(bytes, at, length, character);
        visit(character,
              utf8.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(at - start)));
    }
}

std::size_t WidthOf(UChar32 character) {
    if (character < 0) {
        return 1;
    }
    switch (u_charType(character)) {
        case U_NON_SPACING_MARK:
        case U_ENCLOSING_MARK:
        case U_FORMAT_CHAR:
            return 0;
        default:
            break;
    }
    const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

}  // namespace

std::size_t DisplayWidth(std::string_view utf8) {
    std::size_t width = 0;
    ForEachCharacter(utf8,
                     [&](UChar32 character, std::string_view) { width += WidthOf(character); });
    return width;
}

std::string OneLine(std::string_view utf8) {
    std::string line;
    ForEachCharacter(utf8, [&](UChar32 character, std::string_view bytes) {
        if (character >= 0 && u_iscntrl(character)) {
            line += ' ';
        } else {
            line += bytes;
        }
    });
    line.resize(TrimRight(line).size());
    return line;
}

}  // namespace quorvi::cli

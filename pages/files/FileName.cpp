#include "pages/files/FileName.h"

#include <cstddef>

namespace quorvi {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

// The first byte of a character of several, whose second may be a backslash.
bool IsLeadByte(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return value > 0x80 && value < 0xFF;
}

}  // namespace

FileNameParts SplitFileName(std::string_view path) {
    std::size_t start = path.size() > 1 && path[1] == ':' ? 2 : 0;
    std::size_t dot = kNone;
    for (std::size_t at = start; at < path.size(); ++at) {
        if (IsLeadByte(path[at])) {
            ++at;
        } else if (path[at] == '/' || path[at] == '\\') {
            start = at + 1;
            dot = kNone;
        } else if (path[at] == '.') {
            dot = at;
        }
    }
    const std::string_view whole = path.substr(start);
    return dot == kNone ? FileNameParts{whole, {}}
                        : FileNameParts{whole.substr(0, dot - start), path.substr(dot)};
}

}  // namespace quorvi

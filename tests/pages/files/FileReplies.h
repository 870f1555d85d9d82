// Replies of a phone with files.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/WireBytes.h"

namespace quorvi {

struct ListedFile {
    std::string path = "/sdcard/DCIM";
    std::uint32_t kind = 1;
    std::uint64_t size = 0;
    std::uint64_t modified = 1308361330000;
    std::uint32_t readable = 1;
    std::uint32_t writable = 1;
    std::uint32_t hidden = 0;
};

inline void AddFile(WireBytes& bytes, const ListedFile& file) {
    bytes
        .U32(file.kind)      // 1: a folder
        .Text(file.path)     // path
        .U64(file.size)      // bytes
        .U64(file.modified)  // milliseconds since 1970
        .U32(file.readable)  // 1: can be read
        .U32(file.writable)  // 1: can be written
        .U32(file.hidden);   // 1: hidden
}

// The folder's own header with the path of its parent, then its entries.
inline WireBytes FilesPayload(const std::string& parent, const std::vector<ListedFile>& files) {
    WireBytes bytes;
    bytes.U32(0);  // leading word
    AddFile(bytes, {.path = parent, .kind = 1, .modified = 0, .readable = 0, .writable = 0});
    for (const ListedFile& file : files) {
        AddFile(bytes, file);
    }
    return bytes;
}

}  // namespace quorvi

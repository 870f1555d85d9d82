#include "phone/agent/Photos.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "agent/Wire.h"

namespace quorvi::phone {
namespace {

const std::map<std::string, SharedBytes, std::less<>>& Files() {
    static const auto files = [] {
        const std::vector<std::pair<const char*, std::vector<unsigned char>>> table{
#include "phone/Photos.inc"
        };
        std::map<std::string, SharedBytes, std::less<>> byName;
        for (const auto& [name, bytes] : table) {
            Bytes file(bytes.size());
            std::transform(bytes.begin(), bytes.end(), file.begin(),
                           [](unsigned char b) { return std::byte{b}; });
            byName.emplace(name, Share(std::move(file)));
        }
        return byName;
    }();
    return files;
}

constexpr std::string_view kPaddedPhoto = "father.jpg";

}  // namespace

SharedBytes PhotoFile(std::string_view name) {
    const auto found = Files().find(name);
    return found == Files().end() ? nullptr : found->second;
}

Bytes PaddedPhoto(std::size_t bytes, std::uint32_t number) {
    Bytes photo = *PhotoFile(kPaddedPhoto);
    const std::size_t end = photo.size();
    photo.resize(std::max(bytes, end));
    for (std::size_t at = end; at + sizeof number <= photo.size(); at += sizeof number) {
        PackUInt32(number, photo.data() + at);
    }
    return photo;
}

Bytes HeaderOnlyPng(std::uint32_t width, std::uint32_t height) {
    constexpr unsigned char kStart[] = {
        0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n',  // signature
        0,    0,   0,   13,  'I',  'H',  'D',  'R',   // first chunk: header, 13 bytes
        0,    0,   0,   0,   0,    0,    0,    0,     // width, height
        8,    6,   0,   0,   0,                       // 8 bits, with alpha
        0,    0,   0,   0,                            // checksum, worked out below
    };
    constexpr std::size_t kSizeOffset = 16;
    constexpr std::size_t kChecksummedOffset = 12;
    Bytes file(sizeof kStart);
    std::transform(std::begin(kStart), std::end(kStart), file.begin(),
                   [](unsigned char b) { return std::byte{b}; });
    PackUInt32(width, file.data() + kSizeOffset);
    PackUInt32(height, file.data() + kSizeOffset + 4);
    std::uint32_t crc = ~std::uint32_t{0};
    for (std::size_t i = kChecksummedOffset; i + 4 < file.size(); ++i) {
        crc ^= std::to_integer<std::uint32_t>(file[i]);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc & 1) ? (crc >> 1) ^ 0xEDB88320u : crc >> 1;
        }
    }
    PackUInt32(~crc, file.data() + file.size() - 4);
    return file;
}

}  // namespace quorvi::phone

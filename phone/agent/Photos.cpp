#include "phone/agent/Photos.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "agent/Wire.h"
#include "phone/agent/Png.h"

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
    return PngStart(width, height);
}

}  // namespace quorvi::phone

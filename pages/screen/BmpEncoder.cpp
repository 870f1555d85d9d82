#include <cstdint>

#include "pages/screen/PictureEncoders.h"

namespace quorvi {
namespace {

constexpr std::uint32_t kFileHeader = 14;  // bytes
constexpr std::uint32_t kInfoHeader = 40;  // bytes
constexpr std::uint16_t kBits = 24;
constexpr std::uint32_t kDotsPerMetre = 3780;  // 96 an inch

void Append16(std::string& out, std::uint32_t value) {
    out.push_back(static_cast<char>(value));
    out.push_back(static_cast<char>(value >> 8));
}
void Append32(std::string& out, std::uint32_t value) {
    Append16(out, value);
    Append16(out, value >> 16);
}

}  // namespace

std::optional<std::string> EncodeBmp(const RgbPicture& picture) {
    // Lines are filled up to whole words, and stand from the bottom to the top.
    const std::size_t stride = (picture.Stride() + 3) / 4 * 4;
    const std::size_t size =
        kFileHeader + kInfoHeader + stride * static_cast<std::size_t>(picture.height);
    if (size > UINT32_MAX) {
        return std::nullopt;
    }
    std::string file;
    file.reserve(size);
    file += "BM";
    Append32(file, static_cast<std::uint32_t>(size));
    Append32(file, 0);                          // reserved
    Append32(file, kFileHeader + kInfoHeader);  // where the pixels begin

    Append32(file, kInfoHeader);
    Append32(file, static_cast<std::uint32_t>(picture.width));
    Append32(file, static_cast<std::uint32_t>(picture.height));
    Append16(file, 1);  // planes
    Append16(file, kBits);
    Append32(file, 0);  // not compressed
    Append32(file, static_cast<std::uint32_t>(size) - kFileHeader - kInfoHeader);
    Append32(file, kDotsPerMetre);
    Append32(file, kDotsPerMetre);
    Append32(file, 0);  // colours of the palette: there is none
    Append32(file, 0);

    for (int y = picture.height; y-- > 0;) {
        const auto line = picture.Line(y);
        for (std::size_t at = 0; at < line.size(); at += RgbPicture::kPixelBytes) {
            file.push_back(static_cast<char>(line[at + 2]));
            file.push_back(static_cast<char>(line[at + 1]));
            file.push_back(static_cast<char>(line[at]));
        }
        file.append(stride - line.size(), '\0');
    }
    return file;
}

}  // namespace quorvi

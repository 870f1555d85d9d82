// Image files for tests: good ones, and what a phone could send in the place of one.
#pragma once

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvi {

// A file of one colour.
inline std::string PictureFile(const char* format, int width, int height, QRgb rgb,
                               int quality = -1) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(rgb);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, quality);
    return bytes.toStdString();
}

inline std::string Png(int width, int height, QRgb rgb) {
    return PictureFile("PNG", width, height, rgb);
}

// The checksum of a PNG's chunk.
inline std::uint32_t Crc32(std::string_view bytes) {
    std::uint32_t sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xEDB88320U : 0U);
        }
    }
    return ~sum;
}

// A PNG's header that claims a size; no pixel follows.
inline std::string PngClaiming(std::uint32_t side) {
    std::string png = Png(1, 1, 0xFF000000);
    for (int i = 0; i < 4; ++i) {
        const auto byte = static_cast<char>(side >> (8 * (3 - i)));
        png[static_cast<std::size_t>(16 + i)] = byte;  // width
        png[static_cast<std::size_t>(20 + i)] = byte;  // height
    }
    const std::uint32_t sum = Crc32(std::string_view(png).substr(12, 17));
    for (int i = 0; i < 4; ++i) {
        png[static_cast<std::size_t>(29 + i)] = static_cast<char>(sum >> (8 * (3 - i)));
    }
    return png;
}

}  // namespace quorvi

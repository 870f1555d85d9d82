#include "phone/agent/Png.h"

#include <array>

namespace quorvi::phone {
namespace {

void AddUInt32(Bytes& bytes, std::uint32_t value) {
    std::byte out[sizeof value];
    PackUInt32(value, out);
    bytes.insert(bytes.end(), std::begin(out), std::end(out));
}

void AddText(Bytes& bytes, std::string_view text) {
    const auto added = std::as_bytes(std::span(text));
    bytes.insert(bytes.end(), added.begin(), added.end());
}

constexpr std::array<std::uint32_t, 256> kCrcOfByte = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        table[byte] = byte;
        for (int bit = 0; bit < 8; ++bit) {
            table[byte] =
                (table[byte] & 1) != 0 ? (table[byte] >> 1) ^ 0xEDB88320u : table[byte] >> 1;
        }
    }
    return table;
}();

std::uint32_t Crc32(std::span<const std::byte> bytes) {
    std::uint32_t crc = ~std::uint32_t{0};
    for (const std::byte byte : bytes) {
        crc = (crc >> 8) ^ kCrcOfByte[(crc ^ std::to_integer<std::uint32_t>(byte)) & 0xFF];
    }
    return ~crc;
}

std::uint32_t Adler32(std::span<const std::byte> bytes) {
    constexpr std::uint32_t kModulus = 65521;
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (const std::byte byte : bytes) {
        a = (a + std::to_integer<std::uint32_t>(byte)) % kModulus;
        b = (b + a) % kModulus;
    }
    return b << 16 | a;
}

// A zlib stream of one stored block.
Bytes Stored(std::span<const std::byte> data) {
    const auto length = static_cast<std::uint16_t>(data.size());
    const auto inverse = static_cast<std::uint16_t>(~length);
    Bytes stream{std::byte{0x78}, std::byte{0x01}, std::byte{1}};  // header; last block, stored
    for (const std::uint16_t word : {length, inverse}) {           // low byte first
        stream.push_back(static_cast<std::byte>(word & 0xFF));
        stream.push_back(static_cast<std::byte>(word >> 8));
    }
    stream.insert(stream.end(), data.begin(), data.end());
    AddUInt32(stream, Adler32(data));
    return stream;
}

}  // namespace

void AddPngChunk(Bytes& file, std::string_view type, std::span<const std::byte> data) {
    AddUInt32(file, static_cast<std::uint32_t>(data.size()));
    const std::size_t start = file.size();
    AddText(file, type);
    file.insert(file.end(), data.begin(), data.end());
    AddUInt32(file, Crc32(std::span(file).subspan(start)));
}

namespace {

Bytes StartOf(std::uint32_t width, std::uint32_t height, int bits, int colourType) {
    Bytes file;
    AddText(file, "\x89PNG\r\n\x1a\n");
    Bytes header;
    AddUInt32(header, width);
    AddUInt32(header, height);
    for (const int value : {bits, colourType, 0, 0, 0}) {
        header.push_back(static_cast<std::byte>(value));
    }
    AddPngChunk(file, "IHDR", header);
    return file;
}

constexpr int kWithAlpha = 6;
constexpr int kOfAPalette = 3;

}  // namespace

Bytes PngStart(std::uint32_t width, std::uint32_t height) {
    return StartOf(width, height, 8, kWithAlpha);
}

Bytes PngFile(std::uint32_t width, std::uint32_t height, const PngPalette& palette,
              std::span<const std::uint8_t> points) {
    Bytes colours;
    Bytes alphas;
    for (const PngColour& colour : palette) {
        for (const std::uint8_t part : {colour.red, colour.green, colour.blue}) {
            colours.push_back(std::byte{part});
        }
        alphas.push_back(std::byte{colour.alpha});
    }
    Bytes lines;
    for (std::size_t line = 0; line < height; ++line) {
        lines.push_back(std::byte{0});  // not filtered
        const auto inLine = points.subspan(line * width, width);
        for (std::size_t i = 0; i < inLine.size(); i += 2) {
            lines.push_back(static_cast<std::byte>(inLine[i] << 4 | inLine[i + 1]));
        }
    }
    Bytes file = StartOf(width, height, 4, kOfAPalette);
    AddPngChunk(file, "PLTE", colours);
    AddPngChunk(file, "tRNS", alphas);
    AddPngChunk(file, "IDAT", Stored(lines));
    AddPngChunk(file, "IEND", {});
    return file;
}

}  // namespace quorvi::phone

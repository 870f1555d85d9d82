#include "phone/agent/Png.h"

#include <array>

namespace quorvi::phone {
namespace {

constexpr std::size_t kBytesPerPoint = 4;

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

Bytes PngStart(std::uint32_t width, std::uint32_t height) {
    Bytes file;
    AddText(file, "\x89PNG\r\n\x1a\n");
    Bytes header;
    AddUInt32(header, width);
    AddUInt32(header, height);
    for (const int value : {8, 6, 0, 0, 0}) {  // 8 bits, with alpha
        header.push_back(static_cast<std::byte>(value));
    }
    AddPngChunk(file, "IHDR", header);
    return file;
}

Bytes PngFile(std::uint32_t width, std::uint32_t height, std::span<const std::byte> points) {
    Bytes lines;
    const std::size_t lineBytes = width * kBytesPerPoint;
    for (std::size_t line = 0; line < height; ++line) {
        lines.push_back(std::byte{0});  // not filtered
        const auto inLine = points.subspan(line * lineBytes, lineBytes);
        lines.insert(lines.end(), inLine.begin(), inLine.end());
    }
    Bytes file = PngStart(width, height);
    AddPngChunk(file, "IDAT", Stored(lines));
    AddPngChunk(file, "IEND", {});
    return file;
}

}  // namespace quorvi::phone

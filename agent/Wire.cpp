#include "agent/Wire.h"

namespace quorvi {
namespace {

template <typename Word>
void Pack(Word value, std::byte* out) {
    for (std::size_t i = 0; i < sizeof(Word); ++i) {
        out[i] = static_cast<std::byte>(value >> (8 * (sizeof(Word) - 1 - i)) & 0xFF);
    }
}

template <typename Word>
Word Read(const std::byte* in) {
    Word value = 0;
    for (std::size_t i = 0; i < sizeof(Word); ++i) {
        value = static_cast<Word>(value << 8 | static_cast<Word>(in[i]));
    }
    return value;
}

}  // namespace

void PackUInt32(std::uint32_t value, std::byte* out) {
    Pack(value, out);
}
void PackUInt64(std::uint64_t value, std::byte* out) {
    Pack(value, out);
}
std::uint32_t ReadUInt32(const std::byte* in) {
    return Read<std::uint32_t>(in);
}
std::uint64_t ReadUInt64(const std::byte* in) {
    return Read<std::uint64_t>(in);
}

}  // namespace quorvi

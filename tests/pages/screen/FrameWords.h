// Headers of a frame, word by word, little-endian, for tests.
#pragma once

#include <cstdint>
#include <initializer_list>

#include "tests/support/LoopbackAgent.h"

namespace quorvi {

inline Bytes Words(std::initializer_list<std::uint32_t> words) {
    Bytes out;
    for (const std::uint32_t word : words) {
        for (int shift = 0; shift < 32; shift += 8) {
            out.push_back(static_cast<std::byte>(word >> shift));
        }
    }
    return out;
}

// Offsets and lengths of red and blue, then of green and alpha.
inline Bytes RedAtZero() {
    return Words({0, 8, 16, 8, 8, 8, 24, 8});
}
inline Bytes BlueAtZero() {
    return Words({16, 8, 0, 8, 8, 8, 24, 8});
}
inline Bytes Rgb565() {
    return Words({11, 5, 0, 5, 5, 6, 0, 0});
}

}  // namespace quorvi

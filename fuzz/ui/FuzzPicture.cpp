// Decodes any bytes as the picture of a row, round and square.
//
// Input: one byte for the side in pixels and, by its highest bit, the rounding; the file.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "ui/list/DecodePicture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const int side = (data[0] & 0x7F) + 1;
    const bool rounded = (data[0] & 0x80) != 0;
    const std::string_view file(reinterpret_cast<const char*>(data) + 1, size - 1);
    const QImage picture = quorvi::DecodePicture(file, side, rounded, side / 8.0);
    if (!picture.isNull() && picture.size() != QSize(side, side)) {
        std::abort();
    }
    return 0;
}

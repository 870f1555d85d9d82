// Reads a frame of the phone's screen out of any bytes, in pieces, and turns what it shows.
//
// Input: the bytes of a piece, 0 for all at once; the rotation; what the phone sends. Each picture
// is painted into a room of 2 x 2 pixels.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "pages/screen/RgbPicture.h"
#include "pages/screen/ScreenCapture.h"

namespace {

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvi;
    if (size < 2) {
        return 0;
    }
    const std::size_t piece = data[0] == 0 ? size : data[0];
    const Rotation rotation = RotationOf(data[1] % 5);
    auto left = std::as_bytes(std::span(data, size)).subspan(2);
    bool closed = false;
    std::size_t asked = 0;
    const Capture capture =
        ReadFrame({.receive =
                       [&](std::span<std::byte> room) {
                           Require(!room.empty() && !closed);
                           const std::size_t count = std::min({room.size(), piece, left.size()});
                           std::copy_n(left.begin(), count, room.begin());
                           left = left.subspan(count);
                           return static_cast<std::ptrdiff_t>(count);
                       },
                   .send = [&](std::span<const std::byte> bytes) { asked += bytes.size(); },
                   .close = [&] { closed = true; }},
                  PaintRoom{2, 2});

    Require((capture.result == CaptureResult::shown) == capture.frame.has_value());
    Require((capture.fault == CaptureFault::none) == capture.frame.has_value());
    Require(asked <= 1);
    if (!capture.frame) {
        return 0;
    }
    const ScreenFrame& frame = *capture.frame;
    Require(asked == 1 && closed && frame.width > 0 && frame.height > 0);
    Require(frame.bytes->Size() == frame.Stride() * static_cast<std::size_t>(frame.height));
    Require(frame.bytes->Received() == frame.bytes->Size());
    const RgbPicture picture = TurnedPicture(frame, rotation);
    if (capture.reduced) {
        const ReducedFrame& reduced = *capture.reduced;
        Require(reduced.width > 0 && reduced.height > 0);
        Require(reduced.pixels.size() ==
                static_cast<std::size_t>(reduced.width) * static_cast<std::size_t>(reduced.height));
    }
    volatile unsigned sum = 0;
    for (const std::uint8_t value : picture.bytes) {
        sum = sum + value;
    }
    return 0;
}

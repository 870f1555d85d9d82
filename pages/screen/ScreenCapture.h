// Reads a picture of the phone's screen from adb's framebuffer service, without the agent.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "link/AdbHostClient.h"
#include "pages/screen/FrameReducer.h"
#include "pages/screen/ScreenFrame.h"

namespace quorvi {

// What a capture comes to. Each but `shown` leaves the old picture where it is.
enum class CaptureResult : int {
    noPhone = 0,     // none is chosen: nothing was sent
    sendFailed = 1,  // the first request was not sent
    refused = 2,     // an answer that is not "OKAY", a header that cannot be, bytes that end early
    shown = 5,       // there is a picture
    oddCount = 6,    // red and blue cannot change places: the bytes are no multiple of 4
};

// Why there is no picture, for who says so to the user.
enum class CaptureFault {
    none,
    noPhone,
    noServer,         // no adb server takes the connection
    sendFailed,       // or it takes no request
    phoneRefused,     // the server has no such phone, or closes
    serviceRefused,   // the phone does not open its frame buffer
    headerEnded,      // the stream ends before the pixels
    impossibleFrame,  // the header claims what no screen is
    pixelsEnded,      // the stream ends within the pixels
    stalled,          // nothing has come for so long
    oddCount,
};

struct Capture {
    CaptureResult result = CaptureResult::refused;
    CaptureFault fault = CaptureFault::none;
    std::optional<ScreenFrame> frame;     // with `shown` alone
    std::optional<ReducedFrame> reduced;  // of that; none where it would not be much smaller
};

// How long the server and the phone may say nothing.
inline constexpr std::chrono::milliseconds kCaptureStall = std::chrono::seconds(10);

// One exchange on a connection of its own, closed before the pixels are worked on. Blocks: on a
// worker only. `serial` is the phone's, in the bytes that adb names it by; `room` is where the
// picture will be painted, if it will be.
//
// The length of the first request is in upper-case digits, that of the second in lower-case: kept
// on purpose, since servers have always been sent these bytes
// (ScreenCapture.LengthsAreInUpperAndThenInLowerCase).
[[nodiscard]] Capture CaptureScreen(const AdbHostClient& client, std::string_view serial,
                                    std::chrono::milliseconds stall = kCaptureStall,
                                    const PaintRoom& room = {});

// Where a frame comes from: the peer behind a status word "OKAY" of the framebuffer service.
struct FrameStream {
    // Receives up to as many bytes as there is room; 0 or less when no more come.
    std::function<std::ptrdiff_t(std::span<std::byte>)> receive;
    // Asks for the pixels.
    std::function<void(std::span<const std::byte>)> send;
    // Ends the connection, before the pixels are worked on.
    std::function<void()> close;
};

// The part of the exchange behind that status word. Never reads past the frame, whatever its header
// says.
[[nodiscard]] Capture ReadFrame(const FrameStream& stream, const PaintRoom& room = {});

// What happened and what to do next: shown in the status, and by the command line. Empty for
// `none`. ANSI.
[[nodiscard]] std::string CaptureFaultText(CaptureFault fault);

}  // namespace quorvi

#include "pages/screen/ScreenCapture.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <utility>

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::string_view kOkay = "OKAY";
constexpr std::string_view kFramebuffer = "framebuffer:";

// Bytes of the largest piece in which pixels are received.
constexpr std::size_t kPiece = 102'400;

Capture Failed(CaptureResult result, CaptureFault fault) {
    return {result, fault, std::nullopt, std::nullopt};
}

Capture Refused(CaptureFault fault) {
    return Failed(CaptureResult::refused, fault);
}

// Fills the room; false when the stream ends before.
bool Fill(const FrameStream& stream, std::span<std::byte> room) {
    while (!room.empty()) {
        const std::ptrdiff_t count = stream.receive(room);
        if (count <= 0) {
            return false;
        }
        room = room.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

bool ReadsOkay(const FrameStream& stream) {
    std::array<char, 4> word{};
    return Fill(stream, std::as_writable_bytes(std::span(word))) &&
           std::string_view(word.data(), word.size()) == kOkay;
}

// What the reducer does with a piece it does while the peer sends the next one.
void ReadPixels(const FrameStream& stream, FrameBytes& frame,
                std::optional<FrameReducer>& reducer) {
    while (frame.Received() < frame.Size()) {
        const std::span<std::byte> room = frame.Room();
        const std::ptrdiff_t count = stream.receive(room.first(std::min(room.size(), kPiece)));
        if (count < 1) {
            return;
        }
        frame.Commit(static_cast<std::size_t>(count));
        if (reducer) {
            reducer->Take(frame.Bytes().first(frame.Received()));
        }
    }
}

// For a picture that is painted much smaller than the frame is.
std::optional<FrameReducer> ReducerOf(const FrameShape& shape, const PaintRoom& room) {
    const int width = static_cast<int>(shape.width);
    const int height = static_cast<int>(shape.height);
    const int reduction = ReductionOf(width, height, room);
    if (reduction == 1 || LayoutOf(shape.bits) != PixelLayout::bgrx32) {
        return std::nullopt;
    }
    return FrameReducer(width, height, reduction);
}

}  // namespace

Capture ReadFrame(const FrameStream& stream, const PaintRoom& room) {
    std::array<std::byte, kFrameVersionBytes> versionWord{};
    if (!Fill(stream, versionWord)) {
        return Refused(CaptureFault::headerEnded);
    }
    const std::uint32_t version = ReadFrameVersion(versionWord);
    std::array<std::byte, 20> shapeWords{};
    const auto shapeBytes = std::span(shapeWords).first(FrameShapeBytes(version));
    if (!Fill(stream, shapeBytes)) {
        return Refused(CaptureFault::headerEnded);
    }
    const FrameShape shape = ReadFrameShape(version, shapeBytes);
    if (!IsPossible(shape)) {
        return Refused(CaptureFault::impossibleFrame);
    }

    // The byte that asks for the pixels is the first character of the last request.
    const std::string request = AdbHostClient::Frame(kFramebuffer, LengthDigits::lowerCase);
    stream.send(std::as_bytes(std::span(request)).first(1));

    std::array<std::byte, kFrameChannelBytes> redAndBlue{};
    std::array<std::byte, kFrameChannelBytes> greenAndAlpha{};
    if (!Fill(stream, redAndBlue) || !Fill(stream, greenAndAlpha)) {
        return Refused(CaptureFault::headerEnded);
    }
    const auto bytes = std::make_shared<FrameBytes>(shape.size);
    if (bytes->Size() != shape.size) {
        return Refused(CaptureFault::impossibleFrame);
    }
    std::optional<FrameReducer> reducer = ReducerOf(shape, room);
    ReadPixels(stream, *bytes, reducer);
    stream.close();

    const bool whole = bytes->Received() == bytes->Size();
    if (NeedsSwap(redAndBlue)) {
        if (!bytes->SwapRedBlue()) {
            return Failed(CaptureResult::oddCount,
                          whole ? CaptureFault::oddCount : CaptureFault::pixelsEnded);
        }
        if (reducer) {
            reducer->SwapRedBlue();
        }
    }
    if (!whole) {
        return Refused(CaptureFault::pixelsEnded);
    }
    Capture capture{CaptureResult::shown, CaptureFault::none,
                    ScreenFrame{.width = static_cast<int>(shape.width),
                                .height = static_cast<int>(shape.height),
                                .layout = LayoutOf(shape.bits),
                                .bytes = bytes},
                    std::nullopt};
    if (reducer) {
        capture.reduced = std::move(*reducer).Result();
    }
    return capture;
}

Capture CaptureScreen(const AdbHostClient& client, std::string_view serial,
                      std::chrono::milliseconds stall, const PaintRoom& room) {
    TcpSocket socket = client.Open(TcpSocket::Delay::keep);
    if (serial.empty()) {
        return Failed(CaptureResult::noPhone, CaptureFault::noPhone);
    }
    socket.LimitReceive(stall);
    bool stalled = false;
    const FrameStream stream{
        .receive = [&](std::span<std::byte> into) -> std::ptrdiff_t {
            const std::ptrdiff_t count = socket.Receive(into);
            stalled = count < 0 && TcpSocket::TimedOut();
            return count;
        },
        .send = [&](std::span<const std::byte> bytes) { socket.Send(bytes); },
        .close = [&] { socket.Close(); },
    };
    const auto because = [&](CaptureFault fault) {
        return stalled ? CaptureFault::stalled : fault;
    };

    // Whether the connection was made is not looked at: without it the reading fails.
    const bool connected = socket.IsOpen();
    if (client.Send(socket, fmt::format("host:transport:{}", serial)) == 0) {
        return Failed(CaptureResult::sendFailed, CaptureFault::sendFailed);
    }
    if (!ReadsOkay(stream)) {
        return Refused(connected ? because(CaptureFault::phoneRefused) : CaptureFault::noServer);
    }
    static_cast<void>(client.Send(socket, kFramebuffer, LengthDigits::lowerCase));
    if (!ReadsOkay(stream)) {
        return Refused(because(CaptureFault::serviceRefused));
    }
    Capture capture = ReadFrame(stream, room);
    capture.fault = because(capture.fault);
    return capture;
}

std::string CaptureFaultText(CaptureFault fault) {
    switch (fault) {
        case CaptureFault::none:
            return {};
        case CaptureFault::noPhone:
            return Ansi(u8"没有找到手机，请连接手机后再试");
        case CaptureFault::noServer:
        case CaptureFault::sendFailed:
            return Ansi(u8"连接不到 adb，请重新连接手机后再试");
        case CaptureFault::phoneRefused:
            return Ansi(u8"手机已断开，请重新连接手机后再试");
        case CaptureFault::serviceRefused:
            return Ansi(u8"手机不允许截取屏幕，请解锁手机后再试");
        case CaptureFault::headerEnded:
        case CaptureFault::pixelsEnded:
            return Ansi(u8"屏幕画面没有传完，请检查数据线后再试");
        case CaptureFault::impossibleFrame:
        case CaptureFault::oddCount:
            return Ansi(u8"手机给出的屏幕画面无法识别，请再试一次");
        case CaptureFault::stalled:
            return Ansi(u8"手机没有回应，请解锁手机或重新连接后再试");
    }
    return {};
}

}  // namespace quorvi

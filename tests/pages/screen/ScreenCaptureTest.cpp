#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/ByteText.h"
#include "base/Text.h"
#include "pages/screen/ScreenCapture.h"
#include "tests/pages/screen/FrameWords.h"
#include "tests/support/LoopbackAgent.h"

namespace quorvi {
namespace {

using std::chrono::milliseconds;

Bytes Pixels(std::initializer_list<int> values) {
    Bytes out;
    for (const int value : values) {
        out.push_back(static_cast<std::byte>(value));
    }
    return out;
}

Bytes PixelsOf(const Capture& capture) {
    const auto bytes = capture.frame->bytes->Bytes();
    return {bytes.begin(), bytes.end()};
}

// Two pixels of 32 bits beside each other: all that the server sends from its first word on.
Bytes SmallFrame(const Bytes& channels) {
    return Join({ToBytes("OKAY"), ToBytes("OKAY"),
                 Words({1,    // version
                        32,   // bits
                        8,    // bytes of the frame
                        2,    // width
                        1}),  // height
                 channels, Pixels({1, 2, 3, 4, 5, 6, 7, 8})});
}

Capture CaptureOf(const Bytes& answer, Answer::End end = Answer::End::close,
                  milliseconds stall = kCaptureStall) {
    LoopbackAgent server({answer, end});
    return CaptureScreen(AdbHostClient(server.Port()), "x", stall);
}

void ExpectNone(const Capture& capture, CaptureResult result, CaptureFault fault) {
    EXPECT_EQ(capture.result, result);
    EXPECT_EQ(capture.fault, fault);
    EXPECT_FALSE(capture.frame);
    EXPECT_NE(CaptureFaultText(capture.fault), "");
}

TEST(ScreenCapture, LengthsAreInUpperAndThenInLowerCase) {
    LoopbackAgent server({SmallFrame(BlueAtZero()), Answer::End::wait});
    const Capture capture = CaptureScreen(AdbHostClient(server.Port()), "HT04CPL0012");
    EXPECT_EQ(capture.result, CaptureResult::shown);
    const Exchange exchange = server.Exchanges(1).front();
    EXPECT_EQ(std::string(AsText(exchange.firstPiece)).append(AsText(exchange.rest)),
              "001Ahost:transport:HT04CPL0012"  // which phone
              "000cframebuffer:"                // which service
              "0");                             // the first character of the last request
    EXPECT_TRUE(exchange.closedByPeer);
}

TEST(ScreenCapture, FrameComesWithItsShape) {
    const Capture capture = CaptureOf(SmallFrame(BlueAtZero()));
    ASSERT_EQ(capture.result, CaptureResult::shown);
    EXPECT_EQ(capture.fault, CaptureFault::none);
    EXPECT_EQ(CaptureFaultText(capture.fault), "");
    EXPECT_EQ(capture.frame->width, 2);
    EXPECT_EQ(capture.frame->height, 1);
    EXPECT_EQ(capture.frame->layout, PixelLayout::bgrx32);
    EXPECT_EQ(capture.frame->Stride(), 8U);
    EXPECT_EQ(PixelsOf(capture), Pixels({1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(ScreenCapture, FrameWithRedAtZeroIsSwapped) {
    const Capture capture = CaptureOf(SmallFrame(RedAtZero()));
    ASSERT_EQ(capture.result, CaptureResult::shown);
    EXPECT_EQ(PixelsOf(capture), Pixels({3, 2, 1, 4, 7, 6, 5, 8}));
}

TEST(ScreenCapture, FrameWithBlueAtZeroIsNotSwapped) {
    const Capture capture = CaptureOf(SmallFrame(BlueAtZero()));
    ASSERT_EQ(capture.result, CaptureResult::shown);
    EXPECT_EQ(PixelsOf(capture), Pixels({1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(ScreenCapture, Version2HasOneWordMore) {
    const Capture capture = CaptureOf(Join({ToBytes("OKAYOKAY"),
                                            Words({2,    // version
                                                   32,   // bits
                                                   7,    // colour space
                                                   4,    // bytes of the frame
                                                   1,    // width
                                                   1}),  // height
                                            RedAtZero(), Pixels({10, 20, 30, 40})}));
    ASSERT_EQ(capture.result, CaptureResult::shown);
    EXPECT_EQ(PixelsOf(capture), Pixels({30, 20, 10, 40}));
}

TEST(ScreenCapture, SixteenBitsAndAnUnknownDepthAreBothRgb565) {
    for (const std::uint32_t bits : {16U, 15U, 8U}) {
        const Capture capture = CaptureOf(
            Join({ToBytes("OKAYOKAY"), Words({1, bits, 4, 2, 1}), Rgb565(), Pixels({1, 2, 3, 4})}));
        ASSERT_EQ(capture.result, CaptureResult::shown) << bits;
        EXPECT_EQ(capture.frame->layout, PixelLayout::rgb565);
        EXPECT_EQ(PixelsOf(capture), Pixels({1, 2, 3, 4}));
    }
}

TEST(ScreenCapture, TwentyFourBitsHaveThreeBytes) {
    const Capture capture = CaptureOf(Join(
        {ToBytes("OKAYOKAY"), Words({1, 24, 6, 2, 1}), BlueAtZero(), Pixels({1, 2, 3, 4, 5, 6})}));
    ASSERT_EQ(capture.result, CaptureResult::shown);
    EXPECT_EQ(capture.frame->layout, PixelLayout::bgr24);
    EXPECT_EQ(capture.frame->Stride(), 6U);
}

TEST(ScreenCapture, SwapOfACountThatFourDoesNotDivideGivesUp) {
    ExpectNone(CaptureOf(Join({ToBytes("OKAYOKAY"), Words({1, 16, 6, 3, 1}), RedAtZero(),
                               Pixels({1, 2, 3, 4, 5, 6})})),
               CaptureResult::oddCount, CaptureFault::oddCount);
}

TEST(ScreenCapture, WithoutAPhoneNothingIsSentBehindTheConnect) {
    LoopbackAgent server({ToBytes("OKAY"), Answer::End::wait});
    ExpectNone(CaptureScreen(AdbHostClient(server.Port()), ""), CaptureResult::noPhone,
               CaptureFault::noPhone);
    const Exchange exchange = server.Exchanges(1).front();
    EXPECT_TRUE(exchange.firstPiece.empty());
}

TEST(ScreenCapture, SendOfNothingIsToldApart) {
    LoopbackAgent server({ToBytes("OKAY"), Answer::End::wait});
    const AdbHostClient client(
        server.Port(),
        [](const TcpSocket&, std::span<const std::byte>) -> std::ptrdiff_t { return 0; });
    ExpectNone(CaptureScreen(client, "x"), CaptureResult::sendFailed, CaptureFault::sendFailed);
}

TEST(ScreenCapture, ServerThatDoesNotRunIsToldApart) {
    ExpectNone(CaptureScreen(AdbHostClient(UnusedPort()), "x"), CaptureResult::refused,
               CaptureFault::noServer);
}

TEST(ScreenCapture, EveryOtherFirstWordIsARefusal) {
    for (const char* const word : {"FAIL0012device 'x' not found", "okay", "OKA", ""}) {
        ExpectNone(CaptureOf(ToBytes(word)), CaptureResult::refused, CaptureFault::phoneRefused);
    }
}

TEST(ScreenCapture, EveryOtherSecondWordIsARefusal) {
    for (const char* const word : {"OKAYFAIL0006closed", "OKAYOKA", "OKAY"}) {
        ExpectNone(CaptureOf(ToBytes(word)), CaptureResult::refused, CaptureFault::serviceRefused);
    }
}

TEST(ScreenCapture, ConnectionThatBreaksIsARefusal) {
    ExpectNone(CaptureOf(ToBytes(""), Answer::End::reset), CaptureResult::refused,
               CaptureFault::phoneRefused);
}

TEST(ScreenCapture, StreamThatEndsAnywhereInTheHeaderIsARefusal) {
    const Bytes whole = SmallFrame(RedAtZero());
    const std::size_t header = 8 + 20 + 32;
    for (std::size_t cut = 8; cut < header; ++cut) {
        const Capture capture = CaptureOf({whole.begin(), whole.begin() + std::ptrdiff_t(cut)});
        ExpectNone(capture, CaptureResult::refused, CaptureFault::headerEnded);
    }
}

TEST(ScreenCapture, StreamThatEndsAnywhereInThePixelsKeepsTheOldPicture) {
    const Bytes whole = SmallFrame(BlueAtZero());
    for (std::size_t left = 1; left <= 8; ++left) {
        ExpectNone(CaptureOf({whole.begin(), whole.end() - std::ptrdiff_t(left)}),
                   CaptureResult::refused, CaptureFault::pixelsEnded);
    }
}

// The count is looked at before the swap, and so before it is known that the frame is cut.
TEST(ScreenCapture, SwapOfACutFrameGivesUpByItsCount) {
    const Bytes whole = SmallFrame(RedAtZero());
    ExpectNone(CaptureOf({whole.begin(), whole.end() - 1}), CaptureResult::oddCount,
               CaptureFault::pixelsEnded);
    ExpectNone(CaptureOf({whole.begin(), whole.end() - 4}), CaptureResult::refused,
               CaptureFault::pixelsEnded);
}

TEST(ScreenCapture, WidthOfZeroKeepsTheOldPicture) {
    ExpectNone(CaptureOf(Join({ToBytes("OKAYOKAY"), Words({1, 32, 8, 0, 1}), RedAtZero()})),
               CaptureResult::refused, CaptureFault::impossibleFrame);
}

TEST(ScreenCapture, SizeThatDoesNotFitKeepsTheOldPicture) {
    for (const std::uint32_t size : {0U, 7U, 9U, 16U, 0xFFFFFFFFU}) {
        ExpectNone(CaptureOf(Join({ToBytes("OKAYOKAY"), Words({1, 32, size, 2, 1}), RedAtZero()})),
                   CaptureResult::refused, CaptureFault::impossibleFrame);
    }
}

TEST(ScreenCapture, FrameOfFourGigabytesTakesWhatArrivesOfIt) {
    ExpectNone(CaptureOf(Join({ToBytes("OKAYOKAY"),
                               Words({1,                     // version
                                      32,                    // bits
                                      4U * 32'767 * 32'767,  // bytes of the frame
                                      32'767,                // width
                                      32'767}),              // height
                               BlueAtZero(), Pixels({1, 2, 3, 4})})),
               CaptureResult::refused, CaptureFault::pixelsEnded);
}

TEST(ScreenCapture, SilenceAtEachStepEndsTheCapture) {
    const Bytes whole = SmallFrame(RedAtZero());
    for (const std::size_t count : {0U, 4U, 8U, 12U, 28U, 44U, 60U, 64U}) {
        const Capture capture = CaptureOf({whole.begin(), whole.begin() + std::ptrdiff_t(count)},
                                          Answer::End::wait, milliseconds(20));
        ExpectNone(capture, CaptureResult::refused, CaptureFault::stalled);
    }
}

// What a slow phone takes in all is not limited.
TEST(ScreenCapture, FrameThatComesByteByByteIsWhole) {
    LoopbackAgent server({SmallFrame(RedAtZero()), Answer::End::wait, 1, milliseconds(1)});
    const Capture capture = CaptureScreen(AdbHostClient(server.Port()), "x", milliseconds(5'000));
    ASSERT_EQ(capture.result, CaptureResult::shown);
    EXPECT_EQ(PixelsOf(capture), Pixels({3, 2, 1, 4, 7, 6, 5, 8}));
}

TEST(ScreenCapture, APictureForASmallRoomIsReducedWhileItComes) {
    Bytes sent = Join({Words({1, 32, 16 * 16 * 4, 16, 16}), RedAtZero()});
    for (int i = 0; i < 16 * 16; ++i) {
        const Bytes pixel = {std::byte{200}, std::byte{40}, std::byte{8}, std::byte{255}};
        sent.insert(sent.end(), pixel.begin(), pixel.end());
    }
    const auto captured = [&](const PaintRoom& room) {
        std::span<const std::byte> left = sent;
        return ReadFrame({.receive =
                              [&left](std::span<std::byte> place) {
                                  const std::size_t count = std::min(place.size(), left.size());
                                  std::copy_n(left.begin(), count, place.begin());
                                  left = left.subspan(count);
                                  return static_cast<std::ptrdiff_t>(count);
                              },
                          .send = [](std::span<const std::byte>) {},
                          .close = [] {}},
                         room);
    };
    const Capture capture = captured({.width = 4, .height = 6});  // 4 times as wide as that
    ASSERT_EQ(capture.result, CaptureResult::shown);
    ASSERT_TRUE(capture.reduced);
    EXPECT_EQ(capture.reduced->width, 6);  // 16 by 3
    EXPECT_EQ(capture.reduced->height, 6);
    EXPECT_EQ(capture.reduced->pixels, std::vector<std::uint32_t>(36, 0xffc82808));  // swapped too
    EXPECT_FALSE(captured({.width = 16, .height = 16}).reduced);
    EXPECT_FALSE(captured({}).reduced);
}

TEST(ScreenCapture, PixelsAreReadInPiecesAndNoFurtherThanTheFrame) {
    constexpr std::uint32_t kSide = 300;  // 360,000 bytes: four pieces
    Bytes sent = Join({Words({1, 32, kSide * kSide * 4, kSide, kSide}), BlueAtZero()});
    sent.resize(sent.size() + kSide * kSide * 4, std::byte{7});
    sent.push_back(std::byte{9});  // behind the frame
    std::size_t at = 0;
    std::vector<std::size_t> asked;
    bool closed = false;
    const Capture capture =
        ReadFrame({.receive =
                       [&](std::span<std::byte> room) {
                           asked.push_back(room.size());
                           const std::size_t count = std::min(room.size(), sent.size() - at);
                           std::copy_n(sent.begin() + std::ptrdiff_t(at), count, room.begin());
                           at += count;
                           return static_cast<std::ptrdiff_t>(count);
                       },
                   .send = [](std::span<const std::byte>) {},
                   .close = [&] { closed = true; }});
    EXPECT_EQ(capture.result, CaptureResult::shown);
    EXPECT_EQ(asked, (std::vector<std::size_t>{4, 16, 16, 16, 102'400, 102'400, 102'400, 52'800}));
    EXPECT_EQ(at, sent.size() - 1);
    EXPECT_TRUE(closed);
}

}  // namespace
}  // namespace quorvi

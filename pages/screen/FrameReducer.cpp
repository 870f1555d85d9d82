#include "pages/screen/FrameReducer.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace quorvi {
namespace {

constexpr std::size_t kPixelBytes = 4;
constexpr double kLeftToSmooth = 1.25;

// One divided by a number of pixels, in 65,536ths.
std::uint32_t InverseOf(int count) {
    return static_cast<std::uint32_t>((0x10000 + count / 2) / count);
}

}  // namespace

int ReductionOf(int width, int height, const PaintRoom& room) {
    if (room.width < 1 || room.height < 1) {
        return 1;
    }
    const double scale = std::max(static_cast<double>(width) / room.width,
                                  static_cast<double>(height) / room.height);
    return static_cast<int>(
        std::clamp(std::floor(scale / kLeftToSmooth), 1.0, double{FrameReducer::kMostReduction}));
}

FrameReducer::FrameReducer(int width, int height, int reduction)
    : width_(width),
      height_(height),
      reduction_(reduction),
      sums_(kPixelBytes * static_cast<std::size_t>(width)),
      result_{.width = (width + reduction - 1) / reduction,
              .height = (height + reduction - 1) / reduction,
              .pixels = {}} {}

void FrameReducer::Take(std::span<const std::byte> received) {
    const std::size_t stride = sums_.size();
    while (nextLine_ < height_) {
        const std::size_t start = static_cast<std::size_t>(nextLine_) * stride;
        if (received.size() < start + stride) {
            return;
        }
        AddLine(received.subspan(start, stride));
        ++nextLine_;
        if (added_ == reduction_ || nextLine_ == height_) {
            EndRow();
        }
    }
}

// The rows are added as their lines come: the frame's size is a claim of the phone's.
void FrameReducer::AddLine(std::span<const std::byte> line) {
    const std::byte* const bytes = line.data();
    std::uint16_t* const sums = sums_.data();
    for (std::size_t i = 0; i < line.size(); ++i) {
        sums[i] = static_cast<std::uint16_t>(sums[i] + std::to_integer<std::uint16_t>(bytes[i]));
    }
    ++added_;
}

// The four sums of a pixel are added at once, as one number of 64 bits: none of them exceeds its
// 16, since 16 x 16 x 255 do not.
void FrameReducer::EndRow() {
    const int whole = width_ / reduction_;
    const std::size_t row = result_.pixels.size();
    result_.pixels.resize(row + static_cast<std::size_t>(result_.width));
    std::uint32_t* const pixels = result_.pixels.data() + row;
    const std::uint16_t* sums = sums_.data();
    const auto endPixel = [&](int columns, std::uint32_t inverse) {
        std::uint64_t square = 0;
        for (int column = 0; column < columns; ++column, sums += kPixelBytes) {
            std::uint64_t pixel = 0;
            std::memcpy(&pixel, sums, sizeof pixel);
            square += pixel;
        }
        std::uint32_t mean = 0;
        for (int part = 0; part < 4; ++part) {
            const auto sum = static_cast<std::uint32_t>(square >> (16 * part) & 0xffff);
            mean |= std::min<std::uint32_t>((sum * inverse + 0x8000) >> 16, 0xff) << (8 * part);
        }
        return mean;
    };
    const std::uint32_t inverse = InverseOf(reduction_ * added_);
    for (int x = 0; x < whole; ++x) {
        pixels[x] = endPixel(reduction_, inverse);
    }
    if (whole < result_.width) {
        const int left = width_ % reduction_;
        pixels[whole] = endPixel(left, InverseOf(left * added_));
    }
    std::ranges::fill(sums_, std::uint16_t{0});
    added_ = 0;
}

void FrameReducer::SwapRedBlue() {
    for (std::uint32_t& pixel : result_.pixels) {
        pixel = (pixel & 0xff00ff00U) | (pixel & 0xffU) << 16 | (pixel >> 16 & 0xffU);
    }
}

}  // namespace quorvi

// Makes a smaller picture of a frame while its lines arrive, for who paints it much smaller than
// the phone's screen is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace quorvi {

// The room in which a picture is painted, in device pixels. Without a side: it is not painted.
struct PaintRoom {
    int width = 0;
    int height = 0;
};

// By which whole number both sides of a frame are divided so that the result, still a quarter
// larger than the picture that fits into the room, leaves something to smooth. 1 where there is
// nothing to gain.
[[nodiscard]] int ReductionOf(int width, int height, const PaintRoom& room);

// Pixels of 4 bytes: blue, green, red, and one without a meaning.
struct ReducedFrame {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;  // lines from the top, without gaps
};

// Each pixel of the result is the mean of a square of the frame's; at the right and lower edge, of
// what is left of one. For frames of 4 bytes a pixel. One thread at a time.
class FrameReducer {
  public:
    static constexpr int kMostReduction = 16;

    // `reduction` is 1 to kMostReduction.
    FrameReducer(int width, int height, int reduction);

    // Takes the lines that have become whole: `received` are the frame's bytes from its first one
    // on.
    void Take(std::span<const std::byte> received);

    // Red and blue change places.
    void SwapRedBlue();

    // The rows whose lines have all come, however many its height says.
    [[nodiscard]] ReducedFrame Result() && { return std::move(result_); }

  private:
    void AddLine(std::span<const std::byte> line);
    void EndRow();

    int width_;
    int height_;
    int reduction_;
    int nextLine_ = 0;
    int added_ = 0;                    // lines in the sums
    std::vector<std::uint16_t> sums_;  // of the row in work, for each byte of a line
    ReducedFrame result_;
};

}  // namespace quorvi

#include "phone/Screen.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "phone/adb/Packet.h"

namespace quorvi::phone {
namespace {

constexpr std::uint32_t kVersionWithColourSpace = 2;
constexpr std::uint32_t kColourSpace = 1;  // sRGB

struct Colour {
    int red, green, blue;
};

constexpr Colour kSkyTop{38, 22, 74};
constexpr Colour kSkyBottom{236, 160, 150};
constexpr Colour kFarHill{92, 58, 120};
constexpr Colour kNearHill{44, 30, 70};
constexpr Colour kBar{16, 16, 20};
constexpr Colour kWhite{245, 245, 250};
constexpr std::array<Colour, 8> kIcons{{{74, 108, 200},
                                        {206, 138, 30},
                                        {46, 142, 168},
                                        {160, 80, 170},
                                        {62, 142, 90},
                                        {90, 90, 120},
                                        {200, 76, 84},
                                        {60, 130, 210}}};

// The segments of each digit: top, upper left, upper right, middle, lower left, lower right,
// bottom.
constexpr std::array<int, 10> kSegments{0b1110111, 0b0010010, 0b1011101, 0b1011011, 0b0111010,
                                        0b1101011, 0b1101111, 0b1010010, 0b1111111, 0b1111011};

class Canvas {
  public:
    Canvas(int width, int height)
        : width_(width), height_(height), pixels_(static_cast<std::size_t>(width * height)) {}

    void Set(int x, int y, Colour colour) {
        if (x >= 0 && y >= 0 && x < width_ && y < height_) {
            pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                    static_cast<std::size_t>(x)] = colour;
        }
    }
    void Fill(int left, int top, int width, int height, Colour colour) {
        for (int y = top; y < top + height; ++y) {
            for (int x = left; x < left + width; ++x) {
                Set(x, y, colour);
            }
        }
    }
    void FillRound(int left, int top, int size, int radius, Colour colour) {
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x) {
                const int dx = std::max({radius - x, x - (size - 1 - radius), 0});
                const int dy = std::max({radius - y, y - (size - 1 - radius), 0});
                if (dx * dx + dy * dy <= radius * radius) {
                    Set(left + x, top + y, colour);
                }
            }
        }
    }
    [[nodiscard]] const std::vector<Colour>& Pixels() const { return pixels_; }

  private:
    int width_;
    int height_;
    std::vector<Colour> pixels_;
};

Colour Mix(Colour a, Colour b, double share) {
    const auto mix = [&](int from, int to) { return static_cast<int>(from + (to - from) * share); };
    return {mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue)};
}

void DrawWallpaper(Canvas& canvas, int width, int height) {
    for (int y = 0; y < height; ++y) {
        canvas.Fill(0, y, width, 1, Mix(kSkyTop, kSkyBottom, static_cast<double>(y) / height));
    }
    for (int x = 0; x < width; ++x) {
        const double turn = static_cast<double>(x) / width;
        const int far = static_cast<int>(height * (0.62 + 0.06 * std::sin(turn * 7)));
        const int near = static_cast<int>(height * (0.74 + 0.05 * std::sin(turn * 5 + 2)));
        canvas.Fill(x, far, 1, height - far, kFarHill);
        canvas.Fill(x, near, 1, height - near, kNearHill);
    }
}

void DrawDigit(Canvas& canvas, int left, int top, int size, int digit) {
    const int bits = kSegments[static_cast<std::size_t>(digit)];
    const int pen = std::max(2, size / 7);
    const int half = size;
    const auto lit = [&](int segment) { return (bits >> (6 - segment)) & 1; };
    for (int row = 0; row < 3; ++row) {
        if (lit(row * 3)) {
            canvas.Fill(left, top + row * half, size + pen, pen, kWhite);
        }
    }
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 2; ++column) {
            if (lit(1 + row * 3 + column)) {
                canvas.Fill(left + column * size, top + row * half, pen, half + pen, kWhite);
            }
        }
    }
}

void DrawClock(Canvas& canvas, int width, int top) {
    const int size = width / 10;
    const int step = size * 3 / 2;
    int left = (width - step * 4 - size / 2) / 2 + size / 4;
    for (const int digit : {0, 9, 4, 2}) {
        DrawDigit(canvas, left, top, size, digit);
        left += step;
        if (digit == 9) {
            canvas.FillRound(left, top + size / 2, size / 5, size / 10, kWhite);
            canvas.FillRound(left, top + size * 3 / 2, size / 5, size / 10, kWhite);
            left += size / 2;
        }
    }
}

void DrawIcons(Canvas& canvas, int width, int height) {
    const int cell = width / 4;
    const int size = cell * 6 / 10;
    for (std::size_t i = 0; i < kIcons.size(); ++i) {
        const int left = static_cast<int>(i % 4) * cell + (cell - size) / 2;
        const int top = height - cell * (2 - static_cast<int>(i / 4)) - cell / 8;
        canvas.FillRound(left, top, size, size / 5, kIcons[i]);
        canvas.FillRound(left + size / 4, top + size / 4, size / 2, size / 8,
                         Mix(kIcons[i], kWhite, 0.8));
    }
}

void DrawStatusBar(Canvas& canvas, int width, int height, int battery) {
    const int bar = height / 21;
    canvas.Fill(0, 0, width, bar, kBar);
    const int cell = bar / 2;
    const int left = width - cell * 3;
    canvas.Fill(left, cell / 2, cell * 2, cell, kWhite);
    canvas.Fill(left + cell * 2, cell * 3 / 4, cell / 5, cell / 2, kWhite);
    const int empty = (cell * 2 - 4) * (100 - battery) / 100;
    canvas.Fill(left + cell * 2 - 2 - empty, cell / 2 + 2, empty, cell - 4, kBar);
    for (int strength = 0; strength < 4; ++strength) {
        const int tall = cell * (strength + 1) / 4;
        canvas.Fill(left - cell * 2 + strength * cell / 3, cell * 3 / 2 - tall, cell / 5, tall,
                    kWhite);
    }
}

std::uint32_t PixelBytes(int bits) {
    return bits == 32 ? 4 : bits == 24 ? 3 : 2;
}

// What a fault claims in the place of what is true.
std::uint32_t Claimed(const ScreenForm& form, ScreenFault fault, std::uint32_t truth) {
    return form.fault == fault ? form.number : truth;
}

Bytes HeaderOf(const ScreenForm& form) {
    const auto width = static_cast<std::uint32_t>(form.width);
    const auto height = static_cast<std::uint32_t>(form.height);
    const std::uint32_t size = width * height * PixelBytes(form.bits);
    std::vector<std::uint32_t> words{form.version, static_cast<std::uint32_t>(form.bits)};
    if (form.version == kVersionWithColourSpace) {
        words.push_back(kColourSpace);
    }
    words.insert(words.end(),
                 {Claimed(form, ScreenFault::size, size), Claimed(form, ScreenFault::width, width),
                  Claimed(form, ScreenFault::height, height)});
    if (PixelBytes(form.bits) == 2) {
        words.insert(words.end(), {11, 5, 0, 5, 5, 6, 0, 0});
    } else if (form.blueFirst) {
        words.insert(words.end(), {16, 8, 0, 8, 8, 8, 24, 0});
    } else {
        words.insert(words.end(), {0, 8, 16, 8, 8, 8, 24, 0});
    }
    Bytes out;
    for (const std::uint32_t word : words) {
        AppendLittleEndian(out, word);
    }
    return out;
}

Bytes PixelsOf(const Canvas& canvas, const ScreenForm& form) {
    Bytes out;
    const std::uint32_t pixelBytes = PixelBytes(form.bits);
    out.reserve(canvas.Pixels().size() * pixelBytes);
    for (const auto& [red, green, blue] : canvas.Pixels()) {
        if (pixelBytes == 2) {
            const int word = (red >> 3) << 11 | (green >> 2) << 5 | blue >> 3;
            out.push_back(static_cast<std::byte>(word));
            out.push_back(static_cast<std::byte>(word >> 8));
            continue;
        }
        out.push_back(static_cast<std::byte>(form.blueFirst ? blue : red));
        out.push_back(static_cast<std::byte>(green));
        out.push_back(static_cast<std::byte>(form.blueFirst ? red : blue));
        if (pixelBytes == 4) {
            out.push_back(std::byte{255});
        }
    }
    return out;
}

}  // namespace

ScreenPicture DrawFramebuffer(const ScreenForm& form, int battery) {
    Canvas canvas(form.width, form.height);
    DrawWallpaper(canvas, form.width, form.height);
    DrawClock(canvas, form.width, form.height / 6);
    DrawIcons(canvas, form.width, form.height);
    DrawStatusBar(canvas, form.width, form.height, battery);
    return {Share(HeaderOf(form)), Share(PixelsOf(canvas, form))};
}

void Screen::SetForm(const ScreenForm& form) {
    if (form != form_) {
        form_ = form;
        picture_ = {};
    }
}

const ScreenPicture& Screen::Shown() {
    if (picture_.pixels == nullptr) {
        picture_ = DrawFramebuffer(form_, battery_);
    }
    return picture_;
}

}  // namespace quorvi::phone

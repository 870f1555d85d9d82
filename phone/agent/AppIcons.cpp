#include "phone/agent/AppIcons.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <mutex>
#include <vector>

#include "phone/agent/Png.h"

namespace quorvi::phone {
namespace {

// Lists show an icon at 48 by 48; at scale 2 each of these points is one of the screen.
constexpr int kSide = 96;
constexpr float kMiddle = kSide / 2.0F;
constexpr float kCorner = 16;

constexpr std::array<PngColour, 7> kPlates{{
    {214, 69, 65, 255},
    {230, 126, 34, 255},
    {39, 134, 88, 255},
    {41, 128, 185, 255},
    {95, 84, 162, 255},
    {22, 132, 140, 255},
    {88, 100, 116, 255},
}};
constexpr std::uint32_t kSigns = 4;

// The palette of an icon: from the plate to the white of the sign, then from nothing to the plate.
constexpr std::size_t kShades = 8;
constexpr std::size_t kWhite = kShades - 1;

// Sums up a package's name: FNV-1a.
std::uint32_t HashOf(std::string_view text) {
    std::uint32_t hash = 2166136261u;
    for (const char c : text) {
        hash = (hash ^ static_cast<std::uint8_t>(c)) * 16777619u;
    }
    return hash;
}

// How much of a point lies in a shape, 0 to 1, when its middle is so many points outside the edge.
float CoveredAt(float outside) {
    return std::clamp(0.5F - outside, 0.0F, 1.0F);
}

// How far a place is outside a rectangle about the origin with round corners; negative inside.
float OutsideBox(float x, float y, float halfWidth, float halfHeight, float corner) {
    const float dx = std::abs(x) - (halfWidth - corner);
    const float dy = std::abs(y) - (halfHeight - corner);
    return std::hypot(std::max(dx, 0.0F), std::max(dy, 0.0F)) + std::min(std::max(dx, dy), 0.0F) -
           corner;
}

float OutsideSign(std::uint32_t sign, float x, float y) {
    constexpr float kReach = 28;  // from the middle of the icon
    constexpr float kThin = 7;
    constexpr float kRound = 3;
    switch (sign) {
        case 0:
            return std::abs(std::hypot(x, y) - (kReach - kThin)) - kThin;  // a ring
        case 1:
            return OutsideBox(x, y, kReach, kThin, kRound);  // a bar
        case 2:
            return std::min(OutsideBox(x, y, kReach, kThin, kRound),
                            OutsideBox(x, y, kThin, kReach, kRound));  // a cross
        default:
            return (std::abs(x) + std::abs(y) - kReach) / std::sqrt(2.0F);  // a diamond
    }
}

// `part` of `whole` parts of the way between two values.
std::uint8_t Between(std::uint8_t from, std::uint8_t to, std::size_t part, std::size_t whole) {
    return static_cast<std::uint8_t>((from * (whole - part) + to * part) / whole);
}

PngPalette PaletteOf(const PngColour& plate) {
    PngPalette palette{};
    for (std::size_t shade = 0; shade < kShades; ++shade) {
        palette[shade] = {Between(plate.red, 255, shade, kWhite),
                          Between(plate.green, 255, shade, kWhite),
                          Between(plate.blue, 255, shade, kWhite), 255};
        palette[kShades + shade] = plate;
        palette[kShades + shade].alpha = Between(0, 255, shade, kShades);
    }
    return palette;
}

// The number of a point's colour.
std::uint8_t PointAt(std::uint32_t sign, float x, float y) {
    const auto shadeOf = [](float covered, std::size_t most) {
        return static_cast<std::size_t>(std::lround(covered * static_cast<float>(most)));
    };
    const std::size_t onPlate =
        shadeOf(CoveredAt(OutsideBox(x, y, kMiddle, kMiddle, kCorner)), kShades);
    return static_cast<std::uint8_t>(onPlate < kShades
                                         ? kShades + onPlate
                                         : shadeOf(CoveredAt(OutsideSign(sign, x, y)), kWhite));
}

SharedBytes Draw(const PngColour& plate, std::uint32_t sign) {
    std::vector<std::uint8_t> points;
    points.reserve(std::size_t{kSide} * kSide);
    for (int line = 0; line < kSide; ++line) {
        for (int column = 0; column < kSide; ++column) {
            points.push_back(PointAt(sign, static_cast<float>(column) + 0.5F - kMiddle,
                                     static_cast<float>(line) + 0.5F - kMiddle));
        }
    }
    return Share(PngFile(kSide, kSide, PaletteOf(plate), points));
}

}  // namespace

SharedBytes AppIcon(std::string_view package) {
    // Each is drawn once in a process.
    static std::mutex mutex;
    static std::array<SharedBytes, kPlates.size() * kSigns> drawn;
    const std::size_t look = HashOf(package) % drawn.size();
    const std::lock_guard lock(mutex);
    SharedBytes& icon = drawn[look];
    if (!icon) {
        icon =
            Draw(kPlates[look % kPlates.size()], static_cast<std::uint32_t>(look / kPlates.size()));
    }
    return icon;
}

}  // namespace quorvi::phone

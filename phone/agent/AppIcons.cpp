#include "phone/agent/AppIcons.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <mutex>

#include "phone/agent/Png.h"

namespace quorvi::phone {
namespace {

// Lists show an icon at 48 by 48; at scale 2 each of these points is one of the screen.
constexpr int kSide = 96;
constexpr float kMiddle = kSide / 2.0F;
constexpr float kCorner = 16;

struct Colour {
    std::uint8_t red, green, blue;
};
constexpr std::array<Colour, 7> kPlates{{
    {214, 69, 65},
    {230, 126, 34},
    {39, 134, 88},
    {41, 128, 185},
    {95, 84, 162},
    {22, 132, 140},
    {88, 100, 116},
}};
constexpr std::uint32_t kSigns = 4;

// What an icon looks like, of all that there are.
struct Look {
    std::uint32_t plate, sign;
    auto operator<=>(const Look&) const = default;
};

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

std::byte Mixed(std::uint8_t plate, float white) {
    return static_cast<std::byte>(
        std::lround(static_cast<float>(plate) + static_cast<float>(255 - plate) * white));
}

SharedBytes Draw(const Look& look) {
    const Colour plate = kPlates[look.plate];
    Bytes points;
    points.reserve(std::size_t{kSide} * kSide * 4);
    for (int line = 0; line < kSide; ++line) {
        for (int column = 0; column < kSide; ++column) {
            const float x = static_cast<float>(column) + 0.5F - kMiddle;
            const float y = static_cast<float>(line) + 0.5F - kMiddle;
            const float white = CoveredAt(OutsideSign(look.sign, x, y));
            const float alpha = CoveredAt(OutsideBox(x, y, kMiddle, kMiddle, kCorner));
            for (const std::byte value :
                 {Mixed(plate.red, white), Mixed(plate.green, white), Mixed(plate.blue, white),
                  static_cast<std::byte>(std::lround(255 * alpha))}) {
                points.push_back(value);
            }
        }
    }
    return Share(PngFile(kSide, kSide, points));
}

}  // namespace

SharedBytes AppIcon(std::string_view package) {
    // Each is drawn once in a process.
    static std::mutex mutex;
    static std::map<Look, SharedBytes> drawn;
    const std::uint32_t hash = HashOf(package);
    const Look look{static_cast<std::uint32_t>(hash % kPlates.size()),
                    static_cast<std::uint32_t>(hash / kPlates.size() % kSigns)};
    const std::lock_guard lock(mutex);
    SharedBytes& icon = drawn[look];
    if (!icon) {
        icon = Draw(look);
    }
    return icon;
}

}  // namespace quorvi::phone

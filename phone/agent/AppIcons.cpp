#include "phone/agent/AppIcons.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

#include "phone/agent/Png.h"

namespace quorvi::phone {
namespace {

constexpr int kSide = 48;
constexpr int kMiddle = kSide / 2;
constexpr int kCorner = 8;

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

// Sums up a package's name: FNV-1a.
std::uint32_t HashOf(std::string_view text) {
    std::uint32_t hash = 2166136261u;
    for (const char c : text) {
        hash = (hash ^ static_cast<std::uint8_t>(c)) * 16777619u;
    }
    return hash;
}

// Whether a point lies on the plate, whose corners are round.
bool IsOnPlate(int x, int y) {
    const int dx = std::max({kCorner - x, x - (kSide - 1 - kCorner), 0});
    const int dy = std::max({kCorner - y, y - (kSide - 1 - kCorner), 0});
    return dx * dx + dy * dy <= kCorner * kCorner;
}

bool IsOnSign(std::uint32_t sign, int x, int y) {
    const int dx = std::abs(x - kMiddle);
    const int dy = std::abs(y - kMiddle);
    const int distance = dx * dx + dy * dy;
    switch (sign) {
        case 0:
            return distance <= 14 * 14 && distance >= 9 * 9;  // a ring
        case 1:
            return dx <= 14 && dy <= 4;  // a bar
        case 2:
            return (dx <= 3 && dy <= 14) || (dy <= 3 && dx <= 14);  // a cross
        default:
            return dx + dy <= 15;  // a diamond
    }
}

}  // namespace

SharedBytes AppIcon(std::string_view package) {
    const std::uint32_t hash = HashOf(package);
    const Colour plate = kPlates[hash % kPlates.size()];
    const std::uint32_t sign = hash / kPlates.size() % 4;
    Bytes points;
    points.reserve(std::size_t{kSide} * kSide * 4);
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            const Colour colour = IsOnSign(sign, x, y) ? Colour{255, 255, 255} : plate;
            const std::uint8_t alpha = IsOnPlate(x, y) ? 255 : 0;
            for (const std::uint8_t value : {colour.red, colour.green, colour.blue, alpha}) {
                points.push_back(std::byte{value});
            }
        }
    }
    return Share(PngFile(kSide, kSide, points));
}

}  // namespace quorvi::phone

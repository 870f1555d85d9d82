#include "pages/screen/OctreeQuantizer.h"

#include <algorithm>
#include <limits>

#include "pages/screen/Octree.h"

namespace quorvi {
namespace {

using Colour = IndexedPicture::Colour;

Colour ColourAt(const std::uint8_t* pixel) {
    return {pixel[0], pixel[1], pixel[2]};
}

// Calls `run(colour, pixels)` for each run of equal pixels, in the picture's order.
template <typename Run>
void ForEachRun(const RgbPicture& picture, Run run) {
    const std::uint8_t* at = picture.bytes.data();
    const std::uint8_t* const end = at + picture.bytes.size();
    while (at != end) {
        const Colour colour = ColourAt(at);
        std::size_t pixels = 0;
        do {
            ++pixels;
            at += RgbPicture::kPixelBytes;
        } while (at != end && ColourAt(at) == colour);
        run(colour, pixels);
    }
}

// Finds the colour of a palette that is nearest to another by the sum of squares. Remembers what it
// has found, since a screen shows few colours often.
class NearestColour {
  public:
    explicit NearestColour(const std::vector<Colour>& palette) : found_(kPlaces) {
        for (std::size_t i = 0; i < palette.size(); ++i) {
            byGreen_.push_back({palette[i], static_cast<std::uint8_t>(i)});
        }
        std::sort(byGreen_.begin(), byGreen_.end(),
                  [](const Entry& a, const Entry& b) { return a.colour[1] < b.colour[1]; });
        for (std::size_t green = 0, at = 0; green < starts_.size(); ++green) {
            while (at < byGreen_.size() && byGreen_[at].colour[1] < green) {
                ++at;
            }
            starts_[green] = at;
        }
    }

    std::uint8_t IndexOf(const Colour& colour) {
        const std::uint32_t key =
            std::uint32_t{colour[0]} << 16 | std::uint32_t{colour[1]} << 8 | colour[2];
        Found& found = found_[(key * 2'654'435'761U) >> (32 - kPlaceBits)];
        if (found.key != key) {
            found = {key, Search(colour)};
        }
        return found.index;
    }

  private:
    struct Entry {
        Colour colour;
        std::uint8_t index;
    };
    struct Found {
        std::uint32_t key = UINT32_MAX;
        std::uint8_t index = 0;
    };
    static constexpr unsigned kPlaceBits = 15;
    static constexpr std::size_t kPlaces = std::size_t{1} << kPlaceBits;

    static int Square(int a, int b) { return (a - b) * (a - b); }

    // Goes up and down from the colour's green until green alone is farther than the best.
    [[nodiscard]] std::uint8_t Search(const Colour& colour) const {
        int best = std::numeric_limits<int>::max();
        std::uint8_t index = 0;
        const auto isTooFar = [&](const Entry& entry) {
            const int green = Square(entry.colour[1], colour[1]);
            if (green >= best) {
                return true;
            }
            const int distance =
                green + Square(entry.colour[0], colour[0]) + Square(entry.colour[2], colour[2]);
            if (distance < best) {
                best = distance;
                index = entry.index;
            }
            return false;
        };
        const std::size_t start = starts_[colour[1]];
        for (std::size_t up = start; up < byGreen_.size() && !isTooFar(byGreen_[up]);) {
            ++up;
        }
        for (std::size_t down = start; down > 0 && !isTooFar(byGreen_[down - 1]);) {
            --down;
        }
        return index;
    }

    std::vector<Entry> byGreen_;
    std::array<std::size_t, 256> starts_{};  // the first entry of so much green or more
    std::vector<Found> found_;
};

}  // namespace

std::optional<OctreeQuantizer> OctreeQuantizer::WithLimit(std::size_t colours) {
    if (colours < kFewestPaletteColours || colours > kMostPaletteColours) {
        return std::nullopt;
    }
    return OctreeQuantizer(colours);
}

IndexedPicture OctreeQuantizer::Quantize(const RgbPicture& picture) const {
    Octree tree(limit_);
    ForEachRun(picture,
               [&](const Colour& colour, std::size_t pixels) { tree.Add(colour, pixels); });

    IndexedPicture indexed{picture.width, picture.height, {}, {}};
    if (picture.bytes.empty()) {
        return indexed;
    }
    indexed.palette = tree.Palette();
    indexed.indexes.reserve(picture.bytes.size() / RgbPicture::kPixelBytes);
    NearestColour nearest(indexed.palette);
    ForEachRun(picture, [&](const Colour& colour, std::size_t pixels) {
        indexed.indexes.insert(indexed.indexes.end(), pixels, nearest.IndexOf(colour));
    });
    return indexed;
}

}  // namespace quorvi

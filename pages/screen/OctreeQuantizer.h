// Reduces a picture to few colours, for formats that have a palette.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "pages/screen/RgbPicture.h"

namespace quorvi {

inline constexpr std::size_t kFewestPaletteColours = 8;
inline constexpr std::size_t kMostPaletteColours = 256;

struct IndexedPicture {
    using Colour = std::array<std::uint8_t, 3>;  // red, green, blue

    int width = 0;
    int height = 0;
    std::vector<Colour> palette;
    std::vector<std::uint8_t> indexes;  // of each pixel into the palette, line by line
};

// An octree over the colours of a picture, its leaves limited in number.
//
// Levels go from 7, the root, down to 0, the leaves; at each, the level's bit of red, green and
// blue chooses among eight children. Nodes that have children stand in a list by level, then by
// the pixels below them; when there are more leaves than the limit, the first of that list becomes
// a leaf in place of its children.
class OctreeQuantizer {
  public:
    // Nothing when the limit is not within kFewestPaletteColours and kMostPaletteColours. Any
    // thread.
    [[nodiscard]] static std::optional<OctreeQuantizer> WithLimit(std::size_t colours);

    // The picture in at most so many colours: the palette is the mean of each leaf, and a pixel has
    // the colour of the palette that is nearest to its own.
    [[nodiscard]] IndexedPicture Quantize(const RgbPicture& picture) const;

  private:
    explicit OctreeQuantizer(std::size_t limit) : limit_(limit) {}

    std::size_t limit_;
};

}  // namespace quorvi

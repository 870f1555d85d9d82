#include <gmock/gmock.h>

#include <algorithm>
#include <limits>
#include <random>
#include <set>

#include "pages/screen/Octree.h"
#include "pages/screen/OctreeQuantizer.h"

namespace quorvi {
namespace {

using testing::Contains;
using testing::Not;
using testing::UnorderedElementsAre;
using Colour = IndexedPicture::Colour;

// One line of these colours.
RgbPicture PictureOf(const std::vector<Colour>& colours) {
    RgbPicture picture{static_cast<int>(colours.size()), 1, {}};
    for (const Colour& colour : colours) {
        picture.bytes.insert(picture.bytes.end(), colour.begin(), colour.end());
    }
    return picture;
}

std::vector<Colour> Noise(std::size_t count) {
    std::mt19937 random(7);
    std::vector<Colour> colours(count);
    for (Colour& colour : colours) {
        for (std::uint8_t& part : colour) {
            part = static_cast<std::uint8_t>(random());
        }
    }
    return colours;
}

int Distance(const Colour& a, const Colour& b) {
    int sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        sum += (a[i] - b[i]) * (a[i] - b[i]);
    }
    return sum;
}

TEST(OctreeQuantizer, LimitOutsideEightToTwoHundredAndFiftySixIsRefused) {
    for (const std::size_t limit : {0U, 1U, 7U, 257U, 1000U}) {
        EXPECT_FALSE(OctreeQuantizer::WithLimit(limit)) << limit;
    }
    EXPECT_TRUE(OctreeQuantizer::WithLimit(8));
    EXPECT_TRUE(OctreeQuantizer::WithLimit(256));
}

TEST(OctreeQuantizer, FewColoursStayAsTheyAre) {
    const std::vector<Colour> colours{{0, 0, 0}, {255, 255, 255}, {200, 0, 2}, {0, 0, 0}};
    const IndexedPicture indexed = OctreeQuantizer::WithLimit(8)->Quantize(PictureOf(colours));
    EXPECT_EQ(indexed.width, 4);
    EXPECT_EQ(indexed.height, 1);
    EXPECT_EQ(indexed.palette.size(), 3U);
    ASSERT_EQ(indexed.indexes.size(), colours.size());
    for (std::size_t i = 0; i < colours.size(); ++i) {
        EXPECT_EQ(indexed.palette[indexed.indexes[i]], colours[i]) << i;
    }
}

TEST(OctreeQuantizer, PaletteNeverHasMoreColoursThanTheLimit) {
    for (const std::size_t limit : {8U, 9U, 100U, 256U}) {
        const IndexedPicture indexed =
            OctreeQuantizer::WithLimit(limit)->Quantize(PictureOf(Noise(20'000)));
        EXPECT_LE(indexed.palette.size(), limit);
        EXPECT_GT(indexed.palette.size(), limit / 8);
        EXPECT_LT(*std::max_element(indexed.indexes.begin(), indexed.indexes.end()),
                  indexed.palette.size());
    }
}

TEST(OctreeQuantizer, PixelHasTheNearestColourOfThePalette) {
    const std::vector<Colour> colours = Noise(5'000);
    const IndexedPicture indexed = OctreeQuantizer::WithLimit(64)->Quantize(PictureOf(colours));
    for (std::size_t i = 0; i < colours.size(); ++i) {
        int nearest = std::numeric_limits<int>::max();
        for (const Colour& colour : indexed.palette) {
            nearest = std::min(nearest, Distance(colour, colours[i]));
        }
        ASSERT_EQ(Distance(indexed.palette[indexed.indexes[i]], colours[i]), nearest) << i;
    }
}

TEST(OctreeQuantizer, PictureWithoutPixelsHasNoPalette) {
    EXPECT_TRUE(OctreeQuantizer::WithLimit(8)->Quantize(RgbPicture()).palette.empty());
}

// A leaf stands at level 0, to which the bits from the seventh down to the first lead.
TEST(Octree, LeafIsTheMeanOfColoursThatDifferInTheLowestBitAlone) {
    Octree tree(8);
    tree.Add({10, 20, 30}, 1);
    tree.Add({11, 21, 31}, 3);
    EXPECT_THAT(tree.Palette(), UnorderedElementsAre(Colour{11, 21, 31}));
    tree.Add({12, 20, 30}, 1);
    EXPECT_EQ(tree.LeafCount(), 2U);
}

TEST(Octree, NodeOfTheLowestLevelWithTheFewestPixelsIsMergedFirst) {
    Octree tree(8);
    for (const Colour& alone :
         {Colour{0, 0, 0}, Colour{255, 0, 0}, Colour{0, 255, 0}, Colour{0, 0, 255}}) {
        tree.Add(alone, 50);
    }
    // Two pairs, each below one node of level 1: the second has fewer pixels.
    tree.Add({128, 128, 128}, 20);
    tree.Add({130, 128, 128}, 20);
    tree.Add({192, 192, 192}, 10);
    tree.Add({194, 192, 192}, 10);
    EXPECT_EQ(tree.LeafCount(), 8U);
    tree.Add({255, 255, 0}, 50);
    EXPECT_EQ(tree.LeafCount(), 8U);
    EXPECT_THAT(tree.Palette(), Contains(Colour{193, 192, 192}));  // the mean of the second pair
    EXPECT_THAT(tree.Palette(), Contains(Colour{128, 128, 128}));
    EXPECT_THAT(tree.Palette(), Contains(Colour{130, 128, 128}));
    EXPECT_THAT(tree.Palette(), Not(Contains(Colour{194, 192, 192})));
}

TEST(Octree, PixelsOfOneColourCountTogetherAsTheyWouldOneByOne) {
    Octree together(32);
    Octree oneByOne(32);
    std::mt19937 random(3);
    for (Colour colour : Noise(2'000)) {
        colour[0] &= 0xF0;
        const std::uint64_t pixels = random() % 5 + 1;
        together.Add(colour, pixels);
        for (std::uint64_t i = 0; i < pixels; ++i) {
            oneByOne.Add(colour, 1);
        }
    }
    EXPECT_EQ(together.Palette(), oneByOne.Palette());
}

}  // namespace
}  // namespace quorvi

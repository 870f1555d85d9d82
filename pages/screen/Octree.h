// The tree of colours with which OctreeQuantizer works.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace quorvi {

class Octree {
  public:
    using Colour = std::array<std::uint8_t, 3>;  // red, green, blue

    explicit Octree(std::size_t limit);

    // Counts `pixels` pixels of a colour, one after the other.
    void Add(const Colour& colour, std::uint64_t pixels);

    // The mean colour of each leaf.
    [[nodiscard]] std::vector<Colour> Palette() const;
    [[nodiscard]] std::size_t LeafCount() const { return leafCount_; }

  private:
    using Index = std::uint32_t;
    static constexpr Index kNone = UINT32_MAX;
    static constexpr int kTopLevel = 7;

    struct Node {
        bool isLeaf = false;
        int level = 0;
        std::array<Index, 8> children{kNone, kNone, kNone, kNone, kNone, kNone, kNone, kNone};
        std::uint64_t pixelCount = 0;
        Index next = kNone;  // in the list of reducible nodes
        Index previous = kNone;
        std::array<std::uint64_t, 3> sums{};  // of red, green and blue; of leaves alone
    };

    [[nodiscard]] Index MakeNode(int level);
    void Descend(const Colour& colour, std::uint64_t pixels);
    void Advance(Index index);
    void Unlink(Index index);
    void LinkBehind(Index index, Index previous);
    void MergeFirst();

    std::vector<Node> nodes_;
    std::vector<Index> unused_;  // places in nodes_ of nodes that were merged away
    std::size_t limit_;
    std::size_t leafCount_ = 0;
    Index first_ = kNone;  // of the list
    Index root_;
};

}  // namespace quorvi

#include "pages/screen/Octree.h"

namespace quorvi {

Octree::Octree(std::size_t limit) : limit_(limit), root_(MakeNode(kTopLevel)) {}

void Octree::Add(const Colour& colour, std::uint64_t pixels) {
    // The first pixel may make leaves, and leaves be merged; those behind it find all as it is, so
    // that they may descend together.
    Descend(colour, 1);
    while (leafCount_ > limit_) {
        MergeFirst();
    }
    if (pixels > 1) {
        Descend(colour, pixels - 1);
    }
}

std::vector<Octree::Colour> Octree::Palette() const {
    std::vector<Colour> palette;
    std::vector<Index> waiting{root_};
    while (!waiting.empty()) {
        const Node& node = nodes_[waiting.back()];
        waiting.pop_back();
        if (node.isLeaf) {
            Colour mean{};
            for (std::size_t i = 0; i < mean.size(); ++i) {
                mean[i] = static_cast<std::uint8_t>((node.sums[i] + node.pixelCount / 2) /
                                                    node.pixelCount);
            }
            palette.push_back(mean);
            continue;
        }
        for (const Index child : node.children) {
            if (child != kNone) {
                waiting.push_back(child);
            }
        }
    }
    return palette;
}

Octree::Index Octree::MakeNode(int level) {
    Index index = static_cast<Index>(nodes_.size());
    if (unused_.empty()) {
        nodes_.emplace_back();
    } else {
        index = unused_.back();
        unused_.pop_back();
        nodes_[index] = Node();
    }
    nodes_[index].level = level;
    if (level == 0) {
        nodes_[index].isLeaf = true;
        ++leafCount_;
    } else {
        LinkBehind(index, kNone);
    }
    return index;
}

void Octree::Descend(const Colour& colour, std::uint64_t pixels) {
    Index index = root_;
    for (;;) {
        nodes_[index].pixelCount += pixels;
        if (nodes_[index].isLeaf) {
            for (std::size_t i = 0; i < colour.size(); ++i) {
                nodes_[index].sums[i] += pixels * colour[i];
            }
            return;
        }
        Advance(index);
        const int level = nodes_[index].level;
        const auto bit = [&](std::size_t i) { return std::size_t{colour[i]} >> level & 1U; };
        const std::size_t branch = bit(0) * 4 + bit(1) * 2 + bit(2);
        Index child = nodes_[index].children[branch];
        if (child == kNone) {
            child = MakeNode(level - 1);
            nodes_[index].children[branch] = child;
        }
        index = child;
    }
}

// Moves a node along the list, up to the first of a higher level, or of its level with more pixels.
void Octree::Advance(Index index) {
    const Node& node = nodes_[index];
    Index behind = kNone;
    for (Index next = node.next; next != kNone; next = nodes_[next].next) {
        const Node& other = nodes_[next];
        if (other.level > node.level ||
            (other.level == node.level && other.pixelCount > node.pixelCount)) {
            break;
        }
        behind = next;
    }
    if (behind != kNone) {
        Unlink(index);
        LinkBehind(index, behind);
    }
}

void Octree::Unlink(Index index) {
    Node& node = nodes_[index];
    (node.previous == kNone ? first_ : nodes_[node.previous].next) = node.next;
    if (node.next != kNone) {
        nodes_[node.next].previous = node.previous;
    }
    node.next = kNone;
    node.previous = kNone;
}

// Behind kNone is the list's start.
void Octree::LinkBehind(Index index, Index previous) {
    Node& node = nodes_[index];
    Index& place = previous == kNone ? first_ : nodes_[previous].next;
    node.previous = previous;
    node.next = place;
    if (node.next != kNone) {
        nodes_[node.next].previous = index;
    }
    place = index;
}

void Octree::MergeFirst() {
    const Index index = first_;
    Unlink(index);
    Node& node = nodes_[index];
    for (Index& child : node.children) {
        if (child == kNone) {
            continue;
        }
        // What stands first has the lowest level, so that its children are leaves.
        for (std::size_t i = 0; i < node.sums.size(); ++i) {
            node.sums[i] += nodes_[child].sums[i];
        }
        unused_.push_back(child);
        child = kNone;
        --leafCount_;
    }
    node.isLeaf = true;
    ++leafCount_;
}

}  // namespace quorvi

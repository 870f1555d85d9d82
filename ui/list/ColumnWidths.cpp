#include "ui/list/ColumnWidths.h"

#include <algorithm>
#include <charconv>

namespace quorvi {
namespace {

// Of a column that the user drags: room for its head.
constexpr int kLeast = 2 * look::Metric::header;
constexpr int kMost = 10'000;

// Whether more room shows more of what the column holds.
bool HoldsWords(CellKind kind) {
    switch (kind) {
        case CellKind::text:
        case CellKind::twoLines:
        case CellKind::twoSmallLines:
        case CellKind::captioned:
        case CellKind::twoLinesLink:
        case CellKind::link:
        case CellKind::iconText:
        case CellKind::state:
        case CellKind::progress:
            return true;
        default:
            return false;
    }
}

}  // namespace

ColumnWidths::ColumnWidths(std::span<const ListColumn> columns) : columns_(columns) {
    for (int i = 0; i < Count(); ++i) {
        given_.push_back(Told(i));
        if (Told(i) != 0 && (rest_ < 0 || !columns_[static_cast<std::size_t>(rest_)].name)) {
            rest_ = i;
        }
    }
}

int ColumnWidths::Told(int column) const {
    return columns_[static_cast<std::size_t>(column)].width;
}

int ColumnWidths::Least(int column) const {
    return Moves(column) || column == rest_ ? std::min(Told(column), kLeast) : Told(column);
}

bool ColumnWidths::Moves(int column) const {
    return column != rest_ && Told(column) != 0 &&
           HoldsWords(columns_[static_cast<std::size_t>(column)].kind);
}

bool ColumnWidths::AreTold() const {
    for (int i = 0; i < Count(); ++i) {
        if (given_[static_cast<std::size_t>(i)] != Told(i)) {
            return false;
        }
    }
    return true;
}

std::vector<int> ColumnWidths::Laid(int room) const {
    std::vector<int> widths = given_;
    if (rest_ < 0) {
        return widths;
    }
    int& rest = widths[static_cast<std::size_t>(rest_)];
    rest = room;
    for (int i = 0; i < Count(); ++i) {
        rest -= i == rest_ ? 0 : widths[static_cast<std::size_t>(i)];
    }
    // Untouched columns are as they are told, but for what a narrow list needs them to give.
    const int least = AreTold() ? std::max(Least(rest_), Told(rest_) / 2) : Least(rest_);
    for (int i = Count() - 1; i >= 0 && rest < least; --i) {
        int& width = widths[static_cast<std::size_t>(i)];
        if (i != rest_ && width > Told(i)) {
            const int cut = std::min(least - rest, width - Told(i));
            width -= cut;
            rest += cut;
        }
    }
    rest = std::max(rest, least);
    return widths;
}

std::vector<int> ColumnWidths::Beyond(int border) const {
    std::vector<int> columns;
    if (rest_ <= border) {
        for (int i = border + 1; i < Count(); ++i) {
            columns.push_back(i);
        }
    } else {
        for (int i = border; i >= 0; --i) {
            columns.push_back(i);
        }
    }
    return columns;
}

int ColumnWidths::MovedBy(int border) const {
    const std::vector<int> beyond = Beyond(border);
    const auto found = std::ranges::find_if(beyond, [this](int column) { return Moves(column); });
    return found == beyond.end() ? -1 : *found;
}

void ColumnWidths::Drag(int border, const std::vector<int>& laid, int by) {
    const int moved = MovedBy(border);
    if (moved < 0) {
        return;
    }
    std::vector<int> widths = laid;
    const auto at = [&widths](int column) -> int& {
        return widths[static_cast<std::size_t>(column)];
    };
    int wider = rest_ <= border ? by : -by;  // of the column that takes the rest
    if (wider < 0) {
        at(moved) += std::min(-wider, at(rest_) - Least(rest_));
    }
    for (const int column : Beyond(border)) {
        if (wider > 0 && Moves(column)) {
            const int taken = std::min(wider, std::max(at(column) - Least(column), 0));
            at(column) -= taken;
            wider -= taken;
        }
    }
    at(rest_) = Told(rest_);
    given_ = std::move(widths);
}

void ColumnWidths::Restore(int column) {
    given_[static_cast<std::size_t>(column)] = Told(column);
}

void ColumnWidths::RestoreAll() {
    for (int i = 0; i < Count(); ++i) {
        Restore(i);
    }
}

std::string ColumnWidths::Text() const {
    std::string text;
    if (!AreTold()) {
        for (const int width : given_) {
            text += (text.empty() ? "" : " ") + std::to_string(width);
        }
    }
    return text;
}

bool ColumnWidths::Read(std::string_view text) {
    std::vector<int> widths;
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end) {
        int width = 0;
        const auto [next, error] = std::from_chars(at, end, width);
        const int column = static_cast<int>(widths.size());
        if (error != std::errc() || column >= Count() || (next != end && *next != ' ')) {
            return false;
        }
        if (Moves(column) ? width < Least(column) || width > kMost : width != Told(column)) {
            return false;
        }
        widths.push_back(width);
        at = next == end ? next : next + 1;
    }
    if (static_cast<int>(widths.size()) != Count()) {
        return false;
    }
    given_ = std::move(widths);
    return true;
}

}  // namespace quorvi

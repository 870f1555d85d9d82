// How well an ink reads on a ground.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "ui/list/SkinListCtrl.h"
#include "ui/look/Look.h"

namespace quorvi {

// The least contrast at which text is read.
inline constexpr double kReadable = 4.5;

[[nodiscard]] inline double Luminance(QRgb rgb) {
    const auto linear = [](int channel) {
        const double c = channel / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(rgb)) + 0.7152 * linear(qGreen(rgb)) + 0.0722 * linear(qBlue(rgb));
}

[[nodiscard]] inline double ContrastOf(const QColor& a, const QColor& b) {
    const double x = Luminance(a.rgb());
    const double y = Luminance(b.rgb());
    return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

[[nodiscard]] inline double Contrast(look::Color a, look::Color b) {
    return ContrastOf(look::color(a), look::color(b));
}

// Expects each text of a list to be read on every ground that a row can have.
inline void ExpectReadableRows(const CSkinListCtrl& list) {
    using enum look::Color;
    for (int row = 0; row < list.RowCount(); ++row) {
        for (int column = 0; column < list.ColumnCount(); ++column) {
            const Cell cell = list.CellAt(row, column);
            for (const look::Color ground : {surface, rowLight, rowHover, rowSelected}) {
                EXPECT_GE(Contrast(cell.ink, ground), kReadable) << row << ' ' << column;
                EXPECT_GE(Contrast(cell.secondInk, ground), kReadable) << row << ' ' << column;
            }
        }
    }
}

}  // namespace quorvi

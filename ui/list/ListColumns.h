// What a list of the kit is told: its columns, the contents of a cell, and whom to tell of a link.
#pragma once

#include <QIcon>
#include <QString>
#include <cstdint>
#include <span>
#include <string_view>

#include "ui/look/Look.h"

namespace quorvi {

// How a cell is drawn and what a click on it means.
enum class CellKind : std::uint8_t {
    text,           // one line
    twoLines,       // a line of 13 above one of 12
    twoSmallLines,  // two lines of 12
    captioned,      // the first line in the second ink, and the second beside it in the first
    twoLinesLink,   // two lines of 12, the second being a link
    link,           // one line, a link
    imageLink,      // an icon that is a link
    picture,        // the row's picture, 48 by 48
    icon,           // a named icon alone
    iconText,       // a named icon with a line beside it
    plate,          // a named icon on a rounded square of its own
    state,          // a dot before a line
    star,           // a star, filled when the cell's value is not 0
    rating,         // five stars, filled by the cell's value 0 to 5; any other value counts as 0
    progress,       // a progress bar when the cell's value is 0 to 100, else the text
    check,          // the row's tick box; a click anywhere in the cell flips it
};

enum class CellAlign : std::uint8_t { centre, left };

// Something that a list is sorted by: see ListSort.
struct SortKey {
    int key;                     // of the ranks that the list is given
    std::u8string_view caption;  // the part of the column's caption that is clicked for it
    // Its two orders, as a menu offers them and as they are read out.
    std::u8string_view up;
    std::u8string_view down;
};

// One column. A width of 0 hides it.
struct ListColumn {
    std::u8string_view caption;
    int width;
    CellKind kind = CellKind::text;
    CellAlign align = CellAlign::centre;  // of the caption
    CellAlign cells = align;              // of the cells, where they stand otherwise
    int link = 0;                         // what the observer hears as `kind` of this column's link
    // The column of names, of which a list has one at most: it takes the width that the others
    // leave, and is the one in which typed letters are looked for and from which a row is named.
    bool name = false;
    // What a row's picture is said to be, read out as 有照片 or 没有照片.
    std::u8string_view holds = u8"照片";
    // Its links lead nowhere: the cursor shows a hand over them, and a screen reader is told that
    // the cells are empty.
    bool dead = false;
    // What a click on its head sorts by, in the order in which the caption names them.
    std::span<const SortKey> sorts = {};
    // Of a tick column: a click on its head does nothing.
    bool deadHead = false;
};

// The contents of a cell.
struct Cell {
    QString text = {};
    QString second = {};
    look::Color ink = look::Color::ink;
    look::Color secondInk = look::Color::ink2;
    QString icon = {};  // a name of look::icon, or in a picture column of look::picture
    look::Color iconInk = look::Color::plum6;  // of a state, its dot
    int iconSide = look::Metric::rowIcon;      // of an icon that stands on no plate
    int value = -1;                            // star, rating, progress
    // Of a plate: drawn like what is switched off. Of a state: an empty ring in place of the dot.
    // Of a link: a text that leads nowhere.
    bool off = false;
    // What is to be known of the cell beside what it shows: its tool tip says it, and it is read
    // out.
    QString note = {};
    QIcon themeIcon = {};  // with a line beside it, drawn in the place of `icon`; null for none
};

// The picture of a row.
struct RowPicture {
    std::uint64_t id = 0;         // the record's own, the same for as long as the picture is
    std::string_view bytes = {};  // an image file; empty for none
    // The icon on the plate, or without one the picture, drawn in place of none or a broken one.
    std::u16string_view plate = {};
    std::u16string_view fallback = u"default-head";
    bool rounded = true;  // a photo, cropped to a rounded square; an icon is fitted in
};

// Told of clicks on links in cells.
class ListObserver {
  public:
    virtual ~ListObserver() = default;
    // `kind` is 0 for the list's first link column and 1 for its second.
    virtual void OnLinkClicked(int kind, int row) = 0;
};

}  // namespace quorvi

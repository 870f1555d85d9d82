#include "pages/bookmarks/BookmarkListCtrl.h"

#include <array>
#include <bit>

#include "base/ByteText.h"
#include "ui/kit/QtText.h"

namespace quorvi {

using look::Color;
using look::Metric;

namespace {

enum Column {
    columnThumbnail,
    columnTitle,
    columnStore,
    columnVisits,
    columnLastVisit,
    columnOpen,
    columnTick
};

constexpr std::array<ListColumn, 7> kColumns{{
    {.caption = u8"缩略图", .width = 60, .kind = CellKind::picture, .holds = u8"缩略图"},
    {.caption = u8"名称和网址", .width = 246, .kind = CellKind::twoLines, .name = true},
    {u8"存储状态", 120},
    {u8"计数", 44},
    {u8"上次访问时间、间隔", 160, CellKind::text, CellAlign::left},
    {u8"立即访问", 66, CellKind::imageLink},
    {u8"选择", 44, CellKind::check},
}};

}  // namespace

CBookmarkListCtrl::CBookmarkListCtrl(QWidget* parent)
    : PhoneListCtrl(kColumns, Metric::rowTall, parent) {}

Cell CBookmarkListCtrl::CellOf(const BookmarkRow& row, int column) const {
    switch (column) {
        case columnTitle:
            return {.text = ToShownQString(row.title), .second = ToShownQString(row.url)};
        case columnStore:
            return {.text = ToQString(kPhoneBookmarkStore)};
        case columnVisits:
            return {.text = ToQString(BookmarkVisitsText(row.visits))};
        case columnLastVisit:
            return {.text = ToQString(row.lastVisit)};
        case columnOpen:
            if (row.url.empty()) {
                return {};
            }
            return {.icon = QStringLiteral("open-external"),
                    .iconInk = Color::blue,
                    .iconSide = Metric::iconTab};
        default:
            return {};
    }
}

RowPicture CBookmarkListCtrl::PictureOf(const BookmarkRow& row) const {
    const auto thumbnail = row.thumbnail.Bytes();
    // Its address in the reply is what the picture is cached by: it is unique as long as the rows
    // stand, while a phone may give two bookmarks one id.
    return {.id = std::bit_cast<std::uintptr_t>(thumbnail.data()),
            .bytes = AsText(thumbnail),
            .plate = u"file-web"};
}

}  // namespace quorvi

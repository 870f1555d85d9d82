#include "pages/contacts/ContactListCtrl.h"

#include <array>
#include <bit>

#include "base/ByteText.h"
#include "ui/kit/QtText.h"

namespace quorvi {

using look::Color;

namespace {

enum Column { columnPhoto, columnContact, columnFavourite, columnLastContact, columnTick };

constexpr std::array<ListColumn, 5> kColumns{{
    {u8"头像", 60, CellKind::picture},
    {.caption = u8"联系人",
     .width = 140,
     .kind = CellKind::twoLines,
     .cells = CellAlign::left,
     .name = true},
    {u8"收藏", 44, CellKind::star},
    {u8"上次联系时间、归属地", 150, CellKind::twoSmallLines, CellAlign::left, CellAlign::centre},
    {u8"选择", 44, CellKind::check},
}};

}  // namespace

CContactListCtrl::CContactListCtrl(QWidget* parent)
    : PhoneListCtrl(kColumns, look::Metric::rowTall, parent) {}

Cell CContactListCtrl::CellOf(const ContactListRow& row, int column) const {
    switch (column) {
        case columnContact:
            return {.text = ToShownQString(row.name), .second = ToShownQString(row.number)};
        case columnFavourite:
            return {.value = row.favourite ? 1 : 0};
        case columnLastContact:
            return {.text = ToShownQString(row.lastContact),
                    .second = ToShownQString(row.attribution),
                    .secondInk = Color::red};
        default:
            return {};
    }
}

RowPicture CContactListCtrl::PictureOf(const ContactListRow& row) const {
    const auto photo = row.photo.Bytes();
    // Its address in the reply is what the picture is cached by: it is unique as long as the rows
    // stand, while a phone may give two contacts one id.
    return {.id = std::bit_cast<std::uintptr_t>(photo.data()), .bytes = AsText(photo)};
}

}  // namespace quorvi

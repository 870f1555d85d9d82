#include "pages/contacts/ContactListCtrl.h"

#include <array>
#include <bit>
#include <utility>

#include "base/ByteText.h"
#include "ui/kit/QtText.h"
#include "ui/list/ListSort.h"

namespace quorvi {

using look::Color;

namespace {

enum Column { columnPhoto, columnContact, columnFavourite, columnLastContact, columnTick };

constexpr std::array<SortKey, 1> kNameSorts{{
    {contactsByName, u8"联系人", u8"姓名拼音 A → Z", u8"姓名拼音 Z → A"},
}};
constexpr std::array<SortKey, 2> kTimeSorts{{
    {contactsByTime, u8"上次联系时间", u8"上次联系 从早到晚", u8"上次联系 从晚到早"},
    {contactsByAttribution, u8"归属地", u8"归属地 A → Z", u8"归属地 Z → A"},
}};

constexpr std::array<ListColumn, 5> kColumns{{
    {u8"头像", 60, CellKind::picture},
    {.caption = u8"联系人",
     .width = 140,
     .kind = CellKind::twoLines,
     .cells = CellAlign::left,
     .name = true,
     .sorts = kNameSorts},
    {u8"收藏", 44, CellKind::star},
    {.caption = u8"上次联系时间、归属地",
     .width = 150,
     .kind = CellKind::twoSmallLines,
     .align = CellAlign::left,
     .cells = CellAlign::centre,
     .sorts = kTimeSorts},
    {u8"选择", 44, CellKind::check},
}};

}  // namespace

CContactListCtrl::CContactListCtrl(QWidget* parent)
    : PhoneListCtrl(kColumns, look::Metric::rowTall, parent) {
    EnableSort();
}

void CContactListCtrl::Show(RankedContacts list) {
    std::vector<std::vector<RowRank>> ranks = std::move(list.ranks);
    PhoneListCtrl::Show(std::move(list));
    Sorting()->SetRanks(std::move(ranks));
}

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

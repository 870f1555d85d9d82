#include "pages/calls/CallLogListCtrl.h"

#include <algorithm>
#include <array>
#include <utility>

#include "ui/kit/QtText.h"

namespace quorvi {

using look::Color;

namespace {

enum Column {
    columnHead,
    columnContact,
    columnType,
    columnDuration,
    columnTime,
    columnTick,
    columnId
};

constexpr std::array<ListColumn, 7> kColumns{{
    {u8"头像", 60, CellKind::picture},
    {.caption = u8"联系人",
     .width = 160,
     .kind = CellKind::twoLines,
     .cells = CellAlign::left,
     .name = true},
    {u8"类型", 110, CellKind::iconText},
    {u8"通话用时", 140},
    {u8"上次联系时间、归属地", 200, CellKind::twoSmallLines, CellAlign::left},
    {u8"选择", 44, CellKind::check},
    {u8"", 0},  // hidden: the call's id
}};

// How a type is marked.
struct TypeMark {
    std::uint32_t type;
    QStringView icon;
    Color ink;
};
constexpr std::array<TypeMark, 3> kTypeMarks{{
    {1, u"call-in", Color::green},
    {2, u"call-out", Color::blue},
    {3, u"call-missed", Color::red},
}};
// One that is not known: a receiver without an arrow.
constexpr TypeMark kUnknownType{0, u"call", Color::ink2};

Cell TypeCell(std::uint32_t type) {
    const auto* known = std::ranges::find(kTypeMarks, type, &TypeMark::type);
    const TypeMark& mark = known == kTypeMarks.end() ? kUnknownType : *known;
    return {
        .text = ToQString(CallTypeText(type)), .icon = mark.icon.toString(), .iconInk = mark.ink};
}

}  // namespace

CCallLogListCtrl::CCallLogListCtrl(QWidget* parent)
    : PhoneListCtrl(kColumns, look::Metric::rowTall, parent) {}

std::vector<std::uint32_t> CCallLogListCtrl::IdsOf(const std::vector<int>& rows) const {
    std::vector<std::uint32_t> ids;
    for (const int row : rows) {
        ids.push_back(CallIdOf(FromQString(CellAt(row, columnId).text)));
    }
    return ids;
}

Cell CCallLogListCtrl::CellOf(const CallLogRow& row, int column) const {
    switch (column) {
        case columnContact:
            return {.text = ToShownQString(row.name), .second = ToShownQString(row.number)};
        case columnType:
            return TypeCell(row.type);
        case columnDuration:
            return {.text = ToQString(row.duration)};
        case columnTime:
            return {.text = ToQString(row.time),
                    .second = ToShownQString(row.attribution),
                    .secondInk = Color::red};
        case columnId:
            return {.text = ToQString(CallIdText(row.id))};
        default:
            return {};
    }
}

Cell CCallLogListCtrl::MarkedCell(const CallLogRow& row, int column) const {
    return column == columnId ? CellOf(row, column) : Cell();
}

}  // namespace quorvi

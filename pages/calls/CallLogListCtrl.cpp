#include "pages/calls/CallLogListCtrl.h"

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

// How a type is marked; one that is not known has no mark.
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

Cell TypeCell(std::uint32_t type) {
    const QString text = ToQString(CallTypeText(type));
    for (const TypeMark& mark : kTypeMarks) {
        if (mark.type == type) {
            return {.text = text, .icon = mark.icon.toString(), .iconInk = mark.ink};
        }
    }
    return {.text = text};
}

}  // namespace

CCallLogListCtrl::CCallLogListCtrl(QWidget* parent)
    : PhoneListCtrl(kColumns, look::Metric::rowTall, parent) {}

std::vector<std::uint32_t> CCallLogListCtrl::TickedIds() const {
    std::vector<std::uint32_t> ids;
    for (const int row : TickedRows()) {
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

#include "pages/alarms/AlarmListCtrl.h"

#include <array>

#include "pages/alarms/AlarmDays.h"
#include "ui/kit/QtText.h"

namespace quorvi {

using look::Color;

namespace {

enum Column {
    columnSign,
    columnLabel,
    columnRepeat,
    columnTone,
    columnVibrate,
    columnState,
    columnTick
};

constexpr std::array<ListColumn, 7> kColumns{{
    {u8"图例", 54, CellKind::plate},
    {.caption = u8"标题和时间", .width = 150, .kind = CellKind::twoLines, .name = true},
    {u8"闹铃周期 (星期)", 170, CellKind::twoLines},
    {u8"闹铃音乐", 130},
    {u8"振动提醒", 80, CellKind::text, CellAlign::left},
    {u8"状态", 100, CellKind::state},
    {.caption = u8"选择", .width = 44, .kind = CellKind::check, .deadHead = true},
}};

}  // namespace

CAlarmListCtrl::CAlarmListCtrl(QWidget* parent)
    : PhoneListCtrl(kColumns, look::Metric::rowTall, parent) {}

Cell CAlarmListCtrl::CellOf(const AlarmRow& row, int column) const {
    switch (column) {
        case columnSign:
            return {.icon = QStringLiteral("alarms"), .off = !row.enabled};
        case columnLabel:
            return {.text = ToShownQString(row.label),
                    .second = ToQString(AlarmTimeText(row.hour, row.minute))};
        case columnRepeat:
            return {.text = ToQString(AlarmRepeatText(row.days)),
                    .second = ToQString(AlarmRepetitionText(row.days))};
        case columnTone:
            return {.text = ToShownQString(row.tone)};
        case columnVibrate:
            return {.text = ToQString(AlarmVibrateText(row.vibrate)),
                    .ink = row.vibrate ? Color::ink : Color::ink2};
        case columnState:
            return {.text = ToQString(AlarmStateText(row.enabled)),
                    .ink = row.enabled ? Color::green : Color::ink2,
                    .iconInk = Color::greenMark,
                    .off = !row.enabled};
        default:
            return {};
    }
}

Cell CAlarmListCtrl::MarkedCell(const AlarmRow& row, int column) const {
    return column == columnRepeat ? Cell{.second = ToQString(AlarmRepetitionText(row.days))}
                                  : Cell();
}

}  // namespace quorvi

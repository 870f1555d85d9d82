#include "pages/calendar/CalendarPage.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "pages/calendar/CalendarGrid.h"
#include "refdata/LunarCalendar.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinLabels.h"
#include "ui/kit/SkinPanels.h"
#include "ui/look/Look.h"

namespace quorvi {

using look::Color;
using look::Metric;
using look::Size;

namespace {

constexpr int kGrid = 1102;
constexpr int kYearBox = 1103;
constexpr int kMonthBox = 1104;
constexpr int kDayBox = 1105;
constexpr int kWeekdayLabel = 1106;
constexpr int kTodayButton = 1107;
constexpr int kLunarLine = 1108;
constexpr int kBackButton = 1111;
constexpr int kForwardButton = 1112;

constexpr int kMonths = 12;

QLabel* MakeText(int number, std::u8string_view text, Size size, bool bold, Color color,
                 QWidget* parent) {
    return SetControlNumber(new PlainLabel(ToQString(text), size, color, parent, bold), number);
}

void Fill(QComboBox& box, const QStringList& entries, int selected) {
    box.clear();
    box.addItems(entries);
    // An index beyond the list selects nothing.
    box.setCurrentIndex(selected < box.count() ? selected : -1);
}

QStringList Numbers(int first, int last) {
    QStringList numbers;
    for (int number = first; number <= last; ++number) {
        numbers.append(QString::number(number));
    }
    return numbers;
}

QStringList MonthNames() {
    QStringList names;
    for (int month = 1; month <= kMonths; ++month) {
        names.append(ToQString(MonthName(month)));
    }
    return names;
}

}  // namespace

CalendarPage::CalendarPage(PageHost& host, QWidget* parent, std::function<CalendarDate()> today)
    : Page(host, kNumbers.dialog, parent),
      today_(std::move(today)),
      years_(SetControlNumber(new CSkinCombo, kYearBox, ToQString(u8"年"))),
      months_(SetControlNumber(new CSkinCombo, kMonthBox, ToQString(u8"月"))),
      days_(SetControlNumber(new CSkinCombo, kDayBox, ToQString(u8"日"))),
      grid_(SetControlNumber(new CalendarGrid(today_), kGrid, ToQString(u8"日历"))),
      weekday_(MakeText(kWeekdayLabel, u8"星期", Size::s16, true, Color::plum7, this)),
      line_(MakeText(kLunarLine, u8"农历", Size::s13, false, Color::ink, this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Metric::formGap);
    layout->addWidget(MakeBar());
    layout->addWidget(grid_, 1);
    layout->addWidget(MakePanel());
    for (const CSkinCombo* box : {years_, months_, days_}) {
        connect(box, &QComboBox::activated, this, [this] { ShowDate(SelectedDate()); });
    }
    connect(grid_, &CalendarGrid::dayChosen, this,
            [this](int year, int month, int day) { ShowDate(year, month, day); });
    ShowDate(today_());
}

QWidget* CalendarPage::MakeBar() {
    auto* bar = new QWidget(this);
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Metric::gap2);
    years_->setFixedWidth(Metric::calendarYearWidth);
    months_->setFixedWidth(Metric::calendarYearWidth);
    days_->setFixedWidth(Metric::calendarDayWidth);

    const auto addButton = [&](int number, std::u8string_view text) {
        auto* button = new CSkinButton(ToQString(text), bar);
        layout->addWidget(SetControlNumber(button, number, ToQString(text)));
        return button;
    };
    layout->addWidget(years_);
    layout->addWidget(months_);
    layout->addWidget(days_);
    layout->addSpacing(Metric::gap2);
    auto* toToday = addButton(kTodayButton, u8"转到今日");
    toToday->SetImage(QStringLiteral("calendar"));
    layout->addStretch(1);
    auto* back = addButton(kBackButton, u8"< 向前");
    auto* forward = addButton(kForwardButton, u8"向后 >");
    connect(toToday, &QAbstractButton::clicked, this, [this] { ShowDate(today_()); });
    connect(back, &QAbstractButton::clicked, this, [this] { Step(-1); });
    connect(forward, &QAbstractButton::clicked, this, [this] { Step(1); });
    return bar;
}

QWidget* CalendarPage::MakePanel() {
    auto* panel = new SkinPanel(this);
    panel->setFixedHeight(Metric::calendarPanel);
    auto* layout = new QHBoxLayout(panel);
    layout->setContentsMargins(Metric::gap5, 0, Metric::gap5, 0);
    layout->setSpacing(Metric::gap4);
    layout->addWidget(weekday_);
    layout->addWidget(new PanelRule(Qt::Vertical, Metric::calendarPanelRule, panel));
    layout->addWidget(line_, 1);
    return panel;
}

void CalendarPage::ShowDate(int year, int month, int day) {
    Fill(*years_, Numbers(kFirstCalendarYear, kLastCalendarYear), year - kFirstCalendarYear);
    Fill(*months_, MonthNames(), month - 1);
    Fill(*days_, Numbers(1, GregorianMonthDays(year, month)), day - 1);
    const CalendarDate date{year, month, day};
    weekday_->setText(ToQString(WeekdayName(WeekdayOf(date))));
    line_->setText(ToQString(LunarLine(date)));
    grid_->SetMonthDate(year, month, day);
}

CalendarDate CalendarPage::SelectedDate() const {
    return {years_->currentIndex() + kFirstCalendarYear, months_->currentIndex() + 1,
            days_->currentIndex() + 1};
}

// Beyond the years of the first box there is nowhere to go.
void CalendarPage::Step(int days) {
    if (const auto date = StepBySeconds(SelectedDate(), days)) {
        ShowDate(*date);
    }
}

}  // namespace quorvi

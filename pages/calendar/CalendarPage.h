// Page 14: a month of days, each with its lunar day, solar term or festival, and the chosen day in
// words.
#pragma once

#include <QLabel>
#include <functional>

#include "pages/kit/PageNumbers.h"
#include "refdata/CalendarMonth.h"
#include "ui/kit/SkinFields.h"
#include "ui/page/Page.h"

namespace quorvi {

class CalendarGrid;

// Dialog 404. Needs no phone.
class CalendarPage : public Page {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kCalendarPage;

    // `today` is asked when the page is made, at 转到今日, and for the mark in the grid.
    explicit CalendarPage(PageHost& host, QWidget* parent = nullptr,
                          std::function<CalendarDate()> today = Today);

    // Fills the three boxes anew and selects the date in them, writes the weekday and the lunar
    // line, and hands the date to the grid. A day that the month does not have selects nothing.
    void ShowDate(int year, int month, int day);

  private:
    void ShowDate(const CalendarDate& date) { ShowDate(date.year, date.month, date.day); }
    // What the three boxes say; 0 for a day that is not selected.
    [[nodiscard]] CalendarDate SelectedDate() const;
    void Step(int days);
    [[nodiscard]] QWidget* MakeBar();
    [[nodiscard]] QWidget* MakePanel();

    std::function<CalendarDate()> today_;
    CSkinCombo* years_;
    CSkinCombo* months_;
    CSkinCombo* days_;
    CalendarGrid* grid_;
    QLabel* weekday_;
    QLabel* line_;
};

}  // namespace quorvi

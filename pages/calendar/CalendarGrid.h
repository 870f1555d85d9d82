// The grid of the calendar page: a month in weeks, each day with its number and a second line.
#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <functional>

#include "refdata/CalendarMonth.h"

namespace quorvi {

// The days of one month, seven columns; cells of other months are empty and cannot be chosen.
class CalendarModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    enum Role { roleDay = Qt::UserRole, roleNote, roleMarked, roleToday };

    CalendarModel(std::function<CalendarDate()> today, QObject* parent);

    void SetMonth(const CalendarMonth& month);
    [[nodiscard]] const CalendarMonth& Month() const { return month_; }
    [[nodiscard]] std::optional<CalendarDate> DateAt(const QModelIndex& index) const;
    [[nodiscard]] QModelIndex IndexOf(int day) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    [[nodiscard]] QString Spoken(const CalendarDate& date) const;

    std::function<CalendarDate()> today_;
    CalendarMonth month_;
};

// Control 1102. A click, an arrow key, Home, End or a page key chooses a day; an arrow goes on into
// the neighbouring month.
class CalendarGrid : public QTableView {
    Q_OBJECT
  public:
    explicit CalendarGrid(std::function<CalendarDate()> today, QWidget* parent = nullptr);

    // Shows the month and marks the day, or no day if the month does not have it.
    void SetMonthDate(int year, int month, int day);

    // All weeks of the month, each as high as the two lines of its days.
    [[nodiscard]] QSize minimumSizeHint() const override;

  Q_SIGNALS:
    // The user chose another day. Nothing is marked before SetMonthDate is called.
    void dayChosen(int year, int month, int day);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& before) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

  private:
    void Choose(const CalendarDate& date);

    CalendarModel* model_;
    CalendarDate shown_;
    bool showing_ = false;  // SetMonthDate runs: what is chosen is not the user's
};

}  // namespace quorvi

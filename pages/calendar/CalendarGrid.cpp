#include "pages/calendar/CalendarGrid.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include "refdata/LunarCalendar.h"
#include "ui/kit/QtText.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Look.h"

namespace quorvi {

using look::Color;
using look::Metric;
using look::Size;

namespace {

// The first and the last column are the week's end.
bool IsWeekend(int column) {
    return column == 0 || column == kWeekDays - 1;
}

class WeekHeader : public QHeaderView {
  public:
    explicit WeekHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
        setSectionsClickable(false);
        setHighlightSections(false);
        setMinimumSectionSize(0);
        setSectionResizeMode(QHeaderView::Stretch);
        setFont(look::font(Size::s12));
        setFocusPolicy(Qt::NoFocus);
    }
    [[nodiscard]] QSize sizeHint() const override {
        return {QHeaderView::sizeHint().width(), Metric::header};
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(viewport());
        const QRect all = viewport()->rect();
        look::fill(painter, all, look::color(Color::chrome2));
        look::bottomLine(painter, all, look::color(Color::line2));
        painter.setFont(font());
        for (int i = 0; i < count(); ++i) {
            painter.setPen(look::color(IsWeekend(i) ? Color::red : Color::ink2));
            painter.drawText(QRect(sectionViewportPosition(i), 0, sectionSize(i), all.height()),
                             Qt::AlignCenter,
                             model()->headerData(i, Qt::Horizontal, Qt::DisplayRole).toString());
        }
    }
};

class DayDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        PaintLines(*painter, option.rect, index);
        if (!index.flags().testFlag(Qt::ItemIsEnabled)) {
            return;
        }
        const bool chosen = option.state.testFlag(QStyle::State_Selected);
        if (chosen) {
            PaintChosen(*painter, option.rect);
        } else if (option.state.testFlag(QStyle::State_MouseOver)) {
            look::fill(*painter, Inside(option.rect), look::color(Color::rowHover));
        }
        PaintTexts(*painter, option.rect, index, chosen);
        if (index.data(CalendarModel::roleToday).toBool()) {
            PaintToday(*painter, option.rect);
        }
        if (chosen && FocusRing::ShownOn(option.widget)) {
            look::innerRing(*painter, Inside(option.rect));
        }
    }

  private:
    // A cell without the lines at its right and its foot.
    static QRect Inside(const QRect& cell) {
        return cell.adjusted(0, 0, -Metric::hairline, -Metric::hairline);
    }
    static void PaintLines(QPainter& painter, const QRect& cell, const QModelIndex& index) {
        look::fill(painter, cell, look::color(Color::surface));
        if (index.row() + 1 < index.model()->rowCount()) {
            look::bottomLine(painter, cell, look::color(Color::hair));
        }
        if (index.column() > 0) {
            look::leftLine(painter, cell.translated(-Metric::hairline, 0),
                           look::color(Color::hair));
        }
    }
    static void PaintChosen(QPainter& painter, const QRect& cell) {
        const QRect inside = Inside(cell);
        look::plate(painter, inside, 0, look::color(Color::surface), look::color(Color::rowBorder));
        const int line = Metric::hairline + Metric::calendarChosenLine;
        look::fill(painter, inside.adjusted(line, line, -line, -line),
                   look::color(Color::rowSelected));
    }
    static void PaintTexts(QPainter& painter, const QRect& cell, const QModelIndex& index,
                           bool chosen) {
        const int height = Metric::calendarNumberLine + Metric::calendarNoteLine;
        QRect line = cell;
        line.setTop(cell.top() + (cell.height() - height) / 2);
        line.setHeight(Metric::calendarNumberLine);
        painter.setFont(look::font(Size::s18, chosen));
        painter.setPen(look::color(IsWeekend(index.column()) ? Color::red : Color::ink));
        painter.drawText(line, Qt::AlignCenter, index.data(CalendarModel::roleDay).toString());

        line.translate(0, Metric::calendarNumberLine);
        line.setHeight(Metric::calendarNoteLine);
        painter.setFont(look::font(Size::s12));
        const bool marked = index.data(CalendarModel::roleMarked).toBool();
        painter.setPen(look::color(marked ? Color::plum7 : Color::ink2));
        painter.drawText(line, Qt::AlignCenter, index.data(CalendarModel::roleNote).toString());
    }
    // Today's mark is a word in a disc, so that who cannot tell the colour sees it too.
    static void PaintToday(QPainter& painter, const QRect& cell) {
        const QRect disc(cell.right() - Metric::calendarTodayInset - Metric::badge,
                         cell.top() + Metric::calendarTodayInset, Metric::badge, Metric::badge);
        look::plate(painter, disc, Metric::badge / 2.0, look::color(Color::plum6),
                    look::color(Color::plum6));
        painter.setFont(look::font(Size::s11));
        painter.setPen(look::color(Color::onAccent));
        painter.drawText(disc, Qt::AlignCenter, ToQString(u8"今"));
    }
};

}  // namespace

CalendarModel::CalendarModel(std::function<CalendarDate()> today, QObject* parent)
    : QAbstractTableModel(parent), today_(std::move(today)), month_(kFirstCalendarYear, 1) {}

void CalendarModel::SetMonth(const CalendarMonth& month) {
    if (month == month_) {
        return;
    }
    beginResetModel();
    month_ = month;
    endResetModel();
}

std::optional<CalendarDate> CalendarModel::DateAt(const QModelIndex& index) const {
    return index.isValid() ? month_.At({index.row(), index.column()}) : std::nullopt;
}

QModelIndex CalendarModel::IndexOf(int day) const {
    const auto cell = month_.CellOf(day);
    return cell ? index(cell->week, cell->weekday) : QModelIndex();
}

int CalendarModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : month_.Weeks();
}

int CalendarModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kWeekDays;
}

QVariant CalendarModel::data(const QModelIndex& index, int role) const {
    const auto date = DateAt(index);
    if (!date) {
        // A cell before the month's first day or behind its last one.
        return role == Qt::AccessibleTextRole ? QVariant(ToQString(u8"空")) : QVariant();
    }
    switch (role) {
        case Qt::DisplayRole:
            return QString::number(date->day) + QLatin1Char('\n') + ToQString(CellText(*date));
        case Qt::AccessibleTextRole:
            return Spoken(*date);
        case roleDay:
            return date->day;
        case roleNote:
            return ToQString(CellText(*date));
        case roleMarked:
            return IsMarkedDay(*date);
        case roleToday:
            return *date == today_();
        default:
            return {};
    }
}

QVariant CalendarModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool named = orientation == Qt::Horizontal &&
                       (role == Qt::DisplayRole || role == Qt::AccessibleTextRole);
    return named ? QVariant(ToQString(WeekdayName(section))) : QVariant();
}

Qt::ItemFlags CalendarModel::flags(const QModelIndex& index) const {
    return DateAt(index) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren
                         : Qt::NoItemFlags;
}

QString CalendarModel::Spoken(const CalendarDate& date) const {
    QString spoken = ToQString(u8"%1 %2 %3")
                         .arg(ToQString(FormatCalendarDate(date)),
                              ToQString(WeekdayName(WeekdayOf(date))), ToQString(CellText(date)));
    return date == today_() ? spoken + ToQString(u8" 今天") : spoken;
}

CalendarGrid::CalendarGrid(std::function<CalendarDate()> today, QWidget* parent)
    : QTableView(parent), model_(new CalendarModel(std::move(today), this)) {
    setModel(model_);
    setHorizontalHeader(new WeekHeader(this));
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(0);
    verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    setItemDelegate(new DayDelegate(this));
    setFrameShape(QFrame::StyledPanel);
    setShowGrid(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_Hover);
}

QSize CalendarGrid::minimumSizeHint() const {
    constexpr int week = Metric::calendarNumberLine + Metric::calendarNoteLine;
    return {QTableView::minimumSizeHint().width(),
            Metric::header + model_->rowCount() * week + 2 * frameWidth()};
}

void CalendarGrid::SetMonthDate(int year, int month, int day) {
    showing_ = true;
    shown_ = {year, month, day};
    model_->SetMonth(CalendarMonth(year, month));
    updateGeometry();  // months differ in their weeks
    const QModelIndex index = model_->IndexOf(day);
    if (index.isValid()) {
        setCurrentIndex(index);
    } else {
        selectionModel()->clear();
    }
    showing_ = false;
    viewport()->update();
}

void CalendarGrid::keyPressEvent(QKeyEvent* event) {
    struct Way {
        int key;
        int days;
        int months;
    };
    static constexpr Way kWays[] = {
        {Qt::Key_Left, -1, 0},        {Qt::Key_Right, 1, 0},   {Qt::Key_Up, -kWeekDays, 0},
        {Qt::Key_Down, kWeekDays, 0}, {Qt::Key_PageUp, 0, -1}, {Qt::Key_PageDown, 0, 1},
    };
    for (const Way& way : kWays) {
        if (way.key == event->key()) {
            if (const auto date = way.months != 0 ? StepByMonths(shown_, way.months)
                                                  : StepByDays(shown_, way.days)) {
                Choose(*date);
            }
            return;
        }
    }
    if (event->key() == Qt::Key_Home) {
        Choose({shown_.year, shown_.month, 1});
    } else if (event->key() == Qt::Key_End) {
        Choose({shown_.year, shown_.month, GregorianMonthDays(shown_.year, shown_.month)});
    } else {
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void CalendarGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& before) {
    QTableView::selectionChanged(selected, before);
    const QModelIndexList indexes = selected.indexes();
    if (showing_ || indexes.isEmpty()) {
        return;
    }
    if (const auto date = model_->DateAt(indexes.front())) {
        Choose(*date);
    }
}

// A press on an empty cell leaves the chosen day selected; no press unselects it.
QItemSelectionModel::SelectionFlags CalendarGrid::selectionCommand(const QModelIndex& index,
                                                                   const QEvent*) const {
    return model_->DateAt(index) ? QItemSelectionModel::ClearAndSelect
                                 : QItemSelectionModel::NoUpdate;
}

void CalendarGrid::Choose(const CalendarDate& date) {
    if (date != shown_) {
        Q_EMIT dayChosen(date.year, date.month, date.day);
    }
}

}  // namespace quorvi

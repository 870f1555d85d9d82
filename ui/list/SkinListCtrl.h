// The list of the kit.
#pragma once

#include <QPixmap>
#include <QScrollBar>
#include <QTableView>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "ui/kit/ViewStatus.h"
#include "ui/list/ColumnWidths.h"
#include "ui/list/ListColumns.h"
#include "ui/list/PictureCache.h"

namespace quorvi {

class ListFind;
class ListModel;
class ListSort;

// A list of rows of one height, drawn from the records of its page: row i is element i of the
// page's vector. It owns no record; see RecordListCtrl for the class that does. The window's
// thread.
//
// Keys: arrows, Home, End and Page keys move; letters go to the next row whose name begins with
// them; Ctrl+C copies the row; Space flips the row's tick; Ctrl+A ticks all rows that are shown, or
// none when all of them are ticked; Enter opens the row; the menu key asks for its menu. A click on
// a link tells the observer, a click in the tick column flips the tick; a click anywhere else
// changes only the selection.
//
// Shift extends ticks over the rows that are shown: a click in the tick column or Space gives all
// rows from the one whose tick was flipped last to this one the tick of the former, and a key that
// moves does so on its way, beginning with the row that it leaves. Going back takes back.
class CSkinListCtrl : public QTableView {
    Q_OBJECT
  public:
    // `columns` outlives the list. `rowHeight` is Metric::rowTall or Metric::rowCompact.
    CSkinListCtrl(std::span<const ListColumn> columns, int rowHeight, QWidget* parent = nullptr);
    ~CSkinListCtrl() override;

    // The observer is not owned and may be null.
    void SetObserver(ListObserver* observer) { observer_ = observer; }

    [[nodiscard]] int RowCount() const;
    // The selected row, or -1.
    [[nodiscard]] int CurrentRow() const;
    // Selects a row and brings it into view, which a hidden one is not; a row that is not there
    // clears the selection.
    void SelectRow(int row);

    [[nodiscard]] bool IsTicked(int row) const;
    void SetTicked(int row, bool on);
    void TickAll(bool on);
    // The ticked rows in their order.
    [[nodiscard]] std::vector<int> TickedRows() const;
    [[nodiscard]] int TickedCount() const { return ticked_; }
    // What a command on "the chosen ones" is about: the ticked rows in their order, or where none
    // is ticked the selected row alone, if it can be seen.
    [[nodiscard]] std::vector<int> ChosenRows() const;
    // Of the rows that are shown: all, some or none are ticked.
    [[nodiscard]] look::Tick HeadTick() const;
    // Ticks all rows that are shown, or none when all of them are ticked; nothing while redraw is
    // off: nobody ticks what is not shown.
    void TickShown();
    // How many rows there are and how many of them are ticked, in words: 共 3,000 项 · 已选 2 项,
    // without its second half where the list has no ticks. Empty while there is nothing to count:
    // in an empty list, and while one loads, has failed or does not show its rows.
    [[nodiscard]] QString CountText() const;

    // Has Ctrl+F open a bar over the rows, in which one types what is looked for (see ListFind).
    // The rows that are not found are hidden: they keep their ticks and their selection, and count
    // like all others.
    void EnableFind();
    // The bar, once it is enabled.
    [[nodiscard]] ListFind* Find() const { return find_; }
    // Has a click on a column's head sort the rows (see ListSort).
    void EnableSort();
    // Null where the list is not sorted.
    [[nodiscard]] ListSort* Sorting() const { return sort_; }
    // Shows the rows in this order, which names each of them once; as they came for none.
    void OrderRows(std::optional<std::vector<int>> rows);
    // The row that stands first on the screen, or -1.
    [[nodiscard]] int TopRow() const;

    // Shows these rows alone, which are told in ascending order; all of them for none.
    void ShowRows(std::optional<std::vector<int>> rows);
    [[nodiscard]] bool IsShown(int row) const;
    // Selects the first row that is shown, unless the selected one is.
    void SelectShownRow();
    void ScrollToCurrent();
    // Scrolls to so many pixels below the first row.
    void ScrollTo(int offset);

    // The widths of its columns. What changes them has the columns laid.
    [[nodiscard]] ColumnWidths& Widths() { return widths_; }
    void LayColumns();

    // Redraw off keeps the list as it is on the screen, whatever happens to its rows. On shows
    // them.
    void SetRedraw(bool on);
    [[nodiscard]] bool Redraw() const { return redraw_; }

    // Shows what the list is at. A loading list shows it even while redraw is off.
    void SetState(ListState state);
    [[nodiscard]] ListState State() const { return status_->Get(); }
    // How far the load has come, in bytes; a total of 0 means that it is not known.
    void SetLoadProgress(std::uint64_t have, std::uint64_t total) {
        status_->SetProgress(have, total);
    }
    // The sentences of the empty list and of the failed load. The latter names the refresh button.
    void SetEmptyText(const QString& headline, const QString& sentence) {
        status_->SetEmptyText(headline, sentence);
    }
    void SetFailedText(const QString& headline, const QString& sentence) {
        status_->SetFailedText(headline, sentence);
    }

    // Where the link or tick box of a cell is hit, in the viewport's coordinates; empty for none.
    [[nodiscard]] QRect LinkRect(int row, int column) const;
    [[nodiscard]] QRect CellRect(int row, int column) const;
    [[nodiscard]] const PictureCache& Pictures() const { return pictures_; }

    // The contents of a cell, as it is drawn. Read out are its lines, in place of a picture, a star
    // or a tick what it shows, and of a cell that holds nothing that it is empty.
    [[nodiscard]] virtual Cell CellAt(int row, int column) const = 0;
    [[nodiscard]] virtual RowPicture PictureAt(int row) const;
    [[nodiscard]] const ListColumn& Column(int column) const {
        return columns_[static_cast<std::size_t>(column)];
    }
    [[nodiscard]] int ColumnCount() const { return static_cast<int>(columns_.size()); }
    // The column of names; without one, the first that is shown and holds text.
    [[nodiscard]] int NameColumn() const;
    // What a row is called: the first line of its name's cell, or the second where that is empty.
    [[nodiscard]] QString NameOf(int row) const;
    // The texts of a row in the order of its columns, with tabs between them, so that a table takes
    // them as cells; empty where it shows none. Pictures, ticks and links are left out.
    [[nodiscard]] QString RowText(int row) const;

  Q_SIGNALS:
    // A left click on a row, wherever in it; the row is selected by then.
    void rowClicked(int row);
    // A double click on a row, or Enter.
    void rowOpened(int row);
    // The selection came to another row (-1: none), by mouse, key or program.
    void rowSelected(int row);
    // A right click, or the menu key. `row` is -1 beside all rows; `at` is on the screen.
    void menuAsked(int row, const QPoint& at);
    // The user flipped a tick.
    void tickFlipped(int row, bool on);
    // The user has dragged a border between columns, or given a column its told width back.
    void columnsDragged();
    // CountText may be another one; once for all that changed in one turn.
    void countChanged();

  protected:
    // To be called around every change of the number of records.
    void ResetRows(int count);
    void AppendRows(int count);
    void RemoveRow(int row);
    // The contents of a row changed.
    void RowChanged(int row);

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

  private:
    // What Shift has made of one flipped tick.
    struct TickSpan {
        int from;                  // the row whose tick was flipped
        int to;                    // how far its tick was extended
        std::vector<char> before;  // all ticks before the first extension; empty till then
    };

    friend class ListModel;
    friend class ListDelegate;

    void PaintRows(QPainter& painter, const QRect& dirty) const;
    void PaintCell(QPainter& painter, const QRect& rect, int row, int column);
    void PaintPicture(QPainter& painter, const QRect& rect, int row, int column);
    void PaintSkeleton(QPainter& painter) const;
    void FollowSelection();
    void UpdateRow(int row);
    void SetHover(int row, int column);
    void FlipTick(int row);
    void FlipAllTicks();
    void AnnounceCount();
    void ExtendTicks(int row);
    void MoveExtending(QKeyEvent* event);
    void CopyRow() const;
    bool ShowTip(const QPoint& at, const QPoint& global);
    [[nodiscard]] QRect RowRect(int row) const;
    // The row that an index of the view stands for, and that under the keyboard's cursor; or -1.
    [[nodiscard]] int RowOf(const QModelIndex& index) const;
    [[nodiscard]] int RowUnderCursor() const { return RowOf(currentIndex()); }
    void SetSelected(int row);
    void ShowChange(int row);
    // Changes which rows stand where; the selection stays with its row.
    void Rearrange(const std::function<void()>& change);
    [[nodiscard]] int TickColumn() const;
    [[nodiscard]] bool IsMarked(int row) const;

    std::span<const ListColumn> columns_;
    int rowHeight_;
    ColumnWidths widths_;
    ListModel* model_;
    ListObserver* observer_ = nullptr;
    QScrollBar* bar_;  // lies over the right end of the rows
    PictureCache pictures_;
    std::vector<char> ticks_;       // one for each row
    int ticked_ = 0;                // of them, those that are set
    std::optional<TickSpan> span_;  // none once anything else has changed ticks or rows
    bool countIsToBeTold_ = false;
    int selected_ = -1;
    bool narrows_ = false;  // the view's selection goes, the list's stays
    int hoverRow_ = -1;
    int hoverColumn_ = -1;
    bool redraw_ = true;
    QPixmap frozen_;  // what is shown while redraw is off
    ViewStatus* status_;
    ListFind* find_ = nullptr;
    ListSort* sort_ = nullptr;
};

}  // namespace quorvi

#include "ui/list/SkinListCtrl.h"

#include <QLocale>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

#include "ui/kit/QtText.h"
#include "ui/list/ListFind.h"
#include "ui/list/ListModel.h"
#include "ui/list/ListSort.h"
#include "ui/list/SkinHeader.h"
#include "ui/look/FocusRing.h"
#include "ui/look/RoundCorners.h"

namespace quorvi {

using look::Color;
using look::Metric;

namespace {

// How many lines of text a cell has for whoever copies it.
int CopiedLines(CellKind kind) {
    switch (kind) {
        case CellKind::twoLines:
        case CellKind::twoSmallLines:
        case CellKind::captioned:
            return 2;
        case CellKind::text:
        case CellKind::twoLinesLink:
        case CellKind::icon:
        case CellKind::iconText:
        case CellKind::state:
        case CellKind::progress:
            return 1;
        default:
            return 0;
    }
}

// A text in one line and one cell.
QString InOneCell(QString text) {
    for (QChar& c : text) {
        if (c.category() == QChar::Other_Control) {
            c = u' ';
        }
    }
    return text;
}

bool HoldsText(CellKind kind) {
    switch (kind) {
        case CellKind::text:
        case CellKind::twoLines:
        case CellKind::twoSmallLines:
        case CellKind::captioned:
        case CellKind::twoLinesLink:
        case CellKind::link:
        case CellKind::iconText:
            return true;
        default:
            return false;
    }
}

}  // namespace

// Has the list paint each cell, since only the list knows the records.
class ListDelegate : public QStyledItemDelegate {
  public:
    explicit ListDelegate(CSkinListCtrl& list) : QStyledItemDelegate(&list), list_(list) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        list_.PaintCell(*painter, option.rect, list_.RowOf(index), index.column());
    }
    // CSkinListCtrl handles the clicks itself.
    bool editorEvent(QEvent*, QAbstractItemModel*, const QStyleOptionViewItem&,
                     const QModelIndex&) override {
        return false;
    }

  private:
    CSkinListCtrl& list_;
};

CSkinListCtrl::CSkinListCtrl(std::span<const ListColumn> columns, int rowHeight, QWidget* parent)
    : QTableView(parent),
      columns_(columns),
      rowHeight_(rowHeight),
      widths_(columns),
      model_(new ListModel(*this)),
      bar_(new QScrollBar(Qt::Vertical, this)),
      status_(new ViewStatus(viewport())) {
    setFont(look::font(look::Size::s12));
    setHorizontalHeader(new CSkinHeader(*this));
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(rowHeight);
    setModel(model_);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setItemDelegate(new ListDelegate(*this));
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setFrameShape(QFrame::StyledPanel);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    setContextMenuPolicy(Qt::DefaultContextMenu);
    LayColumns();
    RoundCorners::Attach(*this);

    // The bar that the user sees lies over the rows. The view's own bar, which decides what is
    // scrolled, stays hidden; the two are kept at one value.
    bar_->setFocusPolicy(Qt::NoFocus);
    bar_->hide();
    QScrollBar* own = verticalScrollBar();
    connect(own, &QScrollBar::rangeChanged, this, [this, own](int least, int most) {
        bar_->setRange(least, most);
        bar_->setPageStep(own->pageStep());
        bar_->setSingleStep(own->singleStep());
        bar_->setVisible(most > least);
    });
    connect(own, &QScrollBar::valueChanged, bar_, &QScrollBar::setValue);
    connect(bar_, &QScrollBar::valueChanged, own, &QScrollBar::setValue);
}

CSkinListCtrl::~CSkinListCtrl() = default;

int CSkinListCtrl::RowCount() const {
    return model_->Rows();
}

int CSkinListCtrl::CurrentRow() const {
    return selected_;
}

void CSkinListCtrl::SelectRow(int row) {
    const int place = model_->PlaceOf(row);
    if (place < 0) {
        setCurrentIndex({});
        clearSelection();
        SetSelected(row < RowCount() ? std::max(row, -1) : -1);
        return;
    }
    const QModelIndex index = model_->index(place, 0);
    setCurrentIndex(index);
    scrollTo(index);
}

RowPicture CSkinListCtrl::PictureAt(int) const {
    return {};
}

// ---- rows --------------------------------------------------------------------------------------

void CSkinListCtrl::ResetRows(int count) {
    const int before = std::exchange(selected_, -1);
    pictures_.Clear();
    hoverRow_ = hoverColumn_ = -1;
    ticks_.assign(static_cast<std::size_t>(count), 0);
    ticked_ = 0;
    span_.reset();
    model_->Reset(count);
    AnnounceCount();
    if (find_ != nullptr) {
        find_->OnRowsChanged();
    }
    if (before >= 0) {
        Q_EMIT rowSelected(-1);
    }
    viewport()->update();
}

void CSkinListCtrl::AppendRows(int count) {
    ticks_.resize(ticks_.size() + static_cast<std::size_t>(count), 0);
    span_.reset();
    model_->Append(count);
    AnnounceCount();
    if (find_ != nullptr) {
        find_->OnRowsChanged();
    }
    viewport()->update();
}

void CSkinListCtrl::RemoveRow(int row) {
    ticked_ -= IsTicked(row) ? 1 : 0;
    ticks_.erase(ticks_.begin() + row);
    span_.reset();
    hoverRow_ = hoverColumn_ = -1;
    const bool hidesSelected = selected_ >= 0 && !IsShown(selected_);
    model_->Remove(row);
    AnnounceCount();
    // Rows below moved up without a change of the selection.
    if (hidesSelected && selected_ >= row) {
        SetSelected(selected_ == row ? -1 : selected_ - 1);
    } else {
        FollowSelection();
    }
    if (find_ != nullptr) {
        find_->OnRowsChanged();
    }
    viewport()->update();
}

void CSkinListCtrl::RowChanged(int row) {
    ShowChange(row);
    if (find_ != nullptr) {
        find_->OnRowsChanged();
    }
}

void CSkinListCtrl::ShowChange(int row) {
    model_->Changed(row);
    UpdateRow(row);
}

// ---- which rows are shown ----------------------------------------------------------------------

void CSkinListCtrl::EnableFind() {
    if (find_ == nullptr) {
        find_ = new ListFind(*this);
    }
}

int CSkinListCtrl::RowOf(const QModelIndex& index) const {
    return index.isValid() ? model_->RowAt(index.row()) : -1;
}

bool CSkinListCtrl::IsShown(int row) const {
    return model_->PlaceOf(row) >= 0;
}

void CSkinListCtrl::EnableSort() {
    if (sort_ == nullptr) {
        sort_ = new ListSort(*this);
        connect(sort_, &ListSort::sorted, horizontalHeader()->viewport(),
                qOverload<>(&QWidget::update));
    }
}

int CSkinListCtrl::TopRow() const {
    return model_->RowAt(0);
}

void CSkinListCtrl::ShowRows(std::optional<std::vector<int>> rows) {
    span_.reset();  // its rows stand apart now
    Rearrange([&] { model_->Show(std::move(rows)); });
}

void CSkinListCtrl::OrderRows(std::optional<std::vector<int>> rows) {
    span_.reset();  // its rows stand apart now
    Rearrange([&] { model_->Order(std::move(rows)); });
}

void CSkinListCtrl::Rearrange(const std::function<void()>& change) {
    hoverRow_ = hoverColumn_ = -1;
    narrows_ = true;
    change();
    if (const int place = model_->PlaceOf(selected_); place >= 0) {
        setCurrentIndex(model_->index(place, 0));
    }
    narrows_ = false;
    ScrollToCurrent();
    viewport()->update();
    horizontalHeader()->viewport()->update();
}

void CSkinListCtrl::SelectShownRow() {
    if (!IsShown(selected_) && model_->Places() > 0) {
        SelectRow(model_->RowAt(0));
    }
}

void CSkinListCtrl::ScrollTo(int offset) {
    executeDelayedItemsLayout();  // the range of the bar comes with it
    verticalScrollBar()->setValue(offset);
}

void CSkinListCtrl::ScrollToCurrent() {
    if (currentIndex().isValid()) {
        scrollTo(currentIndex());
    }
}

// ---- ticks -------------------------------------------------------------------------------------

int CSkinListCtrl::TickColumn() const {
    const auto found = std::ranges::find(columns_, CellKind::check, &ListColumn::kind);
    return found == columns_.end() ? -1 : static_cast<int>(found - columns_.begin());
}

bool CSkinListCtrl::IsTicked(int row) const {
    return row >= 0 && row < RowCount() && ticks_[static_cast<std::size_t>(row)] != 0;
}

void CSkinListCtrl::SetTicked(int row, bool on) {
    if (row >= 0 && row < RowCount() && IsTicked(row) != on) {
        ticks_[static_cast<std::size_t>(row)] = on ? 1 : 0;
        ticked_ += on ? 1 : -1;
        span_.reset();
        AnnounceCount();
        ShowChange(row);
    }
}

void CSkinListCtrl::TickAll(bool on) {
    for (int row = 0; row < RowCount(); ++row) {
        SetTicked(row, on);
    }
}

std::vector<int> CSkinListCtrl::TickedRows() const {
    std::vector<int> rows;
    for (int row = 0; row < RowCount(); ++row) {
        if (IsTicked(row)) {
            rows.push_back(row);
        }
    }
    return rows;
}

std::vector<int> CSkinListCtrl::ChosenRows() const {
    if (ticked_ > 0) {
        return TickedRows();
    }
    return selected_ >= 0 && redraw_ && IsShown(selected_) ? std::vector{selected_}
                                                           : std::vector<int>{};
}

look::Tick CSkinListCtrl::HeadTick() const {
    int ticked = 0;
    for (int place = 0; place < model_->Places(); ++place) {
        ticked += IsTicked(model_->RowAt(place)) ? 1 : 0;
    }
    return ticked == 0                  ? look::Tick::off
           : ticked == model_->Places() ? look::Tick::on
                                        : look::Tick::mixed;
}

void CSkinListCtrl::TickShown() {
    if (TickColumn() >= 0 && redraw_) {
        FlipAllTicks();
    }
}

void CSkinListCtrl::FlipTick(int row) {
    SetTicked(row, !IsTicked(row));
    span_ = TickSpan{.from = row, .to = row, .before = {}};
    Q_EMIT tickFlipped(row, IsTicked(row));
}

// ---- the count ---------------------------------------------------------------------------------

QString CSkinListCtrl::CountText() const {
    if (RowCount() == 0 || !redraw_ || State() != ListState::idle) {
        return {};
    }
    const QLocale locale(QLocale::Chinese);
    const QString all = ToQString(u8"共 %1 项").arg(locale.toString(RowCount()));
    return TickColumn() < 0
               ? all
               : all + ToQString(u8" · 已选 %1 项").arg(locale.toString(TickedCount()));
}

// Later, since ticks and rows change by the thousand in one turn.
void CSkinListCtrl::AnnounceCount() {
    if (std::exchange(countIsToBeTold_, true)) {
        return;
    }
    QMetaObject::invokeMethod(
        this,
        [this] {
            countIsToBeTold_ = false;
            horizontalHeader()->viewport()->update();
            Q_EMIT countChanged();
        },
        Qt::QueuedConnection);
}

// ---- what is shown -----------------------------------------------------------------------------

void CSkinListCtrl::SetRedraw(bool on) {
    if (redraw_ == on) {
        return;
    }
    // A list without rows shows nothing while redraw is off, not even that it is empty: it may well
    // have been filled in the meantime.
    frozen_ = !on && RowCount() > 0 ? viewport()->grab() : QPixmap();
    redraw_ = on;
    AnnounceCount();
    viewport()->update();
}

void CSkinListCtrl::SetState(ListState state) {
    status_->Set(state);
    AnnounceCount();
}

// ---- geometry ----------------------------------------------------------------------------------

int CSkinListCtrl::NameColumn() const {
    auto found = std::ranges::find(columns_, true, &ListColumn::name);
    if (found == columns_.end()) {
        found = std::ranges::find_if(columns_, [](const ListColumn& column) {
            return column.width != 0 && HoldsText(column.kind);
        });
    }
    return found == columns_.end() ? 0 : static_cast<int>(found - columns_.begin());
}

QString CSkinListCtrl::NameOf(int row) const {
    const Cell cell = CellAt(row, NameColumn());
    return InOneCell(cell.text.isEmpty() ? cell.second : cell.text);
}

QString CSkinListCtrl::RowText(int row) const {
    QStringList texts;
    for (int column = 0; column < ColumnCount(); ++column) {
        const int lines = Column(column).width == 0 ? 0 : CopiedLines(Column(column).kind);
        if (lines == 0) {
            continue;
        }
        const Cell cell = CellAt(row, column);
        texts.append(InOneCell(cell.text));
        if (lines == 2) {
            texts.append(InOneCell(cell.second));
        }
    }
    const bool isEmpty = texts.join(QString()).trimmed().isEmpty();
    return isEmpty ? QString() : texts.join(u'\t');
}

// The columns fill the list beside the scroll bar.
void CSkinListCtrl::LayColumns() {
    const std::vector<int> laid = widths_.Laid(viewport()->width() - Metric::scrollGutter);
    for (int i = 0; i < ColumnCount(); ++i) {
        setColumnHidden(i, Column(i).width == 0);
        if (Column(i).width != 0) {
            setColumnWidth(i, laid[static_cast<std::size_t>(i)]);
        }
    }
}

void CSkinListCtrl::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    LayColumns();
    const QRect area = viewport()->geometry();
    bar_->setGeometry(area.right() + 1 - Metric::scrollGutter, area.top(), Metric::scrollGutter,
                      area.height());
    bar_->setPageStep(verticalScrollBar()->pageStep());
    verticalScrollBar()->setSingleStep(rowHeight_ / 2);
}

QRect CSkinListCtrl::CellRect(int row, int column) const {
    return visualRect(model_->index(model_->PlaceOf(row), column));
}

QRect CSkinListCtrl::RowRect(int row) const {
    return {0, rowViewportPosition(model_->PlaceOf(row)), viewport()->width(), rowHeight_};
}

void CSkinListCtrl::UpdateRow(int row) {
    if (IsShown(row)) {
        viewport()->update(RowRect(row));
    }
}

// ---- the selection -----------------------------------------------------------------------------

void CSkinListCtrl::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    UpdateRow(RowOf(previous));
    UpdateRow(RowOf(current));
}

void CSkinListCtrl::selectionChanged(const QItemSelection& selected,
                                     const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    FollowSelection();
}

void CSkinListCtrl::FollowSelection() {
    const QItemSelection& all = selectionModel()->selection();
    const int row = all.isEmpty() ? -1 : model_->RowAt(all.first().top());
    const bool isHidden =
        row < 0 && selected_ >= 0 && selected_ < RowCount() && !IsShown(selected_);
    if (!narrows_ && !isHidden) {
        SetSelected(row);
    }
}

void CSkinListCtrl::SetSelected(int row) {
    if (row != selected_) {
        UpdateRow(std::exchange(selected_, row));
        UpdateRow(row);
        Q_EMIT rowSelected(row);
    }
}

void CSkinListCtrl::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason && !currentIndex().isValid() &&
        model_->Places() > 0) {
        // The focus ring is drawn around the current row: make the first row current, and leave the
        // selection as it is.
        selectionModel()->setCurrentIndex(model_->index(0, 0), QItemSelectionModel::NoUpdate);
    }
    UpdateRow(RowUnderCursor());
}

void CSkinListCtrl::focusOutEvent(QFocusEvent* event) {
    QTableView::focusOutEvent(event);
    UpdateRow(RowUnderCursor());
}

void CSkinListCtrl::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        viewport()->update();
    }
}

}  // namespace quorvi

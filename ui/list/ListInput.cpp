// The list's mouse and keys.
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "ui/list/ListModel.h"
#include "ui/list/SkinListCtrl.h"

namespace quorvi {

// ---- mouse -------------------------------------------------------------------------------------

void CSkinListCtrl::SetHover(int row, int column) {
    if (row != hoverRow_) {
        UpdateRow(hoverRow_);
        UpdateRow(row);
    } else if (column != hoverColumn_) {
        UpdateRow(row);
    }
    hoverRow_ = row;
    hoverColumn_ = column;
}

void CSkinListCtrl::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    const QModelIndex index = indexAt(at);
    const int row = RowOf(index);
    const int column = index.isValid() ? index.column() : -1;
    const bool link = row >= 0 && LinkRect(row, column).contains(at);
    SetHover(row, link ? column : -1);
    viewport()->setCursor(link ? Qt::PointingHandCursor : Qt::ArrowCursor);
    if (event->buttons() == Qt::NoButton) {
        QTableView::mouseMoveEvent(event);
    }
    // While a button is held the move is kept from the view, which would drag the selection along.
}

void CSkinListCtrl::mousePressEvent(QMouseEvent* event) {
    QTableView::mousePressEvent(event);
    const QPoint at = event->position().toPoint();
    const QModelIndex index = indexAt(at);
    if (event->button() != Qt::LeftButton || !index.isValid()) {
        return;
    }
    const int row = RowOf(index);
    const int column = index.column();
    Q_EMIT rowClicked(row);
    if (row >= RowCount()) {
        return;  // who heard of the click took rows away
    }
    if (Column(column).kind == CellKind::check) {
        if ((event->modifiers() & Qt::ShiftModifier) != 0) {
            ExtendTicks(row);
        } else {
            FlipTick(row);
        }
    } else if (LinkRect(row, column).contains(at) && observer_ != nullptr) {
        observer_->OnLinkClicked(Column(column).link, row);
    }
}

void CSkinListCtrl::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !index.isValid()) {
        return;
    }
    if (Column(index.column()).kind == CellKind::check) {
        FlipTick(RowOf(index));  // the second click of a double click counts like any click
        return;
    }
    Q_EMIT rowOpened(RowOf(index));
}

void CSkinListCtrl::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Mouse) {
        Q_EMIT menuAsked(RowOf(indexAt(event->pos())), event->globalPos());
        return;
    }
    const int row = RowUnderCursor();
    if (row >= 0) {
        scrollTo(currentIndex());  // the menu opens beside the row, which must be in view
    }
    const QPoint at =
        row < 0 ? QPoint(0, 0) : RowRect(row).topLeft() + QPoint(rowHeight_ / 2, rowHeight_ / 2);
    Q_EMIT menuAsked(row, viewport()->mapToGlobal(at));
}

bool CSkinListCtrl::viewportEvent(QEvent* event) {
    switch (event->type()) {
        case QEvent::Leave:
            SetHover(-1, -1);
            break;
        case QEvent::ToolTip: {
            const auto* help = static_cast<QHelpEvent*>(event);
            if (ShowTip(help->pos(), help->globalPos())) {
                return true;
            }
            QToolTip::hideText();
            event->ignore();
            return true;
        }
        default:
            break;
    }
    return QTableView::viewportEvent(event);
}

// ---- keys --------------------------------------------------------------------------------------

void CSkinListCtrl::FlipAllTicks() {
    bool on = false;
    for (int place = 0; place < model_->Places(); ++place) {
        on = on || !IsTicked(model_->RowAt(place));
    }
    for (int place = 0; place < model_->Places(); ++place) {
        if (const int row = model_->RowAt(place); IsTicked(row) != on) {
            SetTicked(row, on);
            Q_EMIT tickFlipped(row, on);
        }
    }
}

// Gives all rows that are shown from the one that was flipped last to this one the tick of the
// former. What an earlier extension from there has changed and this one does not reach is as it
// was.
void CSkinListCtrl::ExtendTicks(int row) {
    if (!span_ || !redraw_ || !IsShown(span_->from)) {
        FlipTick(row);
        return;
    }
    TickSpan span = *std::exchange(span_, std::nullopt);
    if (span.before.empty()) {
        span.before = ticks_;
    }
    const bool on = IsTicked(span.from);
    const auto [first, last] = std::minmax({model_->PlaceOf(span.from), model_->PlaceOf(row)});
    for (int place = 0; place < model_->Places(); ++place) {
        const int each = model_->RowAt(place);
        const bool had = span.before[static_cast<std::size_t>(each)] != 0;
        const bool wanted = place >= first && place <= last ? on : had;
        if (IsTicked(each) != wanted) {
            SetTicked(each, wanted);
            Q_EMIT tickFlipped(each, wanted);
        }
    }
    span.to = row;
    span_ = std::move(span);
}

// A move with Shift: it goes on with the extension that has led to the row that it leaves, or
// begins one there by ticking it.
void CSkinListCtrl::MoveExtending(QKeyEvent* event) {
    const int from = RowUnderCursor();
    QTableView::keyPressEvent(event);
    const int to = RowUnderCursor();
    if (from < 0 || to < 0 || to == from) {
        return;
    }
    if (!span_ || span_->to != from) {
        if (!IsTicked(from)) {
            FlipTick(from);
        }
        span_ = TickSpan{.from = from, .to = from, .before = {}};
    }
    ExtendTicks(to);
}

void CSkinListCtrl::CopyRow() const {
    const int row = RowUnderCursor();
    const QString text = row >= 0 && redraw_ ? RowText(row) : QString();  // not what is not shown
    if (!text.isEmpty()) {
        QGuiApplication::clipboard()->setText(text);
    }
}

void CSkinListCtrl::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        CopyRow();
        event->accept();
        return;
    }
    if (event->matches(QKeySequence::SelectAll)) {
        TickShown();
        event->accept();
        return;
    }
    const int row = RowUnderCursor();
    const bool extends =
        (event->modifiers() & Qt::ShiftModifier) != 0 && TickColumn() >= 0 && redraw_;
    switch (event->key()) {
        case Qt::Key_Space:
            if (row >= 0 && TickColumn() >= 0) {
                if (extends) {
                    ExtendTicks(row);
                } else {
                    FlipTick(row);
                }
            }
            event->accept();
            return;
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home:
        case Qt::Key_End:
            if (extends) {
                MoveExtending(event);
            } else {
                QTableView::keyPressEvent(event);
            }
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (row >= 0) {
                Q_EMIT rowOpened(row);
                event->accept();
            } else {
                event->ignore();
            }
            return;
        default:
            QTableView::keyPressEvent(event);
    }
}

QModelIndex CSkinListCtrl::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const int rows = model_->Places();
    if (rows == 0) {
        return {};
    }
    const int row = currentIndex().row();
    const int page = std::max(1, viewport()->height() / rowHeight_ - 1);
    int to = row;
    switch (action) {
        case MoveUp:
        case MovePrevious:
            to = row - 1;
            break;
        case MoveDown:
        case MoveNext:
            to = row + 1;
            break;
        case MovePageUp:
            to = row - page;
            break;
        case MovePageDown:
            to = row + page;
            break;
        case MoveHome:
            to = 0;
            break;
        case MoveEnd:
            to = rows - 1;
            break;
        default:
            break;  // left and right move nothing: the cursor goes by whole rows
    }
    Q_UNUSED(modifiers);
    return model_->index(std::clamp(to, 0, rows - 1), std::max(0, currentIndex().column()));
}

}  // namespace quorvi

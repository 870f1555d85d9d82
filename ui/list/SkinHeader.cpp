#include "ui/list/SkinHeader.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <utility>

#include "ui/kit/QtText.h"
#include "ui/kit/SkinMenu.h"
#include "ui/list/ColumnWidths.h"
#include "ui/list/ListColumns.h"
#include "ui/list/ListSort.h"
#include "ui/list/SkinListCtrl.h"

namespace quorvi {

using look::Color;
using look::Metric;
using Stage = look::ButtonState::Stage;

namespace {

constexpr int kArrow = Metric::iconField;  // as wide as high

}  // namespace

CSkinHeader::CSkinHeader(CSkinListCtrl& list) : QHeaderView(Qt::Horizontal, &list), list_(list) {
    setSectionsClickable(false);
    setSectionsMovable(false);
    setHighlightSections(false);
    setMinimumSectionSize(0);
    setFont(look::font(look::Size::s12));
    setFocusPolicy(Qt::NoFocus);
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
}

QSize CSkinHeader::sizeHint() const {
    // As wide as its columns are; their words, which Qt would measure, decide nothing.
    return {length(), BarHeight() + Metric::header};
}

int CSkinHeader::BarHeight() const {
    return bar_ == nullptr ? 0 : bar_->height();
}

void CSkinHeader::SetBar(QWidget* bar) {
    bar_ = bar;
    updateGeometry();
    Q_EMIT geometriesChanged();  // the view makes room
    viewport()->update();
}

void CSkinHeader::resizeEvent(QResizeEvent* event) {
    QHeaderView::resizeEvent(event);
    if (bar_ != nullptr) {
        bar_->setGeometry(0, 0, width(), bar_->height());
    }
}

// ---- where is what -----------------------------------------------------------------------------

QRect CSkinHeader::HeadRect(int column) const {
    return isSectionHidden(column) ? QRect()
                                   : QRect(sectionViewportPosition(column), BarHeight(),
                                           sectionSize(column), viewport()->height() - BarHeight());
}

QRect CSkinHeader::GripRect(int column) const {
    const QRect head = HeadRect(column);
    bool isLast = true;
    for (int i = column + 1; i < count(); ++i) {
        isLast = isLast && isSectionHidden(i);
    }
    if (head.isEmpty() || isLast || list_.Widths().MovedBy(column) < 0) {
        return {};
    }
    return {head.right() + 1 - Metric::gap1, head.top(), 2 * Metric::gap1, head.height()};
}

// The caption in its parts, side by side; the one that the list is sorted by with its arrow.
std::vector<CSkinHeader::Piece> CSkinHeader::PiecesOf(int column) const {
    const ListColumn& told = list_.Column(column);
    const QRect head = HeadRect(column);
    const bool left = told.align == CellAlign::left;
    const int inset = left ? Metric::cellPadding : Metric::hairline;
    const QRect area = head.adjusted(inset, 0, -Metric::hairline, 0);
    std::vector<Piece> pieces;
    QString rest = ToQString(told.caption);
    int arrows = 0;
    for (const SortKey& sort : told.sorts) {
        const QString part = ToQString(sort.caption);
        if (const qsizetype at = rest.indexOf(part); at > 0) {
            pieces.push_back({.text = rest.left(at)});
            rest.remove(0, at);
        }
        const bool arrow = list_.Sorting() != nullptr && list_.Sorting()->Key() == sort.key;
        arrows += arrow ? kArrow : 0;
        pieces.push_back({.text = part, .key = sort.key, .arrow = arrow});
        rest.remove(0, part.size());
    }
    if (!rest.isEmpty()) {
        pieces.push_back({.text = rest});
    }
    int room = area.width() - arrows;
    int all = arrows;
    for (Piece& piece : pieces) {
        piece.text = fontMetrics().elidedText(piece.text, Qt::ElideRight, std::max(room, 0));
        const int words = fontMetrics().horizontalAdvance(piece.text);
        room -= words;
        piece.width = words + (piece.arrow ? kArrow : 0);
        all += words;
    }
    int x = left ? area.left() : area.left() + std::max((area.width() - all) / 2, 0);
    for (Piece& piece : pieces) {
        piece.left = x;
        x += piece.width;
    }
    return pieces;
}

// The whole head of a column belongs to what it can be sorted by, each part to the next one.
int CSkinHeader::SortAt(int column, int x) const {
    int key = -1;
    for (const Piece& piece : PiecesOf(column)) {
        if (piece.key >= 0 && (key < 0 || x >= piece.left)) {
            key = piece.key;
        }
    }
    return key;
}

QRect CSkinHeader::SortRect(int key) const {
    for (int column = 0; column < list_.ColumnCount(); ++column) {
        for (const Piece& piece : PiecesOf(column)) {
            if (piece.key == key) {
                return {piece.left, HeadRect(column).top(), piece.width, HeadRect(column).height()};
            }
        }
    }
    return {};
}

CSkinHeader::Hit CSkinHeader::At(const QPoint& at) const {
    for (int column = 0; column < list_.ColumnCount(); ++column) {
        if (GripRect(column).contains(at)) {
            return {Hit::What::border, column};
        }
    }
    for (int column = 0; column < list_.ColumnCount(); ++column) {
        if (!HeadRect(column).contains(at)) {
            continue;
        }
        if (list_.Column(column).kind == CellKind::check && !list_.Column(column).deadHead) {
            return {Hit::What::ticks, column};
        }
        if (const int key = SortAt(column, at.x()); key >= 0 && list_.Sorting() != nullptr) {
            return {Hit::What::sort, key};
        }
    }
    return {};
}

// ---- painting ----------------------------------------------------------------------------------

void CSkinHeader::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    const QRect all = viewport()->rect().adjusted(0, BarHeight(), 0, 0);
    look::fill(painter, all, look::color(Color::chrome2));
    look::bottomLine(painter, all, look::color(Color::line2));
    painter.setFont(font());
    bool first = true;
    for (int i = 0; i < list_.ColumnCount(); ++i) {
        if (isSectionHidden(i)) {
            continue;
        }
        const bool hasBox = list_.Column(i).kind == CellKind::check && !list_.Column(i).deadHead;
        if (!first && !hasBox) {  // the box itself sets its column off
            look::leftLine(
                painter,
                HeadRect(i).adjusted(0, Metric::headerRuleInset, 0, -Metric::headerRuleInset),
                look::color(Color::line2));
        }
        first = false;
        if (hasBox) {
            PaintTicks(painter, i);
        } else {
            PaintCaption(painter, i);
        }
    }
}

void CSkinHeader::PaintCaption(QPainter& painter, int column) const {
    const QRect head = HeadRect(column);
    for (const Piece& piece : PiecesOf(column)) {
        const bool hot =
            piece.key >= 0 && (piece.arrow || hover_ == Hit{Hit::What::sort, piece.key});
        painter.setPen(look::color(!isEnabled() ? Color::inkOff
                                   : hot        ? Color::plum7
                                                : Color::ink2));
        const QRect area(piece.left, head.top(), piece.width, head.height());
        painter.drawText(area, static_cast<int>(Qt::AlignVCenter | Qt::AlignLeft), piece.text);
        if (piece.arrow) {
            look::drawIcon(painter,
                           QRectF(area.right() + 1 - kArrow, area.top(), kArrow, area.height()),
                           list_.Sorting()->IsDescending() ? u"sort-down" : u"sort-up", kArrow,
                           look::color(isEnabled() ? Color::plum7 : Color::inkOff));
        }
    }
}

// The box stands before the caption, and in its place where there is no room for both.
void CSkinHeader::PaintTicks(QPainter& painter, int column) const {
    const ListColumn& told = list_.Column(column);
    const QRect head = HeadRect(column);
    const QString caption = ToQString(told.caption);
    const int words = fontMetrics().horizontalAdvance(caption);
    const int both = Metric::tickInRow + Metric::gap1 + words;
    const bool fits = both <= head.width() - 2 * Metric::hairline;
    const int width = fits ? both : Metric::tickInRow;
    const int left = told.align == CellAlign::left && fits
                         ? std::min(head.left() + Metric::cellPadding, head.right() + 1 - width)
                         : head.left() + (head.width() - width + 1) / 2;
    const bool hot = hover_ == Hit{Hit::What::ticks, column};
    const bool on = isEnabled() && list_.RowCount() > 0;
    look::paintTick(painter,
                    QRectF(left, head.top() + (head.height() - Metric::tickInRow) / 2,
                           Metric::tickInRow, Metric::tickInRow),
                    list_.HeadTick(), {.stage = hot ? Stage::hover : Stage::normal, .enabled = on});
    if (fits) {
        painter.setPen(look::color(!isEnabled() ? Color::inkOff
                                   : hot        ? Color::plum7
                                                : Color::ink2));
        painter.drawText(
            head.adjusted(left - head.left() + Metric::tickInRow + Metric::gap1, 0, 0, 0),
            static_cast<int>(Qt::AlignVCenter | Qt::AlignLeft), caption);
    }
}

// ---- mouse -------------------------------------------------------------------------------------

void CSkinHeader::SetHover(const Hit& hit) {
    if (std::exchange(hover_, hit) != hit) {
        viewport()->setCursor(hit.what == Hit::What::border ? Qt::SplitHCursor : Qt::ArrowCursor);
        viewport()->update();
    }
}

void CSkinHeader::mousePressEvent(QMouseEvent* event) {
    pressed_ = {};
    if (event->button() != Qt::LeftButton) {
        return;
    }
    pressed_ = At(event->position().toPoint());
    if (pressed_.what == Hit::What::border) {
        dragFrom_ = event->position().toPoint().x();
        laid_.clear();
        for (int i = 0; i < list_.ColumnCount(); ++i) {
            laid_.push_back(sectionSize(i));
        }
    }
}

void CSkinHeader::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    if (pressed_.what == Hit::What::border) {
        DragTo(at.x());
    } else if (event->buttons() == Qt::NoButton) {
        SetHover(At(at));
    }
}

void CSkinHeader::DragTo(int x) {
    if (x != dragFrom_) {
        list_.Widths().Drag(pressed_.index, laid_, x - dragFrom_);
        list_.LayColumns();
    }
}

void CSkinHeader::EndDrag() {
    Q_EMIT list_.columnsDragged();
}

void CSkinHeader::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const QPoint at = event->position().toPoint();
    const Hit pressed = std::exchange(pressed_, Hit());
    if (pressed.what == Hit::What::border) {
        if (at.x() != dragFrom_) {
            EndDrag();
        }
    } else if (pressed == At(at) && pressed.what == Hit::What::sort) {
        list_.Sorting()->Click(pressed.index);
    } else if (pressed == At(at) && pressed.what == Hit::What::ticks) {
        list_.TickShown();
    }
    SetHover(viewport()->rect().contains(at) ? At(at) : Hit());
}

void CSkinHeader::mouseDoubleClickEvent(QMouseEvent* event) {
    const Hit hit = At(event->position().toPoint());
    if (event->button() == Qt::LeftButton && hit.what == Hit::What::border) {
        list_.Widths().Restore(list_.Widths().MovedBy(hit.index));
        list_.LayColumns();
        EndDrag();
    } else {
        mousePressEvent(event);  // the second click of a double click counts like any click
    }
}

void CSkinHeader::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new CSkinMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (list_.Sorting() != nullptr) {
        list_.Sorting()->AddOrdersTo(*menu);
        menu->addSeparator();
    }
    QAction* restore =
        menu->AddItem(list_.Widths().AreTold() ? CSkinMenu::disabled : CSkinMenu::normal, 0, -1,
                      ToQString(u8"恢复默认列宽"));
    connect(restore, &QAction::triggered, this, [this] {
        list_.Widths().RestoreAll();
        list_.LayColumns();
        EndDrag();
    });
    menu->popup(event->globalPos());
}

QString CSkinHeader::TipOf(const Hit& hit) const {
    switch (hit.what) {
        case Hit::What::border:
            return ToQString(u8"拖动改变列宽，双击恢复");
        case Hit::What::ticks:
            return ToQString(u8"勾选全部，或全部不勾选 (Ctrl+A)");
        case Hit::What::sort:
            return ToQString(u8"单击排序");
        default:
            return {};
    }
}

bool CSkinHeader::viewportEvent(QEvent* event) {
    switch (event->type()) {
        case QEvent::Leave:
            if (pressed_.what != Hit::What::border) {
                SetHover({});
            }
            break;
        case QEvent::ToolTip: {
            const auto* help = static_cast<QHelpEvent*>(event);
            if (const QString tip = TipOf(At(help->pos())); !tip.isEmpty()) {
                QToolTip::showText(help->globalPos(), tip, viewport());
            } else {
                QToolTip::hideText();
                event->ignore();
            }
            return true;
        }
        default:
            break;
    }
    return QHeaderView::viewportEvent(event);
}

}  // namespace quorvi

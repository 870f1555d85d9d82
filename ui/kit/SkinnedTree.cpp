#include "ui/kit/SkinnedTree.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include "ui/kit/PlainTip.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Look.h"
#include "ui/look/RoundCorners.h"
#include "ui/look/Theme.h"

namespace quorvi {

using look::Color;
using look::Metric;
using look::Size;

namespace {

// Characters of a text that a node shows: more than its width can hold.
constexpr qsizetype kShownCharacters = 1024;

// The part of a node's text that is painted: to lay out a name of a megabyte at each painting would
// freeze the window.
QString ShownText(const QModelIndex& index) {
    return index.data().toString().left(kShownCharacters);
}

QString IconOf(const QModelIndex& index) {
    return index.data(treeRoleIcon).toString();
}

// The colour that a node names for itself.
Color InkOf(const QModelIndex& index, int role, Color otherwise) {
    const QVariant ink = index.data(role);
    return ink.isValid() ? static_cast<Color>(ink.toInt()) : otherwise;
}

}  // namespace

template <typename Base>
class SkinnedTree<Base>::Delegate : public QStyledItemDelegate {
  public:
    explicit Delegate(SkinnedTree& tree) : QStyledItemDelegate(&tree), tree_(tree) {}

    void paint(QPainter* painter, const QStyleOptionViewItem&,
               const QModelIndex& index) const override {
        tree_.PaintNode(*painter, index);
    }
    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {0, Metric::treeRow};
    }
    // The tree handles the clicks itself.
    bool editorEvent(QEvent*, QAbstractItemModel*, const QStyleOptionViewItem&,
                     const QModelIndex&) override {
        return false;
    }

  private:
    SkinnedTree& tree_;
};

template <typename Base>
SkinnedTree<Base>::SkinnedTree(QWidget* parent)
    : Base(parent), status_(new ViewStatus(this->viewport())) {
    this->setFont(look::font(Size::s12));
    this->setHeaderHidden(true);
    this->setUniformRowHeights(true);
    this->setItemDelegate(new Delegate(*this));
    this->setIndentation(Metric::treeIndent);
    this->setEditTriggers(Base::NoEditTriggers);
    this->setSelectionMode(Base::SingleSelection);
    this->setExpandsOnDoubleClick(true);
    this->setVerticalScrollMode(Base::ScrollPerPixel);
    this->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    this->setFrameShape(QFrame::StyledPanel);
    this->setMouseTracking(true);
    // The style leaves a padding around the nodes; it gets the same colour as they have.
    look::SetPaletteColor(*this, QPalette::Window, Color::surface);
    look::SetPaletteColor(*this, QPalette::Window, Color::fieldOff, QPalette::Disabled);
    this->setAutoFillBackground(true);
    RoundCorners::Attach(*this);
}

// ---- what is shown -----------------------------------------------------------------------------

template <typename Base>
void SkinnedTree<Base>::SetRedraw(bool on) {
    if (redraw_ == on) {
        return;
    }
    frozen_ = !on && !IsVoid() ? this->viewport()->grab() : QPixmap();
    redraw_ = on;
    this->viewport()->update();
}

template <typename Base>
void SkinnedTree<Base>::paintEvent(QPaintEvent* event) {
    const bool loading = status_->Get() == ListState::loading;
    if (redraw_ && !IsVoid()) {
        Base::paintEvent(event);
    }
    QPainter painter(this->viewport());
    if (!redraw_ && !frozen_.isNull()) {
        painter.drawPixmap(0, 0, frozen_);
    } else if (loading && (!redraw_ || IsVoid())) {
        PaintSkeleton(painter);
    } else if (redraw_ && IsVoid()) {
        status_->PaintVoid(painter);
    } else if (redraw_ && !search_.nothing.isEmpty()) {
        status_->PaintNothingFound(painter, search_.nothing);
    }
    if (loading) {
        status_->PaintBar(painter);
    }
}

template <typename Base>
void SkinnedTree<Base>::PaintSkeleton(QPainter& painter) const {
    for (int row = 0; row < Metric::loadRows; ++row) {
        const int top = row * Metric::treeRow + (Metric::treeRow - Metric::skeletonLine) / 2;
        const int width = this->viewport()->width() / (row % 2 == 0 ? 2 : 3);
        ViewStatus::PaintBlock(
            painter, {Metric::treeIndent * (1 + row % 2), top, width, Metric::skeletonLine});
    }
    status_->PaintProgress(painter);
}

template <typename Base>
void SkinnedTree<Base>::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    QRect row = option.rect;
    row.setLeft(0);
    row.setRight(this->viewport()->width() - 1);
    const bool selected = this->selectionModel()->isSelected(index);
    if (selected || index == hover_) {
        look::plate(*painter, row, Metric::radiusSmall,
                    look::color(selected ? Color::rowSelected : Color::rowHover), Qt::transparent);
    }
    Base::drawRow(painter, option, index);
    if (FocusRing::ShownOn(this) && index == this->currentIndex()) {
        look::innerRing(*painter, row, Metric::radiusSmall);
    }
}

template <typename Base>
void SkinnedTree<Base>::drawBranches(QPainter* painter, const QRect& rect,
                                     const QModelIndex& index) const {
    if (!this->model()->hasChildren(index)) {
        return;
    }
    // Right before the contents.
    const QRect place(rect.right() + 1 - Metric::chevron, rect.top(), Metric::chevron,
                      rect.height());
    look::drawIcon(*painter, place, this->isExpanded(index) ? u"chevron-down" : u"chevron-right",
                   Metric::chevron, look::color(this->isEnabled() ? Color::ink2 : Color::inkOff));
}

template <typename Base>
QRect SkinnedTree<Base>::ContentRect(const QModelIndex& index) const {
    return this->visualRect(index);
}

template <typename Base>
int SkinnedTree<Base>::TextLeft(const QModelIndex& index) const {
    const int icon = IconOf(index).isEmpty() ? 0 : Metric::iconField + Metric::treeCellPadding;
    return Metric::treeCellPadding + MarkWidth() + icon;
}

template <typename Base>
void SkinnedTree<Base>::PaintNode(QPainter& painter, const QModelIndex& index) const {
    const bool selected = this->selectionModel()->isSelected(index);
    const bool off = !this->isEnabled();
    QRect area = ContentRect(index).adjusted(Metric::treeCellPadding, 0, 0, 0);
    PaintMark(painter, area, index);
    area.setLeft(area.left() + MarkWidth());
    if (const QString icon = IconOf(index); !icon.isEmpty()) {
        const Color ink = off        ? Color::inkOff
                          : selected ? Color::plum6
                                     : InkOf(index, treeRoleIconInk, Color::ink2);
        look::drawIcon(painter, QRectF(area.left(), area.top(), Metric::iconField, area.height()),
                       icon, Metric::iconField, look::color(ink));
    }
    const QRect words =
        ContentRect(index).adjusted(TextLeft(index), 0, -Metric::treeCellPadding, 0);
    const Color ink = off        ? Color::inkOff
                      : selected ? Color::plum7
                                 : InkOf(index, treeRoleTextInk, Color::ink);
    painter.setFont(this->font());
    painter.setPen(look::color(ink));
    const QString text = ShownText(index);
    const auto part = search_.partOf ? search_.partOf(text) : std::nullopt;
    if (part) {
        DrawFoundText(painter, words, text, this->font(), Qt::AlignLeft, *part, !off);
        return;
    }
    painter.drawText(words, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     this->fontMetrics().elidedText(text, Qt::ElideRight, words.width()));
}

// ---- mouse and keys ----------------------------------------------------------------------------

template <typename Base>
void SkinnedTree<Base>::mouseMoveEvent(QMouseEvent* event) {
    Base::mouseMoveEvent(event);
    if (const QModelIndex index = this->indexAt(event->position().toPoint()); index != hover_) {
        hover_ = index;
        this->viewport()->update();
    }
}

template <typename Base>
bool SkinnedTree<Base>::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        hover_ = QModelIndex();
        this->viewport()->update();
    } else if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QModelIndex index = this->indexAt(help->pos());
        const QString text = ShownText(index);
        const int space = ContentRect(index).width() - TextLeft(index) - Metric::treeCellPadding;
        if (index.isValid() && this->fontMetrics().horizontalAdvance(text) > space) {
            ShowPlainTip(help->globalPos(), text, this->viewport());
        } else {
            QToolTip::hideText();
        }
        return true;
    }
    return Base::viewportEvent(event);
}

template <typename Base>
bool SkinnedTree<Base>::IsHidden(QModelIndex index) const {
    while (index.isValid() && !this->isRowHidden(index.row(), index.parent())) {
        index = index.parent();
    }
    return index.isValid();
}

template <typename Base>
void SkinnedTree<Base>::keyPressEvent(QKeyEvent* event) {
    const QModelIndex current = this->currentIndex();
    switch (event->key()) {
        case Qt::Key_Space:
            if (current.isValid() && !IsHidden(current)) {
                Mark(current);
            }
            event->accept();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (current.isValid() && this->model()->hasChildren(current)) {
                this->setExpanded(current, !this->isExpanded(current));
                event->accept();
            } else {
                event->ignore();
            }
            return;
        default:
            Base::keyPressEvent(event);
    }
}

template class SkinnedTree<QTreeWidget>;
template class SkinnedTree<QTreeView>;

}  // namespace quorvi

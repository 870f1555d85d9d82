#include "ui/kit/SkinTree.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include "ui/kit/PlainTip.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Look.h"
#include "ui/look/RoundCorners.h"

namespace quorvi {

using look::Color;
using look::Metric;
using look::Size;

namespace {

// The role of a node's icon name.
constexpr int kIconRole = Qt::UserRole;

// Characters of a text that a node shows: more than its width can hold.
constexpr qsizetype kShownCharacters = 1024;

// The part of a node's text that is painted: to lay out a name of a megabyte at each painting would
// freeze the window.
QString ShownText(const QModelIndex& index) {
    return index.data().toString().left(kShownCharacters);
}

look::Tick TickOf(const QModelIndex& index) {
    switch (index.data(Qt::CheckStateRole).toInt()) {
        case Qt::Checked:
            return look::Tick::on;
        case Qt::PartiallyChecked:
            return look::Tick::mixed;
        default:
            return look::Tick::off;
    }
}

}  // namespace

class TreeDelegate : public QStyledItemDelegate {
  public:
    explicit TreeDelegate(CSkinTree& tree) : QStyledItemDelegate(&tree), tree_(tree) {}

    void paint(QPainter* painter, const QStyleOptionViewItem&,
               const QModelIndex& index) const override {
        tree_.PaintNode(*painter, index);
    }
    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {0, Metric::treeRow};
    }
    // CSkinTree handles the clicks itself.
    bool editorEvent(QEvent*, QAbstractItemModel*, const QStyleOptionViewItem&,
                     const QModelIndex&) override {
        return false;
    }

  private:
    CSkinTree& tree_;
};

CSkinTree::CSkinTree(QWidget* parent, Ticks ticks)
    : QTreeWidget(parent), ticks_(ticks), status_(new ViewStatus(viewport())) {
    setFont(look::font(Size::s12));
    setColumnCount(1);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setItemDelegate(new TreeDelegate(*this));
    setIndentation(Metric::treeIndent);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setExpandsOnDoubleClick(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::StyledPanel);
    setMouseTracking(true);
    // The style leaves a padding around the nodes; it gets the same colour as they have.
    QPalette ground = palette();
    ground.setColor(QPalette::Window, look::color(Color::surface));
    ground.setColor(QPalette::Disabled, QPalette::Window, look::color(Color::fieldOff));
    setPalette(ground);
    setAutoFillBackground(true);
    RoundCorners::Attach(*this);
}

// ---- nodes -------------------------------------------------------------------------------------

void CSkinTree::SetNodes(const std::vector<TreeNode>& nodes) {
    const QSignalBlocker quiet(this);
    clear();
    for (const TreeNode& node : nodes) {
        Add(invisibleRootItem(), node);
    }
    viewport()->update();
}

void CSkinTree::Add(QTreeWidgetItem* parent, const TreeNode& node) {
    auto* item = new QTreeWidgetItem(parent);
    item->setText(0, node.text);
    item->setData(0, kIconRole, node.icon);
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (ticks_ == Ticks::each) {
        flags |= Qt::ItemIsUserCheckable;
        if (!node.children.empty()) {
            flags |= Qt::ItemIsAutoTristate;
        }
        item->setCheckState(0, Qt::Unchecked);
    }
    item->setFlags(flags);
    for (const TreeNode& child : node.children) {
        Add(item, child);
    }
}

int CSkinTree::CurrentPosition() const {
    const QTreeWidgetItem* current = currentItem();
    int position = 0;
    for (QTreeWidgetItem* item = topLevelItem(0); item != nullptr; item = itemBelow(item)) {
        if (item == current) {
            return position;
        }
        ++position;
    }
    return -1;
}

// ---- ticks -------------------------------------------------------------------------------------

bool CSkinTree::IsTicked(const QTreeWidgetItem* item) const {
    return item->checkState(0) == Qt::Checked;
}

void CSkinTree::SetTicked(QTreeWidgetItem* item, bool on) {
    const QSignalBlocker quiet(this);
    item->setCheckState(0, on ? Qt::Checked : Qt::Unchecked);
    viewport()->update();
}

void CSkinTree::Flip(QTreeWidgetItem* item) {
    SetTicked(item, !IsTicked(item));
    Q_EMIT ticksChanged();
}

// Where a node's contents stand. A leaf needs no room for a chevron: it stands under its parent's
// contents.
QRect CSkinTree::ContentRect(const QModelIndex& index) const {
    QRect rect = visualRect(index);
    if (index.parent().isValid() && !model()->hasChildren(index)) {
        rect.setLeft(rect.left() - Metric::treeIndent);
    }
    return rect;
}

QRect CSkinTree::TickRect(const QTreeWidgetItem* item) const {
    if (ticks_ == Ticks::none) {
        return {};
    }
    const QRect row = ContentRect(indexFromItem(item));
    return {row.left(), row.top(), Metric::tickInRow + 2 * Metric::treeCellPadding, row.height()};
}

// ---- what is shown -----------------------------------------------------------------------------

void CSkinTree::SetRedraw(bool on) {
    if (redraw_ == on) {
        return;
    }
    frozen_ = !on && topLevelItemCount() > 0 ? viewport()->grab() : QPixmap();
    redraw_ = on;
    viewport()->update();
}

void CSkinTree::paintEvent(QPaintEvent* event) {
    const bool loading = status_->Get() == ListState::loading;
    if (redraw_ && topLevelItemCount() > 0) {
        QTreeWidget::paintEvent(event);
    }
    QPainter painter(viewport());
    if (!redraw_ && !frozen_.isNull()) {
        painter.drawPixmap(0, 0, frozen_);
    } else if (loading && (!redraw_ || topLevelItemCount() == 0)) {
        PaintSkeleton(painter);
    } else if (redraw_ && topLevelItemCount() == 0) {
        status_->PaintVoid(painter);
    }
    if (loading) {
        status_->PaintBar(painter);
    }
}

void CSkinTree::PaintSkeleton(QPainter& painter) const {
    for (int row = 0; row < Metric::loadRows; ++row) {
        const int top = row * Metric::treeRow + (Metric::treeRow - Metric::skeletonLine) / 2;
        const int width = viewport()->width() / (row % 2 == 0 ? 2 : 3);
        ViewStatus::PaintBlock(
            painter, {Metric::treeIndent * (1 + row % 2), top, width, Metric::skeletonLine});
    }
    status_->PaintProgress(painter);
}

void CSkinTree::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    QRect row = option.rect;
    row.setLeft(0);
    row.setRight(viewport()->width() - 1);
    const bool selected = selectionModel()->isSelected(index);
    if (selected || index == hover_) {
        look::plate(*painter, row, Metric::radiusSmall,
                    look::color(selected ? Color::rowSelected : Color::rowHover), Qt::transparent);
    }
    QTreeWidget::drawRow(painter, option, index);
    if (FocusRing::ShownOn(this) && index == currentIndex()) {
        look::innerRing(*painter, row, Metric::radiusSmall);
    }
}

void CSkinTree::drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const {
    if (!model()->hasChildren(index)) {
        return;
    }
    const QRect place(rect.right() + 1 - Metric::treeIndent, rect.top(), Metric::treeIndent,
                      rect.height());
    look::drawIcon(*painter, place, isExpanded(index) ? u"chevron-down" : u"chevron-right",
                   Metric::chevron, look::color(isEnabled() ? Color::ink2 : Color::inkOff));
}

void CSkinTree::PaintNode(QPainter& painter, const QModelIndex& index) const {
    const bool selected = selectionModel()->isSelected(index);
    QRect area =
        ContentRect(index).adjusted(Metric::treeCellPadding, 0, -Metric::treeCellPadding, 0);
    if (ticks_ == Ticks::each) {
        const int side = Metric::tickInRow;
        look::paintTick(painter, QRectF(area.left(), area.center().y() + 1 - side / 2, side, side),
                        TickOf(index), {.enabled = isEnabled()});
        area.setLeft(area.left() + side + Metric::treeCellPadding);
    }
    const QString icon = index.data(kIconRole).toString();
    if (!icon.isEmpty()) {
        look::drawIcon(painter, QRectF(area.left(), area.top(), Metric::iconField, area.height()),
                       icon, Metric::iconField,
                       look::color(!isEnabled() ? Color::inkOff
                                   : selected   ? Color::plum6
                                                : Color::ink2));
        area.setLeft(area.left() + Metric::iconField + Metric::treeCellPadding);
    }
    painter.setFont(font());
    painter.setPen(look::color(!isEnabled() ? Color::inkOff
                               : selected   ? Color::plum7
                                            : Color::ink));
    painter.drawText(area, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     fontMetrics().elidedText(ShownText(index), Qt::ElideRight, area.width()));
}

// ---- mouse and keys ----------------------------------------------------------------------------

void CSkinTree::mousePressEvent(QMouseEvent* event) {
    QTreeWidget::mousePressEvent(event);
    QTreeWidgetItem* item = itemAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || item == nullptr) {
        return;
    }
    if (TickRect(item).contains(event->position().toPoint())) {
        Flip(item);
    }
    Q_EMIT nodeClicked(item);
}

void CSkinTree::mouseDoubleClickEvent(QMouseEvent* event) {
    QTreeWidgetItem* item = itemAt(event->position().toPoint());
    if (item != nullptr && TickRect(item).contains(event->position().toPoint())) {
        Flip(item);  // the second click of a double click counts like any click
        return;
    }
    QTreeWidget::mouseDoubleClickEvent(event);
}

void CSkinTree::mouseMoveEvent(QMouseEvent* event) {
    QTreeWidget::mouseMoveEvent(event);
    if (const QModelIndex index = indexAt(event->position().toPoint()); index != hover_) {
        hover_ = index;
        viewport()->update();
    }
}

bool CSkinTree::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        hover_ = QModelIndex();
        viewport()->update();
    } else if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QModelIndex index = indexAt(help->pos());
        const QString text = ShownText(index);
        // The width that PaintNode leaves for the text.
        int space = ContentRect(index).width() - 2 * Metric::treeCellPadding;
        if (ticks_ == Ticks::each) {
            space -= Metric::tickInRow + Metric::treeCellPadding;
        }
        if (!index.data(kIconRole).toString().isEmpty()) {
            space -= Metric::iconField + Metric::treeCellPadding;
        }
        if (index.isValid() && fontMetrics().horizontalAdvance(text) > space) {
            ShowPlainTip(help->globalPos(), text, viewport());
        } else {
            QToolTip::hideText();
        }
        return true;
    }
    return QTreeWidget::viewportEvent(event);
}

void CSkinTree::keyPressEvent(QKeyEvent* event) {
    QTreeWidgetItem* item = currentItem();
    switch (event->key()) {
        case Qt::Key_Space:
            if (item != nullptr && ticks_ == Ticks::each) {
                Flip(item);
            }
            event->accept();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (item != nullptr && item->childCount() > 0) {
                item->setExpanded(!item->isExpanded());
                event->accept();
            } else {
                event->ignore();
            }
            return;
        default:
            QTreeWidget::keyPressEvent(event);
    }
}

}  // namespace quorvi

#include "ui/kit/SkinTree.h"

#include <QMouseEvent>
#include <algorithm>

#include "ui/look/Look.h"

namespace quorvi {

using look::Metric;

namespace {

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

CSkinTree::CSkinTree(QWidget* parent, Ticks ticks) : SkinnedTree(parent), ticks_(ticks) {
    setColumnCount(1);
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
    item->setData(0, treeRoleIcon, node.icon);
    if (!node.find.isNull()) {
        item->setData(0, treeRoleFind, node.find);
    }
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

// The children of a node that can be seen, where some cannot; none where all can.
std::vector<QTreeWidgetItem*> CSkinTree::Narrowed(const QTreeWidgetItem* item) const {
    std::vector<QTreeWidgetItem*> seen;
    const QModelIndex index = indexFromItem(item);
    for (int row = 0; row < item->childCount(); ++row) {
        if (!isRowHidden(row, index)) {
            seen.push_back(item->child(row));
        }
    }
    return seen.size() == static_cast<std::size_t>(item->childCount())
               ? std::vector<QTreeWidgetItem*>()
               : seen;
}

void CSkinTree::Flip(QTreeWidgetItem* item) {
    const std::vector<QTreeWidgetItem*> seen = Narrowed(item);
    if (seen.empty()) {
        SetTicked(item, !IsTicked(item));
    } else {
        const bool on = !std::ranges::all_of(
            seen, [this](const QTreeWidgetItem* child) { return IsTicked(child); });
        for (QTreeWidgetItem* child : seen) {
            SetTicked(child, on);
        }
    }
    Q_EMIT ticksChanged();
}

void CSkinTree::Mark(const QModelIndex& index) {
    if (ticks_ == Ticks::each) {
        Flip(itemFromIndex(index));
    }
}

// A leaf needs no room for a chevron: its box, or its icon, stands under its parent's.
QRect CSkinTree::ContentRect(const QModelIndex& index) const {
    QRect rect = SkinnedTree::ContentRect(index);
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

int CSkinTree::MarkWidth() const {
    return ticks_ == Ticks::each ? Metric::tickInRow + Metric::treeCellPadding : 0;
}

void CSkinTree::PaintMark(QPainter& painter, const QRect& area, const QModelIndex& index) const {
    if (ticks_ == Ticks::each) {
        const int side = Metric::tickInRow;
        look::paintTick(painter, QRectF(area.left(), area.center().y() + 1 - side / 2, side, side),
                        TickOf(index), {.enabled = isEnabled()});
    }
}

// ---- mouse -------------------------------------------------------------------------------------

void CSkinTree::mousePressEvent(QMouseEvent* event) {
    SkinnedTree::mousePressEvent(event);
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
    SkinnedTree::mouseDoubleClickEvent(event);
}

// ---- a tree over a model -----------------------------------------------------------------------

void SkinTreeView::SetTopExpanded(bool open) {
    QModelIndex shown = currentIndex();
    while (!open && shown.parent().isValid()) {
        shown = shown.parent();
    }
    if (shown != currentIndex()) {
        setCurrentIndex(shown);
    }
    if (model() == nullptr) {
        return;
    }
    // Laid out once behind all of them, and not once for each.
    scheduleDelayedItemsLayout();
    for (int row = 0; row < model()->rowCount(); ++row) {
        setExpanded(model()->index(row, 0), open);
    }
    executeDelayedItemsLayout();
}

}  // namespace quorvi

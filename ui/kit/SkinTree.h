// The trees of the kit.
#pragma once

#include <vector>

#include "ui/kit/SkinnedTree.h"

namespace quorvi {

// A node and what hangs below it, handed over whole.
struct TreeNode {
    QString text;
    QString icon = {};  // a name of look::icon; empty for none
    std::vector<TreeNode> children = {};
    QString find = {};  // what it is searched by; null for its text
};

// A tree that holds its nodes. With ticks each node has a box: a node that has children ticks and
// unticks them all, and is half ticked while only some of them are; Space flips the tick. Of nodes
// that are hidden none is ticked or unticked by that. The window's thread.
class CSkinTree : public SkinnedTree<QTreeWidget> {
    Q_OBJECT
  public:
    enum class Ticks { none, each };

    explicit CSkinTree(QWidget* parent = nullptr, Ticks ticks = Ticks::none);

    // Replaces all nodes, closed and unticked.
    void SetNodes(const std::vector<TreeNode>& nodes);
    void Clear() { SetNodes({}); }
    // The position of the selected node among those that can be seen, from the top; -1 for none.
    [[nodiscard]] int CurrentPosition() const;

    [[nodiscard]] bool IsTicked(const QTreeWidgetItem* item) const;
    // Ticks a node as a click would, without telling.
    void SetTicked(QTreeWidgetItem* item, bool on);

    // Where the tick of a node is hit, in the viewport's coordinates; empty without ticks.
    [[nodiscard]] QRect TickRect(const QTreeWidgetItem* item) const;

  Q_SIGNALS:
    // The user flipped a tick; all that follows from it has been done.
    void ticksChanged();
    // A left click on a node.
    void nodeClicked(QTreeWidgetItem* item);

  protected:
    [[nodiscard]] QRect ContentRect(const QModelIndex& index) const override;
    [[nodiscard]] int MarkWidth() const override;
    void PaintMark(QPainter& painter, const QRect& area, const QModelIndex& index) const override;
    void Mark(const QModelIndex& index) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    void Add(QTreeWidgetItem* parent, const TreeNode& node);
    void Flip(QTreeWidgetItem* item);
    [[nodiscard]] std::vector<QTreeWidgetItem*> Narrowed(const QTreeWidgetItem* item) const;

    Ticks ticks_;
};

// A tree over a model, which may be large: a node costs nothing until it is painted. The window's
// thread.
class SkinTreeView : public SkinnedTree<QTreeView> {
    Q_OBJECT
  public:
    using SkinnedTree::SkinnedTree;

    // Opens or closes the nodes of the top level, and none below. A node that was current and is
    // hidden then leaves that to the one that hides it.
    void ExpandTop() { SetTopExpanded(true); }
    void CollapseTop() { SetTopExpanded(false); }

  private:
    void SetTopExpanded(bool open);
};

}  // namespace quorvi

// The tree of the kit.
#pragma once

#include <QPixmap>
#include <QTreeWidget>
#include <vector>

#include "ui/kit/ViewStatus.h"

namespace quorvi {

// A node and what hangs below it, handed over whole.
struct TreeNode {
    QString text;
    QString icon = {};  // a name of look::icon; empty for none
    std::vector<TreeNode> children = {};
};

// A tree of rows of 28. With ticks each node has a box: a node that has children ticks and unticks
// them all, and is half ticked while only some of them are. Keys: arrows move, open and close;
// Space flips the tick; Enter opens or closes. The window's thread.
class CSkinTree : public QTreeWidget {
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

    // Redraw off keeps the tree as it is on the screen. On shows its nodes.
    void SetRedraw(bool on);
    [[nodiscard]] bool Redraw() const { return redraw_; }
    [[nodiscard]] ViewStatus& Status() { return *status_; }

    // Where the tick of a node is hit, in the viewport's coordinates; empty without ticks.
    [[nodiscard]] QRect TickRect(const QTreeWidgetItem* item) const;

  Q_SIGNALS:
    // The user flipped a tick; all that follows from it has been done.
    void ticksChanged();
    // A left click on a node.
    void nodeClicked(QTreeWidgetItem* item);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void drawBranches(QPainter* painter, const QRect& rect,
                      const QModelIndex& index) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;

  private:
    friend class TreeDelegate;

    void Add(QTreeWidgetItem* parent, const TreeNode& node);
    void Flip(QTreeWidgetItem* item);
    void PaintNode(QPainter& painter, const QModelIndex& index) const;
    [[nodiscard]] QRect ContentRect(const QModelIndex& index) const;
    void PaintSkeleton(QPainter& painter) const;

    Ticks ticks_;
    ViewStatus* status_;
    QPersistentModelIndex hover_;
    bool redraw_ = true;
    QPixmap frozen_;
};

}  // namespace quorvi

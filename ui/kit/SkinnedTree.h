// How every tree of the kit looks, and what its keys do.
#pragma once

#include <QPersistentModelIndex>
#include <QPixmap>
#include <QTreeView>
#include <QTreeWidget>
#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

#include "ui/kit/FoundText.h"
#include "ui/kit/ViewStatus.h"

namespace quorvi {

// What a node tells of itself besides its text.
enum TreeRole : std::uint16_t {
    treeRoleIcon = Qt::UserRole,  // QString: a name of look::icon; empty for none
    treeRoleIconInk,              // int: a look::Color; ink-2 where there is none
    treeRoleTextInk,              // int: a look::Color; ink where there is none
    treeRoleFind,                 // QString: what it is searched by; its text where there is none
};

// What a tree shows while something is looked for in it.
struct TreeSearch {
    // The part of a node's text that was looked for.
    std::function<std::optional<TextPart>(const QString& text)> partOf = {};
    // The headline in place of the nodes, when none is found; empty otherwise.
    QString nothing = {};
};

// A tree in which one can look for something (see ui/list/TreeFind.h).
class SearchedTree {
  public:
    virtual ~SearchedTree() = default;

    [[nodiscard]] virtual QTreeView& View() = 0;
    // An empty one while nothing is looked for.
    virtual void SetSearch(TreeSearch search) = 0;
};

// `Base` is QTreeWidget, or QTreeView with a model of its own. Rows of 28. Keys: arrows move, open
// and close; Enter opens or closes. The window's thread.
template <typename Base>
class SkinnedTree : public Base, public SearchedTree {
  public:
    explicit SkinnedTree(QWidget* parent);

    [[nodiscard]] QTreeView& View() override { return *this; }
    void SetSearch(TreeSearch search) override {
        search_ = std::move(search);
        this->viewport()->update();
    }

    // Redraw off keeps the tree as it is on the screen. On shows its nodes.
    void SetRedraw(bool on);
    [[nodiscard]] bool Redraw() const { return redraw_; }
    [[nodiscard]] ViewStatus& Status() { return *status_; }
    // See ViewStatus::SetProgress.
    void SetLoadProgress(std::uint64_t have, std::uint64_t total) {
        status_->SetProgress(have, total);
    }

  protected:
    // Where a node's contents stand.
    [[nodiscard]] virtual QRect ContentRect(const QModelIndex& index) const;
    // The room of what is painted in front of a node's icon, and its painting.
    [[nodiscard]] virtual int MarkWidth() const { return 0; }
    virtual void PaintMark(QPainter& /*painter*/, const QRect& /*area*/,
                           const QModelIndex& /*index*/) const {}
    // The Space key.
    virtual void Mark(const QModelIndex& /*index*/) {}
    // Whether a node, or one above it, was taken out of sight.
    [[nodiscard]] bool IsHidden(QModelIndex index) const;

    void paintEvent(QPaintEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void drawBranches(QPainter* painter, const QRect& rect,
                      const QModelIndex& index) const override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;

  private:
    class Delegate;

    [[nodiscard]] bool IsVoid() const { return !this->model() || this->model()->rowCount() == 0; }
    void PaintNode(QPainter& painter, const QModelIndex& index) const;
    void PaintSkeleton(QPainter& painter) const;
    // Where the text of a node begins, from the left of its contents.
    [[nodiscard]] int TextLeft(const QModelIndex& index) const;

    ViewStatus* status_;
    QPersistentModelIndex hover_;
    bool redraw_ = true;
    QPixmap frozen_;
    TreeSearch search_;
};

extern template class SkinnedTree<QTreeWidget>;
extern template class SkinnedTree<QTreeView>;

}  // namespace quorvi

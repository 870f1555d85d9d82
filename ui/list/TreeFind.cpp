#include "ui/list/TreeFind.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <utility>

#include "ui/kit/FindBar.h"
#include "ui/kit/QtText.h"
#include "ui/kit/TextUnits.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

QString SearchedText(const QModelIndex& node) {
    const QVariant text = node.data(treeRoleFind);
    return text.isNull() ? node.data().toString() : text.toString();
}

}  // namespace

TreeFind::TreeFind(SearchedTree& tree)
    : QObject(&tree.View()),
      searched_(tree),
      tree_(tree.View()),
      bar_(new FindBar(tree_, ToQString(u8"名称、拼音或号码"), &tree_)) {
    tree_.installEventFilter(this);
    connect(bar_, &FindBar::openAsked, this, &TreeFind::Open);
    connect(bar_, &FindBar::typed, this, &TreeFind::Narrow);
    connect(bar_, &FindBar::closeAsked, this, &TreeFind::Close);
    connect(bar_, &FindBar::listAsked, this, &TreeFind::GoToTree);
    const QAbstractItemModel* model = tree_.model();
    connect(model, &QAbstractItemModel::modelReset, this, &TreeFind::OnNodesChanged);
    connect(model, &QAbstractItemModel::rowsInserted, this, &TreeFind::OnNodesChanged);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &TreeFind::OnNodesChanged);
}

void TreeFind::LeaveKey() {
    bar_->LeaveKey();
}

bool TreeFind::IsOpen() const {
    return bar_->IsOpen();
}

void TreeFind::Open() {
    if (!IsOpen()) {
        offset_ = tree_.verticalScrollBar()->value();
        current_ = tree_.currentIndex();
        ReadNodes();  // now, so that no key has to wait for it
        bar_->SetOpen(true);
        tree_.setHeaderHidden(false);
        PlaceBar();
    }
    bar_->TakeFocus();
}

void TreeFind::Close() {
    if (!IsOpen()) {
        return;
    }
    bar_->SetOpen(false);
    tree_.setHeaderHidden(true);
    bar_->SetText({});  // shows all nodes again
    index_.Clear();
    isStale_ = true;
    tree_.doItemsLayout();  // the range of the scroll bar comes with it
    if (current_ == tree_.currentIndex()) {
        tree_.verticalScrollBar()->setValue(offset_);
    } else {
        tree_.scrollTo(tree_.currentIndex());  // opens what it hangs below
    }
    tree_.setFocus(Qt::OtherFocusReason);
}

// The head of the tree, which is hidden otherwise, makes the room; the bar lies over it and the
// padding around it, which a tree has once it was shown.
void TreeFind::PlaceBar() {
    const int line = look::Metric::hairline;
    tree_.header()->setFixedHeight(bar_->height() + line - tree_.frameWidth());
    bar_->setGeometry(line, line, tree_.width() - 2 * line, bar_->height());
    bar_->raise();
}

bool TreeFind::eventFilter(QObject* object, QEvent* event) {
    if (object == &tree_ && (event->type() == QEvent::Resize || event->type() == QEvent::Show)) {
        PlaceBar();
    }
    return QObject::eventFilter(object, event);
}

void TreeFind::OnNodesChanged() {
    isStale_ = true;
    if (!IsOpen() || std::exchange(isToBeRead_, true)) {
        return;
    }
    QMetaObject::invokeMethod(
        this,
        [this] {
            isToBeRead_ = false;
            Narrow();
        },
        Qt::QueuedConnection);
}

void TreeFind::ReadNodes() {
    if (!std::exchange(isStale_, false)) {
        return;
    }
    index_.Clear();
    branches_.clear();
    const auto add = [this](int row, const QModelIndex& parent) {
        const QModelIndex node = tree_.model()->index(row, 0, parent);
        index_.AddRow();
        const QString text = SearchedText(node);
        const qsizetype line = text.indexOf(u'\n');
        index_.AddText(Units(line < 0 ? text : text.left(line)), FindKind::name);
        if (line >= 0) {
            index_.AddText(Units(text.mid(line + 1)), FindKind::number);
        }
        if (tree_.isRowHidden(row, parent)) {
            tree_.setRowHidden(row, parent, false);
        }
        return node;
    };
    for (int top = 0; top < tree_.model()->rowCount(); ++top) {
        Branch branch{index_.RowCount(), 0, false};
        const QModelIndex node = add(top, {});
        branch.children = tree_.model()->rowCount(node);
        branch.wasOpen = tree_.isExpanded(node);
        for (int row = 0; row < branch.children; ++row) {
            add(row, node);
        }
        branches_.push_back(branch);
    }
    hidden_.assign(index_.RowCount(), 0);
}

void TreeFind::Narrow() {
    const bool narrowed = !query_.IsEmpty();
    query_ = FindQuery(Units(bar_->Text()));
    if (query_.IsEmpty()) {
        bar_->SetFound(std::nullopt);
        searched_.SetSearch({});
        if (narrowed) {
            ShowAll();
        }
        return;
    }
    ReadNodes();
    if (!narrowed) {
        RememberOpen();
    }
    const std::vector<int> found = index_.Find(query_);
    // A tree that is on its way has nothing to count.
    bar_->SetFound(branches_.empty() ? std::nullopt : std::optional(found.size()));
    TreeSearch search{.partOf = [this](const QString& text) -> std::optional<TextPart> {
        const auto part = query_.In(Folded(Units(text)), FindKind::name);
        return part ? std::optional(
                          TextPart{static_cast<int>(part->begin), static_cast<int>(part->length)})
                    : std::nullopt;
    }};
    if (found.empty()) {
        search.nothing = bar_->NothingFound();
    }
    searched_.SetSearch(std::move(search));
    Show(found);
}

void TreeFind::RememberOpen() {
    for (std::size_t top = 0; top < branches_.size(); ++top) {
        branches_[top].wasOpen = tree_.isExpanded(tree_.model()->index(static_cast<int>(top), 0));
    }
}

void TreeFind::Hide(std::size_t place, int row, const QModelIndex& parent, bool hidden) {
    if (std::exchange(hidden_[place], static_cast<char>(hidden)) != static_cast<char>(hidden)) {
        tree_.setRowHidden(row, parent, hidden);
    }
}

void TreeFind::ShowAll() {
    if (isStale_) {
        ReadNodes();  // shows them
        return;
    }
    for (std::size_t top = 0; top < branches_.size(); ++top) {
        const Branch& branch = branches_[top];
        const QModelIndex node = tree_.model()->index(static_cast<int>(top), 0);
        Hide(branch.place, node.row(), {}, false);
        for (int row = 0; row < branch.children; ++row) {
            Hide(branch.place + 1 + static_cast<std::size_t>(row), row, node, false);
        }
        tree_.setExpanded(node, branch.wasOpen);
    }
}

// What is below a hidden node is left as it is.
void TreeFind::Show(const std::vector<int>& found) {
    std::vector<char> isFound(hidden_.size());
    for (const int place : found) {
        isFound[static_cast<std::size_t>(place)] = 1;
    }
    for (std::size_t top = 0; top < branches_.size(); ++top) {
        const Branch& branch = branches_[top];
        const QModelIndex node = tree_.model()->index(static_cast<int>(top), 0);
        const std::size_t first = branch.place + 1;
        const std::size_t end = first + static_cast<std::size_t>(branch.children);
        bool hasFound = false;
        for (std::size_t place = first; place < end && !hasFound; ++place) {
            hasFound = isFound[place] != 0;
        }
        const bool itself = isFound[branch.place] != 0;
        Hide(branch.place, node.row(), {}, !itself && !hasFound);
        if (!itself && !hasFound) {
            continue;
        }
        for (std::size_t place = first; place < end; ++place) {
            Hide(place, static_cast<int>(place - first), node, !itself && isFound[place] == 0);
        }
        tree_.setExpanded(node, hasFound || branch.wasOpen);
    }
}

// To the current node, or where that is not shown to the first that is.
void TreeFind::GoToTree() {
    tree_.setFocus(Qt::OtherFocusReason);
    if (tree_.visualRect(tree_.currentIndex()).isEmpty()) {
        if (const QModelIndex first = tree_.indexAt({}); first.isValid()) {
            tree_.setCurrentIndex(first);
        }
    }
}

}  // namespace quorvi

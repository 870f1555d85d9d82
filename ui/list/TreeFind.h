// Finding in a tree: nodes narrow while one types.
#pragma once

#include <QObject>
#include <vector>

#include "find/FindIndex.h"
#include "ui/kit/SkinnedTree.h"

namespace quorvi {

class FindBar;

// From anywhere in the tree's window Ctrl+F opens a bar over the nodes and Escape closes it, and
// the tree is as it was. Searched are the nodes of the two upper levels by their treeRoleFind, or
// else their text: its first line as a name, the rest as a number. A node of the top level is shown
// while it or one of those below it is found: found itself, with all that is below it; otherwise
// open, with those that are found. Nodes that are hidden keep their ticks and the selection. Nodes
// that come while the bar is open are narrowed, too. The window's thread.
class TreeFind : public QObject {
    Q_OBJECT
  public:
    // The tree has its model, and owns what is made here.
    explicit TreeFind(SearchedTree& tree);

    // Ctrl+F is heeded by whom the tree belongs to, from now on.
    void LeaveKey();

    [[nodiscard]] bool IsOpen() const;
    void Open();
    void Close();

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    // A node of the top level, and where it stands among all that are searched; those below it
    // follow it there.
    struct Branch {
        std::size_t place;
        int children;
        bool wasOpen;  // before something was looked for
    };

    void PlaceBar();
    void OnNodesChanged();
    void Narrow();
    void ReadNodes();
    void RememberOpen();
    void ShowAll();
    void Show(const std::vector<int>& found);
    void Hide(std::size_t place, int row, const QModelIndex& parent, bool hidden);
    void GoToTree();

    SearchedTree& searched_;
    QTreeView& tree_;
    FindBar* bar_;
    FindQuery query_;
    FindIndex index_;
    std::vector<Branch> branches_;
    std::vector<char> hidden_;  // one for each node that is searched
    bool isStale_ = true;       // what was read is not what stands in the tree
    bool isToBeRead_ = false;
    int offset_ = 0;  // how far the tree was scrolled when the bar opened
    QPersistentModelIndex current_;
};

}  // namespace quorvi

// Finding in a list: rows narrow while one types.
#pragma once

#include <QObject>
#include <QString>
#include <optional>

#include "find/FindIndex.h"

namespace quorvi {

class CSkinListCtrl;
class FindBar;

// From anywhere in the list's window Ctrl+F opens the bar and Escape closes it, and the list is as
// it was. Searched is the column of names: its first line as a name, its second as a number. Rows
// that come while it is open are narrowed, too. The window's thread.
class ListFind : public QObject {
    Q_OBJECT
  public:
    explicit ListFind(CSkinListCtrl& list);

    [[nodiscard]] bool IsOpen() const;
    void Open();
    void Close();

    // The list's rows have changed: they are searched again once control is back in the event loop.
    void OnRowsChanged();

    // The part of a text that was looked for; none where nothing is.
    [[nodiscard]] std::optional<FoundPart> PartOf(const QString& text, FindKind kind) const;
    // What the list says while it shows no row; empty while nothing is looked for.
    [[nodiscard]] QString NothingFound() const;

  private:
    void Narrow();
    void ReadRows();
    void GoToList();

    CSkinListCtrl& list_;
    FindBar* bar_;
    FindQuery query_;
    FindIndex index_;
    bool isStale_ = true;  // index_ does not have the rows as they are
    bool isToBeRead_ = false;
    int offset_ = 0;     // how far the list was scrolled when the bar opened
    int selected_ = -1;  // and the row that was selected
};

}  // namespace quorvi

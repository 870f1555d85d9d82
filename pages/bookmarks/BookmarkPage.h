// The bookmark page: the bookmarks of the phone's browser, to be looked at, opened on the PC,
// added, changed and deleted.
#pragma once

#include <string_view>
#include <vector>

#include "pages/bookmarks/BookmarkForm.h"
#include "pages/bookmarks/BookmarkListCtrl.h"
#include "pages/kit/FileTransfers.h"
#include "pages/kit/FormEditor.h"
#include "pages/kit/ListRoad.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "ui/page/Page.h"

namespace quorvi {

class SkinDialog;

// Page 16, dialog 376, key 7 in PageLoadState. The list stands in the order that the agent gives
// it. One worker at most; a refresh while it runs is dropped. The controls of a second store, on
// the PC, are made and never shown: there is no such store yet.
class CBookmarkPage : public Page, private ListObserver {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kBookmarksPage;
    enum Command { commandRefresh, commandAdd, commandEdit, commandDelete };

    CBookmarkPage(PageHost& host, const Services& services, QWidget* parent = nullptr);

    void RefreshBookmarks() { road_.Refresh(); }

    void Load() override { RefreshBookmarks(); }

    // Open the editor; once it has ended with Accepted the list is fetched again. The second one
    // does nothing before a row was selected.
    void AddBookmark();
    void EditSelected();
    // Asks, deletes, and fetches the list again, whether the phone was reached or not.
    void DeleteTicked();
    // The same with the ticked ones, or else the selected one.
    void DeleteChosen() { Delete(list_->ChosenRows()); }
    // The question whether an address (ANSI) that is no web page's is to be opened; it shows the
    // address in full.
    [[nodiscard]] static SkinDialog* NewQuestion(std::string_view url, QWidget* parent);

  private:
    void RunCommand(int index) override;
    void OnLinkClicked(int kind, int row) override;
    void MakeHiddenControls();
    void Select(int row);
    void Delete(const std::vector<int>& rows);
    // Opens its address on the PC: that of a web page at once, any other after a question.
    void Visit(const BookmarkRow& bookmark);
    void OpenAddress(const QString& address);
    void OpenMenu(int row, const QPoint& at);

    AgentAddress agent_;
    CBookmarkListCtrl* list_;
    ListRoad road_;
    // The bookmark that was selected last, as its row showed it then. A refresh leaves it as it
    // is, and the editor begins with it: kept on purpose (test
    // BookmarkPage.TheEditorShowsTheBookmarkOfTheLastClickAfterARefreshToo).
    BookmarkForm selected_;
    UnsavedForms<BookmarkForm> unsaved_;
    FileTransfers transfers_;
};

}  // namespace quorvi

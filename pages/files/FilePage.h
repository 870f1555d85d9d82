// The file page: the phone's folders, to be looked at and walked through.
#pragma once

#include <QShowEvent>
#include <cstdint>
#include <optional>
#include <string>

#include "agent/AgentAddress.h"
#include "pages/files/FileListCtrl.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "ui/page/FocusKeeper.h"
#include "ui/page/Page.h"
#include "ui/page/PageLoad.h"

namespace quorvi {

// Page 15, dialog 405, key 6 in PageLoadState. The list holds one folder at a time, in the order
// that the agent gives it. While a folder is fetched the page is disabled: one exchange at a time,
// and what is shown is what was asked for last. Of the buttons all but 向上 are hidden and do
// nothing.
class CFilePage : public Page {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kFilesPage;
    enum Command { commandRoot };

    CFilePage(PageHost& host, const Services& services, QWidget* parent = nullptr);

    // Fetches the root. When the phone has nothing to tell, the list stays without redraw and key 6
    // at 0: kept on purpose, the next visit of the page fetches the root again then (test
    // FilePageEarlyEnd.OfTheRootLeavesRedrawOffAndTheNextVisitLoadsAgain).
    void ShowRoot();
    // Fetches the folder of an ANSI path. The load key knows nothing of it.
    void ShowDirectory(const std::string& path);
    // Fetches what the agent has named as the parent of the folder that is shown: the page knows
    // nothing of paths, and sends an empty one before the first reply.
    void ShowParent() { ShowDirectory(parentPath_); }

    // Fetches once more what was asked for last.
    void ShowAgain();

    void Load() override { ShowRoot(); }

  protected:
    void RunCommand(int index) override;
    void showEvent(QShowEvent* event) override;

  private:
    void MakeHiddenButtons();
    // Opens a row that is a folder.
    void Open(int row);
    void BeginLoad();
    LoadEnd EndLoad(FileReply reply);

    AgentAddress agent_;
    CFileListCtrl* list_;
    PageLoad rootLoad_;
    PageLoad folderLoad_;
    std::optional<FocusKeeper> focus_;  // while the page is disabled
    std::optional<std::string> asked_;  // the folder that was asked for last; none for the root
    std::string parentPath_;
    std::uint32_t parentFlag_ = 0;  // nothing is made of it
};

}  // namespace quorvi

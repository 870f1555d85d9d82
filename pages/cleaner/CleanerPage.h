// The cleaner's page: what can be cleaned on the phone, to be chosen and cleaned.
#pragma once

#include "pages/cleaner/CleanListCtrl.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "ui/page/Page.h"
#include "ui/page/PageLoad.h"

namespace quorvi {

class CSkinStateLabel;

// Page 42, dialog 599, key 12 in PageLoadState. The fixed items stand in the list as soon as a scan
// begins, and stay however it ends; applications come behind them. One worker at most; a scan while
// it runs is dropped.
//
// Button 1199, 使用帮助, leads nowhere.
class CCleanerPage : public Page {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kCleanerPage;
    enum Command { commandScan, commandClean };

    CCleanerPage(PageHost& host, const Services& services, QWidget* parent = nullptr);

    // Has the phone look for caches. A reply that is not whole although the agent was reached
    // leaves the list without redraw, and the words of the scan standing: kept on purpose, as
    // other lists do (CleanerPageEarlyEnd.LeavesTheFixedRowsTheWordsOfTheScanAndNoRedraw).
    void Scan();

    void Load() override { Scan(); }

    // Cleans what is ticked, without a question. With nothing ticked the request goes out all the
    // same. The list is not read again: kept on purpose, it shows the sizes that the user chose by
    // until the next scan (CleanerPage.ACleanedListKeepsItsSizesUntilTheNextScan).
    void CleanChecked();

  private:
    void RunCommand(int index) override;
    [[nodiscard]] QWidget* MakeFoot();
    void Show(CleanListReply&& reply);
    // Turns redraw off with the rows and ticks of now on the screen.
    void KeepOnScreen();

    AgentAddress agent_;
    PageLoad load_;
    CleanListCtrl* list_;
    CSkinStateLabel* state_;
};

}  // namespace quorvi

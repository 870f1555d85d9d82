// The auto-start page: which applications the phone starts on which event.
#pragma once

#include "pages/autostart/AutoStart.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "ui/page/Page.h"
#include "ui/page/PageLoad.h"

namespace quorvi {

class AutoStartModel;
class SkinTreeView;

// Page 43, dialog 422, key 13 in PageLoadState. It only reads. One worker at most; a refresh while
// it runs is dropped.
class CAutoStartPage : public Page {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kAutoStartPage;
    enum Command { commandRefresh, commandExpandAll, commandCollapseAll };

    CAutoStartPage(PageHost& host, const Services& services, QWidget* parent = nullptr);

    // Empties the tree, without redraw and marked as loading, and reads it anew. A reply that broke
    // off, or in which a name is absent, leaves the tree empty and without redraw until a later
    // load gets further: kept on purpose, so that nothing calls it an empty list (test
    // AutoStartPageEarlyEnd.LeavesRedrawOffUntilALaterLoadGetsFurther).
    void Refresh();
    // Open and close the events alone, so that the names of the packages stay folded: kept on
    // purpose (test AutoStartPage.ExpandingAllShowsTheApplicationsAndLeavesTheirPackagesFolded).
    void ExpandAll();
    void CollapseAll();

    void Load() override { Refresh(); }

  private:
    void RunCommand(int index) override;
    void Show(AutoStartReply&& reply);
    // Tells of an event that this side does not know, and takes back what was told of the last.
    void TellOfUnknown(const AutoStartList& list);

    AgentAddress agent_;
    PageLoad load_;
    SkinTreeView* tree_;
    AutoStartModel* model_;
    QString unknown_;  // what was told last
};

}  // namespace quorvi

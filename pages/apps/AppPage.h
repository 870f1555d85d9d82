// The applications' page: what is installed on the phone, to be started, looked up in the store and
// uninstalled.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/Deployment.h"
#include "link/LinkEnvironment.h"
#include "online/ServiceRequest.h"
#include "pages/apps/AppListCtrl.h"
#include "pages/apps/Uninstaller.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "ui/page/Page.h"
#include "ui/page/PageLoad.h"

namespace quorvi {

// Page 30, dialog 134, key 8 in PageLoadState. Three kinds of workers: one reads the list and then
// what the phone is, one asks the site about the list, and one starts adb's uninstalls. Of the
// first two one of each at most; a refresh while one runs is dropped.
//
// Control 1043, 隐藏系统应用, is on at first and read by nothing: the list shows what the phone
// has.
class CAppPage : public Page, private ListObserver {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kAppsPage;
    enum Command { commandRefresh, commandUninstall };
    enum MenuCommand { menuRun = 32790, menuUninstall = 32791, menuStore = 32792 };

    // `adb` differs from the default in tests only.
    CAppPage(PageHost& host, const Services& services, QWidget* parent = nullptr,
             LinkEnvironment adb = {});

    // Reads the list, then what the phone is, then asks the site about both. A connect that fails
    // leaves an empty list, and all that follows is tried all the same. A reply that is not whole
    // although the agent was reached leaves the list as it came and without redraw, and nothing
    // follows: kept on purpose, as other lists do
    // (AppPageEarlyEnd.LeavesRedrawOffAndNothingFollows,
    // AppPageTest.AFailedConnectIsFollowedByTheRest).
    void Refresh();

    void Load() override { Refresh(); }
    // Also while the phone is asked what it is: a refresh is dropped until then.
    [[nodiscard]] bool IsAtWork() const override { return Page::IsAtWork() || load_.Running(); }

    // Has the phone start the application. No list is read again.
    void RunApplication(const std::string& package);
    // Uninstalls, one behind the other and without a question; see Uninstaller. Those whose package
    // has no package's name are left out, and the status says so. The list is refreshed when the
    // last one that was started has ended by itself.
    void Uninstall(const std::vector<InstalledApp>& apps);
    // Asks, and uninstalls what is ticked.
    void UninstallChecked() { AskAndUninstall(list_->TickedRows()); }
    // The same with what is ticked, or else selected.
    void UninstallChosen() { AskAndUninstall(list_->ChosenRows()); }
    // Goes to the application in the store, if the site has named one. The store does not load its
    // front page after that, even where it has not: kept on purpose
    // (AppPageActions.AnAppThatTheSiteDoesNotKnowOnlySetsTheKeyOfTheStore).
    void OpenInStore(int row);

  private:
    struct Identified;

    void RunCommand(int index) override;
    void OnLinkClicked(int kind, int row) override;
    void OpenMenu(int row, const QPoint& at);
    void OnMenuCommand(int command);
    void Show(AppListReply&& reply);
    void StartStoreCheck();
    void AskAndUninstall(const std::vector<int>& rows);
    void OnUninstalled(const UninstallEnd& end);
    void SayThatAdbWaits(const std::string& name);
    void SayNotUninstalled(const std::string& name, const QString& reason);

    AgentAddress agent_;
    Deployment site_;
    DeviceIdentity identity_;
    PageLoad load_;
    PageLoad storeCheck_;
    AppListCtrl* list_;
    std::shared_ptr<Uninstaller> uninstaller_;
    QString waiting_;      // what the status says while adb waits for a phone
    QString failure_;      // the last uninstall's that the status named
    int uninstalled_ = 0;  // since none was waited for
};

}  // namespace quorvi

// The window with the applications' page on a phone, beside a site of the test's own and a store
// page that keeps what it is told.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "pages/apps/AppPage.h"
#include "tests/support/PagesOnPhone.h"

namespace quorvi {

// In the place of the store: keeps the messages that reach it.
class NotedStore : public Page {
  public:
    NotedStore(PageHost& host, QWidget* parent) : Page(host, kStorePage.dialog, parent) {}
    void Load() override { ++loads; }
    void OnMessage(Message message, int /*first*/, int second) override {
        messages.emplace_back(message, second);
    }

    int loads = 0;
    std::vector<std::pair<Message, int>> messages;
};

// The suite's pages, but for these two.
[[nodiscard]] inline PageMakers MakersWithSite(const std::string& root) {
    PageMakers makers = MakersAt({.siteRoot = root});
    makers[kStorePage.dialog] = [](PageHost& host, const Services&, QWidget* parent) {
        return new NotedStore(host, parent);
    };
    return makers;
}

enum AppColumn {
    columnIcon,
    columnName,
    columnCategory,
    columnRating,
    columnVersion,
    columnHint,
    columnInstalled,
    columnTick
};

class AppsOnPhone : public PagesOnPhone {
  protected:
    static constexpr int kApps = 30;
    static constexpr int kRows = 29;  // of the phone as it is delivered

    static CAppPage& ThePage() {
        return *dynamic_cast<CAppPage*>(Window().PageOfDialog(kAppsPage.dialog));
    }
    static AppListCtrl& List() { return *ThePage().findChild<AppListCtrl*>(); }
    // The row of a package; -1 for none.
    static int RowOf(const std::string& package) {
        const std::vector<std::string> packages = List().Packages();
        const auto found = std::ranges::find(packages, package);
        return found == packages.end() ? -1 : static_cast<int>(found - packages.begin());
    }
    static Cell At(const std::string& package, int column) {
        return List().CellAt(RowOf(package), column);
    }
    // Until all that was begun has ended, the question to the site too.
    static bool WaitAllEnded() {
        return WaitIdle() && WaitFor([] { return RunningJobs() == 0; }) && WaitIdle();
    }
};

}  // namespace quorvi

// Where the user is: the numbers of the navigator, and how the messages change them.
#pragma once

#include <array>

#include "app/window/PageTable.h"

namespace quorvi {

// Each operation gives the row to show, or null where the table has no such page: then nothing has
// changed.
class Navigation {
  public:
    // The page number that is shown.
    [[nodiscard]] int MainPage() const { return mainPage_; }
    [[nodiscard]] int CurrentTab() const { return currentTab_; }
    [[nodiscard]] int CurrentItem() const { return currentItem_; }

    // Message::selectTab: the item that the tab showed last, 0 at its first visit. A tab that is
    // selected again keeps the item.
    const PageRow* SelectTab(int tab);
    // Message::selectItem.
    const PageRow* SelectItem(int item);
    // Message::goToPage. The remembered items and the current item are left alone, so that coming
    // back to a tab by hand returns to its former item.
    const PageRow* GoToPage(int tab, int page);

  private:
    static constexpr int kRememberedTabs = 6;

    int mainPage_ = 0;
    int currentItem_ = 0;
    int currentTab_ = 0;
    int lastTab_ = 0;
    std::array<int, kRememberedTabs> remembered_ = {};
};

}  // namespace quorvi

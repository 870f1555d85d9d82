#include "app/window/Navigation.h"

namespace quorvi {

const PageRow* Navigation::SelectTab(int tab) {
    if (tab < 0 || tab >= kRememberedTabs) {
        return nullptr;
    }
    const auto slot = static_cast<std::size_t>(tab);
    const int item = lastTab_ != tab ? remembered_[slot] : currentItem_;
    const PageRow* row = FindPage(PageOf(tab, item));
    if (row == nullptr) {
        return nullptr;
    }
    currentTab_ = tab;
    currentItem_ = item;
    mainPage_ = row->page;
    remembered_[slot] = item;
    lastTab_ = tab;
    return row;
}

const PageRow* Navigation::SelectItem(int item) {
    if (item < 0 || item >= static_cast<int>(kItemCount)) {
        return nullptr;
    }
    const PageRow* row = FindPage(PageOf(currentTab_, item));
    if (row == nullptr) {
        return nullptr;
    }
    currentItem_ = item;
    mainPage_ = row->page;
    remembered_[static_cast<std::size_t>(currentTab_)] = item;
    return row;
}

const PageRow* Navigation::GoToPage(int tab, int page) {
    const PageRow* row = FindPage(page);
    if (row == nullptr || tab < 0 || tab >= static_cast<int>(kTabCount)) {
        return nullptr;
    }
    mainPage_ = page;
    currentTab_ = tab;
    return row;
}

}  // namespace quorvi

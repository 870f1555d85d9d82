#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "app/window/Navigation.h"
#include "app/window/PageTable.h"

namespace quorvi {
namespace {

TEST(PageTable, HasARowForEachItemOfEachTab) {
    std::set<int> pages;
    for (const PageRow& row : kPages) {
        pages.insert(row.page);
    }
    EXPECT_EQ(pages.size(), 35U);
    for (int tab = 0; tab < 5; ++tab) {
        for (int item = 0; item < 7; ++item) {
            EXPECT_TRUE(pages.contains(tab * 10 + item)) << tab << item;
        }
    }
}

TEST(PageTable, Pages21And22StandOnTheSameWindow) {
    EXPECT_EQ(FindPage(21)->dialog, 650);
    EXPECT_EQ(FindPage(22)->dialog, 650);
    EXPECT_TRUE(std::ranges::none_of(
        kPages, [](const PageRow& row) { return row.dialog == kDialogNeverShown; }));
}

TEST(PageTable, NoOtherDialogServesTwoPages) {
    std::map<int, int> uses;
    for (const PageRow& row : kPages) {
        ++uses[row.dialog];
    }
    for (const auto& [dialog, count] : uses) {
        EXPECT_EQ(count, dialog == 650 ? 2 : 1) << dialog;
    }
}

TEST(PageTable, LoadKeysAreThoseOfTheirPages) {
    const std::map<int, int> keys = {{6, 0},   {10, 1},  {11, 2},  {12, 3},  {13, 4},
                                     {15, 6},  {16, 7},  {20, 9},  {30, 8},  {40, 10},
                                     {41, 11}, {42, 12}, {43, 13}, {44, 14}, {45, 15}};
    for (const PageRow& row : kPages) {
        const auto key = keys.find(row.page);
        EXPECT_EQ(row.loadKey, key == keys.end() ? PageRow::kNoKey : key->second) << row.page;
    }
}

TEST(PageTable, UnknownNumbersHaveNoRow) {
    for (const int page : {-1, 7, 9, 17, 47, 51, 52}) {
        EXPECT_EQ(FindPage(page), nullptr) << page;
    }
}

TEST(PageTable, AnnouncedPagesHaveNeitherButtonsNorKey) {
    int announced = 0;
    for (const PageRow& row : kPages) {
        if (row.role == PageRole::announced) {
            ++announced;
            EXPECT_EQ(row.loadKey, PageRow::kNoKey);
            for (const CommandButton& command : row.commands) {
                EXPECT_TRUE(command.caption.empty());
            }
        }
    }
    EXPECT_EQ(announced, 14);
}

TEST(PageTable, AFirstButtonThatRefreshesCallsTheLoadFunction) {
    for (const PageRow& row : kPages) {
        const std::u8string_view caption = row.commands[0].caption;
        const bool refreshes = caption.starts_with(u8"刷新") || caption.starts_with(u8"重新");
        if (refreshes) {
            EXPECT_EQ(row.commands[0].action, CommandAction::load) << row.page;
        }
    }
}

TEST(Navigation, ATabShowsTheItemThatWasLastShownInIt) {
    Navigation navigation;
    EXPECT_EQ(navigation.SelectTab(1)->page, 10);
    EXPECT_EQ(navigation.SelectItem(3)->page, 13);
    EXPECT_EQ(navigation.SelectTab(2)->page, 20);
    EXPECT_EQ(navigation.SelectTab(1)->page, 13);
}

TEST(Navigation, TheFirstVisitOfATabShowsItemZero) {
    Navigation navigation;
    EXPECT_EQ(navigation.SelectItem(4)->page, 4);
    for (int tab = 1; tab < 5; ++tab) {
        EXPECT_EQ(navigation.SelectTab(tab)->page, tab * 10);
    }
}

TEST(Navigation, ATabSelectedAgainKeepsItsItem) {
    Navigation navigation;
    navigation.SelectTab(3);
    navigation.SelectItem(5);
    EXPECT_EQ(navigation.SelectTab(3)->page, 35);
}

TEST(Navigation, GoToPageLeavesTheRememberedItemsAlone) {
    Navigation navigation;
    navigation.SelectTab(1);
    navigation.SelectItem(2);
    EXPECT_EQ(navigation.GoToPage(0, 5)->page, 5);
    EXPECT_EQ(navigation.CurrentTab(), 0);
    EXPECT_EQ(navigation.SelectTab(1)->page, 12);
    EXPECT_EQ(navigation.SelectTab(0)->page, 0);
}

TEST(Navigation, AnUnknownPageChangesNothing) {
    Navigation navigation;
    navigation.SelectTab(4);
    EXPECT_EQ(navigation.GoToPage(5, 51), nullptr);
    EXPECT_EQ(navigation.GoToPage(5, 52), nullptr);
    EXPECT_EQ(navigation.MainPage(), 40);
    EXPECT_EQ(navigation.CurrentTab(), 4);
}

TEST(Navigation, ATabOrItemThatIsNotThereChangesNothing) {
    Navigation navigation;
    EXPECT_EQ(navigation.SelectTab(5), nullptr);
    EXPECT_EQ(navigation.SelectTab(-1), nullptr);
    EXPECT_EQ(navigation.SelectItem(7), nullptr);
    EXPECT_EQ(navigation.SelectItem(-1), nullptr);
    EXPECT_EQ(navigation.MainPage(), 0);
}

}  // namespace
}  // namespace quorvi

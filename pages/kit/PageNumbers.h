// The numbers by which each page is known: the one table of them. The navigator's rows
// (app/window/PageTable.h) and the pages themselves are made from it.
#pragma once

namespace quorvi {

struct PageNumbers {
    static constexpr int kNoKey = -1;

    int page;              // its place in the navigator: tab times 10 plus item
    int dialog;            // of its window
    int loadKey = kNoKey;  // in PageLoadState; a page without one does not load by itself
};

// Tab 0, 欢迎使用.
inline constexpr PageNumbers kDashboardPage{0, 130};
inline constexpr PageNumbers kPhoneParametersPage{1, 137};
inline constexpr PageNumbers kForumPage{2, 393};
inline constexpr PageNumbers kSettingsPage{3, 202};
inline constexpr PageNumbers kUpdatePage{4, 394};
inline constexpr PageNumbers kDownloadsPage{5, 543};
inline constexpr PageNumbers kHelpPage{6, 268, 0};

// Tab 1, 资料管理.
inline constexpr PageNumbers kContactsPage{10, 132, 1};
inline constexpr PageNumbers kMessagesPage{11, 397, 2};
inline constexpr PageNumbers kCallsPage{12, 368, 3};
inline constexpr PageNumbers kAlarmsPage{13, 403, 4};
inline constexpr PageNumbers kCalendarPage{14, 404};
inline constexpr PageNumbers kFilesPage{15, 405, 6};
inline constexpr PageNumbers kBookmarksPage{16, 376, 7};

// Tab 2, 资源下载.
inline constexpr PageNumbers kStorePage{20, 322, 9};
// Page 21 stands on the window of page 22 and not on dialog 640, which is made and never shown:
// kept on purpose, so that both show the same picture (test
// PageTable.Pages21And22StandOnTheSameWindow).
inline constexpr PageNumbers kMusicStorePage{21, 650};
inline constexpr PageNumbers kMovieStorePage{22, 650};
inline constexpr PageNumbers kNovelStorePage{23, 649};
inline constexpr PageNumbers kWallpaperStorePage{24, 651};
inline constexpr PageNumbers kRingtoneCutPage{25, 652};
inline constexpr PageNumbers kVideoConvertPage{26, 653};

// Tab 3, 手机管理.
inline constexpr PageNumbers kAppsPage{30, 134, 8};
inline constexpr PageNumbers kRingtonesPage{31, 425};
inline constexpr PageNumbers kMusicPage{32, 426};
inline constexpr PageNumbers kBooksPage{33, 427};
inline constexpr PageNumbers kPicturesPage{34, 428};
inline constexpr PageNumbers kVideosPage{35, 429};
inline constexpr PageNumbers kDesktopPage{36, 430};

// Tab 4, 系统工具.
inline constexpr PageNumbers kSystemInfoPage{40, 135, 10};
inline constexpr PageNumbers kPhoneSettingsPage{41, 420, 11};
inline constexpr PageNumbers kCleanerPage{42, 599, 12};
inline constexpr PageNumbers kAutoStartPage{43, 422, 13};
inline constexpr PageNumbers kScreenshotPage{44, 602, 14};
inline constexpr PageNumbers kTasksPage{45, 424, 15};
inline constexpr PageNumbers kPerformancePage{46, 421};

// Without a row in the navigator's table, so that nothing shows it.
inline constexpr PageNumbers kWeatherPage{51, 530};

[[nodiscard]] constexpr int TabOf(const PageNumbers& numbers) {
    return numbers.page / 10;
}
[[nodiscard]] constexpr int ItemOf(const PageNumbers& numbers) {
    return numbers.page % 10;
}

}  // namespace quorvi

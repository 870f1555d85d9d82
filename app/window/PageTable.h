// The table of the navigator: five tabs of seven items, and the page behind each item.
//
// To add a page, give its row a class in app/window/PageFactory.cpp. Captions are the program's own
// texts; images are icon names.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "pages/kit/PageNumbers.h"

namespace quorvi {

inline constexpr std::size_t kTabCount = 5;
inline constexpr std::size_t kItemCount = 7;
inline constexpr std::size_t kCommandCount = 4;

// A caption with its image.
struct CaptionedPicture {
    std::u8string_view caption;
    std::string_view image;
};

struct TabRow {
    CaptionedPicture tab;
    std::array<CaptionedPicture, kItemCount> items;
};

inline constexpr std::array<TabRow, kTabCount> kTabs = {{
    {{u8"欢迎使用", "tab-welcome"},
     {{{u8"我的手机", "my-phone"},
       {u8"手机参数", "phone-specs"},
       {u8"论坛热帖", "forum"},
       {u8"Quorvi设置", "suite-settings"},
       {u8"版本升级", "upgrade"},
       {u8"当前任务", "tasks"},
       {u8"使用帮助", "help"}}}},
    {{u8"资料管理", "tab-data"},
     {{{u8"联系人", "contacts"},
       {u8"短信管理", "sms"},
       {u8"通话记录", "calls"},
       {u8"闹铃管理", "alarms"},
       {u8"日程管理", "calendar"},
       {u8"文件管理", "files"},
       {u8"Web收藏夹", "bookmarks"}}}},
    {{u8"资源下载", "tab-download"},
     {{{u8"软件游戏", "apps-games"},
       {u8"音乐铃声", "music-ringtones"},
       {u8"视频电影", "movies"},
       {u8"小说图书", "novels"},
       {u8"动态壁纸", "live-wallpaper"},
       {u8"铃声裁剪", "ringtone-cut"},
       {u8"视频转换", "video-convert"}}}},
    {{u8"手机管理", "tab-manage"},
     {{{u8"应用管理", "app-manager"},
       {u8"铃声管理", "ringtones"},
       {u8"音乐管理", "music"},
       {u8"图书管理", "books"},
       {u8"图片管理", "pictures"},
       {u8"视频管理", "videos"},
       {u8"桌面管理", "desktop"}}}},
    {{u8"系统工具", "tab-tools"},
     {{{u8"系统信息", "system-info"},
       {u8"手机设置", "phone-settings"},
       {u8"系统清理", "cleaner"},
       {u8"启动管理", "autostart"},
       {u8"屏幕截图", "screenshot"},
       {u8"任务管理器", "task-manager"},
       {u8"性能优化", "performance"}}}},
}};

enum class CommandAction : unsigned char {
    none,  // there is no such button, or its press does nothing
    load,  // the page's load function, whatever PageLoadState says
    own,   // the page's own operation of that caption
};

// A button without a caption is hidden.
struct CommandButton {
    std::u8string_view caption = {};
    std::string_view image = {};
    CommandAction action = CommandAction::none;
};

enum class PageRole : unsigned char {
    feature,
    announced,  // a picture alone, of a feature that is not there
};

// A page with its commands.
struct PageRow : PageNumbers {
    PageRole role = PageRole::feature;
    std::array<CommandButton, kCommandCount> commands = {};
};

inline constexpr std::array<PageRow, kTabCount* kItemCount> kPages = {{
    {kDashboardPage},
    {kPhoneParametersPage},
    {kForumPage, PageRole::announced},
    {kSettingsPage},
    {kUpdatePage},
    {kDownloadsPage,
     PageRole::feature,
     {{{u8"继续任务", "play", CommandAction::own},
       {u8"全部暂停", "pause", CommandAction::own},
       {u8"删除选择的", "delete", CommandAction::own},
       {u8"相关设置", "settings", CommandAction::own}}}},
    {kHelpPage, PageRole::feature},
    {kContactsPage,
     PageRole::feature,
     {{{u8"重新获取", "refresh", CommandAction::load},
       {u8"添加联系人", "add-contact", CommandAction::own},
       {u8"分组管理", "groups", CommandAction::own},
       {u8"删除选择的", "delete", CommandAction::own}}}},
    {kMessagesPage,
     PageRole::feature,
     {{{u8"刷新列表", "refresh", CommandAction::load},
       {u8"编写短信", "compose", CommandAction::own},
       // Kept on purpose: the button is shown, and its press does nothing
       // (Navigator.MoreActionsOfTheMessagesPageDoesNothing).
       {u8"更多操作", "more", CommandAction::none}}}},
    {kCallsPage,
     PageRole::feature,
     {{{u8"刷新通话记录", "refresh", CommandAction::load},
       {u8"删除选择的", "delete", CommandAction::own},
       {u8"删除全部", "delete-all", CommandAction::own}}}},
    {kAlarmsPage,
     PageRole::feature,
     {{{u8"刷新闹铃项", "refresh", CommandAction::load},
       {u8"新建闹铃", "add", CommandAction::own},
       {u8"修改选择的", "edit", CommandAction::own},
       {u8"删除选择的", "delete", CommandAction::own}}}},
    {kCalendarPage},
    {kFilesPage, PageRole::feature, {{{u8"转到根目录", "root", CommandAction::load}}}},
    {kBookmarksPage,
     PageRole::feature,
     {{{u8"刷新书签项", "refresh", CommandAction::load},
       {u8"新建书签", "add", CommandAction::own},
       {u8"修改选择的", "edit", CommandAction::own},
       {u8"删除选择的", "delete", CommandAction::own}}}},
    {kStorePage,
     PageRole::feature,
     {{{u8"返回上一页", "back", CommandAction::own}, {u8"商城主页", "home", CommandAction::own}}}},
    {kMusicStorePage, PageRole::announced},
    {kMovieStorePage, PageRole::announced},
    {kNovelStorePage, PageRole::announced},
    {kWallpaperStorePage, PageRole::announced},
    {kRingtoneCutPage, PageRole::announced},
    {kVideoConvertPage, PageRole::announced},
    {kAppsPage,
     PageRole::feature,
     {{{u8"重新获取应用", "refresh", CommandAction::load},
       {u8"删除选择的", "delete", CommandAction::own}}}},
    {kRingtonesPage, PageRole::announced},
    {kMusicPage, PageRole::announced},
    {kBooksPage, PageRole::announced},
    {kPicturesPage, PageRole::announced},
    {kVideosPage, PageRole::announced},
    {kDesktopPage, PageRole::announced},
    {kSystemInfoPage, PageRole::feature, {{{u8"刷新系统信息", "refresh", CommandAction::load}}}},
    {kPhoneSettingsPage, PageRole::feature, {{{u8"刷新系统设置", "refresh", CommandAction::load}}}},
    {kCleanerPage,
     PageRole::feature,
     {{{u8"重新扫描", "refresh", CommandAction::load},
       {u8"删除选择的", "delete", CommandAction::own}}}},
    {kAutoStartPage,
     PageRole::feature,
     {{{u8"刷新自启动项", "refresh", CommandAction::load},
       {u8"展开全部项", "expand", CommandAction::own},
       {u8"收起全部项", "collapse", CommandAction::own}}}},
    {kScreenshotPage,
     PageRole::feature,
     {{{u8"刷新屏幕", "refresh", CommandAction::load},
       {u8"保存为文件", "save", CommandAction::own},
       {u8"设置保存目录", "folder-set", CommandAction::own},
       {u8"打开保存目录", "folder-open", CommandAction::own}}}},
    {kTasksPage,
     PageRole::feature,
     {{{u8"刷新手机进程", "refresh", CommandAction::load},
       {u8"结束选择的", "stop", CommandAction::own}}}},
    {kPerformancePage, PageRole::announced},
}};

// Dialog 640 belongs to no page: its window is made at start and never shown.
inline constexpr int kDialogNeverShown = 640;

[[nodiscard]] constexpr int PageOf(int tab, int item) {
    return tab * 10 + item;
}

// The row of a page, or null for a number that the table does not know.
[[nodiscard]] constexpr const PageRow* FindPage(int page) {
    for (const PageRow& row : kPages) {
        if (row.page == page) {
            return &row;
        }
    }
    return nullptr;
}

// The caption and image of the page's navigation item.
[[nodiscard]] constexpr const CaptionedPicture& ItemCaption(const PageRow& row) {
    return kTabs[static_cast<std::size_t>(TabOf(row))].items[static_cast<std::size_t>(ItemOf(row))];
}

}  // namespace quorvi

// The menu of the tray icon.
#pragma once

#include <array>
#include <string_view>

#include "app/platform/Tray.h"

namespace quorvi {

class CSkinMenu;

struct TrayMenuRow {
    std::u8string_view caption;
    TrayCommand command;
    std::string_view image;
};

inline constexpr std::array<TrayMenuRow, 4> kTrayMenu = {{
    {u8"显示控制中心", TrayCommand::showWindow, "window"},
    {u8"当前下载任务", TrayCommand::showDownloads, "tasks"},
    {u8"Quorvi 设置", TrayCommand::showSettings, "suite-settings"},
    {u8"退出 Quorvi", TrayCommand::exit, "exit"},
}};

// Puts the rows into an empty menu.
void FillTrayMenu(CSkinMenu& menu);

}  // namespace quorvi

// Drives the main window's frame as a user does, and reads what it shows.
#pragma once

#include <QLabel>
#include <QListWidget>
#include <QTabBar>
#include <cstddef>

#include "app/window/CommandRow.h"
#include "app/window/MainDlg.h"
#include "tests/support/ControlDriver.h"
#include "ui/kit/ControlNumber.h"

namespace quorvi {

[[nodiscard]] inline QTabBar& TabsOf(const CMainDlg& window) {
    return *window.findChild<QTabBar*>(QStringLiteral("tabs"));
}

[[nodiscard]] inline QListWidget& ItemsOf(const CMainDlg& window) {
    return *window.findChild<QListWidget*>(QStringLiteral("navigation"));
}

inline void ClickTab(const CMainDlg& window, int tab) {
    QTabBar& tabs = TabsOf(window);
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(tab).center());
}

inline void ClickItem(const CMainDlg& window, int item) {
    QListWidget& items = ItemsOf(window);
    QTest::mouseClick(items.viewport(), Qt::LeftButton, {},
                      items.visualItemRect(items.item(item)).center());
}

// The command button of that place above the page.
inline void ClickCommand(const CMainDlg& window, std::size_t index) {
    ClickOn(*FindControl(&window, CommandRow::kButtons.at(index)));
}

[[nodiscard]] inline QString StatusOf(const CMainDlg& window) {
    return FindControl<QLabel>(&window, 1366)->text();
}

[[nodiscard]] inline QString BannerOf(const CMainDlg& window) {
    return window.findChild<QLabel*>(QStringLiteral("banner"))->text();
}

}  // namespace quorvi

// The tray's menu, and the tray of a machine that has none.
#include "app/platform/DesktopTray.h"
#include "app/platform/TrayMenu.h"
#include "tests/support/WidgetTest.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinMenu.h"

namespace quorvi {
namespace {

class TrayParts : public WidgetTest {};

TEST_F(TrayParts, TheMenuCarriesItsCommandsInOrder) {
    CSkinMenu menu;
    FillTrayMenu(menu);
    std::vector<int> commands;
    const auto actions = menu.actions();
    for (const QAction* action : actions) {
        commands.push_back(CSkinMenu::CommandOf(action));
        EXPECT_FALSE(action->icon().isNull());
    }
    EXPECT_EQ(commands, (std::vector{32772, 32773, 32774, 32771}));
}

TEST_F(TrayParts, WithoutATrayNoBalloonIsClaimed) {
    DesktopTray tray;
    tray.Listen({[](TrayMouse) {}, [](TrayCommand) {}, [] {}});
    tray.Add(QStringLiteral("tip"));
    EXPECT_FALSE(tray.Available());
    EXPECT_FALSE(tray.ShowBalloon(QStringLiteral("title"), QStringLiteral("text")));
    tray.Remove();
}

}  // namespace
}  // namespace quorvi

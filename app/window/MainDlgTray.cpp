// The main window's part in the tray and its balloons.
#include <QCursor>

#include "app/platform/TrayMenu.h"
#include "app/window/MainDlg.h"
#include "app/window/ProductName.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinMenu.h"

namespace quorvi {

void CMainDlg::OnTray(int /*first*/, int second) {
    switch (static_cast<TrayMouse>(second)) {
        case TrayMouse::leftDown:
        case TrayMouse::leftDouble:
            ShowByUser();
            break;
        case TrayMouse::rightDown: {
            auto* menu = new CSkinMenu(this);
            menu->setAttribute(Qt::WA_DeleteOnClose);
            FillTrayMenu(*menu);
            connect(menu, &CSkinMenu::commandChosen, this,
                    [this](int command) { OnTrayCommand(static_cast<TrayCommand>(command)); });
            menu->popup(QCursor::pos());
            break;
        }
        default:
            break;
    }
}

void CMainDlg::OnTrayCommand(TrayCommand command) {
    switch (command) {
        case TrayCommand::showWindow:
            ShowByUser();
            break;
        case TrayCommand::showDownloads:
            Post(Message::goToPage, 0, kDownloadsPage.page);
            ShowByUser();
            break;
        case TrayCommand::showSettings:
            Post(Message::goToPage, 0, kSettingsPage.page);
            ShowByUser();
            break;
        case TrayCommand::exit:
            EndDialog();
            break;
    }
}

void CMainDlg::OnTrayRecreated() {
    parts_.tray.Add(ToQString(u8"Quorvi 奎维掌上工坊"));
    Welcome();
}

QString CMainDlg::WelcomeText() const {
    return QStringLiteral("%1[%2]").arg(ToQString(kProductName), parts_.siteAddress);
}

void CMainDlg::Welcome() {
    ShowBalloon(ToQString(u8"欢迎使用"), WelcomeText());
}

void CMainDlg::ShowBalloon(const QString& title, const QString& text) {
    balloons_.Show(title, text);
}

}  // namespace quorvi

#include <fmt/format.h>

#include <QComboBox>
#include <algorithm>
#include <iterator>
#include <string_view>

#include "app/platform/TrayMenu.h"
#include "app/window/KeysDlg.h"
#include "app/window/MainDlg.h"
#include "app/window/ProductName.h"
#include "pages/devices/DeviceManagerDlg.h"
#include "pages/numbers/NumberQueryDlg.h"
#include "tour/PageStops.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinMenu.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

void OpenTrayMenu(CMainDlg& window) {
    auto* menu = new CSkinMenu(&window);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    FillTrayMenu(*menu);
    menu->setActiveAction(menu->actions().at(1));
    const QSize size = menu->sizeHint();
    menu->popup(window.mapToGlobal(QPoint(window.width() - size.width() - look::Metric::gap5,
                                          window.height() - size.height() - look::Metric::gap5)));
}

TourStop BannerStop(std::string name, std::u8string_view text, BannerState state) {
    return {std::move(name), [text, state](CMainDlg& window) {
                window.Post(Message::goToPage, 0, kDashboardPage.page);
                window.Link().ShowBanner(ToQString(text), state);
            }};
}

}  // namespace

std::vector<TourStop> TheTourStops() {
    std::vector<TourStop> stops;
    for (const PageRow& row : kPages) {
        stops.push_back({fmt::format("page-{:02}", row.page), [&row](CMainDlg& window) {
                             window.Post(Message::goToPage, TabOf(row), row.page);
                         }});
    }
    stops.push_back(CommandStop("dialog-contact-editor", kContactsPage, 1));
    stops.push_back(CommandStop("dialog-contact-groups", kContactsPage, 2));
    stops.push_back(CommandStop("dialog-nothing-checked", kContactsPage, 3));
    stops.push_back(CommandStop("dialog-sms-composer", kMessagesPage, 1));
    stops.push_back(CommandStop("dialog-confirm-delete", kCallsPage, 2));
    for (auto* more :
         {&PersonalStops, &ToolsStops, &OnlineStops, &DownloadStops, &BackupStops, &TroubleStops}) {
        std::ranges::move(more(), std::back_inserter(stops));
    }
    stops.push_back({"menu-tray", &OpenTrayMenu});
    stops.push_back({"dialog-keys", [](CMainDlg& window) { (new KeysDlg(&window))->Open(); }});
    stops.push_back(
        {"dialog-device-manager", [](CMainDlg& window) { window.RunDeviceManager({}, [] {}); }});
    stops.push_back(
        {"dialog-device-manager-wifi", [](CMainDlg& window) {
             window.RunDeviceManager({}, [] {});
             window.findChild<CDeviceManagerDlg*>()->findChild<QComboBox*>()->setCurrentIndex(1);
         }});
    stops.push_back(
        {"dialog-number-query", [](CMainDlg& window) { (new NumberQueryDlg(&window))->Open(); }});
    stops.push_back({"balloon", [](CMainDlg& window) {
                         window.ShowBalloon(ToQString(kProductName),
                                            ToQString(u8"检测到Android设备，正在尝试连接..."));
                     }});
    stops.push_back(BannerStop("link-working", u8"连接设备中...", BannerState::working));
    stops.push_back(BannerStop("link-error", u8"【错误】没有找到Android设备", BannerState::error));
    stops.push_back(BannerStop("link-green", u8"连接成功:)", BannerState::success));
    stops.push_back(
        BannerStop("link-removed", u8"【提示】检测到一个设备断开", BannerState::working));
    return stops;
}

}  // namespace quorvi

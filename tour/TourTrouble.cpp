// The tour's stops where something does not work: the dashboard without a phone, with one that is
// there and cannot be used, and what is shown of a report before it is saved.
#include <QAbstractButton>
#include <QApplication>
#include <QToolTip>
#include <memory>
#include <utility>

#include "app/window/StatusStrip.h"
#include "link/LinkAdvice.h"
#include "pages/phoneinfo/HomePage.h"
#include "pages/settings/DiagnosisDlg.h"
#include "tour/PageStops.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

// A dashboard that has not been filled, over the window's own, with the banner of a link that
// failed. The window's own services do not hear of the trouble.
TourStop TroubleStop(std::string name, LinkTrouble trouble) {
    struct Shown {
        QPointer<Page> page;
        QString banner;
        BannerState state = BannerState::working;
    };
    auto shown = std::make_shared<Shown>();
    return {.name = std::move(name),
            .open =
                [shown, trouble](CMainDlg& window) {
                    GoTo(window, kDashboardPage);
                    shown->banner = window.findChild<StatusStrip*>()->BannerText();
                    shown->state = window.Link().Banner();
                    window.Link().ShowBanner(ToQString(u8"【错误】没有找到Android设备"),
                                             BannerState::error);
                    PostToWindow(&window, [shown, trouble, &window] {
                        Page* own = window.PageOfDialog(kDashboardPage.dialog);
                        Services services = window.PageServices();
                        services.linkTrouble = Observed<LinkTrouble>(trouble);
                        shown->page = new CHomePage(window, services, own);
                        shown->page->setAutoFillBackground(true);
                        shown->page->resize(own->size());
                        shown->page->show();
                    });
                },
            .leave =
                [shown](CMainDlg& window) {
                    delete shown->page.data();
                    window.Link().ShowBanner(shown->banner, shown->state);
                }};
}

// What the pointer over the banner brings up while a phone waits for its user.
TourStop TipStop(std::string name) {
    TourStop stop = TroubleStop(std::move(name), LinkTrouble::unauthorized);
    stop.open = [open = stop.open](CMainDlg& window) {
        open(window);
        PostToWindow(&window, [&window] {
            auto& banner = *window.findChild<QWidget*>(QStringLiteral("banner"));
            // Above the banner, so that it is in the picture.
            QToolTip::showText(banner.mapToGlobal(QPoint(0, -2 * banner.height())),
                               ToQString(AdviceOn(LinkTrouble::unauthorized).tip), &banner);
        });
    };
    stop.leave = [leave = stop.leave](CMainDlg& window) {
        QToolTip::hideText();
        leave(window);
    };
    return stop;
}

// The report of this very machine, its serial numbers cut as always.
TourStop DiagnosisStop() {
    return {.name = "dialog-diagnosis",
            .open =
                [](CMainDlg& window) {
                    GoTo(window, kSettingsPage);
                    PostToWindow(&window, [&window] {
                        window.PageOfDialog(kSettingsPage.dialog)
                            ->findChild<QAbstractButton*>(QStringLiteral("diagnosisShow"))
                            ->click();
                    });
                },
            .ready = [] { return qobject_cast<DiagnosisDlg*>(QApplication::activeModalWidget()); }};
}

}  // namespace

std::vector<TourStop> TroubleStops() {
    return {TroubleStop("page-00-no-phone", LinkTrouble::none),
            TroubleStop("page-00-unauthorized", LinkTrouble::unauthorized),
            TroubleStop("page-00-no-permissions", LinkTrouble::noPermissions),
            TroubleStop("page-00-offline", LinkTrouble::offline),
            TipStop("banner-tip"),
            DiagnosisStop()};
}

}  // namespace quorvi

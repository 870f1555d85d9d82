// The tour's stops at the pages that ask the site: what they show once it has answered, when it is
// not there, and what they refuse.
#include "pages/help/HelpPage.h"
#include "pages/store/StorePage.h"
#include "pages/update/UpdatePage.h"
#include "pages/weather/WeatherCityDlg.h"
#include "pages/weather/WeatherPage.h"
#include "tour/PageStops.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

// Presses a button of the window's own page.
TourStop PressStop(std::string name, const PageNumbers& page, int button) {
    return {.name = std::move(name), .open = [&page, button](CMainDlg& window) {
                GoTo(window, page);
                PostToWindow(&window, [&page, button, &window] {
                    FindControl<QAbstractButton>(window.PageOfDialog(page.dialog), button)->click();
                });
            }};
}

// A page of this kind over the one that is shown, with a site of its own; `begin` follows.
template <typename P, typename Begin>
TourStop OverStop(std::string name, const PageNumbers& over, bool reachable, Begin begin) {
    auto shown = std::make_shared<QPointer<Page>>();
    return {.name = std::move(name),
            .open =
                [=, &over](CMainDlg& window) {
                    GoTo(window, over);
                    PostToWindow(&window, [=, &over, &window] {
                        Page* own = window.PageOfDialog(over.dialog);
                        Services services = window.PageServices();
                        if (!reachable) {
                            services.deployment.siteRoot = "http://127.0.0.1:1/";
                            services.deployment.storeRoot = "http://127.0.0.1:1/";
                            services.deployment.weatherHost = "127.0.0.1:1";
                        }
                        auto* page = new P(window, services, own);
                        *shown = page;
                        page->setAutoFillBackground(true);
                        page->resize(own->size());
                        page->show();
                        begin(*page);
                    });
                },
            .leave =
                [shown](CMainDlg& window) {
                    delete shown->data();
                    window.SetStatus(ToQString(u8"就绪"));
                }};
}

void StartWeather(WeatherPage& page) {
    page.StartWeatherUpdate();
}

void LoadStore(StorePage& page) {
    page.Load();
}

void StartCheck(UpdatePage& page) {
    FindControl<QAbstractButton>(&page, UpdatePage::kCheck)->click();
}

}  // namespace

std::vector<TourStop> OnlineStops() {
    return {
        PressStop("update-checked", kUpdatePage, UpdatePage::kCheck),
        OverStop<UpdatePage>("update-failed", kUpdatePage, false, &StartCheck),
        PressStop("help-refused", kHelpPage, HelpPage::kSend),
        OverStop<StorePage>("store-failed", kStorePage, false, &LoadStore),
        OverStop<WeatherPage>("weather", kUpdatePage, true, &StartWeather),
        OverStop<WeatherPage>("weather-failed", kUpdatePage, false, &StartWeather),
        {"dialog-weather-city",
         [](CMainDlg& window) {
             (new WeatherCityDlg({.provinceIndex = 22, .cityIndex = 11}, &window))->Open();
         }},
    };
}

}  // namespace quorvi

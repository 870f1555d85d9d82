#include "app/window/PageFactory.h"

#include "app/window/PlaceholderPage.h"
#include "pages/calendar/CalendarPage.h"
#include "pages/calls/CallLogPage.h"
#include "pages/contacts/ContactPage.h"
#include "pages/messages/SmsPage.h"
#include "pages/phoneinfo/HomePage.h"
#include "pages/phoneinfo/SystemInfoPage.h"
#include "pages/settings/SettingsPage.h"
#include "ui/kit/QtText.h"

namespace quorvi {

namespace {

// Makes a page that needs nothing but its host.
template <typename P>
Page* Make(PageHost& host, const PageParts& /*parts*/, QWidget* parent) {
    return new P(host, parent);
}

Page* MakeSettings(PageHost& host, const PageParts& parts, QWidget* parent) {
    return new SettingsPage(host, parts.desktop, parent);
}

}  // namespace

PageMakers ThePageMakers() {
    return {
        {130, &Make<CHomePage>},    {132, &Make<CContactPage>}, {135, &Make<CSystemInfoPage>},
        {202, &MakeSettings},       {368, &Make<CCallLogPage>}, {397, &Make<CSmsPage>},
        {404, &Make<CalendarPage>},
    };
}

Page* MakePageOf(const PageRow& row, const PageMakers& makers, PageHost& host,
                 const PageParts& parts, QWidget* parent) {
    if (const auto maker = makers.find(row.dialog); maker != makers.end()) {
        return maker->second(host, parts, parent);
    }
    if (row.role == PageRole::announced) {
        return MakeAnnouncement(host, row.dialog, parent);
    }
    return new PlaceholderPage(host, row.dialog, ToQString(ItemCaption(row).caption),
                               ToQString(u8"这一页正在建设中"), parent);
}

}  // namespace quorvi

#include "app/window/PageFactory.h"

#include <type_traits>

#include "app/window/PlaceholderPage.h"
#include "pages/alarms/AlarmPage.h"
#include "pages/apps/AppPage.h"
#include "pages/autostart/AutoStartPage.h"
#include "pages/bookmarks/BookmarkPage.h"
#include "pages/calendar/CalendarPage.h"
#include "pages/calls/CallLogPage.h"
#include "pages/cleaner/CleanerPage.h"
#include "pages/contacts/ContactPage.h"
#include "pages/downloads/DownloadPage.h"
#include "pages/files/FilePage.h"
#include "pages/help/HelpPage.h"
#include "pages/messages/SmsPage.h"
#include "pages/phoneinfo/HomePage.h"
#include "pages/phoneinfo/SystemInfoPage.h"
#include "pages/phonesettings/PhoneSettingsPage.h"
#include "pages/screen/ScreenshotPage.h"
#include "pages/settings/SettingsPage.h"
#include "pages/specs/PhoneSpecsPage.h"
#include "pages/store/StorePage.h"
#include "pages/tasks/TaskPage.h"
#include "pages/update/UpdatePage.h"
#include "ui/kit/QtText.h"

namespace quorvi {

namespace {

// The maker of a page, beside the number of its dialog.
template <typename P>
PageMakers::value_type MakerOf() {
    return {P::kNumbers.dialog,
            [](PageHost& host, [[maybe_unused]] const Services& services, QWidget* parent) {
                if constexpr (std::is_constructible_v<P, PageHost&, const Services&, QWidget*>) {
                    return static_cast<Page*>(new P(host, services, parent));
                } else {
                    return static_cast<Page*>(new P(host, parent));
                }
            }};
}

}  // namespace

PageMakers ThePageMakers() {
    return {
        MakerOf<CHomePage>(),          MakerOf<SettingsPage>(),   MakerOf<CContactPage>(),
        MakerOf<CSmsPage>(),           MakerOf<CCallLogPage>(),   MakerOf<CAlarmPage>(),
        MakerOf<CalendarPage>(),       MakerOf<CFilePage>(),      MakerOf<CBookmarkPage>(),
        MakerOf<CSystemInfoPage>(),    MakerOf<CTaskPage>(),      MakerOf<CCleanerPage>(),
        MakerOf<CPhoneSettingsPage>(), MakerOf<CAutoStartPage>(), MakerOf<PhoneSpecsPage>(),
        MakerOf<UpdatePage>(),         MakerOf<HelpPage>(),       MakerOf<CAppPage>(),
        MakerOf<CScreenshotPage>(),    MakerOf<StorePage>(),      MakerOf<CDownloadPage>(),
    };
}

Page* MakePageOf(const PageRow& row, const PageMakers& makers, PageHost& host,
                 const Services& services, QWidget* parent) {
    if (const auto maker = makers.find(row.dialog); maker != makers.end()) {
        return maker->second(host, services, parent);
    }
    if (row.role == PageRole::announced) {
        return MakeAnnouncement(host, row.dialog, parent);
    }
    return new PlaceholderPage(host, row.dialog, ToQString(ItemCaption(row).caption),
                               ToQString(u8"这一页正在建设中"), parent);
}

}  // namespace quorvi

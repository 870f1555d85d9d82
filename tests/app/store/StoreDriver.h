// The store in the window, for stories: what a user types, clicks and sees there.
#pragma once

#include <string_view>

#include "app/window/CaptionBar.h"
#include "pages/store/StorePage.h"
#include "tests/support/ControlDriver.h"
#include "tests/support/PagesOnPhone.h"
#include "tests/support/SiteServer.h"
#include "ui/kit/SkinFields.h"

namespace quorvi {

// What a site needs beside its folder: its pages are HTML, its searches files.
inline constexpr const char* kStoreLocation =
    "location ~ ^(/|/search.php|/archives/.*)$ { root FILES; default_type text/html;"
    " index index.html; }";

class StoreDriver : public PagesOnPhone {
  protected:
    static constexpr int kStore = 20;

    static CHtmlCtrlFix& View() { return OnPage<CHtmlCtrlFix>(StorePage::kView); }
    // A page of the site has been loaded and shows this heading.
    static bool WaitForHeading(const char* heading) {
        return WaitFor([&] {
            return Window().MainPage() == kStore && View().Browser() != nullptr &&
                   AskHtml(View(), QStringLiteral("document.querySelector('h1')?.innerText"))
                           .toString() == QLatin1StringView(heading);
        });
    }
    static void Search(std::u8string_view words) {
        auto& box = *Window().findChild<CaptionBar*>();
        Type(box.Search(), ToQString(words));
        QTest::keyClick(&box.Search(), Qt::Key_Return);
    }
};

}  // namespace quorvi

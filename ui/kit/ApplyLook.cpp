#include "ui/kit/ApplyLook.h"

#include <QApplication>

#include "ui/kit/AccessibleControls.h"
#include "ui/kit/SkinStyle.h"
#include "ui/look/DesktopWishes.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Look.h"
#include "ui/look/Theme.h"

namespace quorvi {

void ApplyLook(QApplication& application) {
    application.setStyle(new SkinStyle);
    application.setFont(look::font(look::Size::s13));
    look::ApplyPalette();
    InstallAccessibleControls();
    new FocusRing(&application);
    (new DesktopWishes(&application))->Ask();
}

void ApplyLookChoice(LookChoice choice) {
    switch (choice) {
        case LookChoice::system:
            look::ChooseTheme(std::nullopt);
            return;
        case LookChoice::light:
            look::ChooseTheme(look::Theme::light);
            return;
        case LookChoice::dark:
            look::ChooseTheme(look::Theme::dark);
            return;
        case LookChoice::contrast:
            look::ChooseTheme(look::Theme::contrast);
            return;
    }
}

}  // namespace quorvi

#include "ui/kit/ApplyLook.h"

#include <QApplication>

#include "ui/kit/AccessibleControls.h"
#include "ui/kit/SkinStyle.h"
#include "ui/look/DesktopWishes.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Look.h"

namespace quorvi {

void ApplyLook(QApplication& application) {
    application.setStyle(new SkinStyle);
    application.setFont(look::font(look::Size::s13));
    application.setPalette(look::palette());
    InstallAccessibleControls();
    new FocusRing(&application);
    (new DesktopWishes(&application))->Ask();
}

}  // namespace quorvi

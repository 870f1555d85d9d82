#include "app/platform/TrayMenu.h"

#include "ui/kit/QtText.h"
#include "ui/kit/SkinMenu.h"

namespace quorvi {

void FillTrayMenu(CSkinMenu& menu) {
    QStringList strip;
    for (const TrayMenuRow& row : kTrayMenu) {
        strip.append(ToQString(row.image));
    }
    menu.SetStrip(strip);
    int image = 0;
    for (const TrayMenuRow& row : kTrayMenu) {
        menu.AddItem(CSkinMenu::normal, static_cast<int>(row.command), image++,
                     ToQString(row.caption));
    }
}

}  // namespace quorvi

#include "app/PageFactory.h"

#include "app/PlaceholderPage.h"
#include "ui/QtText.h"

namespace quorvi {

PageMakers ThePageMakers() {
    return {};
}

Page* MakePageOf(const PageRow& row, const PageMakers& makers, PageHost& host,
                 const PageParts& parts, QWidget* parent) {
    if (const auto maker = makers.find(row.dialog); maker != makers.end()) {
        return maker->second(host, parts, parent);
    }
    if (row.role == PageRole::announced) {
        return MakeAnnouncement(host, row.dialog, parent);
    }
    return new PlaceholderPage(host, row.dialog, ToQString(ItemEntry(row).caption),
                               ToQString(u8"这一页正在建设中"), parent);
}

}  // namespace quorvi

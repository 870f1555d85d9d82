// The count line of a page that is a list.
#pragma once

#include "ui/list/SkinListCtrl.h"
#include "ui/page/Page.h"

namespace quorvi {

// Keeps the page's count line at what `list`, a control of the page, counts. The window's thread.
inline void ShowCount(Page& page, const CSkinListCtrl& list) {
    QObject::connect(&list, &CSkinListCtrl::countChanged, &page,
                     [&page, &list] { page.SetCountLine(list.CountText()); });
}

}  // namespace quorvi

// Which class stands behind each dialog number.
#pragma once

#include <functional>
#include <map>

#include "app/window/PageTable.h"
#include "pages/kit/Services.h"
#include "ui/page/Page.h"

namespace quorvi {

using MakePage = std::function<Page*(PageHost& host, const Services& services, QWidget* parent)>;

// From a dialog number to the maker of its page.
using PageMakers = std::map<int, MakePage>;

// The suite's own.
[[nodiscard]] PageMakers ThePageMakers();

// The page of a row: by its maker, else the announcement of a feature, else the picture with the
// page's own name under it.
[[nodiscard]] Page* MakePageOf(const PageRow& row, const PageMakers& makers, PageHost& host,
                               const Services& services, QWidget* parent);

}  // namespace quorvi

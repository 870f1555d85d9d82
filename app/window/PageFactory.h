// Which class stands behind each dialog number.
#pragma once

#include <functional>
#include <map>
#include <memory>

#include "app/window/PageTable.h"
#include "ui/page/Page.h"

namespace quorvi {

class DesktopIntegration;
class DeviceContext;

// What pages are made from, beside their host. Grows with what pages need of the suite.
struct PageParts {
    DeviceContext& device;
    std::shared_ptr<DesktopIntegration> desktop = {};
};

using MakePage = std::function<Page*(PageHost& host, const PageParts& parts, QWidget* parent)>;

// From a dialog number to the maker of its page.
using PageMakers = std::map<int, MakePage>;

// The suite's own.
[[nodiscard]] PageMakers ThePageMakers();

// The page of a row: by its maker, else the announcement of a feature, else the picture with the
// page's own name under it.
[[nodiscard]] Page* MakePageOf(const PageRow& row, const PageMakers& makers, PageHost& host,
                               const PageParts& parts, QWidget* parent);

}  // namespace quorvi

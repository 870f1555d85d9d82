// Every page of the suite through the interface that screen readers use: in the suite's window,
// with what a phone holds in it.
#include <fmt/format.h>

#include <QAccessible>

#include "tests/support/AccessibleWalk.h"
#include "tests/support/PagesOnPhone.h"

namespace quorvi {

void PrintTo(const PageRow& row, std::ostream* out) {
    *out << "page " << row.page;
}

namespace {

class PageAccessible : public PagesOnPhone, public testing::WithParamInterface<PageRow> {
  protected:
    void SetUp() override {
        QAccessible::setActive(true);  // as when a screen reader is there
        PagesOnPhone::SetUp();
        OpenPage(GetParam().page);
    }
    void TearDown() override {
        PagesOnPhone::TearDown();
        QAccessible::setActive(false);
    }
};

TEST_P(PageAccessible, HasNamesRolesAndActionsForAllThatIsInIt) {
    // A browser hands over what is in its document when it has been asked for it.
    static_cast<void>(WaitFor([&] { return AccessibleFaults(Window()).isEmpty(); }));
    EXPECT_EQ(AccessibleFaults(Window()), QStringList());
    EXPECT_GT(AccessibleParts(Window()), 10);
}

INSTANTIATE_TEST_SUITE_P(Suite, PageAccessible, testing::ValuesIn(kPages), [](const auto& each) {
    return fmt::format("Page{:02}", each.param.page);
});

}  // namespace
}  // namespace quorvi

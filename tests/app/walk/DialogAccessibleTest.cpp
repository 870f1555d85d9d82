// Every dialog of the suite through the interface that screen readers use.
#include <QAccessible>

#include "tests/support/AccessibleWalk.h"
#include "tests/support/PrintQt.h"
#include "tests/support/SuiteDialogs.h"

namespace quorvi {
namespace {

class DialogAccessible : public EachDialog {
  protected:
    void SetUp() override {
        QAccessible::setActive(true);  // as when a screen reader is there
        EachDialog::SetUp();
    }
    void TearDown() override { QAccessible::setActive(false); }
};

TEST_P(DialogAccessible, HasNamesRolesAndActionsForAllThatIsInIt) {
    // A browser hands over what is in its document when it has been asked for it.
    static_cast<void>(WaitFor([&] { return AccessibleFaults(Dialog()).isEmpty(); }));
    EXPECT_EQ(AccessibleFaults(Dialog()), QStringList());
    const auto controls = QString::fromLatin1(GetParam().controls).split(QLatin1Char(' '));
    EXPECT_GE(AccessibleParts(Dialog()), controls.size());
}

TEST_P(DialogAccessible, IsADialogByItsTitle) {
    const QAccessibleInterface* dialog = QAccessible::queryAccessibleInterface(&Dialog());
    EXPECT_EQ(dialog->role(), QAccessible::Dialog);
    EXPECT_EQ(dialog->text(QAccessible::Name), Dialog().windowTitle());
    EXPECT_FALSE(Dialog().windowTitle().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Suite, DialogAccessible, testing::ValuesIn(SuiteDialogs()),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace quorvi

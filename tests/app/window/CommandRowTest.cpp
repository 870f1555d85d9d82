// The count at the right end of the command row, and the button that a page offers.
#include <gtest/gtest.h>

#include <QLabel>

#include "app/window/CommandRow.h"
#include "tests/support/FakeHost.h"
#include "tests/support/QtTest.h"
#include "tests/support/WaitFor.h"
#include "ui/kit/ControlNumber.h"
#include "ui/page/Page.h"

namespace quorvi {
namespace {

class CommandRowTest : public QtTest {
  protected:
    void Show(const PageNumbers& numbers, const Page& page) {
        row_.Show(*FindPage(numbers.page), true, page);
    }
    [[nodiscard]] QString Count() const {
        return row_.findChild<QLabel*>(QStringLiteral("count"))->text();
    }

    FakeHost host_;
    Page calls_{host_, kCallsPage.dialog};
    Page alarms_{host_, kAlarmsPage.dialog};
    CommandRow row_{nullptr};
};

TEST_F(CommandRowTest, ShowsTheCountOfThePageThatIsShownAndFollowsIt) {
    calls_.SetCountLine(QStringLiteral("before"));
    Show(kCallsPage, calls_);
    EXPECT_EQ(Count(), QStringLiteral("before"));
    calls_.SetCountLine(QStringLiteral("after"));
    EXPECT_EQ(Count(), QStringLiteral("after"));
}

TEST_F(CommandRowTest, NoLongerFollowsAPageThatWasLeft) {
    Show(kCallsPage, calls_);
    Show(kAlarmsPage, alarms_);
    calls_.SetCountLine(QStringLiteral("of the calls"));
    EXPECT_EQ(Count(), QString());
}

TEST_F(CommandRowTest, GivesTheFocusToTheButtonThatThePageOffers) {
    row_.show();
    row_.activateWindow();
    Show(kCallsPage, calls_);
    auto& button = *FindControl<QWidget>(&row_, CommandRow::kButtons[1]);
    Q_EMIT alarms_.commandOffered(1);
    EXPECT_FALSE(button.hasFocus());
    Q_EMIT calls_.commandOffered(1);
    EXPECT_TRUE(WaitFor([&] { return button.hasFocus(); }));
}

TEST_F(CommandRowTest, KeepsTheCountClearOfTheButtonsInAnyWidth) {
    for (const int width : {760, 1200}) {
        row_.resize(width, row_.height());
        row_.ensurePolished();
        row_.show();
        const QRect count = row_.findChild<QLabel*>(QStringLiteral("count"))->geometry();
        EXPECT_EQ(count.right(), width - 1);
        EXPECT_GE(count.left(), static_cast<int>(kCommandCount) * 124);
    }
}

}  // namespace
}  // namespace quorvi

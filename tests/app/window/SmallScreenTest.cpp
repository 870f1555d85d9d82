// The suite's own pages on a screen that has less room than they are drawn for.
#include <QHeaderView>
#include <QScrollArea>
#include <QScrollBar>

#include "app/window/PageFactory.h"
#include "app/window/PageTable.h"
#include "tests/support/MainDoubles.h"
#include "tests/support/WidgetTest.h"
#include "ui/list/SkinListCtrl.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

class SmallScreen : public WidgetTest, protected MainDoubles {
  protected:
    void SetUp() override { MakeWindowOf(ThePageMakers()); }
    void TearDown() override {
        EXPECT_TRUE(WaitFor([] { return RunningJobs() == 0; }));
    }
};

// Of 1366 by 768 pixels, with all of the window half as large again.
TEST_F(SmallScreen, OfThatWithLargeTextNoPageIsScrolledSidewaysAndNoColumnStandsOutside) {
    window_->resize(910, 512);
    const auto* view = window_->findChild<QScrollArea*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_NE(view, nullptr);
    int lists = 0;
    for (const PageRow& row : kPages) {
        window_->Post(Message::goToPage, TabOf(row), row.page);
        Settle();
        EXPECT_EQ(view->horizontalScrollBar()->maximum(), 0) << row.page;
        const auto all = window_->ShownPage()->findChildren<CSkinListCtrl*>();
        for (const CSkinListCtrl* list : all) {
            if (list->isVisible()) {
                ++lists;
                EXPECT_LE(list->horizontalHeader()->length(), list->viewport()->width())
                    << row.page << ' ' << list->objectName().toStdString();
            }
        }
    }
    EXPECT_GT(lists, 10);
}

}  // namespace
}  // namespace quorvi

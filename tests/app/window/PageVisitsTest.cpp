// When a page asks the phone by itself, and what a visit finds when the phone is gone.
#include "tests/support/PagesOnPhone.h"

namespace quorvi {
namespace {

struct Visited {
    int page;
    int list;  // the command that fills it
};

// Without the system information, which the dashboard asks for by itself. The calls last: the test
// looks at them then.
constexpr Visited kVisited[] = {{10, 870101}, {11, 870201}, {13, 870401}, {15, 870601},
                                {16, 870701}, {30, 870802}, {41, 871501}, {42, 871601},
                                {43, 871701}, {45, 871801}, {12, 870301}};

class PageVisits : public PagesOnPhone {
  protected:
    void SetUp() override {
        PagesOnPhone::SetUp();
        Tell("log clear");
    }
    static int Calls() { return OnPage<CSkinListCtrl>(1072).RowCount(); }
};

// The first test of the suite, whose window has shown no page but the dashboard.
TEST_F(PageVisits, OnlyTheFirstOneLoadsThePage) {
    for (int visit = 0; visit < 2; ++visit) {
        for (const auto& [page, list] : kVisited) {
            OpenPage(page);
            EXPECT_EQ(Requests(list).size(), 1u) << page;
        }
    }
    EXPECT_EQ(Calls(), 33);
}

TEST_F(PageVisits, APhoneThatIsGoneLeavesTheOldListsStanding) {
    OpenFresh(kContacts);
    OpenFresh(kCalls);
    Tell("unplug");
    ASSERT_TRUE(Desk().Rig().WaitForDevices(0));
    OpenPage(kContacts);
    OpenPage(kCalls);
    EXPECT_EQ(Calls(), 33);
    EXPECT_EQ(Status(), ToQString(u8"就绪"));  // nobody has asked the phone
    Command(0);
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(Calls(), 0);
    EXPECT_EQ(Status(), ToQString(u8"【X】连接错误"));
    // A phone that is back is seen by the first load that works.
    Restore();
    Command(0);
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(Calls(), 33);
    EXPECT_EQ(Status(), ToQString(u8"就绪"));
}

// A suite of its own: its window is gone then.
class WindowEnd : public PagesOnPhone {};

TEST_F(WindowEnd, WaitsForNoReply) {
    OpenFresh(kCalls);
    Tell("fault 870301 stall");
    Command(0);
    ASSERT_TRUE(WaitFor([] { return Requests(870301).size() == 1; }));
    Window().close();
    EXPECT_EQ(Desk().Ended(), 1);
    EXPECT_FALSE(Window().isVisible());
    Tell("release");
}

}  // namespace
}  // namespace quorvi

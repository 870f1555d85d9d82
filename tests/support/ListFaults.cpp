#include "tests/support/ListFaults.h"

namespace quorvi {
namespace {

constexpr std::size_t kRefresh = 0;
constexpr std::size_t kGroups = 2;
constexpr int kRefreshGroups = 1047;
constexpr int kOk = 1215;

}  // namespace

Left ListFaults::LeftOf(const AskedList& asked, const FaultMode& mode) {
    if (mode.words == kCutInLength && asked.isLong) {
        return Left::over;
    }
    if (!asked.rowAtMark && mode.left == Left::absent) {
        return Left::nothing;
    }
    if (asked.headed && mode.left == Left::absent) {
        return Left::whole;
    }
    return asked.neverBlank && mode.left == Left::blank ? Left::over : mode.left;
}

void ListFaults::SetUp() {
    WindowFaults::SetUp();
    OpenFresh(asked_.page);
    if (asked_.dialog != 0) {
        Command(kGroups);
        ASSERT_TRUE(WaitForDialog(asked_.dialog));
    }
    ASSERT_EQ(List().RowCount(), asked_.rows);
}

void ListFaults::TearDown() {
    if (asked_.dialog != 0) {
        Press(asked_.dialog, kOk);
    }
    WindowFaults::TearDown();
}

CSkinListCtrl& ListFaults::List() const {
    if (asked_.dialog != 0) {
        return In<CSkinListCtrl>(asked_.dialog, asked_.list);
    }
    return asked_.list == 0 ? TheList() : OnPage<CSkinListCtrl>(asked_.list);
}

void ListFaults::Refresh() const {
    if (asked_.dialog == 0) {
        Command(kRefresh);
    } else {
        Press(asked_.dialog, kRefreshGroups);
    }
}

void ListFaults::ExpectKey(int value) const {
    if (asked_.loadKey != PageRow::kNoKey) {
        EXPECT_EQ(Window().LoadState().Value(asked_.loadKey), value);
    }
}

void ListFaults::ExpectRows(int rows, bool redraw, ListState state) const {
    EXPECT_EQ(List().RowCount(), rows);
    EXPECT_EQ(List().Redraw(), redraw);
    EXPECT_EQ(List().State(), state);
}

// A load that ends early selects no row and asks for no detail.
void ListFaults::ExpectNoSelection() const {
    EXPECT_EQ(List().CurrentRow(), -1);
    EXPECT_EQ(Asked(AgentCommand::readContact), 0u);
}

void ListFaults::ExpectLeft(Left left) const {
    switch (left) {
        case Left::whole:
            ExpectRows(asked_.rows, true);
            break;
        case Left::nothing:
            // Kept on purpose: the redraw stays off until a later load gets further.
            ExpectRows(asked_.fixedRows, false);
            ExpectNoSelection();
            break;
        case Left::absent:
            ExpectRows(asked_.fixedRows + 1, false);  // the empty row that had begun
            ExpectNoSelection();
            break;
        case Left::blank:
            ExpectRows(asked_.fixedRows + 1, true);
            break;
        case Left::over:
            ExpectRows(asked_.fixedRows, true);
            break;
        case Left::some:
            EXPECT_LT(List().RowCount(), asked_.rows);
            ExpectRows(List().RowCount(), true);
            break;
        case Left::refused:
            ExpectRows(asked_.fixedRows, true, ListState::failed);
            break;
        case Left::cable:
            break;
    }
}

void ListFaults::ExpectWhatIsLeftAndAllOfItLater() {
    const QStringList names = NamesIn(List(), asked_.names);
    SetLook([this] {
        ExpectRows(asked_.fixedRows, false, ListState::loading);
        ExpectKey(PageLoadState::kRunning);
        Refresh();  // is dropped, not queued
    });
    Suffer(mode_, asked_.code, [this] { Refresh(); });
    ExpectLeft(left_);
    if (!asked_.headed) {
        ExpectKey(PageLoadState::kEnded);
    } else if (left_ != Left::cable) {  // how far a reply comes with the cable, nobody knows
        ExpectKey(left_ == Left::nothing ? PageLoadState::kRunning : PageLoadState::kEnded);
    }
    if (mode_.means == Means::fault) {
        EXPECT_EQ(Asked(asked_.code), 1u);
    }
    if (left_ == Left::cable) {
        ExpectNoLink([this] { Refresh(); });
        ExpectLeft(Left::refused);
    }

    Lift();
    Refresh();
    ASSERT_TRUE(WaitIdle());
    ExpectLeft(Left::whole);
    EXPECT_EQ(NamesIn(List(), asked_.names), names);
    EXPECT_EQ(Status(), Ready());
}

}  // namespace quorvi

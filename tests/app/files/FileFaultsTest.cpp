// Every fault of the phone against the commands of the file page.
#include "tests/support/ControlDriver.h"
#include "tests/support/ListFaults.h"

namespace quorvi {
namespace {

constexpr int kList = 1091;
constexpr int kRootRows = 16;
constexpr int kCardRows = 17;

class FileRootFaults : public ListFaults {};

TEST_P(FileRootFaults, ShowsWhatIsLeftAndAllOfItLater) {
    ExpectWhatIsLeftAndAllOfItLater();
}

constexpr AskedList kRoot{.name = "ListRoot",
                          .code = AgentCommand::listFileRoots,
                          .page = 15,
                          .dialog = 0,
                          .loadKey = 6,
                          .list = kList,
                          .rows = kRootRows,
                          .names = 0,
                          .neverBlank = true,
                          .headed = true};

INSTANTIATE_TEST_SUITE_P(Each, FileRootFaults,
                         testing::Combine(testing::Values(kRoot), testing::ValuesIn(kFaultModes)),
                         NameOfCase<testing::TestParamInfo<ListFaults::ParamType>>);

// A folder, opened from the root.
class FolderFaults : public WindowFaults, public testing::WithParamInterface<FaultMode> {
  protected:
    void SetUp() override {
        WindowFaults::SetUp();
        OpenFresh(kFiles);
        ASSERT_EQ(List().RowCount(), kRootRows);
    }

    static CSkinListCtrl& List() { return OnPage<CSkinListCtrl>(kList); }
    static void OpenCard() {
        ClickCell(List(), 0, 0);
        DoubleClickCell(List(), 0, 0);
    }
    static void ExpectRows(int rows, bool redraw, ListState state = ListState::idle) {
        EXPECT_EQ(List().RowCount(), rows);
        EXPECT_EQ(List().Redraw(), redraw);
        EXPECT_EQ(List().State(), state);
    }
    // What is left of a reply whose first record is a header, of which the text may be absent.
    static void ExpectLeft(Left left) {
        switch (left) {
            case Left::whole:
            case Left::absent:
                ExpectRows(kCardRows, true);
                break;
            case Left::nothing:
                ExpectRows(0, false);
                break;
            case Left::blank:
            case Left::over:
                ExpectRows(0, true);
                break;
            case Left::some:
                EXPECT_LT(List().RowCount(), kCardRows);
                ExpectRows(List().RowCount(), true);
                break;
            case Left::refused:
                ExpectRows(0, true, ListState::failed);
                break;
            case Left::cable:
                break;
        }
    }
};

TEST_P(FolderFaults, ShowsWhatIsLeftAndAllOfItLater) {
    const FaultMode& mode = GetParam();
    SetLook([] {
        ExpectRows(0, false, ListState::loading);
        EXPECT_FALSE(Window().ShownPage()->isEnabled());
    });
    Suffer(mode, AgentCommand::listDirectory, [] { OpenCard(); });
    ExpectLeft(mode.left);
    EXPECT_EQ(Window().LoadState().Value(6), PageLoadState::kEnded);
    EXPECT_TRUE(Window().ShownPage()->isEnabled());

    Lift();
    Command(0);
    ASSERT_TRUE(WaitIdle());
    ExpectRows(kRootRows, true);
    OpenCard();
    ASSERT_TRUE(WaitIdle());
    ExpectRows(kCardRows, true);
    EXPECT_EQ(Status(), Ready());
}

INSTANTIATE_TEST_SUITE_P(Each, FolderFaults, testing::ValuesIn(kFaultModes),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace quorvi

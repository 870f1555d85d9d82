// Every fault of the phone against every command that fills a list or the view of conversations.
#include "tests/app/phone/WindowFaults.h"
#include "ui/html/HtmlFrame.h"

namespace quorvi {
namespace {

constexpr int kGroupDialog = 679;

struct AskedList {
    const char* name;
    AgentCommand code;
    int page;
    int dialog;   // over the page; 0: the page itself
    int loadKey;  // PageRow::kNoKey: none
    int list;
    int rows;
    bool isLong = false;  // 64 KiB or more: half of its length's word is not zero
};

void PrintTo(const AskedList& asked, std::ostream* out) {
    *out << asked.name;
}

constexpr AskedList kLists[] = {
    {"ListContacts", AgentCommand::listContacts, 10, 0, 1, 1067, 48, true},
    {"ListCalls", AgentCommand::listCalls, 12, 0, 3, 1072, 33},
    {"ListGroups", AgentCommand::listGroups, 10, kGroupDialog, PageRow::kNoKey, 1372, 8},
};

class ListFaults : public WindowFaults,
                   public testing::WithParamInterface<std::tuple<AskedList, FaultMode>> {
  protected:
    static constexpr std::size_t kRefresh = 0;
    static constexpr std::size_t kGroups = 2;
    static constexpr int kRefreshGroups = 1047;
    static constexpr int kOk = 1215;
    static constexpr int kNames = 1;

    AskedList asked_ = std::get<0>(GetParam());
    FaultMode mode_ = std::get<1>(GetParam());
    Left left_ = mode_.words == kCutInLength && asked_.isLong ? Left::over : mode_.left;

    void SetUp() override {
        WindowFaults::SetUp();
        OpenFresh(asked_.page);
        if (asked_.dialog != 0) {
            Command(kGroups);
            ASSERT_TRUE(WaitForDialog(asked_.dialog));
        }
        ASSERT_EQ(List().RowCount(), asked_.rows);
    }
    void TearDown() override {
        if (asked_.dialog != 0) {
            Press(asked_.dialog, kOk);
        }
        WindowFaults::TearDown();
    }

    [[nodiscard]] CSkinListCtrl& List() const {
        return asked_.dialog == 0 ? OnPage<CSkinListCtrl>(asked_.list)
                                  : In<CSkinListCtrl>(asked_.dialog, asked_.list);
    }
    void Refresh() const {
        if (asked_.dialog == 0) {
            Command(kRefresh);
        } else {
            Press(asked_.dialog, kRefreshGroups);
        }
    }
    void ExpectKey(int value) const {
        if (asked_.loadKey != PageRow::kNoKey) {
            EXPECT_EQ(Window().LoadState().Value(asked_.loadKey), value);
        }
    }
    void ExpectRows(int rows, bool redraw, ListState state = ListState::idle) const {
        EXPECT_EQ(List().RowCount(), rows);
        EXPECT_EQ(List().Redraw(), redraw);
        EXPECT_EQ(List().State(), state);
    }
    // What an early end leaves out.
    void ExpectNoSelection() const {
        EXPECT_EQ(List().CurrentRow(), -1);
        EXPECT_EQ(Asked(AgentCommand::readContact), 0u);
    }
    void ExpectLeft(Left left) const {
        switch (left) {
            case Left::whole:
                ExpectRows(asked_.rows, true);
                break;
            case Left::nothing:
                ExpectRows(0, false);  // meant: until a later load gets further
                ExpectNoSelection();
                break;
            case Left::absent:
                ExpectRows(1, false);  // the empty row that had begun
                ExpectNoSelection();
                break;
            case Left::blank:
                ExpectRows(1, true);
                break;
            case Left::over:
                ExpectRows(0, true);
                break;
            case Left::some:
                EXPECT_LT(List().RowCount(), asked_.rows);
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

TEST_P(ListFaults, ShowsWhatIsLeftAndAllOfItLater) {
    const QStringList names = NamesIn(List(), kNames);
    SetLook([this] {
        ExpectRows(0, false, ListState::loading);
        ExpectKey(PageLoadState::kRunning);
        Refresh();  // is dropped, not queued
    });
    Suffer(mode_, asked_.code, [this] { Refresh(); });
    ExpectLeft(left_);
    ExpectKey(PageLoadState::kEnded);
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
    EXPECT_EQ(NamesIn(List(), kNames), names);
    EXPECT_EQ(Status(), Ready());
}

INSTANTIATE_TEST_SUITE_P(Each, ListFaults,
                         testing::Combine(testing::ValuesIn(kLists),
                                          testing::ValuesIn(kFaultModes)),
                         NameOfCase<testing::TestParamInfo<ListFaults::ParamType>>);

}  // namespace
}  // namespace quorvi

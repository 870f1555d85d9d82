// Every fault of the phone against the commands that fill the HTML views of the pages.
#include "tests/app/phone/WindowFaults.h"
#include "ui/html/HtmlFrame.h"

namespace quorvi {
namespace {

constexpr std::size_t kRefresh = 0;

ListState StateOfFrame(const Page& page) {
    return page.findChild<HtmlFrame*>()->State();
}

// ---- the conversations --------------------------------------------------------------------------

struct AskedView {
    const char* name;
};

void PrintTo(const AskedView& asked, std::ostream* out) {
    *out << asked.name;
}

class ConversationsFaults : public WindowFaults,
                            public testing::WithParamInterface<std::tuple<AskedView, FaultMode>> {
  protected:
    static constexpr int kView = 1361;
    static constexpr int kLoadKey = 2;
    static constexpr int kBefore = 15;  // conversations of the phone as it is delivered
    static constexpr int kNow = 3;      // and as it is by the time of the load

    FaultMode mode_ = std::get<1>(GetParam());

    void SetUp() override {
        WindowFaults::SetUp();
        OpenFresh(kMessages);
        ASSERT_TRUE(WaitFor([] { return Blocks() == kBefore; }));
        // What is loaded from here on can be told from what stands in the view.
        Tell("data conversations 3");
    }

    static int Blocks() {
        return AskHtml(OnPage<CHtmlCtrlBase>(kView),
                       QStringLiteral("document.querySelectorAll('#sms_ul > li').length"))
            .toInt();
    }
    static void Refresh() { Command(kRefresh); }
    static int BlocksOf(Left left) {
        switch (left) {
            case Left::whole:
                return kNow;
            case Left::blank:
                return 1;
            default:
                return kBefore;  // nothing to show: the old view stays
        }
    }
};

TEST_P(ConversationsFaults, ShowsWhatIsLeftOrStaysAndShowsAllOfItLater) {
    SetLook([] {
        EXPECT_EQ(StateOfFrame(*Window().ShownPage()), ListState::loading);
        EXPECT_EQ(Window().LoadState().Value(kLoadKey), PageLoadState::kRunning);
        EXPECT_EQ(Blocks(), kBefore);
        Refresh();  // is dropped, not queued
    });
    Suffer(mode_, AgentCommand::listConversations, [] { Refresh(); });
    EXPECT_EQ(Window().LoadState().Value(kLoadKey), PageLoadState::kEnded);
    if (mode_.means == Means::fault) {
        EXPECT_EQ(Asked(AgentCommand::listConversations), 1u);
    }
    if (mode_.left == Left::cable) {
        ExpectNoLink([] { Refresh(); });
    } else {
        EXPECT_EQ(Blocks(), BlocksOf(mode_.left));
        EXPECT_EQ(StateOfFrame(*Window().ShownPage()),
                  mode_.left == Left::refused ? ListState::failed : ListState::idle);
    }

    Lift();
    Refresh();
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(Blocks(), kNow);
    EXPECT_EQ(StateOfFrame(*Window().ShownPage()), ListState::idle);
    EXPECT_EQ(Status(), Ready());
}

INSTANTIATE_TEST_SUITE_P(Each, ConversationsFaults,
                         testing::Combine(testing::Values(AskedView{"ListConversations"}),
                                          testing::ValuesIn(kFaultModes)),
                         NameOfCase<testing::TestParamInfo<ConversationsFaults::ParamType>>);

// ---- the selected contact ----------------------------------------------------------------------

class DetailFaults : public WindowFaults,
                     public testing::WithParamInterface<std::tuple<AskedView, FaultMode>> {
  protected:
    static constexpr int kList = 1067;
    static constexpr int kView = 1370;
    static constexpr int kName = 1;

    FaultMode mode_ = std::get<1>(GetParam());

    void SetUp() override {
        WindowFaults::SetUp();
        OpenFresh(kContacts);
        ASSERT_TRUE(WaitFor([] { return Shown() == NameIn(0); }));
    }

    static CSkinListCtrl& List() { return OnPage<CSkinListCtrl>(kList); }
    static QString NameIn(int row) { return List().CellAt(row, kName).text; }
    static QString Shown() {
        return AskHtml(OnPage<CHtmlCtrlBase>(kView),
                       QStringLiteral("document.querySelector('#block .name')?.innerText"))
            .toString();
    }
    static void Select(int row) { ClickCell(List(), row, kName); }
    static QString ShownOf(Left left) {
        switch (left) {
            case Left::whole:
            case Left::absent:  // the first text of a contact is one that is not shown
                return NameIn(1);
            case Left::blank:
                return {};
            default:
                return NameIn(0);  // the view stays
        }
    }
};

TEST_P(DetailFaults, ShowsWhatIsLeftOrStaysAndShowsAllOfItLater) {
    SetLook([] {
        EXPECT_EQ(StateOfFrame(*Window().ShownPage()), ListState::loading);
        EXPECT_EQ(Shown(), NameIn(0));
        Select(2);  // the detail of this one is dropped, not queued
        Select(1);
    });
    Suffer(mode_, AgentCommand::readContact, [] { Select(1); });
    if (mode_.means == Means::fault) {
        EXPECT_EQ(Asked(AgentCommand::readContact), 1u);
    }
    EXPECT_EQ(StateOfFrame(*Window().ShownPage()), ListState::idle);
    EXPECT_EQ(List().CurrentRow(), 1);
    if (mode_.left == Left::cable) {
        ExpectNoLink([] { Select(3); });
    } else {
        EXPECT_EQ(Shown(), ShownOf(mode_.left));
    }

    Lift();
    Select(2);
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(Shown(), NameIn(2));
    EXPECT_EQ(Status(), Ready());
}

INSTANTIATE_TEST_SUITE_P(Each, DetailFaults,
                         testing::Combine(testing::Values(AskedView{"ReadContact"}),
                                          testing::ValuesIn(kFaultModes)),
                         NameOfCase<testing::TestParamInfo<DetailFaults::ParamType>>);

}  // namespace
}  // namespace quorvi

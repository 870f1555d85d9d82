// Every fault of the phone against the commands of the contacts' page: its list, the contact that
// is selected, the editor's loading, and each change.
#include <QLineEdit>

#include "tests/support/ChangeFaults.h"
#include "tests/support/ListFaults.h"
#include "ui/html/HtmlFrame.h"

namespace quorvi {
namespace {

constexpr std::size_t kRefresh = 0;
constexpr int kEditor = 540;
constexpr int kSave = 1020;

// ---- the list ----------------------------------------------------------------------------------

class ContactListFaults : public ListFaults {};

TEST_P(ContactListFaults, ShowsWhatIsLeftAndAllOfItLater) {
    ExpectWhatIsLeftAndAllOfItLater();
}

constexpr AskedList kContactList{
    "ListContacts", AgentCommand::listContacts, 10, 0, 1, 1067, 48, true};

INSTANTIATE_TEST_SUITE_P(Each, ContactListFaults,
                         testing::Combine(testing::Values(kContactList),
                                          testing::ValuesIn(kFaultModes)),
                         NameOfCase<testing::TestParamInfo<ListFaults::ParamType>>);

// ---- the selected contact ----------------------------------------------------------------------

class DetailFaults : public WindowFaults, public testing::WithParamInterface<FaultMode> {
  protected:
    static constexpr int kList = 1067;
    static constexpr int kView = 1370;
    static constexpr int kName = 1;

    FaultMode mode_ = GetParam();

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
    static ListState FrameState() { return Window().ShownPage()->findChild<HtmlFrame*>()->State(); }
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
        EXPECT_EQ(FrameState(), ListState::loading);
        EXPECT_EQ(Shown(), NameIn(0));
        Select(2);  // the detail of this one is dropped, not queued
        Select(1);
    });
    Suffer(mode_, AgentCommand::readContact, [] { Select(1); });
    if (mode_.means == Means::fault) {
        EXPECT_EQ(Asked(AgentCommand::readContact), 1u);
    }
    EXPECT_EQ(FrameState(), ListState::idle);
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

INSTANTIATE_TEST_SUITE_P(ReadContact, DetailFaults, testing::ValuesIn(kFaultModes),
                         testing::PrintToStringParamName());

// ---- the editor --------------------------------------------------------------------------------

class EditorFaults : public WindowFaults, public testing::WithParamInterface<FaultMode> {
  protected:
    static constexpr int kList = 1067;
    static constexpr int kName = 1149;
    static constexpr int kPhone = 1150;
    static constexpr int kCancel = 1021;

    FaultMode mode_ = GetParam();

    void SetUp() override {
        WindowFaults::SetUp();
        OpenFresh(kContacts);
        ASSERT_EQ(List().RowCount(), 48);
    }

    static CSkinListCtrl& List() { return OnPage<CSkinListCtrl>(kList); }
    static void Open() { DoubleClickCell(List(), 0, 1); }
    static QString TextOf(int control) { return In<QLineEdit>(kEditor, control).text(); }
    static void ExpectFields(bool filled) {
        EXPECT_EQ(TextOf(kName), filled ? ToQString(u8"林远舟") : QString());
        EXPECT_EQ(TextOf(kPhone), filled ? QStringLiteral("13861234567") : QString());
    }
};

TEST_P(EditorFaults, StaysOpenWithWhatIsLeftAndLoadsAllOfItLater) {
    SetLook([] {
        EXPECT_FALSE(In(kEditor, kName).isEnabled());
        EXPECT_FALSE(In(kEditor, kSave).isEnabled());
        EXPECT_TRUE(In(kEditor, kCancel).isEnabled());
    });
    Suffer(mode_, AgentCommand::readContact, [] { Open(); });
    ASSERT_NE(OpenDialog(kEditor), nullptr);
    EXPECT_TRUE(In(kEditor, kSave).isEnabled());
    ExpectFields(mode_.left == Left::whole || mode_.left == Left::absent);
    Press(kEditor, kCancel);
    ASSERT_TRUE(WaitForNoDialog(kEditor));
    EXPECT_EQ(Asked(AgentCommand::listContacts), 0u);
    if (mode_.left == Left::cable) {
        ExpectNoLink([] { Command(kRefresh); });
    }

    Lift();
    Command(kRefresh);
    ASSERT_TRUE(WaitIdle());
    Open();
    ASSERT_TRUE(WaitForDialog(kEditor));
    ExpectFields(true);
    Press(kEditor, kCancel);
    ASSERT_TRUE(WaitForNoDialog(kEditor));
    EXPECT_EQ(Status(), Ready());
}

INSTANTIATE_TEST_SUITE_P(LoadContact, EditorFaults, testing::ValuesIn(kFaultModes),
                         testing::PrintToStringParamName());

// ---- changes -----------------------------------------------------------------------------------

class ContactChangeFaults : public ChangeFaults {
  public:
    static std::vector<Change> Changes();
};

TEST_P(ContactChangeFaults, IsTakenAndTheListBehindItTells) {
    ExpectTakenAndSeen();
}

constexpr ChangePlace kPlace{10, 0, AgentCommand::listContacts, 1067, 1};

std::vector<Change> ContactChangeFaults::Changes() {
    const auto name = [] {
        ASSERT_TRUE(WaitForDialog(kEditor));
        TypeIn(kEditor, 1149, NewName());
    };
    return {
        {"AddContact", AgentCommand::addContact, kPlace,
         [=] {
             Command(1);
             name();
         },
         Pressing(kEditor, kSave), Appended, kEditor},
        {"UpdateContact", AgentCommand::updateContact, kPlace,
         [=] {
             DoubleClickCell(ListAt(kPlace), 0, 1);
             name();
         },
         Pressing(kEditor, kSave), FirstRenamed, kEditor},
        {"DeleteContacts", AgentCommand::deleteContacts, kPlace,
         [] {
             ClickCell(ListAt(kPlace), 0, 4);
             Ask([] { Command(3); });
         },
         Pressing(kConfirm, kOk), FirstGone, 0, AgentCommand::readContact},
    };
}

INSTANTIATE_TEST_SUITE_P(Each, ContactChangeFaults,
                         testing::Combine(testing::ValuesIn(ContactChangeFaults::Changes()),
                                          testing::ValuesIn(ModesOfAWord())),
                         NameOfCase<testing::TestParamInfo<ChangeFaults::ParamType>>);

}  // namespace
}  // namespace quorvi

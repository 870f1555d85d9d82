// Every fault of the phone against the commands that the composer reads its conversation and its
// tree with.
#include <QLineEdit>

#include "tests/support/WindowFaults.h"
#include "ui/html/HtmlFrame.h"

namespace quorvi {
namespace {

constexpr int kCancel = 1021;
constexpr std::size_t kRefresh = 0;

struct AskedRead {
    const char* name;
    AgentCommand code;
};

void PrintTo(const AskedRead& asked, std::ostream* out) {
    *out << asked.name;
}

class ComposerFaults : public WindowFaults,
                       public testing::WithParamInterface<std::tuple<AskedRead, FaultMode>> {
  protected:
    static constexpr int kView = 1361;
    static constexpr int kComposer = 550;
    static constexpr int kTalk = 1359;
    static constexpr int kTree = 1338;
    static constexpr int kRecipients = 1337;
    static constexpr int kGroups = 7;   // that have members
    static constexpr int kEntries = 2;  // of the conversation

    AskedRead asked_ = std::get<0>(GetParam());
    FaultMode mode_ = std::get<1>(GetParam());

    void SetUp() override {
        WindowFaults::SetUp();
        OpenFresh(kMessages);
        ASSERT_TRUE(WaitFor([] { return AskPage(Conversation()).isValid(); }));
    }

    static QVariant AskPage(const QString& selector) {
        return AskHtml(OnPage<CHtmlCtrlBase>(kView),
                       QStringLiteral("document.querySelector(\"%1\")?.innerText").arg(selector));
    }
    static QString Conversation() { return QStringLiteral("#sms_ul .sender a[href='qvh:vid=9']"); }
    static void Open() {
        ClickHtml(OnPage<CHtmlCtrlBase>(kView), Conversation());
        ASSERT_TRUE(WaitForComposer());
    }
    [[nodiscard]] static bool WaitForComposer() {
        return WaitFor([] { return OpenDialog(kComposer) != nullptr; });
    }

    static int Entries() {
        return AskHtml(
                   In<CHtmlCtrlBase>(kComposer, kTalk),
                   QStringLiteral("document.querySelectorAll('#conversation_list .entry').length"))
            .toInt();
    }
    static CSkinTree& Tree() { return In<CSkinTree>(kComposer, kTree); }
    static QString Recipients() { return In<QLineEdit>(kComposer, kRecipients).text(); }
    // The name of a group's node, without the number of its members.
    static QString Group(int index) {
        return Tree().topLevelItem(index)->text(0).section(QStringLiteral(" ["), 0, -2);
    }

    static void ExpectConversation(Left conversation, Left members) {
        // Of a run that is over behind a message or two, that much is shown.
        if (conversation != Left::some) {
            EXPECT_EQ(Entries(), conversation == Left::whole ? kEntries : 0);
        }
        if (conversation == Left::whole) {
            EXPECT_EQ(Recipients(), members == Left::whole
                                        ? ToQString(u8"\"顾晓棠\" <13512340098>;")
                                        : QStringLiteral("13512340098"));
        }
    }
    static void ExpectNames(Left names) {
        EXPECT_EQ(Group(0), ToQString(u8"【未分组】"));
        if (names == Left::whole) {
            EXPECT_EQ(Group(1), ToQString(u8"家人"));
        } else if (names == Left::nothing || names == Left::absent) {
            EXPECT_EQ(Group(1), QString());  // a group whose title is not known
        }
    }
    static void ExpectTree(Left names, Left members) {
        if (members == Left::whole) {
            ASSERT_EQ(Tree().topLevelItemCount(), kGroups);
            ExpectNames(names);
        } else if (members == Left::some) {
            EXPECT_LE(Tree().topLevelItemCount(), 2);
        } else {
            EXPECT_EQ(Tree().topLevelItemCount(), 0);
        }
        const bool refused = names == Left::refused || members == Left::refused;
        EXPECT_EQ(Tree().Status().Get(), refused ? ListState::failed : ListState::idle);
    }
    // What of the three sessions is left when one of them suffers the mode: a phone that is gone is
    // gone for all.
    void ExpectComposer() const {
        const auto left = [&](AgentCommand code) {
            return mode_.means != Means::fault || code == asked_.code ? mode_.left : Left::whole;
        };
        ExpectConversation(left(AgentCommand::readConversation),
                           left(AgentCommand::listGroupMembers));
        ExpectTree(left(AgentCommand::listGroupNames), left(AgentCommand::listGroupMembers));
    }
};

TEST_P(ComposerFaults, StaysOpenWithWhatIsLeftAndReadsAllOfItLater) {
    SetLook([] { EXPECT_TRUE(In(kComposer, kCancel).isEnabled()); });
    Suffer(mode_, asked_.code, [] { Open(); });
    ASSERT_NE(OpenDialog(kComposer), nullptr);
    EXPECT_TRUE(In(kComposer, kRecipients).isEnabled());
    if (mode_.left != Left::cable) {
        ExpectComposer();
    }
    Press(kComposer, kCancel);
    ASSERT_TRUE(WaitForNoDialog(kComposer));
    EXPECT_EQ(Asked(AgentCommand::listConversations), 0u);
    if (mode_.left == Left::cable) {
        ExpectNoLink([] { Command(kRefresh); });
    }

    Lift();
    Open();
    ASSERT_TRUE(WaitIdle());
    ExpectConversation(Left::whole, Left::whole);
    ExpectTree(Left::whole, Left::whole);
    Press(kComposer, kCancel);
    ASSERT_TRUE(WaitForNoDialog(kComposer));
    EXPECT_EQ(Status(), Ready());
}

constexpr AskedRead kComposerReads[] = {
    {"ReadConversation", AgentCommand::readConversation},
    {"ListGroupNames", AgentCommand::listGroupNames},
    {"ListGroupMembers", AgentCommand::listGroupMembers},
};

INSTANTIATE_TEST_SUITE_P(Each, ComposerFaults,
                         testing::Combine(testing::ValuesIn(kComposerReads),
                                          testing::ValuesIn(kFaultModes)),
                         NameOfCase<testing::TestParamInfo<ComposerFaults::ParamType>>);

}  // namespace
}  // namespace quorvi

// Every fault of the phone against the commands of the messages' page: its conversations, and each
// change.
#include "tests/support/ChangeFaults.h"
#include "ui/html/HtmlFrame.h"

namespace quorvi {
namespace {

constexpr std::size_t kRefresh = 0;
constexpr int kComposer = 550;

// ---- the conversations --------------------------------------------------------------------------

class ConversationsFaults : public WindowFaults, public testing::WithParamInterface<FaultMode> {
  protected:
    static constexpr int kView = 1361;
    static constexpr int kLoadKey = 2;
    static constexpr int kBefore = 15;  // conversations of the phone as it is delivered
    static constexpr int kNow = 3;      // and as it is by the time of the load

    FaultMode mode_ = GetParam();

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
    static ListState FrameState() { return Window().ShownPage()->findChild<HtmlFrame*>()->State(); }
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
        EXPECT_EQ(FrameState(), ListState::loading);
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
        EXPECT_EQ(FrameState(), mode_.left == Left::refused ? ListState::failed : ListState::idle);
    }

    Lift();
    Refresh();
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(Blocks(), kNow);
    EXPECT_EQ(FrameState(), ListState::idle);
    EXPECT_EQ(Status(), Ready());
}

INSTANTIATE_TEST_SUITE_P(ListConversations, ConversationsFaults, testing::ValuesIn(kFaultModes),
                         testing::PrintToStringParamName());

// ---- changes -----------------------------------------------------------------------------------

// Notes that a widget is disabled, if only for a moment.
class DisabledNote : public QObject {
  public:
    explicit DisabledNote(QWidget& widget) { widget.installEventFilter(this); }
    [[nodiscard]] bool Taken() const { return taken_; }

    bool eventFilter(QObject* widget, QEvent* event) override {
        taken_ |= event->type() == QEvent::EnabledChange &&
                  !static_cast<const QWidget*>(widget)->isEnabled();
        return false;
    }

  private:
    bool taken_ = false;
};

class MessageChangeFaults : public ChangeFaults {
  public:
    static std::vector<Change> Changes();
};

TEST_P(MessageChangeFaults, IsTakenAndTheListBehindItTells) {
    ExpectTakenAndSeen();
}

constexpr ChangePlace kPlace{11,   0, AgentCommand::listConversations,
                             1361, 0, "#sms_ul > li .sender"};

std::vector<Change> MessageChangeFaults::Changes() {
    const QString number = QStringLiteral("13900001234");
    return {
        {"SendMessage", AgentCommand::sendMessage, kPlace,
         [=] {
             Command(1);
             ASSERT_TRUE(WaitForDialog(kComposer));
             TypeIn(kComposer, 1337, number);
             TypeIn(kComposer, 1271, NewName());
         },
         Pressing(kComposer, 1030), [=](QStringList& shown) { shown.prepend(number); }, kComposer},
        {"DeleteConversation", AgentCommand::deleteConversation, kPlace, [] {},
         [] {
             const DisabledNote note(*Window().ShownPage());
             ClickHtml(OnPage<CHtmlCtrlBase>(kPlace.control),
                       QStringLiteral("#sms_ul > li:first-child .tool a"));
             ASSERT_TRUE(WaitFor([&] { return note.Taken(); }));
         },
         FirstGone, 0, AgentCommand::readConversation},
    };
}

INSTANTIATE_TEST_SUITE_P(Each, MessageChangeFaults,
                         testing::Combine(testing::ValuesIn(MessageChangeFaults::Changes()),
                                          testing::ValuesIn(ModesOfAWord())),
                         NameOfCase<testing::TestParamInfo<ChangeFaults::ParamType>>);

}  // namespace
}  // namespace quorvi

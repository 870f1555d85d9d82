// Every fault of the phone against every command that changes something on it: whatever comes of
// the acknowledgement, the phone has taken the command, and the list behind it tells.
#include <QLineEdit>

#include "tests/app/phone/WindowFaults.h"
#include "ui/html/HtmlFrame.h"

namespace quorvi {
namespace {

constexpr int kEditor = 540;
constexpr int kComposer = 550;
constexpr int kGroupDialog = 679;
constexpr int kTitleDialog = 681;
constexpr int kConfirm = 548;

constexpr int kOk = 1215;  // the button that deletes, too
constexpr std::size_t kRefresh = 0;

// Where a change is made, and where it is seen.
struct Place {
    int page;
    int dialog;         // over the page; 0: the page itself
    AgentCommand list;  // what is fetched behind a change
    int control;        // the list, or the view of the conversations
    int names;          // the column that tells its rows apart
};

constexpr Place kContactPlace{10, 0, AgentCommand::listContacts, 1067, 1};
constexpr Place kGroupPlace{10, kGroupDialog, AgentCommand::listGroups, 1372, 1};
constexpr Place kMessagePlace{11, 0, AgentCommand::listConversations, 1361, 0};
constexpr Place kCallPlace{12, 0, AgentCommand::listCalls, 1072, 6};

struct Change {
    const char* name;
    AgentCommand code;
    Place place;
    std::function<void()> begin;  // all that the user does up to the last press
    std::function<void()> end;    // the last press
    std::function<void(QStringList& shown)> change;
    // The dialog that waits for the acknowledgement and ends; 0: the place itself waits.
    int dialog = 0;
};

void PrintTo(const Change& change, std::ostream* out) {
    *out << change.name;
}

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

class ChangeFaults : public WindowFaults,
                     public testing::WithParamInterface<std::tuple<Change, FaultMode>> {
  public:
    static std::vector<Change> Changes();

  protected:
    Change change_ = std::get<0>(GetParam());
    FaultMode mode_ = std::get<1>(GetParam());

    void SetUp() override {
        WindowFaults::SetUp();
        OpenFresh(change_.place.page);
        if (change_.place.dialog != 0) {
            Command(2);
            ASSERT_TRUE(WaitForDialog(kGroupDialog));
        }
        ASSERT_TRUE(WaitFor([&] { return !Shown().isEmpty(); }));
    }
    void TearDown() override {
        if (change_.place.dialog != 0) {
            Press(kGroupDialog, kOk);
        }
        WindowFaults::TearDown();
    }

    static CSkinListCtrl& ListAt(const Place& place) {
        return place.dialog == 0 ? OnPage<CSkinListCtrl>(place.control)
                                 : In<CSkinListCtrl>(place.dialog, place.control);
    }
    [[nodiscard]] bool HasView() const { return change_.place.control == kMessagePlace.control; }
    [[nodiscard]] QStringList Shown() const {
        if (!HasView()) {
            return NamesIn(ListAt(change_.place), change_.place.names);
        }
        return AskHtml(OnPage<CHtmlCtrlBase>(change_.place.control),
                       QStringLiteral("[...document.querySelectorAll('#sms_ul > li .sender')]"
                                      ".map(e => e.innerText)"))
            .toStringList();
    }
    [[nodiscard]] ListState State() const {
        return HasView() ? Window().ShownPage()->findChild<HtmlFrame*>()->State()
                         : ListAt(change_.place).State();
    }
    void Refresh() const {
        if (change_.place.dialog == 0) {
            Command(kRefresh);
        } else {
            Press(kGroupDialog, 1047);
        }
    }

    // Nobody who took the command: what is shown depends on the place.
    void ExpectNothingFetched(const QStringList& before) const {
        if (mode_.left == Left::refused && change_.code == AgentCommand::deleteGroups) {
            EXPECT_EQ(Shown(), before);  // unlike elsewhere nothing is fetched then
            EXPECT_EQ(State(), ListState::idle);
            return;
        }
        EXPECT_EQ(State(), mode_.left == Left::refused ? ListState::failed : ListState::idle);
        EXPECT_EQ(Shown(), HasView() ? before : QStringList());
        if (!HasView()) {
            EXPECT_EQ(ListAt(change_.place).Redraw(), mode_.left == Left::refused);
        }
    }
};

TEST_P(ChangeFaults, IsTakenAndTheListBehindItTells) {
    const QStringList before = Shown();
    QStringList after = before;
    change_.change(after);
    change_.begin();
    ASSERT_TRUE(WaitIdle());

    SetLook([&] {
        if (change_.dialog == 0) {
            Refresh();  // is dropped: the controls are disabled
        }
    });
    Suffer(mode_, change_.code, change_.end);
    EXPECT_EQ(OpenDialog(kConfirm), nullptr);
    if (change_.dialog != 0) {
        EXPECT_EQ(OpenDialog(change_.dialog), nullptr);
    }
    const bool taken = mode_.means == Means::fault;
    if (mode_.left == Left::cable) {
        ExpectNoLink([this] { Refresh(); });
    } else if (taken) {
        EXPECT_EQ(Asked(change_.code), 1u);
        EXPECT_EQ(Asked(change_.place.list), 1u);
        EXPECT_EQ(Shown(), after);
        EXPECT_EQ(State(), ListState::idle);
    } else {
        ExpectNothingFetched(before);
    }

    Lift();
    Refresh();
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(Shown(), taken ? after : before);
    EXPECT_EQ(Status(), Ready());
}

std::vector<Change> ChangeFaults::Changes() {
    const QString name = ToQString(u8"新名字");
    const auto press = [](int dialog, int control) { return [=] { Press(dialog, control); }; };
    const auto type = [](int dialog, int control, const QString& text) {
        Type(In(dialog, control), text);
    };
    const auto appended = [=](QStringList& shown) { shown.append(name); };
    const auto renamed = [=](QStringList& shown) { shown[0] = name; };
    const auto firstGone = [](QStringList& shown) { shown.removeFirst(); };

    const auto fillNew = [=] {
        Command(1);
        ASSERT_TRUE(WaitForDialog(kEditor));
        type(kEditor, 1149, name);
    };
    const auto fillFirst = [=] {
        DoubleClickCell(ListAt(kContactPlace), 0, 1);
        ASSERT_TRUE(WaitForDialog(kEditor));
        type(kEditor, 1149, name);
    };
    const auto tickFirst = [](const Place& place, int column) {
        ClickCell(ListAt(place), 0, column);
    };
    const auto ask = [](const std::function<void()>& how) {
        how();
        ASSERT_TRUE(WaitForDialog(kConfirm));
    };
    const auto fillTitle = [=](int button) {
        Press(kGroupDialog, button);
        ASSERT_TRUE(WaitForDialog(kTitleDialog));
        type(kTitleDialog, 1257, name);
    };
    const auto write = [=] {
        Command(1);
        ASSERT_TRUE(WaitForDialog(kComposer));
        type(kComposer, 1337, QStringLiteral("13900001234"));
        type(kComposer, 1271, name);
    };

    return {
        {"AddContact", AgentCommand::addContact, kContactPlace, fillNew, press(kEditor, 1020),
         appended, kEditor},
        {"UpdateContact", AgentCommand::updateContact, kContactPlace, fillFirst,
         press(kEditor, 1020), renamed, kEditor},
        {"DeleteContacts", AgentCommand::deleteContacts, kContactPlace,
         [=] {
             tickFirst(kContactPlace, 4);
             ask([] { Command(3); });
         },
         press(kConfirm, kOk), firstGone},
        {"AddGroup", AgentCommand::addGroup, kGroupPlace, [=] { fillTitle(1154); },
         press(kTitleDialog, kOk), appended, kTitleDialog},
        {"RenameGroup", AgentCommand::renameGroup, kGroupPlace,
         [=] {
             ClickCell(ListAt(kGroupPlace), 0, 1);
             fillTitle(1155);
         },
         press(kTitleDialog, kOk), renamed, kTitleDialog},
        {"DeleteGroups", AgentCommand::deleteGroups, kGroupPlace,
         [=] {
             tickFirst(kGroupPlace, 4);
             ask(press(kGroupDialog, 1049));
         },
         press(kConfirm, kOk), firstGone},
        {"SendMessage", AgentCommand::sendMessage, kMessagePlace, write, press(kComposer, 1030),
         [](QStringList& shown) { shown.prepend(QStringLiteral("13900001234")); }, kComposer},
        {"DeleteConversation", AgentCommand::deleteConversation, kMessagePlace, [] {},
         [] {
             const DisabledNote note(*Window().ShownPage());
             ClickHtml(OnPage<CHtmlCtrlBase>(kMessagePlace.control),
                       QStringLiteral("#sms_ul > li:first-child .tool a"));
             ASSERT_TRUE(WaitFor([&] { return note.Taken(); }));
         },
         firstGone},
        {"DeleteCalls", AgentCommand::deleteCalls, kCallPlace,
         [=] {
             tickFirst(kCallPlace, 5);
             ask([] { Command(1); });
         },
         press(kConfirm, kOk), firstGone},
        {"DeleteAllCalls", AgentCommand::deleteAllCalls, kCallPlace,
         [=] { ask([] { Command(2); }); }, press(kConfirm, kOk),
         [](QStringList& shown) { shown.clear(); }},
    };
}

// A reply of one word has no ninth byte.
std::vector<FaultMode> ModesOfAWord() {
    std::vector<FaultMode> modes;
    for (const FaultMode& mode : kFaultModes) {
        if (!mode.ofPayloads) {
            modes.push_back(mode);
        }
    }
    return modes;
}

INSTANTIATE_TEST_SUITE_P(Each, ChangeFaults,
                         testing::Combine(testing::ValuesIn(ChangeFaults::Changes()),
                                          testing::ValuesIn(ModesOfAWord())),
                         NameOfCase<testing::TestParamInfo<ChangeFaults::ParamType>>);

}  // namespace
}  // namespace quorvi

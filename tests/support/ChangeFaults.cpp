#include "tests/support/ChangeFaults.h"

#include <QLineEdit>
#include <algorithm>
#include <iterator>

#include "ui/html/HtmlFrame.h"

namespace quorvi {
namespace {

constexpr std::size_t kRefresh = 0;
constexpr std::size_t kGroups = 2;
constexpr int kRefreshGroups = 1047;

}  // namespace

CSkinListCtrl& ChangeFaults::ListAt(const ChangePlace& place) {
    if (place.dialog != 0) {
        return In<CSkinListCtrl>(place.dialog, place.control);
    }
    return place.control == 0 ? TheList() : OnPage<CSkinListCtrl>(place.control);
}

std::function<void()> ChangeFaults::Pressing(int dialog, int control) {
    return [=] { Press(dialog, control); };
}

void ChangeFaults::TypeIn(int dialog, int control, const QString& text) {
    Type(In(dialog, control), text);
}

void ChangeFaults::Ask(const std::function<void()>& how) {
    how();
    ASSERT_TRUE(WaitForDialog(kConfirm));
}

void ChangeFaults::SetUp() {
    WindowFaults::SetUp();
    OpenFresh(change_.place.page);
    if (change_.place.dialog != 0) {
        Command(kGroups);
        ASSERT_TRUE(WaitForDialog(change_.place.dialog));
    }
    ASSERT_TRUE(WaitFor([&] { return !Shown().isEmpty(); }));
}

void ChangeFaults::TearDown() {
    if (change_.place.dialog != 0) {
        Press(change_.place.dialog, kOk);
    }
    WindowFaults::TearDown();
}

QStringList ChangeFaults::Shown() const {
    if (!HasView()) {
        return NamesIn(ListAt(change_.place), change_.place.names);
    }
    return AskHtml(OnPage<CHtmlCtrlBase>(change_.place.control),
                   QStringLiteral("[...document.querySelectorAll('%1')].map(e => e.innerText)")
                       .arg(QLatin1String(change_.place.blocks)))
        .toStringList();
}

ListState ChangeFaults::State() const {
    return HasView() ? Window().ShownPage()->findChild<HtmlFrame*>()->State()
                     : ListAt(change_.place).State();
}

void ChangeFaults::Refresh() const {
    if (change_.place.dialog == 0) {
        Command(kRefresh);
    } else {
        Press(change_.place.dialog, kRefreshGroups);
    }
}

void ChangeFaults::End() const {
    change_.end();
    if (change_.reads && (mode_.means == Means::agentGone || mode_.means == Means::broken)) {
        ASSERT_TRUE(WaitIdle());
        ASSERT_NE(OpenDialog(kConfirm), nullptr) << "nothing was kept, and nothing asked";
        Press(kConfirm, kOk);
    }
}

// Nobody took the command: what is shown then depends on the place.
void ChangeFaults::ExpectNothingFetched(const QStringList& before) const {
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

void ChangeFaults::ExpectTakenAndSeen() {
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
    Suffer(mode_, change_.code, [this] { End(); });
    EXPECT_EQ(OpenDialog(kConfirm), nullptr);
    if (change_.dialog != 0) {
        EXPECT_EQ(OpenDialog(change_.dialog), nullptr);
    }
    const bool taken = mode_.means == Means::fault;
    if (mode_.left == Left::cable) {
        ExpectNoLink([this] { Refresh(); });
    } else if (taken) {
        EXPECT_EQ(Asked(change_.code), 1u);
        EXPECT_EQ(Asked(change_.place.list), change_.reads == change_.place.list ? 2u : 1u);
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

std::vector<FaultMode> ModesOfAWord() {
    std::vector<FaultMode> modes;
    std::ranges::copy_if(kFaultModes, std::back_inserter(modes),
                         [](const FaultMode& mode) { return !mode.ofPayloads; });
    return modes;
}

}  // namespace quorvi

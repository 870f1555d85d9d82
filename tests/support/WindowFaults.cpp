#include "tests/support/WindowFaults.h"

#include <fmt/format.h>

#include <algorithm>

#include "tests/support/LoopbackAgent.h"

namespace quorvi {
namespace {

// Beats that tell enough of a life.
constexpr int kBeats = 20;

// What the user has filled in is not to be lost when one of these gets no answer.
constexpr std::array kFilledIn{
    AgentCommand::addContact,  AgentCommand::updateContact,  AgentCommand::addGroup,
    AgentCommand::renameGroup, AgentCommand::addAlarm,       AgentCommand::updateAlarm,
    AgentCommand::addBookmark, AgentCommand::updateBookmark, AgentCommand::sendMessage};

// Whether a status says what was done.
bool TellsOfADeed(const QString& status) {
    static constexpr std::array<std::u8string_view, 5> kDeeds{u8"已删除", u8"已结束", u8"已添加",
                                                              u8"已保存", u8"已发送给"};
    return std::ranges::any_of(
        kDeeds, [&](std::u8string_view deed) { return status.startsWith(ToQString(deed)); });
}

}  // namespace

std::unique_ptr<Heartbeat> WindowFaults::heart_;

void WindowFaults::SetUpTestSuite() {
    PagesOnPhone::SetUpTestSuite();
    heart_ = std::make_unique<Heartbeat>([] {
        Tell("faults clear");
        Tell("release");
    });
}

void WindowFaults::TearDownTestSuite() {
    heart_.reset();
    PagesOnPhone::TearDownTestSuite();
}

void WindowFaults::TearDown() {
    breaker_.reset();
    PagesOnPhone::TearDown();
}

void WindowFaults::Impose(const FaultMode& mode, AgentCommand code) {
    const auto& desk = Desk().Rig();
    const std::string forward =
        fmt::format("host-serial:{}:killforward:tcp:{}", Desk().Rig().Serial(0), AgentPort);
    switch (mode.means) {
        case Means::fault:
            ASSERT_EQ(Tell(fmt::format("fault {} {}", static_cast<int>(code), mode.words)), "ok\n");
            break;
        case Means::agentGone:
            Tell("agent stop");
            break;
        case Means::forwardGone:
            ASSERT_TRUE(desk.AskServer(forward));
            break;
        case Means::broken:
            ASSERT_TRUE(desk.AskServer(forward));
            breaker_ = std::make_unique<ScriptedAgent>(AgentPort);
            ASSERT_EQ(breaker_->Port(), AgentPort);
            breaker_->Answer(code, {Join({Word(1000), Word(0)}), ScriptedAgent::End::reset});
            break;
    }
}

void WindowFaults::ExpectAlive(AgentCommand code) {
    ASSERT_TRUE(WaitFor([&] { return Asked(code) > 0; }));
    EXPECT_FALSE(Idle());
    if (look_) {
        look_();
    }
    const int before = heart_->Beats();
    EXPECT_TRUE(WaitFor([&] { return heart_->Beats() >= before + kBeats; }));
    EXPECT_FALSE(Idle()) << "nothing was held";
}

void WindowFaults::Suffer(const FaultMode& mode, AgentCommand code,
                          const std::function<void()>& act) {
    Tell("log clear");
    Impose(mode, code);
    act();
    if (mode.stalls) {
        ExpectAlive(code);
        Tell("release");
    }
    ASSERT_TRUE(WaitIdle());
    EXPECT_FALSE(heart_->HasStopped()) << "the window's thread waited for the phone";
    if (mode.left != Left::cable) {
        const QString behind = StatusBehind(mode, code);
        // Once a change has got to the phone, the status says what was done.
        const bool toldAsDone = behind == Ready() && TellsOfADeed(Status());
        EXPECT_TRUE(toldAsDone || Status() == behind) << Status().toStdString();
    }
}

QString WindowFaults::StatusBehind(const FaultMode& mode, AgentCommand code) {
    if (mode.left == Left::refused) {
        return ConnectError();
    }
    const bool answered = mode.means != Means::agentGone && mode.words != "close" &&
                          mode.words != "reset" && mode.words != kCutInLength;
    return !answered && std::ranges::find(kFilledIn, code) != kFilledIn.end() ? Unacknowledged()
                                                                              : Ready();
}

void WindowFaults::Lift() {
    breaker_.reset();
    Restore();
    Window().SetStatus(Ready());
}

void WindowFaults::ExpectNoLink(const std::function<void()>& refresh) {
    ASSERT_TRUE(Desk().Rig().WaitForDevices(0));
    Window().SetStatus(Ready());
    refresh();
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(Status(), ConnectError());
}

QStringList WindowFaults::NamesIn(const CSkinListCtrl& list, int column) {
    QStringList names;
    for (int row = 0; row < list.RowCount(); ++row) {
        names.append(list.CellAt(row, column).text);
    }
    return names;
}

}  // namespace quorvi

// Every fault of the phone against the commands of the task manager's page.
#include <QLabel>

#include "tests/support/ChangeFaults.h"
#include "tests/support/ListFaults.h"

namespace quorvi {
namespace {

constexpr int kTasks = 45;
constexpr int kTick = 7;
constexpr int kPid = 5;

class TaskListFaults : public ListFaults {};

TEST_P(TaskListFaults, ShowsWhatIsLeftAndAllOfItLater) {
    ExpectWhatIsLeftAndAllOfItLater();
}

constexpr AskedList kTaskList{.name = "ListProcesses",
                              .code = AgentCommand::listProcesses,
                              .page = kTasks,
                              .dialog = 0,
                              .loadKey = 15,
                              .list = 0,
                              .rows = 21,
                              .isLong = true,
                              .neverBlank = true};

INSTANTIATE_TEST_SUITE_P(Each, TaskListFaults,
                         testing::Combine(testing::Values(kTaskList),
                                          testing::ValuesIn(kFaultModes)),
                         NameOfCase<testing::TestParamInfo<ListFaults::ParamType>>);

class TaskChangeFaults : public ChangeFaults {
  public:
    static Change End();
};

TEST_P(TaskChangeFaults, IsTakenAndTheListBehindItTells) {
    ExpectTakenAndSeen();
}

constexpr ChangePlace kPlace{kTasks, 0, AgentCommand::listProcesses, 0, kPid};

Change TaskChangeFaults::End() {
    return {"EndProcesses",
            AgentCommand::endProcesses,
            kPlace,
            [] { ClickCell(ListAt(kPlace), 0, kTick); },
            [] { Command(1); },
            FirstGone};
}

INSTANTIATE_TEST_SUITE_P(Each, TaskChangeFaults,
                         testing::Combine(testing::Values(TaskChangeFaults::End()),
                                          testing::ValuesIn(ModesOfAWord())),
                         NameOfCase<testing::TestParamInfo<ChangeFaults::ParamType>>);

// The free memory is asked for in front of each list, which comes whatever becomes of it.
class FreeMemoryFaults : public WindowFaults, public testing::WithParamInterface<FaultMode> {};

TEST_P(FreeMemoryFaults, TheListComesAllTheSame) {
    OpenFresh(kTasks);
    const FaultMode& mode = GetParam();
    Suffer(mode, AgentCommand::freeMemory, [] { Command(0); });
    if (mode.left == Left::cable) {
        ExpectNoLink([] { Command(0); });
    } else if (mode.means == Means::fault) {
        EXPECT_EQ(TheList().RowCount(), 21);
        EXPECT_EQ(TheList().State(), ListState::idle);
    }
    Lift();
    Command(0);
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(TheList().RowCount(), 21);
    EXPECT_EQ(OnPage<QLabel>(1363).text(), QStringLiteral("148 MB"));
    EXPECT_EQ(Status(), Ready());
}

INSTANTIATE_TEST_SUITE_P(Each, FreeMemoryFaults, testing::ValuesIn(ModesOfAWord()),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace quorvi

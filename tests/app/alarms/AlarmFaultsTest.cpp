// Every fault of the phone against the commands of the alarms' page.
#include "tests/support/ChangeFaults.h"
#include "tests/support/ListFaults.h"

namespace quorvi {
namespace {

constexpr int kEditor = 551;

class AlarmListFaults : public ListFaults {};

TEST_P(AlarmListFaults, ShowsWhatIsLeftAndAllOfItLater) {
    ExpectWhatIsLeftAndAllOfItLater();
}

constexpr AskedList kAlarmList{"ListAlarms", AgentCommand::listAlarms, 13, 0, 4, 1090, 9};

INSTANTIATE_TEST_SUITE_P(Each, AlarmListFaults,
                         testing::Combine(testing::Values(kAlarmList),
                                          testing::ValuesIn(kFaultModes)),
                         NameOfCase<testing::TestParamInfo<ListFaults::ParamType>>);

class AlarmChangeFaults : public ChangeFaults {
  public:
    static std::vector<Change> Changes();

  protected:
    // Opens the editor by a command, and fills in the label.
    static void FillIn(std::size_t command) {
        Command(command);
        ASSERT_TRUE(WaitForDialog(kEditor));
        TypeIn(kEditor, 1257, NewName());
    }
};

TEST_P(AlarmChangeFaults, IsTakenAndTheListBehindItTells) {
    ExpectTakenAndSeen();
}

constexpr ChangePlace kPlace{13, 0, AgentCommand::listAlarms, 1090, 1};

std::vector<Change> AlarmChangeFaults::Changes() {
    return {
        {"AddAlarm", AgentCommand::addAlarm, kPlace, [] { FillIn(1); }, Pressing(kEditor, kOk),
         Appended, kEditor},
        {"UpdateAlarm", AgentCommand::updateAlarm, kPlace,
         [] {
             ClickCell(ListAt(kPlace), 0, 1);
             FillIn(2);
         },
         Pressing(kEditor, kOk), FirstRenamed, kEditor},
        {"DeleteAlarms", AgentCommand::deleteAlarms, kPlace,
         [] {
             ClickCell(ListAt(kPlace), 0, 6);
             Ask([] { Command(3); });
         },
         Pressing(kConfirm, kOk), FirstGone},
    };
}

INSTANTIATE_TEST_SUITE_P(Each, AlarmChangeFaults,
                         testing::Combine(testing::ValuesIn(AlarmChangeFaults::Changes()),
                                          testing::ValuesIn(ModesOfAWord())),
                         NameOfCase<testing::TestParamInfo<ChangeFaults::ParamType>>);

}  // namespace
}  // namespace quorvi

// Every fault of the phone against the commands of the call log's page.
#include "tests/support/ChangeFaults.h"
#include "tests/support/ListFaults.h"

namespace quorvi {
namespace {

class CallListFaults : public ListFaults {};

TEST_P(CallListFaults, ShowsWhatIsLeftAndAllOfItLater) {
    ExpectWhatIsLeftAndAllOfItLater();
}

constexpr AskedList kCallList{"ListCalls", AgentCommand::listCalls, 12, 0, 3, 1072, 33};

INSTANTIATE_TEST_SUITE_P(Each, CallListFaults,
                         testing::Combine(testing::Values(kCallList),
                                          testing::ValuesIn(kFaultModes)),
                         NameOfCase<testing::TestParamInfo<ListFaults::ParamType>>);

class CallChangeFaults : public ChangeFaults {
  public:
    static std::vector<Change> Changes();
};

TEST_P(CallChangeFaults, IsTakenAndTheListBehindItTells) {
    ExpectTakenAndSeen();
}

constexpr ChangePlace kPlace{12, 0, AgentCommand::listCalls, 1072, 6};

std::vector<Change> CallChangeFaults::Changes() {
    return {
        {"DeleteCalls", AgentCommand::deleteCalls, kPlace,
         [] {
             ClickCell(ListAt(kPlace), 0, 5);
             Ask([] { Command(1); });
         },
         Pressing(kConfirm, kOk), FirstGone},
        {"DeleteAllCalls", AgentCommand::deleteAllCalls, kPlace, [] { Ask([] { Command(2); }); },
         Pressing(kConfirm, kOk), [](QStringList& shown) { shown.clear(); }, 0,
         AgentCommand::listCalls},
    };
}

INSTANTIATE_TEST_SUITE_P(Each, CallChangeFaults,
                         testing::Combine(testing::ValuesIn(CallChangeFaults::Changes()),
                                          testing::ValuesIn(ModesOfAWord())),
                         NameOfCase<testing::TestParamInfo<ChangeFaults::ParamType>>);

}  // namespace
}  // namespace quorvi

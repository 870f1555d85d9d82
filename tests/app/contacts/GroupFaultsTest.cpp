// Every fault of the phone against the commands of the contacts' groups.
#include "tests/support/ChangeFaults.h"
#include "tests/support/ListFaults.h"

namespace quorvi {
namespace {

constexpr int kGroupDialog = 679;
constexpr int kTitleDialog = 681;

class GroupListFaults : public ListFaults {};

TEST_P(GroupListFaults, ShowsWhatIsLeftAndAllOfItLater) {
    ExpectWhatIsLeftAndAllOfItLater();
}

constexpr AskedList kGroupList{
    "ListGroups", AgentCommand::listGroups, 10, kGroupDialog, PageRow::kNoKey, 1372, 8};

INSTANTIATE_TEST_SUITE_P(Each, GroupListFaults,
                         testing::Combine(testing::Values(kGroupList),
                                          testing::ValuesIn(kFaultModes)),
                         NameOfCase<testing::TestParamInfo<ListFaults::ParamType>>);

class GroupChangeFaults : public ChangeFaults {
  public:
    static std::vector<Change> Changes();

  protected:
    // Opens the dialog of a group's title by a button, and fills it.
    static void FillTitle(int button) {
        Press(kGroupDialog, button);
        ASSERT_TRUE(WaitForDialog(kTitleDialog));
        TypeIn(kTitleDialog, 1257, NewName());
    }
};

TEST_P(GroupChangeFaults, IsTakenAndTheListBehindItTells) {
    ExpectTakenAndSeen();
}

constexpr ChangePlace kPlace{10, kGroupDialog, AgentCommand::listGroups, 1372, 1};

std::vector<Change> GroupChangeFaults::Changes() {
    return {
        {"AddGroup", AgentCommand::addGroup, kPlace, [] { FillTitle(1154); },
         Pressing(kTitleDialog, kOk), Appended, kTitleDialog},
        {"RenameGroup", AgentCommand::renameGroup, kPlace,
         [] {
             ClickCell(ListAt(kPlace), 0, 1);
             FillTitle(1155);
         },
         Pressing(kTitleDialog, kOk), FirstRenamed, kTitleDialog},
        {"DeleteGroups", AgentCommand::deleteGroups, kPlace,
         [] {
             ClickCell(ListAt(kPlace), 0, 4);
             Ask(Pressing(kGroupDialog, 1049));
         },
         Pressing(kConfirm, kOk), FirstGone, 0, AgentCommand::listGroupMembers},
    };
}

INSTANTIATE_TEST_SUITE_P(Each, GroupChangeFaults,
                         testing::Combine(testing::ValuesIn(GroupChangeFaults::Changes()),
                                          testing::ValuesIn(ModesOfAWord())),
                         NameOfCase<testing::TestParamInfo<ChangeFaults::ParamType>>);

}  // namespace
}  // namespace quorvi

// Every fault of the phone against the commands of the bookmarks' page.
#include "tests/support/ChangeFaults.h"
#include "tests/support/ListFaults.h"

namespace quorvi {
namespace {

constexpr int kEditor = 553;

class BookmarkListFaults : public ListFaults {};

TEST_P(BookmarkListFaults, ShowsWhatIsLeftAndAllOfItLater) {
    ExpectWhatIsLeftAndAllOfItLater();
}

constexpr AskedList kBookmarkList{
    "ListBookmarks", AgentCommand::listBookmarks, 16, 0, 7, 1074, 14, true};

INSTANTIATE_TEST_SUITE_P(Each, BookmarkListFaults,
                         testing::Combine(testing::Values(kBookmarkList),
                                          testing::ValuesIn(kFaultModes)),
                         NameOfCase<testing::TestParamInfo<ListFaults::ParamType>>);

class BookmarkChangeFaults : public ChangeFaults {
  public:
    static std::vector<Change> Changes();

  protected:
    // Opens the editor by a command, and fills in the title.
    static void FillIn(std::size_t command) {
        Command(command);
        ASSERT_TRUE(WaitForDialog(kEditor));
        TypeIn(kEditor, 1257, NewName());
    }
};

TEST_P(BookmarkChangeFaults, IsTakenAndTheListBehindItTells) {
    ExpectTakenAndSeen();
}

constexpr ChangePlace kPlace{16, 0, AgentCommand::listBookmarks, 1074, 1};

std::vector<Change> BookmarkChangeFaults::Changes() {
    return {
        {"AddBookmark", AgentCommand::addBookmark, kPlace, [] { FillIn(1); },
         Pressing(kEditor, kOk), Appended, kEditor},
        {"UpdateBookmark", AgentCommand::updateBookmark, kPlace,
         [] {
             ClickCell(ListAt(kPlace), 0, 1);
             FillIn(2);
         },
         Pressing(kEditor, kOk), FirstRenamed, kEditor},
        {"DeleteBookmarks", AgentCommand::deleteBookmarks, kPlace,
         [] {
             ClickCell(ListAt(kPlace), 0, 6);
             Ask([] { Command(3); });
         },
         Pressing(kConfirm, kOk), FirstGone},
    };
}

INSTANTIATE_TEST_SUITE_P(Each, BookmarkChangeFaults,
                         testing::Combine(testing::ValuesIn(BookmarkChangeFaults::Changes()),
                                          testing::ValuesIn(ModesOfAWord())),
                         NameOfCase<testing::TestParamInfo<ChangeFaults::ParamType>>);

}  // namespace
}  // namespace quorvi

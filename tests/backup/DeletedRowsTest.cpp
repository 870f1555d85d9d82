#include <gtest/gtest.h>

#include <fstream>

#include "backup/DeletedRows.h"
#include "base/Format.h"
#include "base/Text.h"
#include "tests/pages/messages/MessageReplies.h"
#include "tests/support/ScriptedAgent.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

constexpr std::int64_t kNow = 1'795'000'000;
constexpr std::int64_t kDay = 24 * 60 * 60;

BookmarkRow Bookmark(std::string title) {
    BookmarkRow row;
    row.title = std::move(title);
    row.url = "http://x.example/";
    return row;
}

class DeletedRowsTest : public testing::Test {
  protected:
    void Keep(const GoingRows& rows) {
        ASSERT_EQ(items_.Keep(agent_.Port(), rows, kNow, StopSignal()).end, BackupEnd::whole);
    }
    [[nodiscard]] std::vector<DeletedRow> Rows(std::int64_t now = kNow) const {
        return DeletedRowsOf(items_.List(now), now);
    }

    TemporaryFolder folder_;
    ScriptedAgent agent_;
    DeletedItems items_{folder_.Path() / "deleted"};
};

TEST_F(DeletedRowsTest, ARowTellsWhenWhatAndForHowLong) {
    Keep(std::vector{Bookmark("a")});
    const auto rows = Rows(kNow + kDay);
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].time, FormatUnixTime(kNow));
    EXPECT_EQ(rows[0].kind, Ansi(u8"书签"));
    EXPECT_EQ(rows[0].what, "a");
    EXPECT_EQ(rows[0].left, Ansi(u8"29 天"));
    EXPECT_TRUE(rows[0].canGoBack);
}

TEST_F(DeletedRowsTest, TwoAreNamedAndTheOthersCounted) {
    Keep(std::vector{Bookmark("a"), Bookmark(""), Bookmark("c")});
    EXPECT_EQ(Rows()[0].what, Ansi(u8"a、http://x.example/ 等 3 项"));
}

TEST_F(DeletedRowsTest, AnAlarmIsNamedWithItsTime) {
    AlarmRow row;
    row.hour = 9;
    row.label = "wake up";
    row.alert = "tone";
    Keep(std::vector{row});
    EXPECT_EQ(Rows()[0].what, "wake up 09:00");
}

TEST_F(DeletedRowsTest, CallsAreCountedAndCannotGoBack) {
    Keep(std::vector<CallLogRow>(21));
    EXPECT_EQ(Rows()[0].what, Ansi(u8"21 项"));
    EXPECT_FALSE(Rows()[0].canGoBack);
}

TEST_F(DeletedRowsTest, AFreshDeletionHasAllOfItsDays) {
    Keep(std::vector{Bookmark("a")});
    EXPECT_EQ(Rows(kNow)[0].left, Ansi(u8"30 天"));
    EXPECT_EQ(Rows(kNow + 60)[0].left, Ansi(u8"30 天"));
    EXPECT_EQ(Rows(kNow + 29 * kDay)[0].left, Ansi(u8"1 天"));
}

TEST_F(DeletedRowsTest, AConversationIsCalledByItsNameOrElseByItsNumber) {
    agent_.AnswerPayload(AgentCommand::readConversation, MessagesPayload({{}, {}}).Get());
    Conversation named;
    named.name = Ansi(u8"林远舟");
    named.number = "138";
    Conversation nameless;
    nameless.id = 2;
    nameless.number = "10086";
    Keep(std::vector{named});
    EXPECT_EQ(Rows()[0].what, Ansi(u8"林远舟（2 条）"));
    EXPECT_FALSE(Rows()[0].canGoBack);
    ASSERT_TRUE(items_.Forget(Rows()[0].backup));
    Keep(std::vector{nameless, named});
    EXPECT_EQ(Rows()[0].what, Ansi(u8"10086、林远舟（4 条）"));
    ASSERT_TRUE(items_.Forget(Rows()[0].backup));
    Keep(std::vector{nameless, named, named});
    EXPECT_EQ(Rows()[0].what, Ansi(u8"10086、林远舟 等（6 条）"));
}

TEST_F(DeletedRowsTest, TheLastDayIsNotCalledNone) {
    Keep(std::vector{Bookmark("a")});
    EXPECT_EQ(Rows(kNow + 30 * kDay)[0].left, Ansi(u8"不到 1 天"));
}

TEST_F(DeletedRowsTest, OneWhoseFilesAreBrokenIsCounted) {
    Keep(std::vector{Bookmark("a")});
    for (const auto& entry : std::filesystem::directory_iterator(Rows()[0].backup)) {
        if (entry.path().filename() != kManifestName) {
            std::fstream(entry.path(), std::ios::in | std::ios::out) << "?";
        }
    }
    EXPECT_EQ(Rows()[0].what, Ansi(u8"1 项"));
}

}  // namespace
}  // namespace quorvi

#include <gmock/gmock.h>

#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "backup/BackupReader.h"
#include "backup/BackupWriter.h"
#include "backup/DeletedItems.h"
#include "backup/RecordFiles.h"
#include "backup/Restore.h"
#include "base/Text.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/ScriptedAgent.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

constexpr std::int64_t kNow = 1'795'000'000;
constexpr std::int64_t kDay = 24 * 60 * 60;

class DeletedItemsTest : public testing::Test {
  protected:
    KeepResult Keep(const GoingRows& rows, std::int64_t now = kNow) {
        return items_.Keep(agent_.Port(), rows, now, StopSignal());
    }
    // Of the deletion that was kept last; nothing when they cannot be read.
    [[nodiscard]] std::optional<RestoreContent> KeptContacts() const {
        const auto reader = BackupReader::Open(items_.List(kNow)[0].backup).reader;
        std::string why;
        auto content = reader ? ReadRestoreContent(*reader, std::vector{BackupKind::contacts}, why)
                              : std::nullopt;
        EXPECT_TRUE(content) << ToUtf8(why);
        return content;
    }
    static std::vector<AlarmRow> Alarms(const std::string& label) {
        AlarmRow row;
        row.hour = 7;
        row.label = label;
        row.alert = "tone";
        return {row};
    }

    TemporaryFolder folder_;
    std::filesystem::path place_ = folder_.Path() / "data" / "deleted";
    ScriptedAgent agent_;
    DeletedItems items_{place_};
};

TEST_F(DeletedItemsTest, NothingIsListedBeforeAnythingIsKept) {
    EXPECT_TRUE(items_.List(kNow).empty());
}

TEST_F(DeletedItemsTest, WhatIsKeptIsListedNewestFirst) {
    EXPECT_EQ(Keep(Alarms("a"), kNow).end, BackupEnd::whole);
    EXPECT_EQ(Keep(std::vector<BookmarkRow>(3), kNow + 1).end, BackupEnd::whole);
    const auto kept = items_.List(kNow + 2);
    ASSERT_EQ(kept.size(), 2u);
    EXPECT_EQ(kept[0].manifest.kinds[0].kind, BackupKind::bookmarks);
    EXPECT_EQ(kept[0].manifest.kinds[0].count, 3u);
    EXPECT_EQ(kept[1].manifest.made, kNow);
}

TEST_F(DeletedItemsTest, TwoDeletionsOfOneSecondAreTwo) {
    EXPECT_EQ(Keep(Alarms("a")).end, BackupEnd::whole);
    EXPECT_EQ(Keep(Alarms("b")).end, BackupEnd::whole);
    EXPECT_EQ(items_.List(kNow).size(), 2u);
}

TEST_F(DeletedItemsTest, IsKeptBesideOneThatAnotherProgramIsWritingInThatSecond) {
    EXPECT_EQ(Keep(Alarms("a")).end, BackupEnd::whole);
    const std::filesystem::path first = items_.List(kNow)[0].backup;
    ASSERT_TRUE(items_.Forget(first));
    const BackupWriter another(first);
    ASSERT_FALSE(another.Error());
    EXPECT_EQ(Keep(Alarms("b")).end, BackupEnd::whole);
    EXPECT_EQ(items_.List(kNow).size(), 1u);
}

TEST_F(DeletedItemsTest, IsKeptForThirtyDays) {
    EXPECT_EQ(Keep(Alarms("a")).end, BackupEnd::whole);
    EXPECT_EQ(items_.List(kNow + 30 * kDay).size(), 1u);
    EXPECT_TRUE(items_.List(kNow + 30 * kDay + 1).empty());
    EXPECT_TRUE(std::filesystem::is_empty(place_));
}

TEST_F(DeletedItemsTest, WhatAKilledProgramHasLeftIsTakenAway) {
    std::filesystem::create_directories(place_ / ".20261122-100056.quorvi-part");
    EXPECT_TRUE(items_.List(kNow).empty());
    EXPECT_TRUE(std::filesystem::is_empty(place_));
}

TEST_F(DeletedItemsTest, WhatIsNoDeletionIsLeftAlone) {
    std::filesystem::create_directories(place_ / "mine");
    std::ofstream(place_ / "note.txt") << "x";
    EXPECT_TRUE(items_.List(kNow).empty());
    EXPECT_TRUE(std::filesystem::exists(place_ / "mine"));
    EXPECT_TRUE(std::filesystem::exists(place_ / "note.txt"));
}

TEST_F(DeletedItemsTest, IsTheUsersAlone) {
    EXPECT_EQ(Keep(Alarms("a")).end, BackupEnd::whole);
    EXPECT_EQ(std::filesystem::status(place_).permissions(), std::filesystem::perms::owner_all);
}

TEST_F(DeletedItemsTest, ADiskThatTakesNothingIsTold) {
    std::filesystem::create_directories(place_.parent_path());
    std::ofstream(place_) << "a file in the place of the folder";
    const BackupResult result = Keep(Alarms("a"));
    EXPECT_EQ(result.end, BackupEnd::diskFailed);
    EXPECT_NE(result.why, "");
}

TEST_F(DeletedItemsTest, AContactIsReadWholeFromThePhone) {
    agent_.AnswerPayload(AgentCommand::readContact,
                         Join({
                             Word(0),      // leading word
                             LongWord(7),  // id
                             Word(0),      // favourite
                             LongWord(0),  // last contact
                             LongWord(0),  // times contacted
                             Word(0),      // photo
                             Word(0),      // structured
                             Word(1),      // name
                             LongWord(1), Word(0), Text("Anna"),
                             Word(0),  // nickname
                             Word(0),  // note
                             Word(1),  // phones
                             LongWord(2), Word(2), Text("110"),  Word(0), Word(0),
                             Word(0),     Word(0), Word(0),      Word(0),  // the others
                         }));
    ContactListRow row;
    row.contactId = 7;
    row.name = "Anna";
    const BackupResult result = Keep(std::vector{row});
    ASSERT_EQ(result.end, BackupEnd::whole) << ToUtf8(result.why);
    EXPECT_EQ(result.manifest.skippedCount, 0u);
    const auto content = KeptContacts();
    ASSERT_TRUE(content);
    ASSERT_EQ(content->cards.size(), 1u);
    EXPECT_EQ(content->cards[0].phones[0].text, "110");
}

TEST_F(DeletedItemsTest, AContactWithoutANameAndContentIsReadAsAnEmptyOne) {
    agent_.AnswerPayload(
        AgentCommand::readContact,
        Join({
            Word(0),                                                        // leading word
            LongWord(7),                                                    // id
            Word(0),                                                        // favourite
            LongWord(0),                                                    // last contact
            LongWord(0),                                                    // times contacted
            Word(0),                                                        // photo
            Word(0),                                                        // structured
            Word(0),                                                        // name
            Word(0),                                                        // nickname
            Word(0),                                                        // note
            Word(0), Word(0), Word(0), Word(0), Word(0), Word(0), Word(0),  // lists
        }));
    ContactListRow row;
    row.contactId = 7;
    const BackupResult result = Keep(std::vector{row});
    ASSERT_EQ(result.end, BackupEnd::whole) << ToUtf8(result.why);
    const auto content = KeptContacts();
    ASSERT_TRUE(content);
    EXPECT_EQ(content->cards.size(), 0u);
    EXPECT_EQ(content->emptyCards, 1u);
    EXPECT_EQ(content->unreadCards, 0u);
}

TEST_F(DeletedItemsTest, AContactThatCannotBeReadIsNamed) {
    agent_.AnswerNoData(AgentCommand::readContact);
    ContactListRow row;
    row.contactId = 7;
    row.name = "Anna";
    const BackupResult result = Keep(std::vector{row});
    ASSERT_EQ(result.manifest.skipped.size(), 1u);
    EXPECT_EQ(result.manifest.skipped[0].what, "Anna");
}

TEST_F(DeletedItemsTest, NothingIsKeptWhenThePhoneIsGone) {
    ContactListRow row;
    row.contactId = 7;
    const KeepResult broken = Keep(std::vector{row});
    EXPECT_EQ(broken.end, BackupEnd::linkLost);
    EXPECT_TRUE(broken.connected);
    const KeepResult gone = items_.Keep(UnusedPort(), std::vector{row}, kNow, StopSignal());
    EXPECT_EQ(gone.end, BackupEnd::linkLost);
    EXPECT_FALSE(gone.connected);
    EXPECT_TRUE(items_.List(kNow).empty());
}

TEST_F(DeletedItemsTest, OfAGroupTheMembersAreKept) {
    agent_.AnswerPayload(AgentCommand::listGroupMembers, Join({
                                                             Word(0),      // leading word
                                                             LongWord(5),  // group
                                                             Text("Anna"),
                                                             Text("110"),
                                                             LongWord(6),
                                                             Text("Bert"),
                                                             Text("120"),
                                                         }));
    ContactGroup group;
    group.id = 5;
    group.title = group.titleCame = "friends";
    ASSERT_EQ(Keep(std::vector{group}).end, BackupEnd::whole);
    const auto reader = BackupReader::Open(items_.List(kNow)[0].backup).reader;
    ASSERT_TRUE(reader);
    std::string why;
    const auto content =
        ReadRestoreContent(*reader, std::vector{BackupKind::groups, BackupKind::contacts}, why);
    ASSERT_TRUE(content) << ToUtf8(why);
    EXPECT_EQ(content->groups, std::vector<std::string>{"friends"});
    ASSERT_EQ(content->cards.size(), 1u);
    EXPECT_EQ(content->cards[0].name, "Anna");
    EXPECT_EQ(content->cards[0].groups, std::vector<std::string>{"friends"});
}

TEST_F(DeletedItemsTest, AnAlarmIsBroughtBackByTheEditorsRequest) {
    ASSERT_EQ(Keep(Alarms("wake up")).end, BackupEnd::whole);
    const auto reader = BackupReader::Open(items_.List(kNow)[0].backup).reader;
    ASSERT_TRUE(reader);
    agent_.AnswerNoData(AgentCommand::listAlarms);
    agent_.AnswerAcknowledged(AgentCommand::addAlarm);
    Restore restore(agent_.Port(), *reader, {BackupKind::alarms});
    ASSERT_EQ(restore.Prepare(StopSignal()).end, RestoreEnd::whole);
    static_cast<void>(restore.Run([](std::size_t, std::size_t) {}, StopSignal()));
    ASSERT_EQ(agent_.Requests(AgentCommand::addAlarm).size(), 1u);
    AlarmSettings settings;
    settings.hour = 7;
    settings.label = "wake up";
    settings.alert = "tone";
    EXPECT_EQ(agent_.Requests(AgentCommand::addAlarm)[0], AddAlarmRequest(settings));
}

TEST_F(DeletedItemsTest, AForgottenOneIsGone) {
    ASSERT_EQ(Keep(Alarms("a")).end, BackupEnd::whole);
    EXPECT_TRUE(items_.Forget(items_.List(kNow)[0]));
    EXPECT_TRUE(items_.List(kNow).empty());
    EXPECT_FALSE(items_.Forget(folder_.Path() / "data")) << "outside of the store";
    EXPECT_TRUE(items_.Forget(Keep(Alarms("b")).backup));
    EXPECT_TRUE(items_.List(kNow).empty());
}

}  // namespace
}  // namespace quorvi

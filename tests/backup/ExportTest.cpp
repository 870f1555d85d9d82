#include <gmock/gmock.h>

#include <iterator>

#include "backup/BookmarkFile.h"
#include "backup/ContactTable.h"
#include "backup/Export.h"
#include "backup/VCardReader.h"
#include "base/Json.h"
#include "base/Text.h"
#include "base/os/SmallFile.h"
#include "tests/backup/PhoneRecords.h"
#include "tests/support/ScriptedAgent.h"
#include "tests/support/SmallDisk.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

class Exports : public testing::Test {
  protected:
    [[nodiscard]] std::filesystem::path File(const char* name) const {
        return folder_.Path() / name;
    }
    [[nodiscard]] std::string Text(const char* name) const {
        return ReadSmallFile(File(name)).value_or("none");
    }
    [[nodiscard]] std::ptrdiff_t Entries() const {
        return std::distance(std::filesystem::directory_iterator(folder_.Path()), {});
    }
    void AnswerContacts() {
        agent_.AnswerPayload(AgentCommand::listContacts, test::TwoContacts());
        agent_.AnswerPayload(AgentCommand::readContact, test::OneContact());
    }

    ScriptedAgent agent_;
    TemporaryFolder folder_;
    AttributionOf attribution_ = [](std::string_view) { return Ansi(u8"北京"); };
};

TEST_F(Exports, ContactsBecomeVCardsWithPhotosAndGroups) {
    AnswerContacts();
    std::vector<std::size_t> done;
    const ExportResult result =
        ExportContacts(agent_.Port(), File("a.vcf"), {nullptr, [&](std::size_t so, std::size_t of) {
                                                          EXPECT_EQ(of, 2U);
                                                          done.push_back(so);
                                                      }});
    EXPECT_EQ(result.status.end, TransferEnd::whole);
    EXPECT_EQ(result.exported, 2U);
    EXPECT_THAT(done, ElementsAre(1U, 2U));
    const VCards read = ReadVCards(Text("a.vcf"));
    ASSERT_THAT(read.cards, SizeIs(2));
    const ContactCard& card = read.cards[0].card;
    EXPECT_EQ(card.name, "林远舟");
    EXPECT_TRUE(card.favourite);
    EXPECT_EQ(card.photo, "\xFF\xD8\xFF\xE0");
    EXPECT_THAT(card.groups, ElementsAre("家人"));
    EXPECT_THAT(card.phones, ElementsAre(CardItem{2, "138 0013-8000"}));
    EXPECT_EQ(read.cards[1].card.photo, "");
    EXPECT_EQ(Entries(), 1);
}

TEST_F(Exports, ContactsBecomeATable) {
    AnswerContacts();
    EXPECT_EQ(ExportContacts(agent_.Port(), File("a.CSV")).exported, 2U);
    EXPECT_THAT(ReadContactTable(Text("a.CSV")).cards, SizeIs(2));
}

TEST_F(Exports, OfContactsThoseOfTheIdsAreExportedAndWhatIsNotThereIsNamed) {
    AnswerContacts();
    const ExportResult result = ExportContacts(agent_.Port(), File("a.vcf"), {}, {99, 8});
    EXPECT_EQ(result.exported, 1U);
    EXPECT_EQ(agent_.Requests(AgentCommand::readContact),
              std::vector<Bytes>{ReadContactRequest(8)});
    ASSERT_THAT(result.skipped.list, SizeIs(1));
    EXPECT_EQ(result.skipped.list.front(),
              (SkippedRecord{"99", Ansi(u8"手机上已经没有这个联系人")}));
}

TEST_F(Exports, AContactThatIsGoneByNowIsNamed) {
    agent_.AnswerPayload(AgentCommand::listContacts, test::TwoContacts());
    agent_.AnswerNoData(AgentCommand::readContact);
    const ExportResult result = ExportContacts(agent_.Port(), File("a.vcf"));
    EXPECT_EQ(result.status.end, TransferEnd::whole);
    EXPECT_EQ(result.exported, 0U);
    EXPECT_EQ(result.skipped.count, 2U);
    EXPECT_EQ(result.skipped.list.front(),
              (SkippedRecord{Ansi(u8"林远舟"), Ansi(u8"手机上已经没有这个联系人")}));
}

TEST_F(Exports, AContactThatIsCutIsNamed) {
    agent_.AnswerPayload(AgentCommand::listContacts, test::TwoContacts());
    Bytes cut = WireBytes().U32(1000).Add(test::OneContact()).Get();
    agent_.Answer(AgentCommand::readContact, {std::move(cut)});
    const ExportResult result = ExportContacts(agent_.Port(), File("a.vcf"));
    EXPECT_EQ(result.skipped.list.front().why, Ansi(u8"没有读全这个联系人的资料"));
}

TEST_F(Exports, AListThatIsCutWritesNoFile) {
    Bytes cut = WireBytes().U32(1000).Add(test::TwoContacts()).Get();
    agent_.Answer(AgentCommand::listContacts, {std::move(cut)});
    ASSERT_TRUE(ReplaceFile(File("a.vcf"), "old"));
    EXPECT_EQ(ExportContacts(agent_.Port(), File("a.vcf")).status.end, TransferEnd::notWhole);
    EXPECT_EQ(Text("a.vcf"), "old");
    EXPECT_EQ(Entries(), 1);
}

TEST_F(Exports, ALinkThatBreaksInTheMiddleLeavesTheOldFile) {
    agent_.AnswerPayload(AgentCommand::listContacts, test::TwoContacts());
    ASSERT_TRUE(ReplaceFile(File("a.vcf"), "old"));
    const ExportResult result = ExportContacts(agent_.Port(), File("a.vcf"));
    EXPECT_EQ(result.status.end, TransferEnd::linkLost);
    EXPECT_EQ(result.status.outcome, SessionOutcome::noReply);
    EXPECT_EQ(Text("a.vcf"), "old");
    EXPECT_EQ(Entries(), 1);
}

TEST_F(Exports, AStopLeavesNothing) {
    AnswerContacts();
    StopSignal stop;
    const ExportResult result = ExportContacts(
        agent_.Port(), File("a.vcf"), {&stop, [&](std::size_t, std::size_t) { stop.Stop(); }});
    EXPECT_EQ(result.status.end, TransferEnd::stopped);
    EXPECT_EQ(result.exported, 1U);
    EXPECT_EQ(Entries(), 0);
}

TEST_F(Exports, WithoutALinkThereIsNoFile) {
    EXPECT_EQ(ExportCalls(UnusedPort(), attribution_, File("a.csv")).status.end,
              TransferEnd::linkLost);
    EXPECT_EQ(Entries(), 0);
}

TEST_F(Exports, AFolderThatIsNotThereIsSaid) {
    agent_.AnswerPayload(AgentCommand::listCalls, test::OneCall());
    const ExportResult result =
        ExportCalls(agent_.Port(), attribution_, folder_.Path() / "none" / "a.csv");
    EXPECT_EQ(result.status.end, TransferEnd::fileFailed);
    EXPECT_EQ(result.status.why, Ansi(u8"文件写不进去，请换一个文件夹再试"));
}

TEST_F(Exports, APhoneWithoutRecordsGivesAFileWithoutAny) {
    agent_.AnswerNoData(AgentCommand::listConversations);
    EXPECT_EQ(ExportMessages(agent_.Port(), attribution_, std::nullopt, File("a.json")).status.end,
              TransferEnd::whole);
    EXPECT_EQ(ParseJson(Text("a.json")), Json::Value(Json::arrayValue));
}

TEST_F(Exports, MessagesOfAllConversations) {
    agent_.AnswerPayload(AgentCommand::listConversations, test::OneConversation());
    agent_.AnswerPayload(AgentCommand::readConversation, test::TwoMessages());
    const ExportResult result =
        ExportMessages(agent_.Port(), attribution_, std::nullopt, File("a.txt"));
    EXPECT_EQ(result.exported, 2U);
    EXPECT_THAT(Text("a.txt"), HasSubstr("== 林远舟 (13800138000) ==\n"));
    EXPECT_THAT(Text("a.txt"), HasSubstr("] 本机\n在\n"));
}

TEST_F(Exports, MessagesOfAConversationThatIsNotThereAreNamed) {
    agent_.AnswerPayload(AgentCommand::listConversations, test::OneConversation());
    const ExportResult result = ExportMessages(agent_.Port(), attribution_, 6, File("a.txt"));
    EXPECT_EQ(result.exported, 0U);
    EXPECT_EQ(result.skipped.list,
              (std::vector<SkippedRecord>{{"6", Ansi(u8"手机上没有这个会话")}}));
    EXPECT_THAT(agent_.Requests(AgentCommand::readConversation), SizeIs(0));
}

TEST_F(Exports, CallsWithTheirAttribution) {
    agent_.AnswerPayload(AgentCommand::listCalls, test::OneCall());
    EXPECT_EQ(ExportCalls(agent_.Port(), attribution_, File("a.csv")).exported, 1U);
    EXPECT_THAT(Text("a.csv"), HasSubstr("客服,'+8610086,北京,拨出电话,"));
}

TEST_F(Exports, BookmarksWithTheirVisits) {
    agent_.AnswerPayload(AgentCommand::listBookmarks, test::OneBookmark());
    EXPECT_EQ(ExportBookmarks(agent_.Port(), File("a.html")).exported, 1U);
    EXPECT_THAT(ReadBookmarkFile(Text("a.html")).bookmarks,
                ElementsAre(FileBookmark{"天气", "http://a.example/?b&c", 3}));
}

TEST(ExportToAFullDisk, IsSaid) {
    const SmallDisk disk(64 * 1024);
    if (!disk.IsThere()) {
        GTEST_SKIP() << "no namespace to mount in";
    }
    disk.Fill();
    ScriptedAgent agent;
    agent.AnswerPayload(AgentCommand::listCalls, test::OneCall());
    const ExportResult result = ExportCalls(
        agent.Port(), [](std::string_view) { return std::string(); }, disk.Path() / "a.csv");
    EXPECT_EQ(result.status.why, Ansi(u8"磁盘空间不足，没有写文件，请清出空间后再试"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(disk.Path()), {}),
              1);  // what fills it
}

TEST(FileEndings, AreThoseOfTheirKind) {
    EXPECT_TRUE(CanExportTo(FileKind::contacts, "/a.b/c.VCF"));
    EXPECT_TRUE(CanExportTo(FileKind::messages, "a.html"));
    EXPECT_FALSE(CanExportTo(FileKind::calls, "a.html"));
    EXPECT_FALSE(CanExportTo(FileKind::contacts, "vcf"));
    EXPECT_TRUE(CanImportFrom(FileKind::bookmarks, "a.htm"));
    EXPECT_FALSE(CanImportFrom(FileKind::messages, "a.txt"));
    EXPECT_FALSE(CanImportFrom(FileKind::messages, "a"));
}

}  // namespace
}  // namespace quorvi

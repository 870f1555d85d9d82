#include <gmock/gmock.h>

#include "backup/BookmarkFile.h"
#include "backup/ContactCard.h"
#include "backup/ContactMatch.h"
#include "backup/ContactTable.h"
#include "backup/Import.h"
#include "base/Text.h"
#include "base/os/SmallFile.h"
#include "pages/bookmarks/BookmarkForm.h"
#include "pages/contacts/ContactForm.h"
#include "pages/contacts/ContactGroups.h"
#include "pages/contacts/ContactRecord.h"
#include "tests/backup/PhoneRecords.h"
#include "tests/support/ScriptedAgent.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class Imports : public testing::Test {
  protected:
    ImportContent Read(FileKind kind, const char* name, std::string_view text) {
        EXPECT_TRUE(ReplaceFile(folder_.Path() / name, text));
        return ReadImportFile(kind, folder_.Path() / name);
    }
    ImportContent ReadCards(std::string_view text) {
        return Read(FileKind::contacts, "a.vcf", text);
    }
    void AnswerContacts() {
        agent_.AnswerPayload(AgentCommand::listContacts, test::TwoContacts());
        agent_.AnswerAcknowledged(AgentCommand::addContact);
        agent_.AnswerAcknowledged(AgentCommand::addGroup);
        agent_.AnswerAcknowledged(AgentCommand::updateContact);
        agent_.AnswerPayload(AgentCommand::listGroups, TwoGroups());
    }
    // 家人 with the id 3, and 同事 with the id 4.
    static Bytes TwoGroups() {
        return WireBytes()
            .U32(0)         // leading word
            .U64(3)         // group id
            .Text("家人")   // title
            .Text("phone")  // account
            .U32(1)         // visible
            .U64(4)         // group id
            .Text("同事")   // title
            .Text("phone")  // account
            .U32(1)         // visible
            .Get();
    }
    // The list of the phone with Bo, whose id is 9, and what it gives of him.
    void LetBoBeThere() {
        agent_.AnswerPayload(AgentCommand::listContacts, WireBytes()
                                                             .Add(test::TwoContacts())
                                                             .U64(9)         // contact id
                                                             .U64(9)         // second id
                                                             .Text("Bo")     // name
                                                             .U32(0)         // favourite
                                                             .Text("010 1")  // number
                                                             .U64(0)         // last contact
                                                             .U32(0)         // reserved
                                                             .U32(0)         // has photo
                                                             .Get());
        agent_.AnswerPayload(AgentCommand::readContact, test::ContactReply(9, "Bo", 3, "010-1"));
    }
    // Imports, and stops when it has done two.
    ImportResult ImportAndStopBehindTwo(std::string_view file) {
        StopSignal stop;
        return ImportContacts(agent_.Port(), ReadCards(file), ImportMode::send,
                              {&stop, [&](std::size_t done, std::size_t) {
                                   if (done == 2) {
                                       stop.Stop();
                                   }
                               }});
    }
    // Imports, with Bo in the phone's list from the end of the cards on.
    ImportResult ImportWithBo(std::string_view file) {
        const ImportContent content = ReadCards(file);
        return ImportContacts(agent_.Port(), content, ImportMode::send,
                              {nullptr, [&](std::size_t done, std::size_t of) {
                                   if (done == of) {
                                       LetBoBeThere();
                                   }
                               }});
    }

    ScriptedAgent agent_;
    TemporaryFolder folder_;
};

// 林远舟 is on the phone, with other signs between the digits; Bo and Ada's namesake are not.
constexpr std::string_view kThree =
    "BEGIN:VCARD\nFN:林远舟\nTEL;TYPE=CELL:13800138000\nEND:VCARD\n"
    "BEGIN:VCARD\nFN:Bo\nTEL;TYPE=WORK:010-1\nCATEGORIES:家人,同事\nPHOTO;ENCODING=b:/9j/\n"
    "X-CUSTOM-IM:bo\nEND:VCARD\n"
    "BEGIN:VCARD\nFN:Ada\nTEL:5\nEND:VCARD\n";

TEST_F(Imports, ContactsThatAreNotThereAreAdded) {
    AnswerContacts();
    const ImportResult result = ImportContacts(agent_.Port(), ReadCards(kThree), ImportMode::send);
    EXPECT_EQ(result.status.end, TransferEnd::whole);
    EXPECT_EQ(result.added, 2U);
    EXPECT_EQ(result.there, 1U);
    ContactCard bo;
    bo.name = "Bo";
    bo.phones = {{3, "010-1"}};
    bo.ims = {{-1, "bo"}};
    const auto requests = agent_.Requests(AgentCommand::addContact);
    ASSERT_THAT(requests, SizeIs(2));
    EXPECT_EQ(requests[0], AddContactRequest(*RecordOf(bo)));
}

TEST_F(Imports, WhatANewContactCannotBeSentIsNamed) {
    AnswerContacts();
    const ImportResult result = ImportContacts(agent_.Port(), ReadCards(kThree), ImportMode::send);
    EXPECT_EQ(result.leftOut.list, (std::vector<SkippedRecord>{
                                       {Ansi(u8"Bo: 照片"), Ansi(u8"手机的新联系人不接受这些内容")},
                                       {Ansi(u8"Bo: 分组 家人、分组 同事"),
                                        Ansi(u8"在手机上没有找到这个新联系人，没有放进分组")}}));
}

TEST_F(Imports, ANewContactIsPutIntoItsGroups) {
    AnswerContacts();
    const ImportResult result = ImportWithBo(kThree);
    EXPECT_EQ(result.status.end, TransferEnd::whole);
    EXPECT_THAT(
        result.leftOut.list,
        ElementsAre(SkippedRecord{Ansi(u8"Bo: 照片"), Ansi(u8"手机的新联系人不接受这些内容")}));
    const auto changes = agent_.Requests(AgentCommand::updateContact);
    ASSERT_THAT(changes, SizeIs(1));
    auto record = FetchContact(AgentSession(agent_.Port()), 9).record;
    ASSERT_TRUE(record);
    ContactCard groups;
    groups.groups = {"家人", "同事"};
    const auto listed = FetchContactGroups(AgentSession(agent_.Port())).list.rows;
    EXPECT_EQ(changes[0], UpdateContactRequest(*RecordToComplete(*record, groups, listed)));
    EXPECT_THAT(agent_.Requests(AgentCommand::addGroup), IsEmpty());
}

TEST_F(Imports, AGroupThatThePhoneDoesNotHaveIsMade) {
    AnswerContacts();
    ImportWithBo("BEGIN:VCARD\nFN:Bo\nTEL:010-1\nCATEGORIES:家人,球友\nEND:VCARD\n");
    EXPECT_THAT(agent_.Requests(AgentCommand::addGroup),
                ElementsAre(AddGroupRequest(Ansi(u8"球友"))));
}

TEST_F(Imports, WithoutGroupsThePhoneIsNotAskedForAny) {
    AnswerContacts();
    ImportWithBo("BEGIN:VCARD\nFN:Bo\nTEL:010-1\nEND:VCARD\n");
    EXPECT_THAT(agent_.Requests(AgentCommand::listGroups), IsEmpty());
    EXPECT_THAT(agent_.Requests(AgentCommand::listContacts), SizeIs(1));
}

TEST_F(Imports, GroupsThatCannotBeReadAreToldAndTheContactsStay) {
    AnswerContacts();
    agent_.Answer(AgentCommand::listGroups, {});  // closed without a word
    const ImportResult result = ImportWithBo(kThree);
    EXPECT_EQ(result.status.end, TransferEnd::linkLost);
    EXPECT_EQ(result.added, 2U);
    EXPECT_EQ(result.leftOut.list.back(),
              (SkippedRecord{Ansi(u8"Bo: 分组 家人、分组 同事"),
                             Ansi(u8"没有放进分组，请在手机上放进去")}));
    EXPECT_THAT(agent_.Requests(AgentCommand::updateContact), IsEmpty());
}

TEST_F(Imports, AnImportThatEndsEarlyTellsWhoIsInNoGroup) {
    AnswerContacts();
    const ImportResult result = ImportAndStopBehindTwo(kThree);
    EXPECT_EQ(result.status.end, TransferEnd::stopped);
    EXPECT_EQ(result.leftOut.list.back().what, Ansi(u8"Bo: 分组 家人、分组 同事"));
    EXPECT_THAT(agent_.Requests(AgentCommand::listGroups), IsEmpty());
}

TEST_F(Imports, TellingOnlySendsNothing) {
    AnswerContacts();
    const ImportResult result =
        ImportContacts(agent_.Port(), ReadCards(kThree), ImportMode::tellOnly);
    EXPECT_EQ(result.added, 2U);
    EXPECT_EQ(result.there, 1U);
    EXPECT_THAT(agent_.Requests(AgentCommand::addContact), IsEmpty());
}

TEST_F(Imports, ACardThatStandsTwiceInAFileIsAddedOnce) {
    AnswerContacts();
    const std::string card = "BEGIN:VCARD\nFN:Bo\nTEL:1\nEND:VCARD\n";
    const ImportResult result =
        ImportContacts(agent_.Port(), ReadCards(card + card), ImportMode::send);
    EXPECT_EQ(result.added, 1U);
    EXPECT_EQ(result.there, 1U);
}

TEST_F(Imports, AContactWithoutANameIsThereWithOrWithoutOne) {
    const auto list = [](std::string_view name) {
        return WireBytes()
            .U32(0)        // leading word
            .U64(7)        // contact id
            .U64(7)        // second id
            .Text(name)    //
            .U32(0)        // favourite
            .Text("1380")  // number
            .U64(0)        // last contact
            .U32(0)        // reserved
            .U32(0)        // has photo
            .Get();
    };
    const ImportContent content = ReadCards("BEGIN:VCARD\nTEL:138-0\nEND:VCARD\n");
    for (const char* name : {"", "138-0"}) {
        agent_.AnswerPayload(AgentCommand::listContacts, list(name));
        EXPECT_EQ(ImportContacts(agent_.Port(), content, ImportMode::send).there, 1U) << name;
    }
    EXPECT_THAT(agent_.Requests(AgentCommand::addContact), IsEmpty());
}

TEST_F(Imports, ARequestThatIsNotAcknowledgedEndsTheImport) {
    agent_.AnswerPayload(AgentCommand::listContacts, test::TwoContacts());
    const ImportResult result = ImportContacts(agent_.Port(), ReadCards(kThree), ImportMode::send);
    EXPECT_EQ(result.status.end, TransferEnd::linkLost);
    EXPECT_EQ(result.added, 0U);
    EXPECT_THAT(agent_.Requests(AgentCommand::addContact), SizeIs(1));
    EXPECT_EQ(result.status.why,
              Ansi(u8"Bo: 手机没有确认。请重新连接手机，再导入一次，已经有的不会重复"));
}

TEST_F(Imports, AListThatIsCutSendsNothing) {
    Bytes cut = WireBytes().U32(1000).Add(test::TwoContacts()).Get();
    agent_.Answer(AgentCommand::listContacts, {std::move(cut)});
    EXPECT_EQ(ImportContacts(agent_.Port(), ReadCards(kThree), ImportMode::send).status.end,
              TransferEnd::notWhole);
    EXPECT_THAT(agent_.Requests(AgentCommand::addContact), IsEmpty());
}

TEST_F(Imports, AnEmptyPhoneTakesAll) {
    agent_.AnswerNoData(AgentCommand::listContacts);
    agent_.AnswerAcknowledged(AgentCommand::addContact);
    EXPECT_EQ(ImportContacts(agent_.Port(), ReadCards(kThree), ImportMode::send).added, 3U);
}

TEST_F(Imports, AStopEndsBetweenTwoRecords) {
    AnswerContacts();
    const ImportResult result = ImportAndStopBehindTwo(kThree);
    EXPECT_EQ(result.status.end, TransferEnd::stopped);
    EXPECT_EQ(result.added, 1U);
}

TEST_F(Imports, CardsThatCannotBeReadAreNamedWithTheReason) {
    const ImportContent content = ReadCards(
        "BEGIN:VCARD\nNOTE:x\nEND:VCARD\nBEGIN:VCARD\nFN:A\nEND:VCARD\nBEGIN:VCARD\nFN:B\n");
    EXPECT_THAT(content.cards, SizeIs(1));
    EXPECT_THAT(content.skipped.list,
                ElementsAre(SkippedRecord{Ansi(u8"第 1 张名片"),
                                          Ansi(u8"名片里没有姓名，也没有号码和邮箱")},
                            SkippedRecord{"B", Ansi(u8"文件在这张名片的中间断开")}));
}

TEST_F(Imports, AFileWithoutCardsIsRefused) {
    const ImportContent content = ReadCards("hello\n");
    EXPECT_EQ(content.status.end, TransferEnd::fileFailed);
    EXPECT_EQ(content.status.why, Ansi(u8"文件里没有名片"));
    EXPECT_EQ(ImportContacts(agent_.Port(), content, ImportMode::send).status.end,
              TransferEnd::fileFailed);
    EXPECT_THAT(agent_.Requests(), IsEmpty());
}

TEST_F(Imports, AFileThatIsNotThereIsRefused) {
    EXPECT_EQ(ReadImportFile(FileKind::contacts, folder_.Path() / "none.vcf").status.why,
              Ansi(u8"文件打不开，请检查文件是否还在"));
    EXPECT_EQ(ReadImportFile(FileKind::bookmarks, folder_.Path()).status.end,
              TransferEnd::fileFailed);
}

TEST_F(Imports, AFileOfMoreRecordsThanAPhoneHoldsIsRefused) {
    std::string file = "name\n";
    for (std::size_t i = 0; i <= kMostTableRows; ++i) {
        file += "A\n";
    }
    EXPECT_EQ(Read(FileKind::contacts, "a.csv", file).status.why,
              Ansi(u8"文件太大，没有导入，请分成几个文件再试"));
}

TEST_F(Imports, NestedCardsAreRefused) {
    std::string file = "BEGIN:VCARD\nN:A\n";
    for (int i = 0; i < 100; ++i) {
        file += "AGENT:\nBEGIN:VCARD\n";
    }
    EXPECT_EQ(ReadCards(file).status.why, Ansi(u8"名片一层套一层，太深了，没有导入"));
}

TEST_F(Imports, ATableIsReadAsContacts) {
    const ImportContent content =
        Read(FileKind::contacts, "a.csv", "姓名,手机,房间\nBo,1,\n,,12\n");
    EXPECT_THAT(content.cards, SizeIs(1));
    EXPECT_THAT(
        content.skipped.list,
        ElementsAre(SkippedRecord{Ansi(u8"第 3 行"), Ansi(u8"没有姓名，也没有号码和邮箱")}));
    EXPECT_EQ(Read(FileKind::contacts, "a.csv", "1,2\n").status.end, TransferEnd::fileFailed);
}

TEST_F(Imports, BookmarksThatAreNotThereAreAdded) {
    agent_.AnswerPayload(AgentCommand::listBookmarks, test::OneBookmark());
    agent_.AnswerAcknowledged(AgentCommand::addBookmark);
    const ImportContent content = Read(FileKind::bookmarks, "a.html",
                                       "<A HREF=\"http://a.example/?b&amp;c\">天气</A>"
                                       "<A HREF=\"http://b.example\" VISITS=\"2\">路况</A>"
                                       "<A HREF=\"http://c.example\"></A>"
                                       "<A HREF=\"javascript:a()\">script</A>");
    const ImportResult result = ImportBookmarks(agent_.Port(), content, ImportMode::send);
    EXPECT_EQ(result.added, 2U);
    EXPECT_EQ(result.there, 1U);
    EXPECT_THAT(result.skipped.list,
                ElementsAre(SkippedRecord{"script", Ansi(u8"不是网页的地址")}));
    EXPECT_THAT(agent_.Requests(AgentCommand::addBookmark),
                ElementsAre(AddBookmarkRequest({Ansi(u8"路况"), "http://b.example", 2}),
                            AddBookmarkRequest({"http://c.example", "http://c.example", 0})));
}

TEST_F(Imports, AFileOfTooManyBookmarksIsRefused) {
    std::string file;
    for (std::size_t i = 0; i <= kMostBookmarks; ++i) {
        file += "<a href=http://a>";
    }
    EXPECT_EQ(Read(FileKind::bookmarks, "a.html", file).status.why,
              Ansi(u8"文件太大，没有导入，请分成几个文件再试"));
}

TEST_F(Imports, PhotosDoNotFillTheMemory) {
    std::string photo(300'000, 'A');
    const ImportContent content =
        ReadCards("BEGIN:VCARD\nVERSION:3.0\nFN:A\nPHOTO;ENCODING=b:" + photo + "\nEND:VCARD\n");
    ASSERT_THAT(content.cards, SizeIs(1));
    EXPECT_LT(content.cards.front().card.photo.capacity(), 1000U);
    EXPECT_THAT(content.cards.front().leftOut, ElementsAre("PHOTO"));
}

TEST_F(Imports, AFileWithoutBookmarksIsRefused) {
    EXPECT_EQ(Read(FileKind::bookmarks, "a.html", "<p>").status.why, Ansi(u8"文件里没有书签"));
}

}  // namespace
}  // namespace quorvi

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "base/Text.h"
#include "pages/contacts/ContactRecord.h"
#include "tests/pages/contacts/ContactReplies.h"

namespace quorvi {
namespace {

class ContactRecordReading : public ::testing::Test {
  protected:
    void SetUp() override {
        setenv("TZ", "Asia/Shanghai", 1);
        tzset();
    }
};

TEST_F(ContactRecordReading, ReadsEveryFieldInWireOrder) {
    const auto record = ParseContact(WholeContactPayload().Buffer());
    ASSERT_TRUE(record);
    EXPECT_EQ(record->id, 7u);
    EXPECT_TRUE(record->favourite);
    EXPECT_EQ(record->lastContact, "2011-06-18 09:42:10");
    EXPECT_EQ(record->timesContacted, 27u);
    EXPECT_EQ(record->structured.Shown(), "林 远舟");  // as it came
    EXPECT_EQ(record->name.Shown(), Ansi(u8"林远舟"));
    EXPECT_EQ(record->name.id, 70u);
    EXPECT_EQ(record->nickname.Shown(), Ansi(u8"阿舟"));
    EXPECT_EQ(record->nickname.id, 71u);
    EXPECT_EQ(record->note.Shown(), Ansi(u8"十月生日"));
    EXPECT_EQ(record->note.id, 72u);
    ASSERT_EQ(record->phones.size(), 2u);
    EXPECT_EQ(record->phones[1].id, 81u);
    EXPECT_EQ(record->phones[1].type, 3);
    EXPECT_EQ(record->phones[1].text, "0519-88123456");
    ASSERT_EQ(record->groups.size(), 1u);
    EXPECT_EQ(record->groups[0].text, Ansi(u8"朋友"));
    ASSERT_EQ(record->emails.size(), 1u);
    EXPECT_EQ(record->emails[0].text, "yz@example.com");
    ASSERT_EQ(record->ims.size(), 1u);
    EXPECT_EQ(record->ims[0].type, -1);
    ASSERT_EQ(record->websites.size(), 1u);
    EXPECT_EQ(record->websites[0].text, "http://yz.example.com");
    ASSERT_EQ(record->addresses.size(), 1u);
    EXPECT_EQ(record->addresses[0].text, Ansi(u8"常州市"));
    ASSERT_EQ(record->organisations.size(), 1u);
    EXPECT_EQ(record->organisations[0].text, Ansi(u8"测绘研究院"));
}

TEST_F(ContactRecordReading, EveryItemIsToBeLeftAlone) {
    const auto record = ParseContact(WholeContactPayload().Buffer());
    ASSERT_TRUE(record);
    for (const ContactRecord::List list : kContactLists) {
        ASSERT_FALSE(((*record).*list).empty());
        for (const ContactItem& item : (*record).*list) {
            EXPECT_EQ(item.op, ContactItemOp::leave) << item.text;
        }
    }
}

TEST_F(ContactRecordReading, OnlyFlagOneCarriesABlock) {
    WireBytes bytes;
    bytes
        .U32(0)   // leading word
        .U64(7)   // contact id
        .U32(2)   // favourite: 2 is none
        .U64(0)   // last contact
        .U64(0)   // times contacted
        .U32(2)   // no photo follows
        .U32(2)   // no structured block
        .U32(2)   // no name block
        .U32(0)   // no nickname block
        .U32(3);  // no note block
    const auto record = ParseContact(AddEmptyLists(AddItems(bytes, {{80, 2, "123"}}), 6).Buffer());
    ASSERT_TRUE(record);
    EXPECT_FALSE(record->favourite);
    EXPECT_FALSE(record->name.present);
    ASSERT_EQ(record->phones.size(), 1u);
    EXPECT_EQ(record->phones[0].text, "123");
}

TEST_F(ContactRecordReading, NeverContactedShowsNotAvailable) {
    WireBytes bytes = ContactHead(7, "A");
    EXPECT_EQ(ParseContact(AddEmptyLists(bytes).Buffer()).value().lastContact, "N/A");
    EXPECT_EQ(ContactTimeText(0), "N/A");
    EXPECT_EQ(ContactTimeText(999), "1970-01-01 08:00:00");
}

TEST_F(ContactRecordReading, AbsentTextIsEmpty) {
    WireBytes bytes = ContactHead(7, "A");
    const auto record =
        ParseContact(AddEmptyLists(bytes.U32(1).U64(80).U32(2).Absent(), 6).Buffer());
    ASSERT_TRUE(record);
    ASSERT_EQ(record->phones.size(), 1u);
    EXPECT_EQ(record->phones[0].text, "");
}

TEST_F(ContactRecordReading, CountBelowZeroHasNoItems) {
    WireBytes bytes = ContactHead(7, "A");
    const auto record = ParseContact(AddEmptyLists(bytes.U32(0x80000000), 6).Buffer());
    ASSERT_TRUE(record);
    EXPECT_TRUE(record->phones.empty());
    EXPECT_TRUE(record->organisations.empty());
}

TEST_F(ContactRecordReading, SecondRecordAddsItsItemsBehindTheFirsts) {
    WireBytes bytes = ContactHead(7, "first");
    AddEmptyLists(AddItems(bytes, {{80, 2, "111"}}), 6);
    WireBytes second = ContactHead(7, "second");
    AddEmptyLists(AddItems(second, {{90, 2, "222"}}), 6);
    bytes.Add(std::span(second.Get()).subspan(4));  // one leading word for the whole payload
    const auto record = ParseContact(bytes.Buffer());
    ASSERT_TRUE(record);
    EXPECT_EQ(record->name.Shown(), "second");
    ASSERT_EQ(record->phones.size(), 2u);
    EXPECT_EQ(record->phones[0].text, "111");
    EXPECT_EQ(record->phones[1].text, "222");
}

TEST_F(ContactRecordReading, LengthOutsideTheReplyLeavesNothing) {
    EXPECT_FALSE(ParseContact(ContactHead(7, "A").U32(1).U64(80).U32(2).U32(0x7FFFFFFF).Buffer()));
    EXPECT_FALSE(ParseContact(WireBytes().U32(0).Buffer()));
    EXPECT_FALSE(ParseContact(WireBytes().Buffer()));
}

TEST_F(ContactRecordReading, BrokenSecondRecordLeavesTheSingleFieldsOfTheFirst) {
    WireBytes bytes = ContactHead(7, "first");
    AddEmptyLists(bytes).U64(8).U32(1);  // ends inside the second record
    const auto record = ParseContact(bytes.Buffer());
    ASSERT_TRUE(record);
    EXPECT_EQ(record->name.Shown(), "first");
    EXPECT_EQ(record->id, 7u);
    EXPECT_FALSE(record->favourite);
}

TEST_F(ContactRecordReading, ClaimOfTwoBillionItemsEndsWithTheBytes) {
    WireBytes bytes = ContactHead(7, "A");
    bytes.U32(0x7FFFFFFF).U64(80).U32(2).Text("111");
    EXPECT_FALSE(ParseContact(bytes.Buffer()));  // the other lists are missing
}

TEST_F(ContactRecordReading, CountBeyondTheLastItemEndsWithTheReply) {
    WireBytes bytes = ContactHead(7, "A");
    AddEmptyLists(bytes, 6).U32(2).U64(87).U32(1).Text("one of two");  // organisations
    const auto record = ParseContact(bytes.Buffer());
    ASSERT_TRUE(record);
    ASSERT_EQ(record->organisations.size(), 1u);
    EXPECT_EQ(record->organisations[0].text, "one of two");
}

TEST_F(ContactRecordReading, CutReplyIsReadAsFarAsItCame) {
    WireBytes bytes = ContactHead(7, "A");
    bytes.U32(2).U64(80).U32(2).Text("111");
    const std::size_t came = bytes.Get().size();
    AddEmptyLists(bytes.U64(81).U32(2).Text("222"), 6);
    const auto record = ParseContact(bytes.CutAfter(came));
    ASSERT_TRUE(record);
    EXPECT_EQ(record->name.Shown(), "A");
    ASSERT_EQ(record->phones.size(), 1u);
    EXPECT_EQ(record->phones[0].text, "111");
}

TEST_F(ContactRecordReading, IdInWhichACutReplyEndsIsNotTaken) {
    constexpr std::size_t kHead = 4 + 8;  // leading word, contact id
    WireBytes bytes = ContactHead(7, "A");
    const std::size_t item = bytes.U32(1).Get().size();
    AddEmptyLists(bytes.U64(0x102).U32(2).Text("111"), 6);
    EXPECT_FALSE(ParseContact(bytes.CutAfter(kHead - 1)));
    EXPECT_TRUE(ParseContact(bytes.CutAfter(kHead)));
    EXPECT_TRUE(ParseContact(bytes.CutAfter(item + 7)).value().phones.empty());
    EXPECT_EQ(ParseContact(bytes.CutAfter(item + 8)).value().phones.at(0).id, 0x102u);
}

TEST_F(ContactRecordReading, CharacterOutsideTheCodePageIsLostOnTheWayIn) {
    WireBytes bytes = ContactHead(7, "A\xF0\x9F\x98\x80");
    EXPECT_EQ(ParseContact(AddEmptyLists(bytes).Buffer()).value().name.Shown(), "A?");
}

TEST_F(ContactRecordReading, LostCharactersAreNotedWhereverTheyCanBeEdited) {
    const std::string_view balloon = "\xF0\x9F\x8E\x88";
    EXPECT_FALSE(ParseContact(WholeContactPayload().Buffer()).value().charactersLost);
    const auto lost = [](const WireBytes& bytes) {
        return ParseContact(bytes.Buffer()).value().charactersLost;
    };
    EXPECT_TRUE(lost(ContactPayload(7, balloon)));
    EXPECT_TRUE(lost(ContactPayload(7, "\xFF")));
    EXPECT_TRUE(lost(ContactPayload(7, "A", {{80, 2, balloon}})));
    EXPECT_FALSE(lost(ContactPayload(7, "?", {{80, 2, "？"}})));
    WireBytes grouped = ContactHead(7, "A").U32(0);  // phones
    EXPECT_FALSE(lost(AddEmptyLists(AddItems(grouped, {{82, 0, balloon}}), 5)));
}

TEST_F(ContactRecordReading, CharactersThatTheFirstRecordLostStayNoted) {
    WireBytes bytes = ContactPayload(7, "\xFF");
    const WireBytes second = ContactPayload(7, "A");
    bytes.Add(std::span(second.Get()).subspan(4));
    EXPECT_TRUE(ParseContact(bytes.Buffer()).value().charactersLost);
}

TEST(ContactRequests, ReadingNamesOneContact) {
    EXPECT_EQ(ReadContactRequest(7), WireBytes()
                                         .U32(870102)  // code
                                         .U32(16)      // total
                                         .U32(1)       // item count
                                         .U32(7)       // contact id
                                         .Get());
}

}  // namespace
}  // namespace quorvi

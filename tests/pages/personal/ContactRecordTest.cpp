#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "base/Text.h"
#include "pages/personal/ContactRecord.h"
#include "tests/pages/WireBytes.h"

namespace quorvi {
namespace {

constexpr std::size_t kLists = 7;

class ContactRecordReading : public ::testing::Test {
  protected:
    void SetUp() override {
        setenv("TZ", "Asia/Shanghai", 1);
        tzset();
    }
};

// A record up to its lists, with no photo and no single field but the name.
WireBytes Named(std::string_view name) {
    return WireBytes()
        .U32(0)      // leading word
        .U64(7)      // contact id
        .U32(0)      // favourite
        .U64(0)      // last contact
        .U64(0)      // times contacted
        .U32(0)      // has photo
        .U32(0)      // structured flag
        .U32(1)      // name flag
        .U64(70)     // name row id
        .U32(0)      // reserved
        .Text(name)  // name
        .U32(0)      // nickname flag
        .U32(0);     // note flag
}

WireBytes& NoItems(WireBytes& record, std::size_t lists = kLists) {
    for (std::size_t i = 0; i < lists; ++i) {
        record.U32(0);
    }
    return record;
}

WireBytes& Item(WireBytes& record, std::uint64_t id, std::uint32_t type, std::string_view text) {
    return record.U64(id).U32(type).Text(text);
}

// Everything that a record can hold.
WireBytes Whole() {
    WireBytes bytes;
    bytes
        .U32(0xDEADBEEF)                       // leading word, looked at by nobody
        .U64(0x500000007)                      // contact id
        .U32(1)                                // favourite
        .U64(1308361330999)                    // last contact: 2011-06-18 09:42:10 in Shanghai
        .U64(0x10000001B)                      // times contacted
        .U32(1)                                // has photo
        .U64(3)                                // photo row id
        .Text("\xFF\xD8jpeg")                  // photo
        .U32(1)                                // structured flag
        .U64(69)                               // structured row id
        .U32(9)                                // reserved
        .Text("林 远舟")                       // structured text
        .U32(1)                                // name flag
        .U64(0x20000000000046)                 // name row id
        .U32(9)                                // reserved
        .Text("林远舟")                        // name
        .U32(1)                                // nickname flag
        .U64(71)                               // nickname row id
        .U32(9)                                // reserved
        .Text("阿舟")                          // nickname
        .U32(1)                                // note flag
        .U64(72)                               // note row id
        .U32(9)                                // reserved
        .Text("十月生日");                     // note
    Item(bytes.U32(2), 80, 2, "13861234567");  // phones
    Item(bytes, 81, 3, "0519-88123456");
    Item(bytes.U32(1), 82, 0, "朋友");                   // groups
    Item(bytes.U32(1), 83, 1, "yz@example.com");         // e-mails
    Item(bytes.U32(1), 84, 0xFFFFFFFF, "10240768");      // ims
    Item(bytes.U32(1), 85, 0, "http://yz.example.com");  // websites
    Item(bytes.U32(1), 86, 1, "常州市");                 // addresses
    Item(bytes.U32(1), 87, 1, "测绘研究院");             // organisations
    return bytes;
}

TEST_F(ContactRecordReading, ReadsEveryFieldInWireOrder) {
    const auto record = ParseContact(Whole().Buffer());
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
    const auto record = ParseContact(Whole().Buffer());
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
    const auto record = ParseContact(NoItems(Item(bytes.U32(1), 80, 2, "123"), 6).Buffer());
    ASSERT_TRUE(record);
    EXPECT_FALSE(record->favourite);
    EXPECT_FALSE(record->name.present);
    ASSERT_EQ(record->phones.size(), 1u);
    EXPECT_EQ(record->phones[0].text, "123");
}

TEST_F(ContactRecordReading, NeverContactedShowsNotAvailable) {
    WireBytes bytes = Named("A");
    EXPECT_EQ(ParseContact(NoItems(bytes).Buffer()).value().lastContact, "N/A");
    EXPECT_EQ(ContactTimeText(0), "N/A");
    EXPECT_EQ(ContactTimeText(999), "1970-01-01 08:00:00");
}

TEST_F(ContactRecordReading, AbsentTextIsEmpty) {
    WireBytes bytes = Named("A");
    const auto record = ParseContact(NoItems(bytes.U32(1).U64(80).U32(2).Absent(), 6).Buffer());
    ASSERT_TRUE(record);
    ASSERT_EQ(record->phones.size(), 1u);
    EXPECT_EQ(record->phones[0].text, "");
}

TEST_F(ContactRecordReading, CountBelowZeroHasNoItems) {
    WireBytes bytes = Named("A");
    const auto record = ParseContact(NoItems(bytes.U32(0x80000000), 6).Buffer());
    ASSERT_TRUE(record);
    EXPECT_TRUE(record->phones.empty());
    EXPECT_TRUE(record->organisations.empty());
}

TEST_F(ContactRecordReading, SecondRecordAddsItsItemsBehindTheFirsts) {
    WireBytes bytes = Named("first");
    NoItems(Item(bytes.U32(1), 80, 2, "111"), 6);
    WireBytes second = Named("second");
    NoItems(Item(second.U32(1), 90, 2, "222"), 6);
    bytes.Add(std::span(second.Get()).subspan(4));  // one leading word for the whole payload
    const auto record = ParseContact(bytes.Buffer());
    ASSERT_TRUE(record);
    EXPECT_EQ(record->name.Shown(), "second");
    ASSERT_EQ(record->phones.size(), 2u);
    EXPECT_EQ(record->phones[0].text, "111");
    EXPECT_EQ(record->phones[1].text, "222");
}

TEST_F(ContactRecordReading, LengthOutsideTheReplyLeavesNothing) {
    EXPECT_FALSE(ParseContact(Named("A").U32(1).U64(80).U32(2).U32(0x7FFFFFFF).Buffer()));
    EXPECT_FALSE(ParseContact(WireBytes().U32(0).Buffer()));
    EXPECT_FALSE(ParseContact(WireBytes().Buffer()));
}

TEST_F(ContactRecordReading, BrokenSecondRecordLeavesTheSingleFieldsOfTheFirst) {
    WireBytes bytes = Named("first");
    NoItems(bytes).U64(8).U32(1);  // ends inside the second record
    const auto record = ParseContact(bytes.Buffer());
    ASSERT_TRUE(record);
    EXPECT_EQ(record->name.Shown(), "first");
    EXPECT_EQ(record->id, 7u);
    EXPECT_FALSE(record->favourite);
}

TEST_F(ContactRecordReading, ClaimOfTwoBillionItemsEndsWithTheBytes) {
    WireBytes bytes = Named("A");
    Item(bytes.U32(0x7FFFFFFF), 80, 2, "111");
    EXPECT_FALSE(ParseContact(bytes.Buffer()));  // the other lists are missing
}

TEST_F(ContactRecordReading, CutReplyIsReadAsFarAsItCame) {
    WireBytes bytes = Named("A");
    Item(bytes.U32(2), 80, 2, "111");
    const std::size_t came = bytes.Get().size();
    NoItems(Item(bytes, 81, 2, "222"), 6);
    const auto record = ParseContact(bytes.CutAfter(came));
    ASSERT_TRUE(record);
    EXPECT_EQ(record->name.Shown(), "A");
    ASSERT_EQ(record->phones.size(), 1u);
    EXPECT_EQ(record->phones[0].text, "111");
}

TEST_F(ContactRecordReading, IdInWhichACutReplyEndsIsNotTaken) {
    constexpr std::size_t kHead = 4 + 8;  // leading word, contact id
    WireBytes bytes = Named("A");
    const std::size_t item = bytes.U32(1).Get().size();
    NoItems(Item(bytes, 0x102, 2, "111"), 6);
    EXPECT_FALSE(ParseContact(bytes.CutAfter(kHead - 1)));
    EXPECT_TRUE(ParseContact(bytes.CutAfter(kHead)));
    EXPECT_TRUE(ParseContact(bytes.CutAfter(item + 7)).value().phones.empty());
    EXPECT_EQ(ParseContact(bytes.CutAfter(item + 8)).value().phones.at(0).id, 0x102u);
}

TEST_F(ContactRecordReading, CharacterOutsideTheCodePageIsLostOnTheWayIn) {
    WireBytes bytes = Named("A\xF0\x9F\x98\x80");
    EXPECT_EQ(ParseContact(NoItems(bytes).Buffer()).value().name.Shown(), "A?");
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

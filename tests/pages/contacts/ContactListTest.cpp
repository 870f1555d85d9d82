#include <gtest/gtest.h>

#include "base/ByteText.h"
#include "base/Text.h"
#include "pages/contacts/ContactList.h"
#include "tests/support/WireBytes.h"

namespace quorvi {
namespace {

struct Summary {
    std::uint64_t id = 7;
    std::string_view name = "A";
    std::uint32_t favourite = 0;
    std::string_view number = "10086";
    std::uint64_t lastContact = 0;
};

// One record up to its photo flag.
WireBytes& Add(WireBytes& bytes, const Summary& contact) {
    return bytes
        .U64(contact.id)           // contact id
        .U64(0x900000009)          // second id
        .Text(contact.name)        // name
        .U32(contact.favourite)    // favourite
        .Text(contact.number)      // number
        .U64(contact.lastContact)  // last contact
        .U32(0xFFFFFFFF);          // reserved
}

WireBytes& AddPhotoless(WireBytes& bytes, const Summary& contact) {
    return Add(bytes, contact).U32(0);
}

WireBytes Start() {
    return WireBytes().U32(0);  // leading word
}

std::string Mark(std::string_view number) {
    return "<" + std::string(number) + ">";
}

ContactList Parse(const WireBytes& bytes) {
    return ParseContactList(bytes.Shared(), Mark);
}

TEST(ContactListReading, ReadsEachFieldOfARow) {
    setenv("TZ", "Asia/Shanghai", 1);
    tzset();
    WireBytes bytes = Start();
    Add(bytes, {0x500000007, "林远舟", 1, "13861234567", 1308361330999})
        .U32(1)         // has photo
        .U64(5)         // photo length
        .Raw("photo");  // photo
    const ContactList list = Parse(bytes);
    EXPECT_FALSE(list.EndedByMark());
    ASSERT_EQ(list.rows.size(), 1u);
    const ContactListRow& row = list.rows[0];
    EXPECT_EQ(row.contactId, 7u);
    EXPECT_EQ(row.secondId, 9u);
    EXPECT_EQ(row.name, Ansi(u8"林远舟"));
    EXPECT_TRUE(row.favourite);
    EXPECT_EQ(row.number, "13861234567");
    EXPECT_EQ(row.attribution, "<13861234567>");
    EXPECT_EQ(row.lastContact, "2011-06-18 09:42:10");
    EXPECT_EQ(AsText(row.photo.Bytes()), "photo");
}

TEST(ContactListReading, RunEndsWithTheReply) {
    WireBytes bytes = Start();
    AddPhotoless(bytes, {.id = 1, .name = "A"});
    AddPhotoless(bytes, {.id = 2, .name = ""});  // present and empty
    AddPhotoless(bytes, {.id = 3, .name = "C"});
    const ContactList list = Parse(bytes);
    ASSERT_EQ(list.rows.size(), 3u);
    EXPECT_EQ(list.rows[1].name, "");
    EXPECT_EQ(list.rows[2].contactId, 3u);
    EXPECT_FALSE(list.EndedByMark());
}

TEST(ContactListReading, OneByteBehindTheLastRecordIsNoRecord) {
    WireBytes bytes = Start();
    AddPhotoless(bytes, {.id = 1}).Raw("x");
    EXPECT_EQ(Parse(bytes).rows.size(), 1u);
}

TEST(ContactListReading, AbsentNameEndsTheWholeRead) {
    WireBytes bytes = Start();
    AddPhotoless(bytes, {.id = 1});
    bytes.U64(2).U64(2).Absent().U32(0).Text("1").U64(0).U32(0).U32(0);
    AddPhotoless(bytes, {.id = 3});
    const ContactList list = Parse(bytes);
    EXPECT_TRUE(list.EndedByMark());
    ASSERT_EQ(list.rows.size(), 1u);
    EXPECT_EQ(list.rows[0].contactId, 1u);
}

TEST(ContactListReading, FavouriteOf2IsNoFavourite) {
    WireBytes bytes = Start();
    AddPhotoless(bytes, {.favourite = 2});
    EXPECT_FALSE(Parse(bytes).rows.at(0).favourite);
}

TEST(ContactListReading, LastContactOf0IsNotAvailable) {
    WireBytes bytes = Start();
    AddPhotoless(bytes, {.lastContact = 0});
    EXPECT_EQ(Parse(bytes).rows.at(0).lastContact, "N/A");
}

TEST(ContactListReading, PhotoOfLength0IsNone) {
    WireBytes bytes = Start();
    Add(bytes, {.id = 1}).U32(1).U64(0);
    AddPhotoless(bytes, {.id = 2});
    const ContactList list = Parse(bytes);
    ASSERT_EQ(list.rows.size(), 2u);
    EXPECT_TRUE(list.rows[0].photo.Empty());
}

TEST(ContactListReading, PhotoFlagOtherThan1CarriesNoPhoto) {
    WireBytes bytes = Start();
    Add(bytes, {.id = 1}).U32(2);
    AddPhotoless(bytes, {.id = 2});
    const ContactList list = Parse(bytes);
    ASSERT_EQ(list.rows.size(), 2u);
    EXPECT_TRUE(list.rows[0].photo.Empty());
    EXPECT_EQ(list.rows[1].contactId, 2u);
}

TEST(ContactListReading, PhotoOf262244BytesIsKeptAndOfOneMoreIsDropped) {
    WireBytes bytes = Start();
    Add(bytes, {.id = 1}).U32(1).U64(262'244).Raw(std::string(262'244, 'a'));
    Add(bytes, {.id = 2}).U32(1).U64(262'245).Raw(std::string(262'245, 'b'));
    AddPhotoless(bytes, {.id = 3});
    const ContactList list = Parse(bytes);
    ASSERT_EQ(list.rows.size(), 3u);
    EXPECT_EQ(list.rows[0].photo.Bytes().size(), 262'244u);
    EXPECT_TRUE(list.rows[1].photo.Empty());
    EXPECT_EQ(list.rows[2].contactId, 3u);
}

TEST(ContactListReading, OfAPhotoLengthTheLowHalfCounts) {
    WireBytes bytes = Start();
    Add(bytes, {.id = 1}).U32(1).U64(0x700000002).Raw("ab");
    AddPhotoless(bytes, {.id = 2});
    const ContactList list = Parse(bytes);
    ASSERT_EQ(list.rows.size(), 2u);
    EXPECT_EQ(AsText(list.rows[0].photo.Bytes()), "ab");
}

TEST(ContactListReading, PhotosAreTheReplysOwnBytesAndKeepThem) {
    WireBytes bytes = Start();
    Add(bytes, {.id = 1}).U32(1).U64(5).Raw("photo");
    auto reply = bytes.Shared();
    const std::byte* end = reply->Data() + reply->Length();
    const ContactList list = ParseContactList(reply, Mark);
    reply.reset();
    const auto photo = list.rows.at(0).photo.Bytes();
    EXPECT_EQ(photo.data(), end - 5);
    EXPECT_EQ(AsText(photo), "photo");
}

TEST(ContactListReading, RowsWithoutAPhotoLetTheReplyGo) {
    WireBytes bytes = Start();
    AddPhotoless(bytes, {.id = 1});
    auto reply = bytes.Shared();
    const std::weak_ptr<const ReplyBuffer> watched = reply;
    const ContactList list = ParseContactList(reply, Mark);
    reply.reset();
    EXPECT_EQ(list.rows.size(), 1u);
    EXPECT_TRUE(watched.expired());
}

TEST(ContactListReading, RecordWithALengthOutsideTheReplyIsDropped) {
    WireBytes bytes = Start();
    AddPhotoless(bytes, {.id = 1});
    Add(bytes, {.id = 2}).U32(1).U64(1000).Raw("short");
    const ContactList list = Parse(bytes);
    ASSERT_EQ(list.rows.size(), 1u);
    EXPECT_EQ(list.rows[0].contactId, 1u);
    EXPECT_FALSE(list.EndedByMark());
}

TEST(ContactListReading, LeadingWordAloneGivesNoRow) {
    EXPECT_TRUE(Parse(Start()).rows.empty());
    EXPECT_TRUE(Parse(WireBytes()).rows.empty());
}

TEST(ContactListReading, PhotoInWhichACutReplyEndsIsDropped) {
    WireBytes bytes = Start();
    Add(bytes, {.id = 1}).U32(1).U64(1000).Raw(std::string(1000, 'a'));
    AddPhotoless(bytes, {.id = 2});
    const auto cut = std::make_shared<const ReplyBuffer>(bytes.CutAfter(100));
    const ContactList list = ParseContactList(cut, Mark);
    ASSERT_EQ(list.rows.size(), 1u);
    EXPECT_EQ(list.rows[0].name, "A");
    EXPECT_TRUE(list.rows[0].photo.Empty());
}

TEST(ContactListReading, RowInWhoseIdACutReplyEndsIsDropped) {
    WireBytes bytes = Start();
    AddPhotoless(bytes, {.id = 1});
    const std::size_t first = bytes.Get().size();
    AddPhotoless(bytes, {.id = 0x102});
    const auto rowsOf = [&](std::size_t came) {
        return ParseContactList(std::make_shared<const ReplyBuffer>(bytes.CutAfter(came)), Mark)
            .rows;
    };
    EXPECT_EQ(rowsOf(first + 7).size(), 1u);  // half an id is another contact's: 0x100
    ASSERT_EQ(rowsOf(first + 8).size(), 2u);
    EXPECT_EQ(rowsOf(first + 8)[1].contactId, 0x102u);
}

TEST(ContactListReading, IdAbove32BitsKeepsItsLowHalf) {
    WireBytes bytes = Start();
    AddPhotoless(bytes, {.id = 0xFFFFFFFF00000001});
    EXPECT_EQ(Parse(bytes).rows.at(0).contactId, 1u);
}

TEST(ContactRequests, DeletionNamesEachContactInOrder) {
    const std::uint32_t ids[] = {9, 3};
    EXPECT_EQ(DeleteContactsRequest(ids), WireBytes()
                                              .U32(870106)  // code
                                              .U32(20)      // total
                                              .U32(2)       // item count
                                              .U32(9)       // contact ids
                                              .U32(3)
                                              .Get());
}

}  // namespace
}  // namespace quorvi

#include <gtest/gtest.h>

#include <algorithm>

#include "base/Text.h"
#include "pages/contacts/ContactForm.h"
#include "tests/pages/contacts/ContactReplies.h"

namespace quorvi {
namespace {

constexpr std::uint64_t kNewRow = 0xFFFFFFFFFFFFFFFF;

std::uint32_t TotalOf(const Bytes& request) {
    return ReadUInt32(request.data() + 4);
}

// The parts of a new contact's frame.
WireBytes& NewBlock(WireBytes& bytes, std::string_view text) {
    return bytes.U32(1).U64(0).U32(0).Text(text);  // flag, block
}
WireBytes& NewItem(WireBytes& bytes, std::uint32_t type, std::string_view text) {
    return bytes.U64(0).U32(type).Text(text);
}

// The parts of a changed contact's frame.
WireBytes& Block(WireBytes& bytes, std::uint64_t id, std::uint32_t op, std::string_view text) {
    return bytes.U32(1).U64(id).U32(op).U32(0).Text(text);  // flag, block
}
WireBytes& Item(WireBytes& bytes, std::uint64_t id, std::uint32_t op, std::uint32_t type,
                std::string_view text) {
    return bytes.U64(id).U32(op).U32(type).Text(text);
}
WireBytes& EmptyControl(WireBytes& bytes) {
    return Item(bytes.U32(1), 0, 3, 0, "");
}

TEST(ContactRequests, SmallestNewContactIsExactToTheByte) {
    ContactForm form;
    form.name = "A";
    EXPECT_EQ(AddContactRequest(RecordToAdd(form).value()), WireBytes()
                                                                .U32(870103)  // code
                                                                .U32(77)      // total
                                                                .U32(1)       // item count
                                                                .U32(0)       // favourite
                                                                .U32(0)       // structured flag
                                                                .U32(1)       // name flag
                                                                .U64(0)       // name block
                                                                .U32(0)
                                                                .Text("A")
                                                                .U32(0)  // nickname flag
                                                                .U32(0)  // note flag
                                                                .U32(0)  // phones
                                                                .U32(0)  // groups
                                                                .U32(0)  // e-mails
                                                                .U32(0)  // ims
                                                                .U32(0)  // websites
                                                                .U32(0)  // addresses
                                                                .U32(0)  // organisations
                                                                .Get());
}

TEST(ContactRequests, WholeNewContactIsExactToTheByte) {
    ContactForm form;
    form.favourite = true;
    form.name = Ansi(u8"林");
    form.nickname = "zh";
    form.note = "n";
    form.phones[0].text = "111";
    form.phones[2] = {99, "333"};
    form.im = {3, "sky"};
    form.email.text = Ansi(u8"邮");
    form.website = "w";
    form.organisation = Ansi(u8"院");
    form.address = "a";
    WireBytes expected;
    expected
        .U32(870103)  // code
        .U32(242)     // total: 60, ten blocks and items of 16, 22 of text
        .U32(1)       // item count
        .U32(1)       // favourite
        .U32(0);      // structured flag
    NewBlock(expected, "林");
    NewBlock(expected, "zh");
    NewBlock(expected, "n");
    NewItem(expected.U32(2), 2, "111");       // phones
    NewItem(expected, 0, "333");              // a type that the combo lacks
    expected.U32(0);                          // groups
    NewItem(expected.U32(1), 1, "\xD3\xCA");  // e-mail, as it stands in the field: GBK
    NewItem(expected.U32(1), 3, "sky");       // im
    NewItem(expected.U32(1), 0, "w");         // website
    NewItem(expected.U32(1), 0, "a");         // address
    NewItem(expected.U32(1), 0, "院");        // organisation: UTF-8
    EXPECT_EQ(AddContactRequest(RecordToAdd(form).value()), expected.Get());
}

TEST(ContactRequests, TotalOfANewContactIs60And16ForEachBlockAndItem) {
    ContactForm form;
    form.name = "A";
    EXPECT_EQ(TotalOf(AddContactRequest(RecordToAdd(form).value())), 20u + 4 * (3 + 7) + 16 + 1);
    form.phones[0].text = "12345";
    EXPECT_EQ(TotalOf(AddContactRequest(RecordToAdd(form).value())),
              20u + 4 * (3 + 7) + 16 + 1 + 16 + 5);
}

TEST(ContactRequests, ChangedContactIsExactToTheByte) {
    ContactRecord loaded;
    loaded.id = 7;
    loaded.structured = {true, ContactItemOp::leave, 69, "L Y"};
    loaded.name = {true, ContactItemOp::leave, 70, "L"};
    loaded.nickname = {true, ContactItemOp::leave, 71, "z"};
    loaded.phones = {{80, ContactItemOp::leave, 2, "111"},
                     {81, ContactItemOp::leave, 3, "222"},
                     {82, ContactItemOp::leave, 1, ""},
                     {83, ContactItemOp::leave, 7, "444"}};
    loaded.groups = {{90, ContactItemOp::leave, 0, Ansi(u8"友")}};
    ContactForm form = FormOf(loaded);
    form.favourite = true;
    form.nickname.clear();
    form.note = Ansi(u8"注");
    form.phones[1].text.clear();
    form.phones[2].text = "333";
    form.website = Ansi(u8"网");
    form.organisation = Ansi(u8"院");
    WireBytes expected;
    expected
        .U32(870104)                                   // code
        .U32(334)                                      // total: 71, twelve of 20, 23 of text
        .U32(1)                                        // item count
        .U32(7)                                        // contact id
        .U32(1)                                        // favourite
        .U32(1)                                        // structured flag
        .Text("L Y");                                  // structured text
    Block(expected, 70, 2, "L");                       // name: update
    expected.U32(0);                                   // nickname, cleared: no block
    Block(expected, 0, 0, "注");                       // note: add, UTF-8
    Item(expected.U32(4), 80, 2, 2, "111");            // phones: update, though unchanged
    Item(expected, 81, 1, 3, "222");                   // remove, with its old text
    Item(expected, kNewRow, 0, 1, "333");              // an empty row that is filled is a new one
    Item(expected, 83, 3, 7, "444");                   // leave alone
    Item(expected.U32(1), 90, 3, 0, "\xD3\xD1");       // group, as it stands in memory: GBK
    EmptyControl(expected);                            // e-mail
    EmptyControl(expected);                            // im
    Item(expected.U32(1), kNewRow, 0, 0, "网");        // website: UTF-8
    EmptyControl(expected);                            // address
    Item(expected.U32(1), kNewRow, 0, 0, "\xD4\xBA");  // organisation, as in the field: GBK
    EXPECT_EQ(UpdateContactRequest(RecordToUpdate(loaded, form)), expected.Get());
}

TEST(ContactRequests, StructuredTextGoesBackAsTheLoadFoundIt) {
    // With characters that the code page has, has not, and that are none.
    const std::string structured = "林 \xF0\x9F\x8E\x88 \xFF";
    WireBytes reply = ContactStart(7);
    reply
        .U32(1)   // structured flag
        .U64(69)  // structured row id
        .U32(0)   // reserved
        .Text(structured);
    AddEmptyLists(reply.U32(0).U32(0).U32(0));  // flags, counts
    const ContactRecord loaded = ParseContact(reply.Buffer()).value();
    const Bytes request = UpdateContactRequest(RecordToUpdate(loaded, FormOf(loaded)));
    WireBytes start;
    start
        .U32(870104)            // code
        .U32(TotalOf(request))  // total
        .U32(1)                 // item count
        .U32(7)                 // contact id
        .U32(0)                 // favourite
        .U32(1)                 // structured flag
        .Text(structured);
    EXPECT_TRUE(std::ranges::equal(start.Get(), std::span(request).first(start.Get().size())));
}

TEST(ContactRequests, TotalOfAChangedContactIs64And20ForEachBlockAndItem) {
    // Three phone slots and five single ones, all empty items of op 3.
    EXPECT_EQ(TotalOf(UpdateContactRequest(RecordToUpdate({}, {}))),
              24u + 4 * (3 + 7) + 20 * (3 + 5));
    ContactRecord structured;
    structured.structured = {true, ContactItemOp::leave, 1, "abc"};
    EXPECT_EQ(TotalOf(UpdateContactRequest(RecordToUpdate(structured, {}))),
              24u + 4 + 3 + 4 * (3 + 7) + 20 * (3 + 5));
}

TEST(ContactRequests, ContactThatCouldNotBeLoadedGoesOutAsNewRows) {
    ContactRecord loaded;
    loaded.id = 7;  // what the editor was opened for
    ContactForm form;
    form.name = "A";
    form.phones[0].text = "111";
    const Bytes request = UpdateContactRequest(RecordToUpdate(loaded, form));
    WireBytes start;
    start
        .U32(870104)                           // code
        .U32(24 + 4 * 10 + 20 * 9 + 4)         // total
        .U32(1)                                // item count
        .U32(7)                                // contact id
        .U32(0)                                // favourite
        .U32(0);                               // structured flag
    Block(start, 0, 0, "A").U32(0).U32(0);     // name: add; nickname, note
    Item(start.U32(3), kNewRow, 0, 2, "111");  // phones: add
    ASSERT_GE(request.size(), start.Get().size());
    EXPECT_TRUE(std::ranges::equal(start.Get(), std::span(request).first(start.Get().size())));
}

TEST(ContactRequests, RowIdOfASingleFieldIsSentAsItIs) {
    ContactRecord record;
    record.name = {true, ContactItemOp::update, 0x80000001, "A"};
    const Bytes request = UpdateContactRequest(record);
    // Code, total, item count, contact id, favourite, structured flag, name flag.
    constexpr std::size_t kNameRow = 28;
    EXPECT_EQ(ReadUInt64(request.data() + kNameRow), 0x80000001u);
}

TEST(ContactRequests, IdAbove31BitsCarriesItsSignIntoTheHighWord) {
    ContactRecord record;
    record.phones = {{0x80000001, ContactItemOp::leave, 0, ""}};
    const Bytes request = UpdateContactRequest(record);
    // Code, total, item count, contact id, favourite, four flags, count of the phones.
    constexpr std::size_t kFirstItem = 40;
    EXPECT_EQ(ReadUInt64(request.data() + kFirstItem), 0xFFFFFFFF80000001u);
}

}  // namespace
}  // namespace quorvi

#include <gmock/gmock.h>

#include "tests/support/Ask.h"

namespace quorvi::phone {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What an update is to do with a row.
constexpr std::uint32_t kAdd = 0;
constexpr std::uint32_t kRemove = 1;
constexpr std::uint32_t kUpdate = 2;
constexpr std::uint32_t kLeave = 3;

constexpr std::uint64_t kNewRow = ~std::uint64_t{0};

class ContactCommands : public testing::Test {
  protected:
    Outcome AskFor(const Bytes& request) { return Ask(data_, request); }

    [[nodiscard]] Contact& Last() { return data_.book.contacts.back(); }

    // A new contact whose lists hold nothing.
    static RequestBuilder NewContact(std::string_view name) {
        RequestBuilder request(AgentCommand::addContact);
        request.BeginItem()
            .AddUInt32(0)  // favourite
            .AddUInt32(0)  // structured flag
            .AddUInt32(1)  // name flag
            .AddUInt64(0)  // row
            .AddUInt32(0)  // reserved
            .AddRawText(name)
            .AddUInt32(0)   // nickname flag
            .AddUInt32(0);  // note flag
        return request;
    }

    static RequestBuilder& AddEmptyLists(RequestBuilder& request, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            request.AddUInt32(0);
        }
        return request;
    }

    // An update of a contact up to its lists: the name as given, no nickname, no note.
    static RequestBuilder Update(std::uint64_t id, const ContactText& name) {
        RequestBuilder request(AgentCommand::updateContact);
        request.BeginItem()
            .AddUInt32(static_cast<std::uint32_t>(id))
            .AddUInt32(1)  // favourite
            .AddUInt32(0)  // structured flag
            .AddUInt32(1)  // name flag
            .AddUInt64(name.row)
            .AddUInt32(kUpdate)
            .AddUInt32(0)  // reserved
            .AddRawText(name.text)
            .AddUInt32(0)   // nickname flag
            .AddUInt32(0);  // note flag
        return request;
    }

    // A row of an update's list.
    static RequestBuilder& AddRow(RequestBuilder& request, std::uint64_t row,
                                  std::uint32_t operation, std::uint32_t type,
                                  std::string_view text) {
        return request.AddUInt64(row).AddUInt32(operation).AddUInt32(type).AddRawText(text);
    }

    Handset handset_{DeliveredProfile(0)};
    AgentData data_{handset_};
};

TEST_F(ContactCommands, ListHoldsEveryContactOnce) {
    const ReplyBuffer reply = PayloadOf(AskFor(BareRequest(AgentCommand::listContacts)));
    ReplyCursor cursor(reply);
    std::size_t count = 0;
    std::size_t photos = 0;
    do {
        EXPECT_EQ(cursor.TakeUInt64(), data_.book.contacts[count].id);
        cursor.SkipBytes(8);
        EXPECT_EQ(cursor.TakeUtf8(), data_.book.contacts[count].Name());
        cursor.SkipBytes(4);
        EXPECT_TRUE(cursor.TakeUtf8());
        cursor.SkipBytes(8 + 4);
        if (cursor.TakeUInt32() == 1) {
            ++photos;
            cursor.SkipBytes(cursor.TakeUInt64());
        }
        ++count;
    } while (!cursor.AtEnd());
    EXPECT_FALSE(cursor.Overran());
    EXPECT_EQ(count, data_.book.contacts.size());
    EXPECT_EQ(photos, 8u);
}

TEST_F(ContactCommands, APhoneWithoutContactsHasNoData) {
    data_.Fill({.contacts = 0});
    EXPECT_TRUE(IsNoData(AskFor(BareRequest(AgentCommand::listContacts))));
}

TEST_F(ContactCommands, ReadsOneContactWhole) {
    const ReplyBuffer reply = PayloadOf(
        AskFor(RequestBuilder(AgentCommand::readContact).BeginItem().AddUInt32(1).Take()));
    ReplyCursor cursor(reply);
    EXPECT_EQ(cursor.TakeUInt64(), 1u);
    EXPECT_EQ(cursor.TakeUInt32(), 1u);   // favourite
    EXPECT_NE(cursor.TakeUInt64(), 0u);   // last contact
    EXPECT_EQ(cursor.TakeUInt64(), 27u);  // times contacted
    EXPECT_EQ(cursor.TakeUInt32(), 1u);   // has a photo
    cursor.SkipBytes(8);
    EXPECT_EQ(cursor.TakeBlob()->size(), data_.book.contacts[0].photo->size());
    for (const char8_t* text :
         {u8"林远舟", u8"林远舟", u8"阿舟", u8"喜欢地图和老相机，十月生日。"}) {
        EXPECT_EQ(cursor.TakeUInt32(), 1u);
        cursor.SkipBytes(8 + 4);
        EXPECT_EQ(cursor.TakeUtf8(), std::string(reinterpret_cast<const char*>(text)));
    }
    std::vector<std::uint32_t> counts;
    for (std::size_t list = 0; list < kContactLists; ++list) {
        counts.push_back(cursor.TakeUInt32());
        for (std::uint32_t i = 0; i < counts.back(); ++i) {
            cursor.SkipBytes(8 + 4);
            cursor.SkipText();
        }
    }
    EXPECT_THAT(counts, ElementsAre(2, 2, 1, 1, 1, 1, 1));
    EXPECT_TRUE(cursor.AtEnd());
    EXPECT_FALSE(cursor.Overran());
}

TEST_F(ContactCommands, AnUnknownContactHasNoData) {
    EXPECT_TRUE(IsNoData(
        AskFor(RequestBuilder(AgentCommand::readContact).BeginItem().AddUInt32(9999).Take())));
}

TEST_F(ContactCommands, AnAddedContactIsThere) {
    RequestBuilder request = NewContact("new");
    request
        .AddUInt32(1)  // phones
        .AddUInt64(0)
        .AddUInt32(2)
        .AddRawText("13800138000");
    const Outcome outcome = AskFor(AddEmptyLists(request, 6).Take());
    EXPECT_THAT(outcome.deviations, IsEmpty());
    EXPECT_EQ(Last().Name(), "new");
    ASSERT_EQ(Last().List(ContactList::phones).size(), 1u);
    EXPECT_EQ(Last().List(ContactList::phones)[0].type, 2);
    EXPECT_NE(Last().List(ContactList::phones)[0].row, 0u);
}

TEST_F(ContactCommands, AnAddedContactThatIsCutShortIsNamedAndNotTaken) {
    const std::size_t before = data_.book.contacts.size();
    RequestBuilder request = NewContact("new");
    request.AddUInt32(3);  // phones that do not follow
    const Outcome outcome = AskFor(request.Take());
    EXPECT_THAT(outcome.deviations,
                ElementsAre("the frame ends before the fields of its 1 items do"));
    EXPECT_EQ(data_.book.contacts.size(), before);
}

TEST_F(ContactCommands, BytesBehindTheLastListAreNamed) {
    RequestBuilder request = NewContact("new");
    AddEmptyLists(request, 7).AddUInt32(0);
    EXPECT_THAT(AskFor(request.Take()).deviations,
                ElementsAre("4 bytes are left behind the last field"));
}

TEST_F(ContactCommands, MoreThanOneItemIsNamed) {
    RequestBuilder request = NewContact("new");
    request.BeginItem();
    AddEmptyLists(request, 7);
    EXPECT_THAT(AskFor(request.Take()).deviations, ElementsAre("item count 2 for a single object"));
}

TEST_F(ContactCommands, AnUpdateAddsChangesAndRemovesRows) {
    Contact& contact = data_.book.contacts[0];
    const auto phones = contact.List(ContactList::phones);
    RequestBuilder request = Update(contact.id, *contact.name);
    request.AddUInt32(3);  // phones
    AddRow(request, phones[0].row, kRemove, 2, phones[0].text);
    AddRow(request, phones[1].row, kUpdate, 1, "02012345678");
    AddRow(request, kNewRow, kAdd, 3, "110");
    const Outcome outcome = AskFor(AddEmptyLists(request, 6).Take());
    EXPECT_THAT(outcome.deviations, IsEmpty());
    const auto& changed = contact.List(ContactList::phones);
    ASSERT_EQ(changed.size(), 2u);
    EXPECT_EQ(changed[0].row, phones[1].row);
    EXPECT_EQ(changed[0].text, "02012345678");
    EXPECT_EQ(changed[0].type, 1);
    EXPECT_EQ(changed[1].text, "110");
    EXPECT_GT(changed[1].row, phones[1].row);
}

TEST_F(ContactCommands, RowsThatAnUpdateLeavesAloneOrDoesNotNameStay) {
    Contact& contact = data_.book.contacts[3];
    const auto phones = contact.List(ContactList::phones);
    RequestBuilder request = Update(contact.id, *contact.name);
    request.AddUInt32(1);  // phones
    AddRow(request, phones[4].row, kLeave, 0, "ignored");
    EXPECT_THAT(AskFor(AddEmptyLists(request, 6).Take()).deviations, IsEmpty());
    EXPECT_EQ(contact.List(ContactList::phones).size(), 5u);
    EXPECT_EQ(contact.List(ContactList::phones)[4].text, phones[4].text);
    EXPECT_EQ(contact.List(ContactList::emails).size(), 2u);
}

TEST_F(ContactCommands, AFieldWhoseFlagIsZeroIsCleared) {
    Contact& contact = data_.book.contacts[0];
    ASSERT_TRUE(contact.nickname);
    RequestBuilder request = Update(contact.id, *contact.name);
    AskFor(AddEmptyLists(request, 7).Take());
    EXPECT_FALSE(contact.nickname);
    EXPECT_FALSE(contact.note);
    EXPECT_TRUE(contact.structured);
}

TEST_F(ContactCommands, ARowThatIsNotThereIsNamed) {
    Contact& contact = data_.book.contacts[0];
    RequestBuilder request = Update(contact.id, *contact.name);
    request.AddUInt32(2);  // phones
    AddRow(request, 99999, kUpdate, 2, "1");
    AddRow(request, 0, kAdd, 2, "2");  // with no id of a new row
    EXPECT_THAT(AskFor(AddEmptyLists(request, 6).Take()).deviations,
                ElementsAre("no row 99999", "a row to add has the id 0"));
}

TEST_F(ContactCommands, AnUnknownOperationIsNamed) {
    Contact& contact = data_.book.contacts[0];
    RequestBuilder request = Update(contact.id, *contact.name);
    request.AddUInt32(1);  // phones
    AddRow(request, 1, 4, 2, "1");
    EXPECT_THAT(AskFor(AddEmptyLists(request, 6).Take()).deviations, ElementsAre("operation 4"));
}

TEST_F(ContactCommands, DeletesEachContactNamed) {
    const std::size_t before = data_.book.contacts.size();
    RequestBuilder request(AgentCommand::deleteContacts);
    request.BeginItem().AddUInt32(1).BeginItem().AddUInt32(3);
    EXPECT_THAT(AskFor(request.Take()).deviations, IsEmpty());
    EXPECT_EQ(data_.book.contacts.size(), before - 2);
    EXPECT_FALSE(data_.book.Find(1));
    EXPECT_FALSE(data_.book.Find(3));
}

TEST_F(ContactCommands, FewerIdsThanItemsAreNamed) {
    RequestBuilder request(AgentCommand::deleteContacts);
    request.BeginItem().BeginItem().AddUInt32(1);
    EXPECT_THAT(AskFor(request.Take()).deviations,
                ElementsAre("the frame ends before the fields of its 2 items do"));
}

TEST_F(ContactCommands, ALargeListHasItsPhotosInFull) {
    data_.Fill({.contacts = 50, .photoBytes = 20'000});
    const Outcome outcome = AskFor(BareRequest(AgentCommand::listContacts));
    EXPECT_GT(outcome.reply.bytes.size(), 50u * 20'000u);
    EXPECT_NE(*data_.book.contacts[0].photo, *data_.book.contacts[1].photo);
}

TEST_F(ContactCommands, TheDeliveredContactsHaveEveryKindOfItem) {
    std::array<std::size_t, kContactLists> most{};
    for (const Contact& contact : data_.book.contacts) {
        for (std::size_t list = 0; list < kContactLists; ++list) {
            most[list] = std::max(most[list], contact.lists[list].size());
        }
    }
    EXPECT_THAT(most, ElementsAre(5, 2, 2, 2, 2, 2, 2));
}

}  // namespace
}  // namespace quorvi::phone

#include <gtest/gtest.h>

#include "base/Text.h"
#include "base/Utf8.h"
#include "pages/contacts/ContactForm.h"

namespace quorvi {
namespace {

using namespace std::string_literals;

ContactItem Loaded(std::uint32_t id, std::int32_t type, std::u8string_view text) {
    return {id, ContactItemOp::leave, type, Ansi(text)};
}

void ExpectItem(const ContactItem& item, std::uint32_t id, ContactItemOp op, std::int32_t type,
                const std::string& text) {
    EXPECT_EQ(item.id, id);
    EXPECT_EQ(item.op, op);
    EXPECT_EQ(item.type, type);
    EXPECT_EQ(item.text, text);
}

// A contact as it comes from the phone.
ContactRecord Record() {
    ContactRecord record;
    record.id = 7;
    record.name = {true, ContactItemOp::leave, 70, Ansi(u8"林远舟")};
    record.nickname = {true, ContactItemOp::leave, 71, Ansi(u8"阿舟")};
    record.phones = {Loaded(80, 2, u8"111"), Loaded(81, 3, u8"222"), Loaded(82, 1, u8"333"),
                     Loaded(83, 7, u8"444"), Loaded(84, 7, u8"555")};
    record.groups = {Loaded(90, 0, u8"朋友")};
    record.emails = {Loaded(91, 1, u8"a@example.com"), Loaded(92, 2, u8"b@example.com")};
    return record;
}

// A form with `text` in every field.
ContactForm FilledWith(const std::string& text) {
    ContactForm form;
    for (std::string* field :
         {&form.name, &form.nickname, &form.note, &form.phones[0].text, &form.phones[1].text,
          &form.phones[2].text, &form.im.text, &form.email.text, &form.website, &form.organisation,
          &form.address}) {
        *field = text;
    }
    return form;
}

TEST(ContactForm, OpensWithMobileWorkHomeQqAndHomeMail) {
    const ContactForm form;
    EXPECT_EQ(form.phones[0].type, 2);
    EXPECT_EQ(form.phones[1].type, 3);
    EXPECT_EQ(form.phones[2].type, 1);
    EXPECT_EQ(form.im.type, 4);
    EXPECT_EQ(form.email.type, 1);
}

TEST(ContactForm, ShowsTheFirstThreePhonesAndTheFirstOfEachOtherList) {
    ContactRecord record = Record();
    record.favourite = true;
    record.note = {true, ContactItemOp::leave, 72, Ansi(u8"备忘")};
    record.ims = {Loaded(93, 5, u8"talk"), Loaded(94, 4, u8"qq")};
    record.websites = {Loaded(95, 0, u8"w1"), Loaded(96, 0, u8"w2")};
    record.addresses = {Loaded(97, 1, u8"a1")};
    record.organisations = {Loaded(98, 1, u8"o1")};
    const ContactForm form = FormOf(record);
    EXPECT_TRUE(form.favourite);
    EXPECT_EQ(form.name, Ansi(u8"林远舟"));
    EXPECT_EQ(form.nickname, Ansi(u8"阿舟"));
    EXPECT_EQ(form.note, Ansi(u8"备忘"));
    EXPECT_EQ(form.phones[2].text, "333");
    EXPECT_EQ(form.phones[2].type, 1);
    EXPECT_EQ(form.im.text, "talk");
    EXPECT_EQ(form.im.type, 5);
    EXPECT_EQ(form.email.text, "a@example.com");
    EXPECT_EQ(form.website, "w1");
    EXPECT_EQ(form.address, "a1");
    EXPECT_EQ(form.organisation, "o1");
}

TEST(ContactForm, FieldOfAnAbsentFlagIsNotShown) {
    ContactRecord record = Record();
    record.nickname.present = false;
    EXPECT_EQ(FormOf(record).nickname, "");
}

TEST(ContactForm, EmptyNameIsRefusedForANewContactAndBlanksAreNot) {
    ContactForm form;
    EXPECT_FALSE(RecordToAdd(form));
    form.name = "  ";
    EXPECT_TRUE(RecordToAdd(form));
}

TEST(ContactForm, NewContactHoldsOnlyWhatIsFilledIn) {
    ContactForm form;
    form.name = "A";
    form.phones[1].text = "222";
    const ContactRecord record = RecordToAdd(form).value();
    EXPECT_TRUE(record.name.present);
    EXPECT_FALSE(record.nickname.present);
    EXPECT_FALSE(record.note.present);
    ASSERT_EQ(record.phones.size(), 1u);
    ExpectItem(record.phones[0], kNewContactItem, ContactItemOp::add, 3, "222");
    for (const auto* items : {&record.groups, &record.emails, &record.ims, &record.websites,
                              &record.addresses, &record.organisations}) {
        EXPECT_TRUE(items->empty());
    }
}

TEST(ContactForm, NewContactConvertsAllButPhonesImAndMail) {
    const std::string ansi = Ansi(u8"舟");
    const ContactRecord record = RecordToAdd(FilledWith(ansi)).value();
    for (const std::string& text :
         {record.name.text, record.nickname.text, record.note.text, record.websites.at(0).text,
          record.organisations.at(0).text, record.addresses.at(0).text}) {
        EXPECT_EQ(text, Utf8(u8"舟"));
    }
    for (const std::string& text :
         {record.phones.at(0).text, record.ims.at(0).text, record.emails.at(0).text}) {
        EXPECT_EQ(text, ansi);
    }
}

TEST(ContactForm, ChangedContactConvertsOnlySingleFieldsAndTheWebsite) {
    const std::string ansi = Ansi(u8"舟");
    const ContactRecord record = RecordToUpdate({}, FilledWith(ansi));
    for (const std::string& text :
         {record.name.text, record.nickname.text, record.note.text, record.websites.at(0).text}) {
        EXPECT_EQ(text, Utf8(u8"舟"));
    }
    for (const std::string& text :
         {record.phones.at(0).text, record.ims.at(0).text, record.emails.at(0).text,
          record.organisations.at(0).text, record.addresses.at(0).text}) {
        EXPECT_EQ(text, ansi);
    }
}

TEST(ContactForm, SingleFieldIsUpdatedWhenItWasThereAndAddedWhenNot) {
    ContactForm form = FormOf(Record());
    form.note = "n";
    const ContactRecord record = RecordToUpdate(Record(), form);
    EXPECT_TRUE(record.name.present);
    EXPECT_EQ(record.name.op, ContactItemOp::update);
    EXPECT_EQ(record.name.id, 70u);
    EXPECT_EQ(record.name.text, Utf8(u8"林远舟"));
    EXPECT_TRUE(record.note.present);
    EXPECT_EQ(record.note.op, ContactItemOp::add);
    EXPECT_EQ(record.note.id, 0u);
}

TEST(ContactForm, ClearedNicknameLosesItsFlagAndKeepsItsOperationUnsent) {
    ContactForm form = FormOf(Record());
    form.nickname.clear();
    const ContactRecord record = RecordToUpdate(Record(), form);
    EXPECT_FALSE(record.nickname.present);
    EXPECT_EQ(record.nickname.op, ContactItemOp::remove);
}

TEST(ContactForm, EmptyNameIsSavedForAChangedContact) {
    ContactForm form = FormOf(Record());
    form.name.clear();
    EXPECT_FALSE(RecordToUpdate(Record(), form).name.present);
}

TEST(ContactForm, ClearedPhoneGoesOutAsRemovedWithItsOldText) {
    ContactForm form = FormOf(Record());
    form.phones[1] = {7, ""};
    const ContactRecord record = RecordToUpdate(Record(), form);
    ExpectItem(record.phones.at(1), 81, ContactItemOp::remove, 3, "222");
}

TEST(ContactForm, ChangedPhoneKeepsItsIdAndTakesTheTypeOfItsCombo) {
    ContactForm form = FormOf(Record());
    form.phones[0] = {6, "999"};
    const ContactRecord record = RecordToUpdate(Record(), form);
    ExpectItem(record.phones.at(0), 80, ContactItemOp::update, 6, "999");
}

TEST(ContactForm, PhoneLeftAsItIsCountsAsUpdated) {
    const ContactRecord record = RecordToUpdate(Record(), FormOf(Record()));
    ExpectItem(record.phones.at(0), 80, ContactItemOp::update, 2, "111");
}

TEST(ContactForm, FilledPhoneSlotIsANewRow) {
    ContactRecord loaded;
    loaded.phones = {Loaded(80, 2, u8"111")};
    ContactForm form = FormOf(loaded);
    form.phones[1].text = "222";
    const ContactRecord record = RecordToUpdate(loaded, form);
    ASSERT_EQ(record.phones.size(), 3u);
    ExpectItem(record.phones[1], kNewContactItem, ContactItemOp::add, 3, "222");
    ExpectItem(record.phones[2], 0, ContactItemOp::leave, 0, "");
}

TEST(ContactForm, FilledSlotOfARowWithoutTextIsANewRow) {
    ContactRecord loaded;
    loaded.emails = {Loaded(91, 2, u8"")};
    ContactForm form = FormOf(loaded);
    form.email.text = "a@example.com";
    const ContactRecord record = RecordToUpdate(loaded, form);
    ASSERT_EQ(record.emails.size(), 1u);
    ExpectItem(record.emails[0], kNewContactItem, ContactItemOp::add, 2, "a@example.com");
}

TEST(ContactForm, RowsThatTheEditorDoesNotShowAreLeftAlone) {
    const ContactRecord record = RecordToUpdate(Record(), FormOf(Record()));
    ASSERT_EQ(record.phones.size(), 5u);
    ExpectItem(record.phones[3], 83, ContactItemOp::leave, 7, "444");
    ExpectItem(record.phones[4], 84, ContactItemOp::leave, 7, "555");
    ExpectItem(record.emails.at(1), 92, ContactItemOp::leave, 2, "b@example.com");
    ExpectItem(record.groups.at(0), 90, ContactItemOp::leave, 0, Ansi(u8"朋友"));
}

TEST(ContactForm, EachControlHasAnItemEvenWhenBothAreEmpty) {
    const ContactRecord record = RecordToUpdate({}, {});
    EXPECT_EQ(record.phones.size(), 3u);
    EXPECT_EQ(record.groups.size(), 0u);
    for (const auto* items : {&record.ims, &record.emails, &record.websites, &record.organisations,
                              &record.addresses}) {
        ASSERT_EQ(items->size(), 1u);
        ExpectItem(items->front(), 0, ContactItemOp::leave, 0, "");
    }
}

TEST(ContactForm, TypeThatTheComboLacksIsLost) {
    ContactRecord loaded;
    loaded.phones = {Loaded(80, 19, u8"111")};
    loaded.ims = {Loaded(81, 77, u8"talk")};
    const ContactRecord record = RecordToUpdate(loaded, FormOf(loaded));
    EXPECT_EQ(record.phones.at(0).type, 0);
    EXPECT_EQ(record.ims.at(0).type, -1);
}

TEST(ContactForm, AddressAndOrganisationAreSavedWithType0) {
    ContactRecord loaded;
    loaded.addresses = {Loaded(80, 2, u8"a")};
    loaded.organisations = {Loaded(81, 1, u8"o")};
    const ContactRecord record = RecordToUpdate(loaded, FormOf(loaded));
    ExpectItem(record.addresses.at(0), 80, ContactItemOp::update, 0, "a");
    ExpectItem(record.organisations.at(0), 81, ContactItemOp::update, 0, "o");
}

TEST(ContactForm, SavingOverWhatWasNotReadIsARisk) {
    const auto risk = [](SessionOutcome outcome, std::optional<ContactRecord> record) {
        return RiskOfSaving({outcome, std::move(record)});
    };
    const std::u8string_view notRead = u8"没有读全原有的资料，保存可能会覆盖它们";
    EXPECT_EQ(risk(SessionOutcome::complete, Record()), u8"");
    EXPECT_EQ(risk(SessionOutcome::cut, Record()), notRead);
    for (const auto outcome :
         {SessionOutcome::complete, SessionOutcome::cut, SessionOutcome::noReply,
          SessionOutcome::connectFailed, SessionOutcome::receiveFailed}) {
        EXPECT_EQ(risk(outcome, std::nullopt), notRead) << static_cast<int>(outcome);
    }
    EXPECT_EQ(risk(SessionOutcome::noData, std::nullopt), u8"");  // there is nothing to overwrite
}

TEST(ContactForm, ChangingATextWithCharactersThatTheCodePageLacksIsARisk) {
    ContactRecord record = Record();
    record.charactersLost = true;
    EXPECT_EQ(RiskOfSaving({SessionOutcome::complete, record}),
              u8"有些字符显示成“?”，改动那一栏后手机上也是“?”");
}

// A text that the code page lacks a character of and that is no UTF-8, with every kind of line end.
const std::string kOddBytes = "a\xF0\x9F\x8E\x88\xFF\r\nb\rc\nd\0e\xE2\x80\xA8\t"s;

// A row as a load makes it.
ContactItem Came(std::uint32_t id, const std::string& utf8) {
    return {id, ContactItemOp::leave, 1, ToAnsi(utf8), utf8};
}

// A contact with the same text everywhere.
ContactRecord EveryTextIs(const std::string& utf8) {
    ContactRecord record;
    std::uint32_t id = 70;
    for (ContactField* field : {&record.name, &record.nickname, &record.note}) {
        *field = {true, ContactItemOp::leave, id++, ToAnsi(utf8), utf8};
    }
    for (const ContactRecord::List list : kContactLists) {
        for (int i = 0; i < 4; ++i) {
            (record.*list).push_back(Came(id++, utf8));
        }
    }
    return record;
}

TEST(ContactForm, UnchangedTextGoesBackInTheVeryBytesThatCame) {
    const ContactRecord loaded = EveryTextIs(kOddBytes);
    const ContactRecord record = RecordToUpdate(loaded, FormOf(loaded));
    for (const ContactField* field : {&record.name, &record.nickname, &record.note}) {
        EXPECT_EQ(field->text, kOddBytes);
    }
    for (const ContactRecord::List list : kContactLists) {
        for (const ContactItem& item : record.*list) {
            EXPECT_EQ(item.text, kOddBytes) << item.id;
        }
    }
}

TEST(ContactForm, RemovedTextGoesOutInTheVeryBytesThatCame) {
    const ContactRecord loaded = EveryTextIs(kOddBytes);
    ContactForm form = FormOf(loaded);
    form.phones[1].text.clear();
    const ContactRecord record = RecordToUpdate(loaded, form);
    ExpectItem(record.phones.at(1), loaded.phones.at(1).id, ContactItemOp::remove, 1, kOddBytes);
}

TEST(ContactForm, ChangedTextGoesOutAsItStandsInTheForm) {
    const ContactRecord loaded = EveryTextIs(kOddBytes);
    const ContactRecord record = RecordToUpdate(loaded, FilledWith(Ansi(u8"舟?")));
    for (const ContactField* field : {&record.name, &record.nickname, &record.note}) {
        EXPECT_EQ(field->text, Utf8(u8"舟?"));
    }
    EXPECT_EQ(record.websites.at(0).text, Utf8(u8"舟?"));
    for (const auto* items :
         {&record.phones, &record.emails, &record.ims, &record.addresses, &record.organisations}) {
        EXPECT_EQ(items->at(0).text, Ansi(u8"舟?"));
    }
}

TEST(ContactForm, UnchangedOrganisationThatTheCodePageHoldsGoesOutAsItStandsInTheField) {
    const ContactRecord loaded = EveryTextIs(Utf8(u8"舟"));
    const ContactRecord record = RecordToUpdate(loaded, FormOf(loaded));
    EXPECT_EQ(record.organisations.at(0).text, Ansi(u8"舟"));
    EXPECT_EQ(record.websites.at(0).text, Utf8(u8"舟"));
}

TEST(ContactForm, FavouriteIsTheTickBoxs) {
    ContactForm form;
    form.name = "A";
    form.favourite = true;
    EXPECT_TRUE(RecordToAdd(form)->favourite);
    ContactRecord loaded;
    loaded.favourite = true;
    EXPECT_FALSE(RecordToUpdate(loaded, {}).favourite);
}

}  // namespace
}  // namespace quorvi

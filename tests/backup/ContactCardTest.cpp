#include <gmock/gmock.h>

#include "backup/Base64.h"
#include "backup/Charset.h"
#include "backup/ContactCard.h"
#include "base/Text.h"
#include "tests/backup/Cards.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ContactItem Loaded(std::int32_t type, std::string came) {
    return {1, ContactItemOp::leave, type, ToAnsi(came), came};
}

TEST(CardOfRecord, HoldsTheBytesThatCameAndNotThoseOfTheCodePage) {
    ContactRecord record;
    record.name = {true, ContactItemOp::leave, 1, "?", "😀"};
    record.phones = {Loaded(2, "13800138000")};
    record.groups = {Loaded(7, "家人")};
    const ContactCard card = CardOf(record, "photo");
    EXPECT_EQ(card.name, "😀");
    EXPECT_THAT(card.phones, ElementsAre(CardItem{2, "13800138000"}));
    EXPECT_THAT(card.groups, ElementsAre("家人"));
    EXPECT_EQ(card.photo, "photo");
}

TEST(CardOfRecord, AFieldThatIsNotPresentIsEmpty) {
    ContactRecord record;
    record.nickname = {false, ContactItemOp::leave, 1, "x", "x"};
    EXPECT_EQ(CardOf(record).nickname, "");
}

TEST(CardOfRecord, LeavesOutItemsOfNoMoreThanBlanks) {
    ContactRecord record;
    record.phones = {Loaded(2, ""), Loaded(2, "  ")};
    EXPECT_THAT(CardOf(record).phones, IsEmpty());
}

TEST(CardTexts, LinesEndWithLineFeedsAndControlsAreLeftOut) {
    EXPECT_EQ(CardText("a\r\nb\rc\nd\te\x01\x7F"
                       "f"),
              "a\nb\nc\nd\tef");
    EXPECT_EQ(CardText(std::string_view("a\0b", 3)), "ab");
}

TEST(CardTexts, WhatIsNoUtf8IsReplaced) {
    EXPECT_EQ(CardText("a\xFF"
                       "b"),
              "a\uFFFDb");
    EXPECT_EQ(CardText("\xED\xA0\x80x").back(), 'x');
}

TEST(RecordOfCard, GoesOutInUtf8WithAllItsItems) {
    const auto record = RecordOf(test::FullCard());
    ASSERT_TRUE(record);
    EXPECT_TRUE(record->favourite);
    EXPECT_EQ(record->name.text, "张三丰");
    EXPECT_TRUE(record->name.present);
    EXPECT_EQ(record->phones.size(), test::FullCard().phones.size());
    EXPECT_EQ(record->ims.back().type, 42);
    EXPECT_EQ(record->addresses.front().text, "北京市海淀区中关村大街 1 号, 100080");
    EXPECT_THAT(record->groups, IsEmpty());
    EXPECT_FALSE(record->structured.present);
}

TEST(RecordOfCard, LabelsGoIntoTheNote) {
    ContactCard card;
    card.name = "a";
    card.note = "b";
    card.phones = {{0, "1", "女儿"}, {2, "2"}};
    EXPECT_EQ(RecordOf(card)->note.text, "b\n女儿：1");
}

TEST(RecordOfCard, ANamelessCardGoesByWhatElseItHas) {
    ContactCard card;
    EXPECT_FALSE(RecordOf(card));
    card.emails = {{1, "a@example.com"}};
    EXPECT_EQ(RecordOf(card)->name.text, "a@example.com");
    card.phones = {{2, "138"}};
    EXPECT_EQ(RecordOf(card)->name.text, "138");
    card.organisations = {{0, "Example"}};
    EXPECT_EQ(RecordOf(card)->name.text, "Example");
    card.nickname = "Bo";
    EXPECT_EQ(RecordOf(card)->name.text, "Bo");
}

TEST(RecordOfCard, FieldsThatAreEmptyAreNotSent) {
    ContactCard card;
    card.name = "a";
    EXPECT_FALSE(RecordOf(card)->nickname.present);
    EXPECT_FALSE(RecordOf(card)->note.present);
}

TEST(Base64, HoldsBytesOfAnyLength) {
    EXPECT_EQ(ToBase64(""), "");
    EXPECT_EQ(ToBase64("f"), "Zg==");
    EXPECT_EQ(ToBase64("fo"), "Zm8=");
    EXPECT_EQ(ToBase64("foobar"), "Zm9vYmFy");
    for (std::size_t length = 0; length < 260; ++length) {
        std::string bytes;
        for (std::size_t i = 0; i < length; ++i) {
            bytes += static_cast<char>(i);
        }
        EXPECT_EQ(FromBase64(ToBase64(bytes)), bytes);
    }
}

TEST(Base64, BlanksAreSkippedAndPaddingMayBeMissing) {
    EXPECT_EQ(FromBase64(" Zm9v\r\n Ym E="), "fooba");
    EXPECT_EQ(FromBase64("Zm8"), "fo");
}

TEST(Base64, OtherCharactersAreRefused) {
    EXPECT_FALSE(FromBase64("Zm9v!"));
    EXPECT_FALSE(FromBase64("Zg==Zg"));
    EXPECT_FALSE(FromBase64("Z"));
}

TEST(Charset, ANameThatNoSetHasIsRefused) {
    EXPECT_FALSE(ToUtf8From("no-such-set", "a"));
    EXPECT_FALSE(ToUtf8From("", "a"));
    EXPECT_FALSE(ToUtf8From(std::string(1000, 'x'), "a"));
}

TEST(Charset, WhatIsNeitherUtf8NorGb18030IsWesternEuropean) {
    EXPECT_EQ(GuessedToUtf8("caf\xE9"), "café");
}

}  // namespace
}  // namespace quorvi

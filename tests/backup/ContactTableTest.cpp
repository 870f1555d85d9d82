#include <gmock/gmock.h>

#include "backup/ContactTable.h"
#include "backup/Csv.h"
#include "tests/backup/Cards.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(ContactTableWriter, HasAsManyColumnsAsTheCardWithTheMostItemsNeeds) {
    ContactCard one;
    one.name = "张三";
    one.favourite = true;
    one.groups = {"家人", "同事"};
    one.phones = {{2, "+86 138"}, {17, "9"}};
    ContactCard two;
    two.name = "Li Si";
    two.note = "=1+1";
    two.emails = {{1, "l@example.com"}};
    const std::vector<ContactCard> cards{one, two};
    EXPECT_EQ(WriteContactTable(cards),
              "\xEF\xBB\xBF姓名,昵称,收藏,分组,备注,电话类型 1,电话 1,电话类型 2,电话 2,邮箱类型 "
              "1,邮箱 1\r\n"
              "张三,,是,\"家人\n同事\",,手机,'+86 138,17,9,,\r\n"
              "Li Si,,,,'=1+1,,,,,个人邮箱,l@example.com\r\n");
}

TEST(ContactTableWriter, WhatIsWrittenReadsBackTheSameButForPhotosAndLabels) {
    ContactCard card = test::FullCard();
    card.photo.clear();
    card.websites = {{0, "http://example.com"}};
    for (CardItem& phone : card.phones) {
        phone.label.clear();
    }
    ContactCard bare;
    bare.name = "a";
    bare.groups = {"* a ::: b"};
    bare.phones = {{2, "1 ::: 2"}};
    const std::vector<ContactCard> cards{card, bare};
    const ContactTable table = ReadContactTable(WriteContactTable(cards));
    EXPECT_THAT(table.cards, ElementsAre(card, bare));
    EXPECT_THAT(table.skipped, IsEmpty());
}

TEST(ContactTableReader, ATypeThatIsNoneIsALabel) {
    EXPECT_THAT(ReadContactTable("姓名,电话类型 1,电话 1\na,女儿,1\n").cards.front().phones,
                ElementsAre(CardItem{7, "1", "女儿"}));
}

TEST(ContactTableReader, ReadsTheColumnsOfMailPrograms) {
    const ContactTable table = ReadContactTable(
        "First Name,Last Name,E-mail Address,Mobile Phone,Business Phone,Company,Web "
        "Page,Notes,Room\n"
        "Anna,Berg,anna@example.com,111,222,Example,example.com,met once,12\n"
        "娜,李,,333,,,,,\n");
    ASSERT_THAT(table.cards, SizeIs(2));
    const ContactCard& anna = table.cards[0];
    EXPECT_EQ(anna.name, "Anna Berg");
    EXPECT_THAT(anna.phones, ElementsAre(CardItem{2, "111"}, CardItem{3, "222"}));
    EXPECT_THAT(anna.emails, ElementsAre(CardItem{3, "anna@example.com"}));
    EXPECT_THAT(anna.organisations, ElementsAre(CardItem{0, "Example"}));
    EXPECT_THAT(anna.websites, ElementsAre(CardItem{0, "example.com"}));
    EXPECT_EQ(anna.note, "met once\nRoom：12");
    EXPECT_EQ(table.cards[1].name, "李娜");
}

TEST(ContactTableReader, ReadsTheColumnsOfAddressBooksOnTheWeb) {
    const ContactTable table = ReadContactTable(
        "Name,Given Name,Group Membership,E-mail 1 - Type,E-mail 1 - Value,Phone 1 - Type,Phone 1 "
        "- Value,Phone 2 - Type,Phone 2 - Value,IM 1 - Type,IM 1 - Service,IM 1 - Value,Website 1 "
        "- Type,Website 1 - Value,Address 1 - Type,Address 1 - Formatted,Organization 1 - Name\n"
        "Zhao Six,Six,Friends ::: * myContacts ::: * starred,* Home,a@example.com ::: "
        "b@example.com,Mobile,111,Work Fax,222,Other,Google Talk,six,Blog,example.com,Home,\"1 "
        "Main "
        "St\nTown\",Example\n"
        "Anna,,,,,Daughter,333,,,,,,,,,,\n");
    ASSERT_THAT(table.cards, SizeIs(2));
    const ContactCard& card = table.cards[0];
    EXPECT_EQ(card.name, "Zhao Six");
    EXPECT_TRUE(card.favourite);
    EXPECT_THAT(card.groups, ElementsAre("Friends"));
    EXPECT_THAT(card.phones, ElementsAre(CardItem{2, "111"}, CardItem{4, "222"}));
    EXPECT_THAT(card.emails,
                ElementsAre(CardItem{1, "a@example.com"}, CardItem{1, "b@example.com"}));
    EXPECT_THAT(card.ims, ElementsAre(CardItem{5, "six"}));
    EXPECT_THAT(card.websites, ElementsAre(CardItem{0, "example.com"}));
    EXPECT_THAT(card.addresses, ElementsAre(CardItem{1, "1 Main St\nTown"}));
    EXPECT_THAT(card.organisations, ElementsAre(CardItem{0, "Example"}));
    EXPECT_EQ(card.note, "");
    EXPECT_THAT(table.cards[1].phones, ElementsAre(CardItem{7, "333", "Daughter"}));
    EXPECT_FALSE(table.cards[1].favourite);
}

TEST(ContactTableReader, ANameHasItsMiddlePartAndAnAddressItsNumberedHeading) {
    const ContactTable table = ReadContactTable(
        "First Name,Middle Name,Last Name,E-mail Address,E-mail 2 Address,Business Phone 2\n"
        "Anna,Maria,Berg,a@example.com,b@example.com,222\n");
    ASSERT_THAT(table.cards, SizeIs(1));
    EXPECT_EQ(table.cards[0].name, "Anna Maria Berg");
    EXPECT_THAT(table.cards[0].emails,
                ElementsAre(CardItem{3, "a@example.com"}, CardItem{3, "b@example.com"}));
    EXPECT_THAT(table.cards[0].phones, ElementsAre(CardItem{3, "222"}));
}

TEST(ContactTableReader, ReadsTheGb18030OfChineseSpreadsheets) {
    // 姓名,手机 and 张三 in GBK
    const ContactTable table =
        ReadContactTable("\xD0\xD5\xC3\xFB,\xCA\xD6\xBB\xFA\r\n\xD5\xC5\xC8\xFD,13800138000\r\n");
    ASSERT_THAT(table.cards, SizeIs(1));
    EXPECT_EQ(table.cards[0].name, "张三");
    EXPECT_THAT(table.cards[0].phones, ElementsAre(CardItem{2, "13800138000"}));
}

TEST(ContactTableReader, RowsThatNameNobodyAreSkippedByTheirNumber) {
    const ContactTable table = ReadContactTable("姓名,手机,房间\na,1,\n,,\n,,12\nb,2,\n");
    EXPECT_THAT(table.cards, SizeIs(2));
    EXPECT_THAT(table.skipped, ElementsAre(4U));
}

TEST(ContactTableReader, ATableWithoutAKnownHeadingIsNone) {
    EXPECT_FALSE(ReadContactTable("1,2,3\n4,5,6\n").hasHeading);
    EXPECT_FALSE(ReadContactTable("").hasHeading);
    EXPECT_TRUE(ReadContactTable("name\n").hasHeading);
}

TEST(ContactTableReader, ARowThatIsTooWideEndsTheReading) {
    const ContactTable table =
        ReadContactTable("name\na\n" + std::string(kMostCsvColumns, ',') + "\nb\n");
    EXPECT_TRUE(table.tooWide);
    EXPECT_THAT(table.cards, SizeIs(1));
}

}  // namespace
}  // namespace quorvi

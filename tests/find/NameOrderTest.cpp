#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "find/NameOrder.h"

namespace quorvi {
namespace {

using Names = std::vector<std::u8string_view>;

std::string_view Utf8(std::u8string_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size()};
}

Names InOrder(Names names) {
    const NameOrder order;
    std::ranges::stable_sort(names, [&](std::u8string_view a, std::u8string_view b) {
        return order.Key(Utf8(a)) < order.Key(Utf8(b));
    });
    return names;
}

TEST(NameOrder, ChineseNamesStandByTheirPinyin) {
    EXPECT_EQ(InOrder({u8"张伟", u8"林远舟", u8"阿宝", u8"何思远", u8"顾晓棠"}),
              (Names{u8"阿宝", u8"顾晓棠", u8"何思远", u8"林远舟", u8"张伟"}));
}

TEST(NameOrder, WhatIsReadAlikeStandsTogether) {
    EXPECT_EQ(InOrder({u8"里娜", u8"李强", u8"里昂", u8"李娜"}),
              (Names{u8"李娜", u8"李强", u8"里昂", u8"里娜"}));
}

TEST(NameOrder, AShorterReadingStandsBeforeOneThatItBegins) {
    EXPECT_EQ(InOrder({u8"林一", u8"梁一", u8"李一"}), (Names{u8"李一", u8"梁一", u8"林一"}));
}

TEST(NameOrder, SurnamesStandByTheirReadingAsSurnames) {
    EXPECT_EQ(InOrder({u8"单田", u8"曾静", u8"查良", u8"仇英", u8"丁一", u8"长乐", u8"朱一"}),
              (Names{u8"长乐", u8"丁一", u8"仇英", u8"单田", u8"曾静", u8"查良", u8"朱一"}));
}

TEST(NameOrder, ASurnamesReadingIsForTheFirstCharacterAlone) {
    // 简单 is read jian dan: before 简二.
    EXPECT_EQ(InOrder({u8"简二", u8"简单"}), (Names{u8"简单", u8"简二"}));
}

TEST(NameOrder, LettersStandAmongThePinyinWhateverTheirCaseAccentsAndWidth) {
    EXPECT_EQ(InOrder({u8"周一", u8"Émile", u8"bob", u8"Ｄｏｒａ", u8"陈一", u8"Alice", u8"安娜"}),
              (Names{u8"Alice", u8"安娜", u8"bob", u8"陈一", u8"Ｄｏｒａ", u8"Émile", u8"周一"}));
}

TEST(NameOrder, NumbersStandByTheirValue) {
    EXPECT_EQ(InOrder({u8"客户10", u8"客户2"}), (Names{u8"客户2", u8"客户10"}));
}

TEST(NameOrder, ANameThatShowsNothingHasNoKey) {
    const NameOrder order;
    EXPECT_EQ(order.Key({}), "");
    EXPECT_EQ(order.Key("  "), "");
    EXPECT_NE(order.Key(" a"), "");
}

TEST(NameOrder, ALongNameHasAWholeKey) {
    const NameOrder order;
    const std::string name(5000, 'a');
    EXPECT_LT(order.Key(name), order.Key(name + "a"));
    EXPECT_LT(order.Key(name + "a"), order.Key(name + "b"));
}

TEST(NameOrder, BytesThatAreNoTextHaveAKey) {
    const NameOrder order;
    EXPECT_NE(order.Key("\xFF\xFE\x80"), "");
}

}  // namespace
}  // namespace quorvi

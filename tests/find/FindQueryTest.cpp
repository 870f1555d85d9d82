#include <gtest/gtest.h>

#include <string>

#include "find/FindQuery.h"

namespace quorvi {
namespace {

// What of the text is found; "-" where nothing is.
std::u16string Part(std::u16string_view typed, std::u16string_view text, FindKind kind) {
    const auto part = FindQuery(typed).In(Folded(text), kind);
    return part ? std::u16string(text.substr(part->begin, part->length)) : u"-";
}
std::u16string InName(std::u16string_view typed, std::u16string_view name) {
    return Part(typed, name, FindKind::name);
}
std::u16string InNumber(std::u16string_view typed, std::u16string_view number) {
    return Part(typed, number, FindKind::number);
}

TEST(FindQuery, AnyPartOfAnyTextIsFound) {
    EXPECT_EQ(InName(u"远", u"林远舟"), u"远");
    EXPECT_EQ(InName(u"远舟", u"林远舟"), u"远舟");
    EXPECT_EQ(Part(u"明天", u"我们明天见", FindKind::text), u"明天");
    EXPECT_EQ(InName(u"远林", u"林远舟"), u"-");
}

TEST(FindQuery, LargeAndSmallAndFullWidthLettersAreTheSame) {
    EXPECT_EQ(InName(u"anna", u"Tante ANNA"), u"ANNA");
    EXPECT_EQ(InName(u"ANNA", u"anna"), u"anna");
    EXPECT_EQ(InName(u"ａｎｎａ", u"Anna"), u"Anna");
    EXPECT_EQ(InName(u"anna", u"Ａｎｎａ"), u"Ａｎｎａ");
    EXPECT_EQ(InName(u"ÉMILE", u"émile"), u"émile");
}

TEST(FindQuery, BlanksAtTheEndsDoNotCount) {
    EXPECT_EQ(InName(u"  远 ", u"林远舟"), u"远");
    EXPECT_EQ(InName(u"\u3000远\u3000", u"林远舟"), u"远");
    EXPECT_TRUE(FindQuery(u"  \t").IsEmpty());
}

TEST(FindQuery, AnEmptyOneFindsNothing) {
    EXPECT_TRUE(FindQuery().IsEmpty());
    EXPECT_FALSE(FindQuery().In(u"林", FindKind::name).has_value());
    EXPECT_FALSE(FindQuery(u"").In(u"", FindKind::name).has_value());
}

TEST(FindQuery, InitialsFindAName) {
    for (const std::u16string_view name : {u"林远舟", u"李雨泽", u"刘易之", u"吕英姿"}) {
        EXPECT_EQ(InName(u"lyz", name), name);
        EXPECT_EQ(InName(u"LYZ", name), name);
    }
    EXPECT_EQ(InName(u"lyz", u"王远舟"), u"-");
}

TEST(FindQuery, InitialsAreFoundWithinAName) {
    EXPECT_EQ(InName(u"lyz", u"表妹罗忆中"), u"罗忆中");
    EXPECT_EQ(InName(u"yz", u"林远舟"), u"远舟");
    EXPECT_EQ(InName(u"lz", u"林远舟"), u"-");  // not with a gap
}

TEST(FindQuery, WholeReadingsFindANameAndTheLastMayBeBegun) {
    EXPECT_EQ(InName(u"linyuanzhou", u"林远舟"), u"林远舟");
    EXPECT_EQ(InName(u"linyu", u"林远舟"), u"林远");
    EXPECT_EQ(InName(u"li", u"林远舟"), u"林");
    EXPECT_EQ(InName(u"yuan", u"林远舟"), u"远");
    EXPECT_EQ(InName(u"linyuanzhoux", u"林远舟"), u"-");
}

TEST(FindQuery, ReadingsAndInitialsMix) {
    EXPECT_EQ(InName(u"linyz", u"林远舟"), u"林远舟");
    EXPECT_EQ(InName(u"lyuanz", u"林远舟"), u"林远舟");
    EXPECT_EQ(InName(u"lyzhou", u"林远舟"), u"林远舟");
}

TEST(FindQuery, AReadingThatIsOnlyBegunStandsAtTheEndAlone) {
    EXPECT_EQ(InName(u"liyuan", u"林远舟"), u"-");
    EXPECT_EQ(InName(u"liyuan", u"李远舟"), u"李远");
}

TEST(FindQuery, AnInitialOfTwoLettersIsTypedWithOneOrTwo) {
    EXPECT_EQ(InName(u"zhs", u"周松"), u"周松");
    EXPECT_EQ(InName(u"zs", u"周松"), u"周松");
    EXPECT_EQ(InName(u"hs", u"周松"), u"-");
}

TEST(FindQuery, TwoWaysOfCuttingALetterRowAreBothTried) {
    EXPECT_EQ(InName(u"xian", u"西安"), u"西安");
    EXPECT_EQ(InName(u"xian", u"先生"), u"先");
    EXPECT_EQ(InName(u"fangan", u"方案"), u"方案");
    EXPECT_EQ(InName(u"fangan", u"翻干"), u"翻干");
}

TEST(FindQuery, EachReadingOfACharacterCounts) {
    for (const std::u16string_view typed : {u"zengyue", u"cengle", u"zengl", u"zy", u"cy", u"cl"}) {
        EXPECT_EQ(InName(typed, u"曾乐"), u"曾乐");
    }
    EXPECT_EQ(InName(u"chongqing", u"重庆"), u"重庆");
    EXPECT_EQ(InName(u"zq", u"重庆"), u"重庆");
}

TEST(FindQuery, AnUmlautIsTypedInThreeWays) {
    for (const std::u16string_view typed : {u"lv", u"lu", u"lü", u"LÜ"}) {
        EXPECT_EQ(InName(typed, u"吕英姿"), u"吕");
    }
}

TEST(FindQuery, BlanksAndApostrophesPartSyllables) {
    EXPECT_EQ(InName(u"lin yuan zhou", u"林远舟"), u"林远舟");
    EXPECT_EQ(InName(u"xi'an", u"西安"), u"西安");
    EXPECT_EQ(InName(u"lyz", u"林 远舟"), u"林 远舟");
    EXPECT_EQ(InName(u"adl", u"阿·迪力"), u"阿·迪力");
}

TEST(FindQuery, WordsInLettersHaveInitialsToo) {
    EXPECT_EQ(InName(u"js", u"John Smith"), u"John Smith");
    EXPECT_EQ(InName(u"johnsm", u"John Smith"), u"John Smith");
    EXPECT_EQ(InName(u"aly", u"A林远"), u"A林远");
    EXPECT_EQ(InName(u"4s", u"4S店"), u"4S");
}

TEST(FindQuery, CharactersAndLettersMix) {
    EXPECT_EQ(InName(u"林yz", u"林远舟"), u"林远舟");
    EXPECT_EQ(InName(u"ly舟", u"林远舟"), u"林远舟");
    EXPECT_EQ(InName(u"李yz", u"林远舟"), u"-");
}

TEST(FindQuery, CharactersBeyondTheFirstPlaneStandForThemselves) {
    EXPECT_EQ(InName(u"l\U00020000z", u"林\U00020000舟"), u"林\U00020000舟");
    EXPECT_EQ(InName(u"lz", u"林\U00020000舟"), u"-");
}

TEST(FindQuery, OnlyNamesAreSearchedByPinyin) {
    EXPECT_EQ(InNumber(u"lyz", u"林远舟"), u"-");
    EXPECT_EQ(Part(u"mt", u"我们明天见", FindKind::text), u"-");
}

TEST(FindQuery, DigitsFindANumberWhateverStandsBetweenThem) {
    EXPECT_EQ(InNumber(u"1381234", u"+86 138-1234 5678"), u"138-1234");
    EXPECT_EQ(InNumber(u"+86 (138) 12", u"8613812345678"), u"8613812");
    EXPECT_EQ(InNumber(u"0519-88", u"(0519) 8812"), u"0519) 88");
    EXPECT_EQ(InNumber(u"5678", u"13812345678"), u"5678");
    EXPECT_EQ(InNumber(u"1391", u"+86 138-1234 5678"), u"-");
}

TEST(FindQuery, DigitsThatStandTwiceAreFoundWhereTheyGoOn) {
    EXPECT_EQ(InNumber(u"1123", u"11 1-123"), u"1-123");
}

TEST(FindQuery, ANumberThatStandsAsANameIsFoundByItsDigits) {
    EXPECT_EQ(InName(u"1381", u"138 1234 5678"), u"138 1");
}

TEST(FindQuery, AMessageIsSearchedOnlyAsItStands) {
    EXPECT_EQ(Part(u"1381", u"138 1234", FindKind::text), u"-");
}

TEST(FindQuery, SignsAloneAreSearchedAsTheyStand) {
    EXPECT_EQ(InNumber(u"+", u"+86"), u"+");
    EXPECT_EQ(InNumber(u"()", u"138"), u"-");
}

TEST(FindQuery, OfALongOneTheFirstPartCounts) {
    const std::u16string many(FindQuery::kLongest + 10, u'a');
    const std::u16string text(FindQuery::kLongest, u'a');
    EXPECT_EQ(InName(many, text), text);
    const std::u16string characters(FindQuery::kLongest + 5, u'阿');
    EXPECT_EQ(InName(many, characters).size(), FindQuery::kLongest);
}

TEST(FindQuery, FoldingKeepsTheLength) {
    for (const std::u16string_view text :
         {u"İıßŉǅΐ", u"ＡＢ１　", u"\U00010400\U0001E900", u"\xD800x", u"x\xDC00", u"吕"}) {
        EXPECT_EQ(Folded(text).size(), text.size());
    }
}

}  // namespace
}  // namespace quorvi

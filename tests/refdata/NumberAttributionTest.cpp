// What stands beside a number, by its length and its leading digits.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <thread>

#include "base/Text.h"
#include "refdata/NumberAttribution.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/SmallPhoneDb.h"

namespace quorvi {
namespace {

class NumberAttribution : public ::testing::Test {
  protected:
    // 1391234 is Changzhou, 1861235 is Beijing, all others have no record.
    const ScratchDirectory scratch_{};
    const CPhoneDb db_{scratch_.Path(), DatabaseOf({{1391234, 145}, {1861235, 2}})};

    struct Case {
        std::string_view number;
        std::u8string_view caption;
    };
    void Expect(std::initializer_list<Case> cases) const {
        for (const Case& each : cases) {
            EXPECT_EQ(ToUtf8(quorvi::NumberAttribution(each.number, db_)),
                      ToUtf8(Ansi(each.caption)))
                << each.number;
        }
    }
};

// ---- what goes before the length ---------------------------------------------------------------

TEST_F(NumberAttribution, LeadingMinusIsAWithheldNumber) {
    Expect({{"-1", u8"私有号码"},
            {"-2", u8"私有号码"},
            {"-", u8"私有号码"},
            {"-13912345678", u8"私有号码"}});
}

TEST_F(NumberAttribution, PlusTakesThreeCharactersAway) {
    Expect({{"+8613912345678", u8"江苏常州"},
            {"+8610086", u8"中国移动"},
            {"+86110", u8"报警"},
            // A country code of three digits leaves its last digit in front.
            {"+85213912345678", u8"未知"}});
}

TEST_F(NumberAttribution, PlusWithLessThanThreeCharactersLeavesNothing) {
    Expect({{"+", u8"未知"}, {"+8", u8"未知"}, {"+86", u8"未知"}});
}

TEST_F(NumberAttribution, MinusSignsBetweenGroupsAreRemoved) {
    Expect({{"139-1234-5678", u8"江苏常州"},
            {"1-3-9-1-2-3-4-5-6-7-8", u8"江苏常州"},
            {"010-12345678", u8"北京"},
            {"400-851-7517", u8"麦乐送"},
            {"+86-139-1234-5678", u8"江苏常州"}});
}

TEST_F(NumberAttribution, MinusBehindTheCountryCodeIsNoWithheldNumber) {
    Expect({{"+86-110", u8"报警"}, {"+-1110", u8"报警"}, {"+12-110-", u8"报警"}});
}

TEST_F(NumberAttribution, OtherSeparatorsCount) {
    Expect({{"139 1234 5678", u8"未知"}, {"(010)12345678", u8"未知"}});
}

TEST_F(NumberAttribution, EmptyNumberIsUnknown) {
    Expect({{"", u8"未知"}});
}

// ---- by length
// -----------------------------------------------------------------------------------

TEST_F(NumberAttribution, ThreeDigitTableIsByValue) {
    Expect({{"110", u8"报警"},
            {"119", u8"火警"},
            {"120", u8"医疗急救"},
            {"122", u8"交通报警"},
            {"112", u8"电话故障"},
            {"117", u8"报时服务"},
            {"121", u8"天气预报"},
            {"114", u8"号码百事通"},
            {"160", u8"信息咨询服务"},
            {"111", u8"未知"},
            {"911", u8"未知"},
            {"abc", u8"未知"},
            {"11a", u8"未知"}});
}

TEST_F(NumberAttribution, FiveDigitTableIsByValue) {
    Expect({{"95598", u8"供电服务"},
            {"10000", u8"中国电信"},
            {"10086", u8"中国移动"},
            {"12306", u8"未知"},
            {"12580", u8"中移动百事通"},
            {"12330", u8"知识产权举报"},
            {"95588", u8"工商银行"},
            {"96198", u8"农业信用联社"},
            {"95567", u8"新华人寿"},
            {"95569", u8"安邦财产保险"},
            {"00000", u8"未知"},
            {"9559x", u8"未知"}});
}

TEST_F(NumberAttribution, FiveDigitTableHas59RowsThatANumberReaches) {
    int rows = 0;
    for (int number = 10000; number <= 99999; ++number) {
        rows += quorvi::NumberAttribution(std::to_string(number), db_) != Ansi(u8"未知") ? 1 : 0;
    }
    EXPECT_EQ(rows, 59);
}

// The row stands in the table of five digits with a key of eight; the rule for eight digits does
// not look there.
TEST_F(NumberAttribution, RowWithAKeyOfEightDigitsIsNeverReached) {
    Expect({{"95105768", u8"座机"}});
}

TEST_F(NumberAttribution, SixDigitsKnowOneNumber) {
    Expect({{"100861", u8"中国移动自助服务"}, {"100860", u8"未知"}, {"106000", u8"未知"}});
}

TEST_F(NumberAttribution, EightDigitsWithZeroHaveAnAreaCodeOfTwo) {
    Expect({{"01012345", u8"北京"},
            {"02112345", u8"上海"},
            // The length alone fixes how many digits of area code are read.
            {"07551234", u8"没有记录"}});
}

TEST_F(NumberAttribution, EightDigitsWith106AreBulkThroughTheir10) {
    Expect({{"10612345", u8"<SP号码>"}, {"10012345", u8"<SP号码>"}});
}

TEST_F(NumberAttribution, EightDigitsKnowTheTicketLine) {
    Expect({{"95105105", u8"火车票电话预订"}, {"95105106", u8"座机"}});
}

TEST_F(NumberAttribution, EightDigitsWithoutAreaCodeAreALandLine) {
    Expect({{"87654321", u8"座机"}, {"11111111", u8"座机"}, {"abcdefgh", u8"座机"}});
}

TEST_F(NumberAttribution, SevenDigitsAreUnknown) {
    Expect({{"8765432", u8"未知"}, {"0101234", u8"未知"}});
}

TEST_F(NumberAttribution, NineDigitsWithZeroHaveAnAreaCodeOfThree) {
    Expect({{"051912345", u8"江苏常州"}, {"075512345", u8"广东深圳"}, {"010123456", u8"没有记录"}});
}

TEST_F(NumberAttribution, NineDigitsHaveNoLandLines) {
    Expect({{"101234567", u8"<SP号码>"}, {"106123456", u8"<SP号码>"}, {"876543210", u8"未知"}});
}

TEST_F(NumberAttribution, TenDigitTableIsExact) {
    Expect({{"4008517517", u8"麦乐送"},
            {"4008823823", u8"肯德基宅急送"},
            {"4008123123", u8"必胜客宅急送"},
            {"4007787878", u8"巴贝拉家家送"},
            {"4008887272", u8"棒约翰外送"},
            {"4008517518", u8"未知"},
            {"0101234567", u8"未知"},
            {"1061234567", u8"未知"}});
}

TEST_F(NumberAttribution, ElevenDigitsWithOneAreAPrefix) {
    Expect({{"13912345678", u8"江苏常州"},
            {"18612350000", u8"北京"},
            {"18612340000", u8"没有记录"},
            {"19912345678", u8"没有记录"},
            {"12912345678", u8"没有记录"}});
}

TEST_F(NumberAttribution, ElevenDigitsWith106AreAPrefixAndNotBulk) {
    Expect({{"10651234567", u8"没有记录"}});
}

TEST_F(NumberAttribution, ElevenDigitsWithout1AreALandLine) {
    Expect({{"01012345678", u8"北京"},
            {"02112345678", u8"上海"},
            {"03111234567", u8"河北石家庄"},
            {"05191234567", u8"江苏常州"},
            {"09991234567", u8"新疆伊犁"}});
}

TEST_F(NumberAttribution, ElevenDigitsNeedNoZeroInFrontOfTheAreaCode) {
    Expect({{"95191234567", u8"江苏常州"}, {"21012345678", u8"北京"}, {"91012345678", u8"北京"}});
}

TEST_F(NumberAttribution, ElevenCharactersWithoutDigitsHaveNoRecord) {
    Expect({{"abcdefghijk", u8"没有记录"},
            {"1abcdefghij", u8"没有记录"},
            {"1391234", u8"未知"},
            {"139123x5678", u8"没有记录"}});
}

TEST_F(NumberAttribution, TwelveDigitsWithZeroHaveAnAreaCodeOfThree) {
    Expect({{"075512345678", u8"广东深圳"},
            {"051912345678", u8"江苏常州"},
            {"010123456789", u8"没有记录"}});
}

TEST_F(NumberAttribution, TwelveDigitsAreBulkWith106AndElseUnknown) {
    Expect(
        {{"106123456789", u8"<SP号码>"}, {"101234567890", u8"未知"}, {"876543210987", u8"未知"}});
}

TEST_F(NumberAttribution, ThirteenDigitsAreBulkWith106AndElseUnknown) {
    Expect({{"1061234567890", u8"<SP号码>"}, {"0101234567890", u8"未知"}});
}

TEST_F(NumberAttribution, SixteenDigitsWith106AreBulk) {
    Expect({{"1060113912345678", u8"<SP号码>"}});
}

TEST_F(NumberAttribution, SixteenDigitsDropACarriersPrefix) {
    Expect({{"1795113912345678", u8"江苏常州"},
            {"1790901012345678", u8"北京"},
            {"1790905191234567", u8"江苏常州"},
            {"1795118612340000", u8"没有记录"},
            // What is left is a prefix whatever it begins with.
            {"1795195191234567", u8"没有记录"}});
}

TEST_F(NumberAttribution, SixteenDigitsWithout1AreUnknown) {
    Expect({{"0795113912345678", u8"未知"}, {"9795113912345678", u8"未知"}});
}

TEST_F(NumberAttribution, SeventeenDigitsHaveAnAreaCodeBehindTheCarriersPrefix) {
    Expect({{"17951051912345678", u8"江苏常州"},
            {"17951075512345678", u8"广东深圳"},
            {"17951010123456789", u8"没有记录"}});
}

TEST_F(NumberAttribution, SeventeenDigitsWith106AndAZeroAreAPlaceFirst) {
    Expect({{"10651051912345678", u8"江苏常州"},
            {"10651151912345678", u8"<SP号码>"},
            {"17951151912345678", u8"未知"},
            {"07951051912345678", u8"未知"}});
}

TEST_F(NumberAttribution, AnyOtherLengthIsBulkWith106AndElseUnknown) {
    Expect({{"1", u8"未知"},
            {"10", u8"未知"},
            {"1061", u8"<SP号码>"},
            {"1061234", u8"<SP号码>"},
            {"10612345678901", u8"<SP号码>"},
            {"106123456789012", u8"<SP号码>"},
            {"106123456789012345", u8"<SP号码>"},
            {"123456789012345678", u8"未知"}});
    EXPECT_EQ(quorvi::NumberAttribution("106" + std::string(100'000, '1'), db_),
              Ansi(u8"<SP号码>"));
    EXPECT_EQ(quorvi::NumberAttribution("106" + std::string(100'000, '-') + "12345678", db_),
              Ansi(u8"没有记录"));
    EXPECT_EQ(quorvi::NumberAttribution("1-06" + std::string(100'000, '1'), db_),
              Ansi(u8"<SP号码>"));
}

// ---- what a caption stands for -----------------------------------------------------------------

TEST_F(NumberAttribution, PlacesComeWithTheirAreaCode) {
    EXPECT_EQ(ClassifyNumber("13912345678", db_).areaCode, 519);
    EXPECT_EQ(ClassifyNumber("01012345678", db_).areaCode, 10);
    EXPECT_EQ(ClassifyNumber("18612340000", db_).areaCode, 0);
    EXPECT_EQ(ClassifyNumber("10086", db_).areaCode, 0);
    EXPECT_EQ(ClassifyNumber("06001234567", db_).areaCode, 0);  // no area has code 600
}

// ---- the number data of one who asks -----------------------------------------------------------

TEST(MakeNumberAttribution, ReadsTheNumberDataAtTheFirstCallAndSharesThemWithItsCopies) {
    const ScratchDirectory scratch;
    const EnvironmentVariable temporary("TMPDIR", scratch.Path().string());
    const std::filesystem::path file = scratch.Path() / "phone.db";

    const AttributionOf first = MakeNumberAttribution();
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_EQ(first("13901012345"), Ansi(u8"北京"));
    EXPECT_TRUE(std::filesystem::remove(file));

    const AttributionOf copy = first;
    std::thread([&copy] { EXPECT_EQ(copy("10086"), Ansi(u8"中国移动")); }).join();
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_EQ(MakeNumberAttribution()("13901012345"), Ansi(u8"北京"));
    EXPECT_TRUE(std::filesystem::exists(file));
}

}  // namespace
}  // namespace quorvi

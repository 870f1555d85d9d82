// How phone.db is made of a geocoder's places.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "refdata/PhoneDbFormat.h"
#include "refdata/tool/PhoneDbBuild.h"

namespace quorvi::phonedb {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// Land lines as a geocoder knows them.
PlaceMatcher Matcher() {
    return PlaceMatcher([](int areaCode) -> std::string {
        switch (areaCode) {
            case 28:
                return "四川省成都市、资阳市、眉山市";
            case 832:
                return "四川省内江市、资阳市";
            case 937:
                return "甘肃省酒泉市";
            case 977:
            case 979:
                return "青海省海西蒙古族藏族自治州";
            default:
                return "";
        }
    });
}

int AreaOf(const char* place) {
    const auto match = Matcher().Find(place);
    return match ? match->areaCode : 0;
}

TEST(PlaceMatcher, TheAreaTablesNameComesFirst) {
    EXPECT_EQ(AreaOf("江苏省常州市"), 519);
    EXPECT_EQ(Matcher().Find("江苏省常州市")->regionId, 145);
    EXPECT_EQ(Matcher().Find("江苏省常州市")->ground, Ground::name);
    EXPECT_EQ(AreaOf("北京市"), 10);
    EXPECT_EQ(AreaOf("四川省资阳市"), 832);  // and not 28, whose land lines bear the name too
    EXPECT_EQ(AreaOf("新疆伊犁哈萨克自治州"), 999);
    EXPECT_EQ(AreaOf("吉林省吉林市"), 432);
}

TEST(PlaceMatcher, LandLinesComeSecond) {
    EXPECT_EQ(AreaOf("四川省眉山市"), 28);
    EXPECT_EQ(AreaOf("甘肃省酒泉市"), 937);
    EXPECT_EQ(Matcher().Find("甘肃省酒泉市")->ground, Ground::landLine);
    EXPECT_EQ(AreaOf("青海省海西蒙古族藏族自治州"), 977);  // the lower of two
}

TEST(PlaceMatcher, TheSupplementComesLast) {
    EXPECT_EQ(AreaOf("广西贵港市"), 775);
    EXPECT_EQ(Matcher().Find("广西贵港市")->ground, Ground::supplement);
}

// No region id leads to 910, the code that the area table has for Xianyang.
TEST(PlaceMatcher, ACodeWithoutARegionIsNoMatch) {
    EXPECT_EQ(AreaOf("陕西省咸阳市"), 0);
}

TEST(PlaceMatcher, AnUnheardOfPlaceIsNoMatch) {
    EXPECT_FALSE(Matcher().Find("蓬莱仙岛"));
    EXPECT_FALSE(Matcher().Find(""));
}

TEST(PlaceMatcher, AJointNameIsTakenApart) {
    EXPECT_THAT(SinglePlaces("四川省内江市、资阳市"), ElementsAre("四川省内江市", "四川省资阳市"));
    EXPECT_THAT(SinglePlaces("西藏阿里地区、普兰县"), ElementsAre("西藏阿里地区", "普兰县"));
    EXPECT_THAT(SinglePlaces(""), ElementsAre());
}

std::size_t At(int prefix) {
    return static_cast<std::size_t>(prefix - kFirstPrefix) * kPhoneDbEntry;
}

TEST(PhoneDbBuild, EachPrefixIsAskedOnceAndWrittenAtItsPlace) {
    std::vector<int> asked;
    const PhoneDbBuild build = BuildPhoneDb(
        [&](int prefix) -> std::string {
            asked.push_back(prefix);
            return prefix == 1391234 ? "江苏省常州市" : prefix == 1899999 ? "上海市" : "";
        },
        Matcher());
    ASSERT_EQ(asked.size(), 600'000U);
    EXPECT_EQ(asked.front(), 1300000);
    EXPECT_EQ(asked.back(), 1899999);
    ASSERT_EQ(build.file.size(), 1'200'000U);
    EXPECT_EQ(build.file[At(1391234)], 145);
    EXPECT_EQ(build.file[At(1391234) + 1], 0);
    EXPECT_EQ(build.file[At(1899999)], 1);
    EXPECT_EQ(build.withPlace, 2);
    EXPECT_EQ(build.matched, 2);
    EXPECT_TRUE(build.GoodEnough());
}

TEST(PhoneDbBuild, HighRegionsAreLittleEndian) {
    const PhoneDbBuild build = BuildPhoneDb(
        [](int prefix) -> std::string { return prefix == 1300000 ? "云南省昆明市" : ""; },
        Matcher());
    EXPECT_EQ(build.file[0], 281 - 256);
    EXPECT_EQ(build.file[1], 1);
}

// 1000 prefixes with a place, so many of them one that nothing matches.
PhoneDbBuild WithUnmatched(int unmatched) {
    return BuildPhoneDb(
        [=](int prefix) -> std::string {
            const int i = prefix - kFirstPrefix;
            return i < unmatched ? "蓬莱仙岛" : i < 1000 ? "上海市" : "";
        },
        Matcher());
}

TEST(PhoneDbBuild, BelowTheLeastShareTheDataAreRefused) {
    EXPECT_TRUE(WithUnmatched(0).GoodEnough());
    EXPECT_TRUE(WithUnmatched(5).GoodEnough());   // 99.5 %
    EXPECT_FALSE(WithUnmatched(6).GoodEnough());  // 99.4 %
}

TEST(PhoneDbBuild, WithoutAnyPlaceTheDataAreRefused) {
    EXPECT_FALSE(BuildPhoneDb([](int) { return std::string(); }, Matcher()).GoodEnough());
}

TEST(PhoneDbBuild, UnmatchedPlacesAreNamedWithTheirCountAndHaveNoRecord) {
    const PhoneDbBuild build = WithUnmatched(3);
    EXPECT_EQ(build.file[At(1300002)], 0);
    EXPECT_EQ(build.file[At(1300003)], 1);
    const std::string report = ReportOf(build);
    EXPECT_THAT(report, HasSubstr("without a match:\n  蓬莱仙岛 3\n"));
    EXPECT_THAT(report, HasSubstr("  上海市 997 area 21 region 1 by name\n"));
    EXPECT_THAT(report, HasSubstr("matched: 997 (99.700 %, at least 99.5 % needed)\n"));
}

}  // namespace
}  // namespace quorvi::phonedb

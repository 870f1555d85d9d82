// Places and postal codes by area code.
#include <gtest/gtest.h>

#include "base/Text.h"
#include "refdata/AreaTable.h"

namespace quorvi {
namespace {

TEST(AreaTable, MunicipalitiesAndGuangzhouArePlainCities) {
    EXPECT_EQ(AreaName(10), Ansi(u8"北京"));
    EXPECT_EQ(AreaName(20), Ansi(u8"广州"));
    EXPECT_EQ(AreaName(21), Ansi(u8"上海"));
    EXPECT_EQ(AreaName(22), Ansi(u8"天津"));
    EXPECT_EQ(AreaName(23), Ansi(u8"重庆"));
}

TEST(AreaTable, OthersAreProvinceAndCity) {
    EXPECT_EQ(AreaName(24), Ansi(u8"辽宁沈阳"));
    EXPECT_EQ(AreaName(519), Ansi(u8"江苏常州"));
    EXPECT_EQ(AreaName(999), Ansi(u8"新疆伊犁"));
    EXPECT_EQ(AreaName(580), Ansi(u8"浙江舟山"));
    EXPECT_EQ(AreaName(479), Ansi(u8"内蒙古锡林郭勒盟"));
}

TEST(AreaTable, ThereAre333Rows) {
    int rows = 0;
    for (int code = -10; code < 2000; ++code) {
        const bool named = AreaName(code) != Ansi(u8"没有记录") && code != 1234;
        EXPECT_EQ(named, HasArea(code)) << code;
        EXPECT_EQ(PostalCode(code) != Ansi(u8"没有找到"), HasArea(code)) << code;
        rows += named ? 1 : 0;
    }
    EXPECT_EQ(rows, 333);
}

TEST(AreaTable, CodeWithoutARowHasNoRecord) {
    for (const int code : {0, -1, 1, 890, 1000, 1233, 1235, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(AreaName(code), Ansi(u8"没有记录")) << code;
        EXPECT_EQ(PostalCode(code), Ansi(u8"没有找到")) << code;
    }
}

TEST(AreaTable, Code1234IsAnUnknownRegionWithoutAPostalCode) {
    EXPECT_EQ(AreaName(1234), Ansi(u8"未知地区"));
    EXPECT_EQ(PostalCode(1234), Ansi(u8"没有找到"));
}

TEST(AreaTable, PostalCodeOf311KeepsItsSevenDigits) {
    EXPECT_EQ(AreaName(311), Ansi(u8"河北石家庄"));
    EXPECT_EQ(PostalCode(311), "1383317");
}

TEST(AreaTable, PostalCodesKeepTheirLeadingZeros) {
    EXPECT_EQ(PostalCode(310), "056000");
    EXPECT_EQ(PostalCode(10), "100000");
    EXPECT_EQ(PostalCode(580), "202450");
}

TEST(AreaTable, TwoCodesNameTheSamePlace) {
    EXPECT_EQ(AreaName(724), Ansi(u8"湖北江汉"));
    EXPECT_EQ(AreaName(728), Ansi(u8"湖北江汉"));
}

}  // namespace
}  // namespace quorvi

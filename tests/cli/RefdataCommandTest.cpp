// The commands that need no phone: numbers and dates.
#include <gtest/gtest.h>

#include "tests/support/BuildPlaces.h"
#include "tests/support/RunProgram.h"

namespace quorvi::cli {
namespace {

Ended Piped(const std::string& input, const std::string& arguments) {
    return RunLine("printf '" + input + "' | " QUORVI_BIN_DIR "/quorvictl " + arguments);
}

TEST(NumberCommand, PrintsACaptionALine) {
    const Ended ended = Out("number 13912345678 110 01012345678 8765432");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output, "江苏常州\n报警\n北京\n未知\n");
}

TEST(NumberCommand, ReadsStandardInputInOrder) {
    const Ended ended = Piped("110\\n13912345678\\r\\n\\n10086", "number -");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output, "报警\n江苏常州\n未知\n中国移动\n");
}

TEST(NumberCommand, AMinusBeforeADigitIsPartOfTheNumber) {
    EXPECT_EQ(Out("number -1 -2").output, "私有号码\n私有号码\n");
    EXPECT_EQ(Out("number -- -x").output, "私有号码\n");
    EXPECT_EQ(Out("number -x").status, 1);
}

TEST(NumberCommand, JsonHasCodesOfAPlace) {
    EXPECT_EQ(Out("number --json 13912345678").output,
              "{\"area_code\":519,\"caption\":\"江苏常州\",\"number\":\"13912345678\","
              "\"postal_code\":\"213000\"}\n");
    EXPECT_EQ(Out("number --json 10086").output,
              "{\"area_code\":0,\"caption\":\"中国移动\",\"number\":\"10086\","
              "\"postal_code\":\"\"}\n");
}

TEST(NumberCommand, WithoutANumberTheUsageIsSaid) {
    EXPECT_EQ(Out("number").status, 1);
    EXPECT_EQ(Out("number").output, "");
}

TEST(LunarCommand, PrintsALineADate) {
    const Ended ended = Out("lunar 2012-06-19 2012-01-23");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output,
              "2012-06-19  农历: 壬辰 龙年 　五月 初一\n"
              "2012-01-23  春节 农历: 壬辰 龙年 　正月 初一\n");
}

TEST(LunarCommand, JsonHasTheLineAndTheCell) {
    EXPECT_EQ(Out("lunar --json 2012-06-21").output,
              "{\"cell\":\"夏至\",\"date\":\"2012-06-21\",\"day\":3,\"festival\":\"\","
              "\"line\":\"农历: [夏至] 壬辰 龙年 　五月 初三\",\"month\":5,\"term\":\"夏至\","
              "\"year\":2012}\n");
    EXPECT_EQ(Out("lunar --json 2010-02-14").output,
              "{\"cell\":\"情人节\",\"date\":\"2010-02-14\",\"day\":1,\"festival\":\"情人节\","
              "\"line\":\"情人节 农历: 庚寅 虎年 　正月 初一\",\"month\":1,\"term\":\"\","
              "\"year\":2010}\n");
}

TEST(LunarCommand, ADateOutsideTheTablesIsRefusedAndTheOthersAreAnswered) {
    const std::string line =
        "lunar 1900-12-31 1901-01-01 2051-01-01 2012-02-30 nonsense 2050-12-31";
    const Ended ended = Out(line);
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.output,
              "1901-01-01  元旦 农历: 庚子 鼠年 十一月 十一\n"
              "2050-12-31  农历: 庚午 马年 十一月 十八\n");
    const std::string said = Err(line).output;
    for (const char* refused : {"1900-12-31", "2051-01-01", "2012-02-30", "nonsense"}) {
        EXPECT_NE(said.find(refused), std::string::npos) << refused;
    }
}

TEST(LunarCommand, ReadsStandardInput) {
    const Ended ended = Piped("2012-06-19\\nbad\\n2012-06-20\\n", "lunar - 2>/dev/null");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.output,
              "2012-06-19  农历: 壬辰 龙年 　五月 初一\n"
              "2012-06-20  农历: 壬辰 龙年 　五月 初二\n");
}

}  // namespace
}  // namespace quorvi::cli

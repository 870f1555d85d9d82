#include <gtest/gtest.h>

#include <string>

#include "base/IniFile.h"
#include "base/Utf8.h"

namespace quorvi {
namespace {

// The value of one line "k=…".
std::optional<std::string> ValueOf(std::string_view written) {
    return IniValue("[G]\nk=" + std::string(written) + "\nnext=1\n", "G/k");
}

TEST(IniValue, IsFoundByGroupAndKey) {
    constexpr std::string_view kFile =
        "top=0\n[General]\nfree=1\n\n[Software]\nQuorvi\\exit_mode=3\nother=x\n"
        "[%General]\nnamed=2\n";
    EXPECT_EQ(IniValue(kFile, "Software/Quorvi/exit_mode"), "3");
    EXPECT_EQ(IniValue(kFile, "SOFTWARE/quorvi/Exit_Mode"), "3");
    EXPECT_EQ(IniValue(kFile, "free"), "1");
    EXPECT_EQ(IniValue(kFile, "top"), "0");
    EXPECT_EQ(IniValue(kFile, "General/named"), "2");
    EXPECT_EQ(IniValue(kFile, "Software/exit_mode"), std::nullopt);
    EXPECT_EQ(IniValue("", "x"), std::nullopt);
}

TEST(IniValue, TheLastOfSeveralCounts) {
    EXPECT_EQ(IniValue("[G]\nk=1\n[H]\nk=9\n[G]\nK=2\n", "G/k"), "2");
}

TEST(IniValue, EscapesAreRead) {
    EXPECT_EQ(ValueOf("a\\tb\\n\\\\\\\"c"), "a\tb\n\\\"c");
    EXPECT_EQ(ValueOf("\\x5317\\x4eac"), Utf8(u8"北京"));        // as older files have it
    EXPECT_EQ(ValueOf("\\xd840\\xdc00"), Utf8(u8"\U00020000"));  // a pair
    EXPECT_EQ(ValueOf("\\xd840!"), Utf8(u8"\uFFFD!"));           // half of one
    EXPECT_EQ(ValueOf("\\101\\x41"), "AA");
    EXPECT_EQ(ValueOf("\\q\\"), "next=1");  // the line goes on
    EXPECT_EQ(IniValue("[%U5317]\n%41%20b=1", Utf8(u8"北/A b")), "1");
    EXPECT_EQ(IniValue("[G]\n%4=1", "G/%4"), "1");
}

TEST(IniValue, QuotesKeepWhatIsInThem) {
    EXPECT_EQ(ValueOf("\"a, b; c = d\""), "a, b; c = d");
    EXPECT_EQ(ValueOf("\"  \""), "  ");
    EXPECT_EQ(ValueOf("  plain  "), "plain");
    EXPECT_EQ(ValueOf(""), "");
}

TEST(IniValue, AListComesWithCommasBetween) {
    EXPECT_EQ(ValueOf("a , b,  \"c, d\""), "a,b,c, d");
}

TEST(IniValue, CommentsAreNoValues) {
    EXPECT_EQ(IniValue("[G]\n;k=1\n  ; k=2\n", "G/k"), std::nullopt);
    EXPECT_EQ(ValueOf("1 ; the rest"), "1");
    EXPECT_EQ(IniValue("[G]\n; an \" alone\nk=1\n", "G/k"), "1");
}

TEST(IniValue, MarksOfOtherTypesAreNoText) {
    EXPECT_EQ(ValueOf("@Size(3 4)"), std::nullopt);
    EXPECT_EQ(ValueOf("@Invalid()"), std::nullopt);
    EXPECT_EQ(ValueOf("@@Invalid()"), "@Invalid()");
    EXPECT_EQ(ValueOf("@String(x)"), "x");
    EXPECT_EQ(ValueOf("@ByteArray(x)"), "x");
}

TEST(IniValue, LinesMayEndInCarriageReturns) {
    EXPECT_EQ(IniValue("[G]\r\nk=1\r\n", "G/k"), "1");
}

TEST(WithIniValue, ReplacesTheLineAndLeavesTheRest) {
    EXPECT_EQ(WithIniValue("; mine\n[G]\nK = 1 ; old\nx=2\n", "g/k", "3"),
              "; mine\n[G]\nK=3\nx=2\n");
}

TEST(WithIniValue, JoinsTheGroupOrMakesIt) {
    EXPECT_EQ(WithIniValue("[G]\na=1\n\n[H]\nb=2\n", "G/k", "3"), "[G]\na=1\nk=3\n\n[H]\nb=2\n");
    EXPECT_EQ(WithIniValue("[G]\na=1", "H/k", "3"), "[G]\na=1\n\n[H]\nk=3\n");
    EXPECT_EQ(WithIniValue("", "k", "3"), "[General]\nk=3\n");
    EXPECT_EQ(WithIniValue("", "General/k", "3"), "[%General]\nk=3\n");
    EXPECT_EQ(WithIniValue("[G]\n", "G/k", "3"), "[G]\nk=3\n");
}

TEST(WithIniValue, WritesSoThatItIsReadBack) {
    for (const std::string& value :
         {Utf8(u8"北京, 海淀"), std::string(" a "), std::string("a;b=c,\"d\"\\"),
          std::string("x\0f\1", 4), std::string("@Size(1 2)"), std::string("\n\r\t")}) {
        EXPECT_EQ(IniValue(WithIniValue("", "G/k", value), "G/k"), value);
    }
}

TEST(WithoutIniValue, TakesEveryLineOfThePlace) {
    EXPECT_EQ(WithoutIniValue("[G]\nk=1\nx=2\nK=3\n", "G/k"), "[G]\nx=2\n");
    EXPECT_EQ(WithoutIniValue("[G]\nx=2", "G/k"), "[G]\nx=2");
}

}  // namespace
}  // namespace quorvi

#include <gtest/gtest.h>

#include <limits>
#include <thread>

#include "base/Text.h"

namespace quorvi {
namespace {

// Puts the code page back at the end of a test.
class InGb18030 : public testing::Test {
  protected:
    void SetUp() override { SetCodePage(CodePage::gb18030); }
    void TearDown() override { SetCodePage(CodePage::gbk); }
};

TEST(Text, ChineseIsHeldInCodePage936) {
    EXPECT_EQ(Ansi(u8"连接"), "\xC1\xAC\xBD\xD3");  // 连 C1AC, 接 BDD3
    EXPECT_EQ(ToUtf8("\xC1\xAC\xBD\xD3"), "连接");
}

TEST(Text, ConversionInPlaceChangesTheLengthInBytes) {
    std::string text = "张三";  // 3 bytes a character
    Utf8ToAnsi(text);
    EXPECT_EQ(text, "\xD5\xC5\xC8\xFD");  // 2 bytes a character
    AnsiToUtf8(text);
    EXPECT_EQ(text, "张三");
}

TEST(Text, AnEmptyTextStaysEmpty) {
    std::string text;
    Utf8ToAnsi(text);
    EXPECT_EQ(text, "");
    AnsiToUtf8(text);
    EXPECT_EQ(text, "");
}

TEST(Text, PureAsciiStaysAsItIs) {
    std::string ascii;
    for (char c = 0; c < 127; ++c) {
        ascii += c;
    }
    EXPECT_EQ(ToAnsi(ascii), ascii);
    EXPECT_EQ(ToUtf8(ascii), ascii);
}

TEST(Text, ACharacterThatTheCodePageLacksBecomesTheDefaultCharacterAndTheLengthChanges) {
    const std::string utf8 = "a\xF0\x9F\x98\x80z";  // a, U+1F600 in 4 bytes, z
    EXPECT_EQ(ToAnsi(utf8), "a?z");
    EXPECT_EQ(ToAnsi("\xE0\xB8\x81"), "?");  // U+0E01, Thai
    // What was lost on the way in does not come back.
    EXPECT_EQ(ToUtf8(ToAnsi(utf8)), "a?z");
}

TEST(Text, AnInvisibleCharacterThatTheCodePageLacksIsNotDropped) {
    EXPECT_EQ(ToAnsi("a\xC2\xADz"), "a?z");      // U+00AD, soft hyphen
    EXPECT_EQ(ToAnsi("a\xE2\x80\x8Dz"), "a?z");  // U+200D, joiner
    EXPECT_EQ(ToAnsi("a\xEF\xB8\x8Fz"), "a?z");  // U+FE0F, variation selector
    EXPECT_EQ(ToAnsi("\xEF\xBB\xBFz"), "?z");    // U+FEFF, byte order mark
}

TEST(Text, NoLookAlikeStandsInForACharacterThatTheCodePageLacks) {
    EXPECT_EQ(ToAnsi("\xC3\xB1"), "?");  // U+00F1, n with tilde
    EXPECT_EQ(ToAnsi("\xC2\xA9"), "?");  // U+00A9, copyright sign
}

TEST(Text, TheEuroSignIsOneByteOfCodePage936) {
    EXPECT_EQ(ToAnsi("€"), "\x80");
    EXPECT_EQ(ToUtf8("\x80"), "€");
}

TEST(Text, CodePage936HasTheDashAndTheDotThatItsSystemsShow) {
    EXPECT_EQ(ToUtf8("\xA1\xAA"), "\xE2\x80\x94");  // U+2014, em dash
    EXPECT_EQ(ToUtf8("\xA1\xA4"), "\xC2\xB7");      // U+00B7, middle dot
}

TEST(Text, EachMalformedSequenceOfUtf8BecomesTheDefaultCharacter) {
    EXPECT_EQ(ToAnsi("a\xFFz"), "a?z");    // no first byte of any character
    EXPECT_EQ(ToAnsi("a\x80z"), "a?z");    // a continuation with nothing in front
    EXPECT_EQ(ToAnsi("a\xE8\xBF"), "a?");  // cut after two bytes of three
    EXPECT_EQ(ToAnsi("\xC0\x80").find('\0'), std::string::npos);  // zero in too many bytes
}

TEST(Text, ASequenceThatIsNoCharacterOfTheCodePageBecomesTheReplacement) {
    EXPECT_EQ(ToUtf8("a\xC1"), "a\xEF\xBF\xBD");  // a first byte with nothing behind: U+FFFD
}

TEST(Text, AZeroByteInsideATextIsKept) {
    using namespace std::string_literals;
    EXPECT_EQ(ToAnsi("张\0三"s), "\xD5\xC5\0\xC8\xFD"s);
}

TEST(Text, ALongTextIsConvertedWholeWhereverItsPiecesEnd) {
    for (const std::size_t shift : {0U, 1U, 2U}) {
        std::string utf8(shift, 'x');
        std::string ansi(shift, 'x');
        for (int i = 0; i < 100'000; ++i) {
            utf8 += "张";
            ansi += "\xD5\xC5";
        }
        EXPECT_TRUE(ToAnsi(utf8) == ansi) << shift;
        EXPECT_TRUE(ToUtf8(ansi) == utf8) << shift;
    }
}

TEST(Text, ALongTextOfStrayContinuationBytesIsConverted) {
    EXPECT_TRUE(ToAnsi(std::string(200'000, '\x80')) == std::string(200'000, '?'));
}

TEST(Text, ThreadsConvertAtTheSameTime) {
    const auto convert = [] {
        for (int i = 0; i < 2000; ++i) {
            ASSERT_EQ(ToUtf8(ToAnsi("连接")), "连接");
        }
    };
    std::thread other(convert);
    convert();
    other.join();
}

TEST_F(InGb18030, NoCharacterIsLost) {
    for (const std::string_view text :
         {"\xF0\x9F\x98\x80", "\xC3\xB1", "\xE0\xB8\x81", "€", "连接"}) {
        EXPECT_EQ(ToUtf8(ToAnsi(text)), text);
    }
    EXPECT_EQ(ToAnsi("\xF0\x9F\x98\x80"), "\x94\x39\xFC\x36");  // U+1F600
}

TEST_F(InGb18030, ASequenceOfCodePage936MeansTheSame) {
    EXPECT_EQ(Ansi(u8"连接"), "\xC1\xAC\xBD\xD3");
    EXPECT_EQ(ToUtf8("\xC1\xAC\xBD\xD3"), "连接");
}

TEST_F(InGb18030, ALongTextOfFourByteCharactersIsConvertedWhole) {
    std::string utf8 = "x";
    for (int i = 0; i < 50'000; ++i) {
        utf8 += "\xF0\x9F\x98\x80";
    }
    EXPECT_TRUE(ToUtf8(ToAnsi(utf8)) == utf8);
}

TEST(SplitAt, SeparatorsGiveOnePieceMore) {
    EXPECT_EQ(SplitAt("a\n\nb", '\n'), (std::vector<std::string_view>{"a", "", "b"}));
    EXPECT_EQ(SplitAt("a\n", '\n'), (std::vector<std::string_view>{"a", ""}));
    EXPECT_EQ(SplitAt("", '\n'), (std::vector<std::string_view>{""}));
}

TEST(Trim, BlanksTabsAndLineEndsGoFromBothSides) {
    EXPECT_EQ(Trim(" \t a b\r\n"), "a b");
    EXPECT_EQ(Trim(" \r\n"), "");
    EXPECT_EQ(TrimRight(" a \r"), " a");
    EXPECT_EQ(TrimRight(""), "");
}

TEST(ToLower, OnlyAsciiLettersChange) {
    EXPECT_EQ(ToLower("HTC-\xD6\xD0Z"), "htc-\xD6\xD0z");
    EXPECT_TRUE(EqualsNoCase("Refresh", "rEFRESH"));
    EXPECT_FALSE(EqualsNoCase("Refresh", "Refres"));
}

TEST(ReplaceAll, EachOccurrenceIsReplacedOnce) {
    EXPECT_EQ(ReplaceAll("a-b-c", "-", "--"), "a--b--c");
    EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(ReplaceAll("device", "device", ""), "");
}

TEST(ToInt, ReadsTheNumberAtTheStart) {
    EXPECT_EQ(ToInt("15"), 15);
    EXPECT_EQ(ToInt(" \t-7 %"), -7);
    EXPECT_EQ(ToInt("+3"), 3);
    EXPECT_EQ(ToInt("12ab"), 12);
}

TEST(ToInt, NoNumberIsZero) {
    EXPECT_EQ(ToInt(""), 0);
    EXPECT_EQ(ToInt("  "), 0);
    EXPECT_EQ(ToInt("-"), 0);
    EXPECT_EQ(ToInt("x1"), 0);
    EXPECT_EQ(ToInt("--1"), 0);
}

TEST(ToInt, ANumberBeyond32BitsStaysAtTheNearestEnd) {
    EXPECT_EQ(ToInt("2147483648"), std::numeric_limits<int>::max());
    EXPECT_EQ(ToInt("-2147483648"), std::numeric_limits<int>::min());
    EXPECT_EQ(ToInt("-99999999999999999999"), std::numeric_limits<int>::min());
}

TEST(Text, OnlyWhatComesBackAsItWasFitsTheCodePage) {
    EXPECT_TRUE(FitsCodePage(""));
    EXPECT_TRUE(FitsCodePage("A?"));
    EXPECT_TRUE(FitsCodePage("连接？"));
    EXPECT_FALSE(FitsCodePage("\xF0\x9F\x8E\x88"));  // a balloon
    EXPECT_FALSE(FitsCodePage("\xFF"));
}

TEST_F(InGb18030, EveryCharacterFits) {
    EXPECT_TRUE(FitsCodePage("\xF0\x9F\x8E\x88"));
    EXPECT_FALSE(FitsCodePage("\xFF"));
}

}  // namespace
}  // namespace quorvi

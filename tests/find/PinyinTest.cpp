#include <gtest/gtest.h>

#include <set>
#include <string>

#include "find/Pinyin.h"

namespace quorvi {
namespace {

std::set<std::string> Readings(char32_t character) {
    std::set<std::string> readings;
    std::string_view left = ReadingsOf(character);
    while (!left.empty()) {
        const std::size_t end = std::min(left.find(' '), left.size());
        readings.emplace(left.substr(0, end));
        left.remove_prefix(std::min(end + 1, left.size()));
    }
    return readings;
}

TEST(Pinyin, ACharacterHasItsReadingWithoutTones) {
    EXPECT_EQ(ReadingsOf(U'林'), "lin");
    EXPECT_EQ(ReadingsOf(U'远'), "yuan");
    EXPECT_EQ(ReadingsOf(U'舟'), "zhou");
    EXPECT_EQ(ReadingsOf(U'遠'), "yuan");  // and so has the old form
}

TEST(Pinyin, ASurnameIsReadInBothWays) {
    EXPECT_EQ(Readings(U'曾'), (std::set<std::string>{"ceng", "zeng"}));
    EXPECT_EQ(Readings(U'仇'), (std::set<std::string>{"chou", "qiu"}));
    EXPECT_EQ(Readings(U'解'), (std::set<std::string>{"jie", "xie"}));
    EXPECT_TRUE(Readings(U'单').contains("shan"));
    EXPECT_TRUE(Readings(U'单').contains("dan"));
}

TEST(Pinyin, ACharacterOfSeveralReadingsHasThem) {
    EXPECT_TRUE(Readings(U'重').contains("zhong"));
    EXPECT_TRUE(Readings(U'重').contains("chong"));
    EXPECT_TRUE(Readings(U'乐').contains("le"));
    EXPECT_TRUE(Readings(U'乐').contains("yue"));
    EXPECT_TRUE(Readings(U'行').contains("hang"));
}

TEST(Pinyin, AnUmlautIsTypedAsVAndAsU) {
    EXPECT_EQ(ReadingsOf(U'吕'), "lv lu");
    EXPECT_EQ(ReadingsOf(U'女'), "nv nu");
    EXPECT_EQ(ReadingsOf(U'鲁'), "lu");
}

TEST(Pinyin, WhatIsNoCharacterHasNone) {
    for (const char32_t character : {U'a', U'1', U'。', U'Ａ', char32_t{0x33FF}, char32_t{0xA000},
                                     char32_t{0x20000}, char32_t{0x10FFFF}, char32_t{0}}) {
        EXPECT_EQ(ReadingsOf(character), "") << static_cast<unsigned>(character);
    }
}

TEST(Pinyin, EveryReadingIsMadeOfSmallLetters) {
    std::size_t known = 0;
    for (char32_t character = 0x3400; character < 0xA000; ++character) {
        const std::string_view readings = ReadingsOf(character);
        EXPECT_EQ(readings.find_first_not_of("abcdefghijklmnopqrstuvwxyz "),
                  std::string_view::npos);
        known += readings.empty() ? 0 : 1;
    }
    EXPECT_GT(known, 20'000U);
}

}  // namespace
}  // namespace quorvi

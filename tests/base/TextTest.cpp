#include <gtest/gtest.h>

#include "base/Text.h"

namespace quorvi {
namespace {

TEST(Text, ChineseIsHeldInCodePage936) {
    EXPECT_EQ(Ansi(u8"连接"), "\xC1\xAC\xBD\xD3");  // 连 C1AC, 接 BDD3
    EXPECT_EQ(ToUtf8("\xC1\xAC\xBD\xD3"), "连接");
}

TEST(Text, ACharacterThatTheCodePageLacksBecomesAQuestionMark) {
    EXPECT_EQ(ToAnsi("a\xF0\x9F\x98\x80z"), "a?z");
}

TEST(Text, TheEuroSignIsOneByteOfCodePage936) {
    EXPECT_EQ(ToAnsi("€"), "\x80");
}

}  // namespace
}  // namespace quorvi

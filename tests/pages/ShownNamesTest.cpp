// Names from a phone in sentences of the program.
#include <gtest/gtest.h>

#include "pages/kit/ShownNames.h"
#include "tests/support/PrintQt.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

QStringList Names(const char8_t* words) {
    return ToQString(words).split(u' ');
}

TEST(ShownNames, FiveAreNamedAndOfMoreTheNumberIsTold) {
    EXPECT_EQ(NamesInWords({}), QString());
    EXPECT_EQ(NamesInWords(Names(u8"张三")), ToQString(u8"张三"));
    EXPECT_EQ(NamesInWords(Names(u8"张三 李四 王五 赵六 钱七")),
              ToQString(u8"张三、李四、王五、赵六、钱七"));
    EXPECT_EQ(NamesInWords(Names(u8"张三 李四 王五 赵六 钱七 孙八")),
              ToQString(u8"张三、李四、王五、赵六、钱七… 等 6 个"));
}

TEST(ShownNames, WhatHasNoNameIsSaidToHaveNone) {
    EXPECT_EQ(NamesInWords({QString(), QStringLiteral(" ")}),
              ToQString(u8"（没有名称）、（没有名称）"));
}

TEST(ShownNames, ALongNameIsCutBetweenCharacters) {
    EXPECT_EQ(ShortName(QString(16, u'a')), QString(16, u'a'));
    EXPECT_EQ(ShortName(QString(1'000'000, u'a')), QString(16, u'a') + u'…');
    const QString split = QString(15, u'a') + QStringLiteral("😀😀");
    EXPECT_EQ(ShortName(split), QString(15, u'a') + u'…');
}

TEST(ShownNames, NothingInANameBreaksTheLineOrTurnsRoundTheSentence) {
    EXPECT_EQ(ShortName(QStringLiteral("a\n\tb\u2028c")), QStringLiteral("a  b c"));
    EXPECT_EQ(ShortName(QStringLiteral("a\u202Eb\u2067c")), QStringLiteral("abc"));
    const QString hebrew = QStringLiteral("\u05D0\u05D1");
    EXPECT_EQ(ShortName(hebrew), QChar(0x2068) + hebrew + QChar(0x2069));
}

}  // namespace
}  // namespace quorvi

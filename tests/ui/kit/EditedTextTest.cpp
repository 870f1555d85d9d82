#include <gtest/gtest.h>

#include "ui/kit/EditedText.h"

namespace quorvi {
namespace {

const ShownText kNote{QStringLiteral("a\r\nb\rc\u00A0d"), QStringLiteral("a\nb\nc d")};

TEST(EditedText, WhatIsShownStandsForWhatWasLoaded) {
    EXPECT_EQ(EditedText(kNote, kNote.shown), kNote.loaded);
}

TEST(EditedText, BothEndsOfAChangeStayAsTheyWere) {
    EXPECT_EQ(EditedText(kNote, QStringLiteral("a\nbX\nc d")), QStringLiteral("a\r\nbX\rc\u00A0d"));
    EXPECT_EQ(EditedText(kNote, QStringLiteral("Xa\nb\nc d")), QStringLiteral("Xa\r\nb\rc\u00A0d"));
    EXPECT_EQ(EditedText(kNote, QStringLiteral("a\nb\nc dX")), QStringLiteral("a\r\nb\rc\u00A0dX"));
    EXPECT_EQ(EditedText(kNote, QStringLiteral("ab\nc d")), QStringLiteral("ab\rc\u00A0d"));
    EXPECT_EQ(EditedText(kNote, QStringLiteral("a\n\nb\nc d")),
              QStringLiteral("a\r\n\nb\rc\u00A0d"));
}

TEST(EditedText, NothingOrAnotherTextIsWhatItIs) {
    EXPECT_EQ(EditedText(kNote, QString()), QString());
    EXPECT_EQ(EditedText(kNote, QStringLiteral("xyz")), QStringLiteral("xyz"));
    EXPECT_EQ(EditedText({}, QStringLiteral("x\r\ny")), QStringLiteral("x\r\ny"));
}

TEST(EditedText, RepeatedCharactersAreNotCountedTwice) {
    const ShownText twice{QStringLiteral("a\r\na"), QStringLiteral("a\na")};
    EXPECT_EQ(EditedText(twice, QStringLiteral("a")), QStringLiteral("a"));
    EXPECT_EQ(EditedText(twice, QStringLiteral("a\na\na")), QStringLiteral("a\r\na\na"));
}

TEST(EditedText, TextThatIsShownInAnUnknownWayIsTakenFromTheField) {
    const ShownText cut{QStringLiteral("abc"), QStringLiteral("ab")};
    EXPECT_EQ(EditedText(cut, QStringLiteral("ab")), QStringLiteral("abc"));
    EXPECT_EQ(EditedText(cut, QStringLiteral("abx")), QStringLiteral("abx"));
}

}  // namespace
}  // namespace quorvi

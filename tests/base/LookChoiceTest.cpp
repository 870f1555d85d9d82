#include <gtest/gtest.h>

#include "base/LookChoice.h"
#include "tests/support/MemorySettings.h"

namespace quorvi {
namespace {

TEST(LookChoice, WithoutAChoiceTheDesktopIsFollowedAndTextHasItsUsualSize) {
    const MemorySettings settings;
    EXPECT_EQ(ChosenLook(settings), LookChoice::system);
    EXPECT_EQ(ChosenTextPercent(settings), 100);
}

TEST(LookChoice, WhatWasChosenIsFoundAgain) {
    MemorySettings settings;
    for (const LookChoice look :
         {LookChoice::light, LookChoice::dark, LookChoice::contrast, LookChoice::system}) {
        ChooseLook(settings, look);
        EXPECT_EQ(ChosenLook(settings), look);
    }
    for (const int percent : kTextPercents) {
        ChooseTextPercent(settings, percent);
        EXPECT_EQ(ChosenTextPercent(settings), percent);
    }
}

TEST(LookChoice, WhatCannotBeChosenCountsForNothing) {
    MemorySettings settings;
    settings.WriteText(kSettingsKey, "look", "sepia");
    settings.WriteNumber(kSettingsKey, "text_percent", 1000);
    EXPECT_EQ(ChosenLook(settings), LookChoice::system);
    EXPECT_EQ(ChosenTextPercent(settings), 100);
}

}  // namespace
}  // namespace quorvi

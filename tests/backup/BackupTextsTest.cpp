#include <gtest/gtest.h>

#include <array>

#include "backup/BackupTexts.h"
#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::array kTwo{BackupKind::groups, BackupKind::messages};

TEST(BackupTexts, DigitsStandInThrees) {
    EXPECT_EQ(GroupedDigits(0), "0");
    EXPECT_EQ(GroupedDigits(999), "999");
    EXPECT_EQ(GroupedDigits(1000), "1,000");
    EXPECT_EQ(GroupedDigits(12'400'000), "12,400,000");
}

TEST(BackupTexts, ProgressNamesTheKind) {
    EXPECT_EQ(SavingText({BackupKind::messages, 7688, 12400}),
              Ansi(u8"正在保存短信 7,688 / 12,400"));
}

TEST(BackupTexts, EachKindCountsAlike) {
    EXPECT_EQ(PercentSaved({BackupKind::groups, 0, 8}, kTwo), 0);
    EXPECT_EQ(PercentSaved({BackupKind::groups, 4, 8}, kTwo), 25);
    EXPECT_EQ(PercentSaved({BackupKind::messages, 0, 100}, kTwo), 50);
    EXPECT_EQ(PercentSaved({BackupKind::messages, 100, 100}, kTwo), 100);
}

TEST(BackupTexts, PercentStaysWithinItsBounds) {
    EXPECT_EQ(PercentSaved({BackupKind::groups, 0, 0}, kTwo), 0);
    EXPECT_EQ(PercentSaved({BackupKind::messages, 200, 100}, kTwo), 100);
    EXPECT_EQ(PercentSaved({BackupKind::groups, 1, 1}, {}), 0);
}

TEST(BackupTexts, HowFarItCameNamesTheKindThatDidNotEnd) {
    BackupResult result;
    EXPECT_EQ(ReachedText(result), "");
    result.manifest.kinds = {{BackupKind::groups, 8, "", {}}};
    result.reached = {BackupKind::contacts, 12, 48};
    EXPECT_EQ(ReachedText(result), Ansi(u8"已读取 联系人分组 8，联系人 12/48"));
}

TEST(BackupTexts, WhatWasSkippedIsNamedWithItsReason) {
    Manifest manifest;
    manifest.skippedCount = 3;
    manifest.skipped = {{BackupKind::contacts, "Anna", "why"}};
    EXPECT_EQ(SkippedText(manifest), Ansi(u8"联系人 Anna: why\n还有 2 项\n"));
}

}  // namespace
}  // namespace quorvi

#include <gtest/gtest.h>

#include <array>

#include "ui/list/ColumnWidths.h"

namespace quorvi {
namespace {

using Widths = std::vector<int>;

enum Column { columnPhoto, columnName, columnStar, columnTime, columnTick, columnHidden };
constexpr std::array<ListColumn, 6> kColumns{{
    {u8"头像", 60, CellKind::picture},
    {.caption = u8"联系人", .width = 140, .kind = CellKind::twoLines, .name = true},
    {u8"收藏", 44, CellKind::star},
    {u8"时间", 150, CellKind::twoSmallLines},
    {u8"选择", 44, CellKind::check},
    {u8"", 0},
}};
constexpr int kRoom = 438;  // all of them as they are told
const Widths kTold{60, 140, 44, 150, 44, 0};

// A list without a column of names.
constexpr std::array<ListColumn, 3> kPlain{{
    {u8"甲", 100, CellKind::text},
    {u8"乙", 100, CellKind::text},
    {u8"丙", 100, CellKind::text},
}};

TEST(ColumnWidths, UntouchedAllAreAsToldAndTheNamesTakeTheRest) {
    const ColumnWidths widths(kColumns);
    EXPECT_EQ(widths.Laid(kRoom), kTold);
    EXPECT_EQ(widths.Laid(kRoom + 200), (Widths{60, 340, 44, 150, 44, 0}));
    EXPECT_TRUE(widths.AreTold());
    EXPECT_EQ(widths.Text(), "");
}

TEST(ColumnWidths, UntouchedTheNamesGiveUpToHalfOfTheirsInANarrowList) {
    const ColumnWidths widths(kColumns);
    EXPECT_EQ(widths.Laid(kRoom - 50), (Widths{60, 90, 44, 150, 44, 0}));
    EXPECT_EQ(widths.Laid(100), (Widths{60, 70, 44, 150, 44, 0}));
    EXPECT_EQ(widths.Laid(kRoom), kTold);
}

TEST(ColumnWidths, ABorderFollowsTheMouseAndTheNamesGiveTheRoom) {
    ColumnWidths widths(kColumns);
    widths.Drag(columnStar, kTold, -30);
    EXPECT_EQ(widths.Laid(kRoom), (Widths{60, 110, 44, 180, 44, 0}));
    widths.Drag(columnStar, kTold, 30);
    EXPECT_EQ(widths.Laid(kRoom), (Widths{60, 170, 44, 120, 44, 0}));
}

TEST(ColumnWidths, TheBorderBehindTheNamesMovesTheNextColumnOfWords) {
    ColumnWidths widths(kColumns);
    EXPECT_EQ(widths.MovedBy(columnName), columnTime);
    widths.Drag(columnName, kTold, 40);
    EXPECT_EQ(widths.Laid(kRoom), (Widths{60, 180, 44, 110, 44, 0}));
}

TEST(ColumnWidths, NoColumnGetsNarrowerThanItsHeadAndAllStayInTheList) {
    for (const int by : {-1000, 1000}) {
        ColumnWidths widths(kColumns);
        widths.Drag(columnName, kTold, by);
        const Widths laid = widths.Laid(kRoom);
        EXPECT_EQ(laid[columnName] + laid[columnTime], 290);
        EXPECT_EQ(by < 0 ? laid[columnName] : laid[columnTime], 60);
    }
}

TEST(ColumnWidths, PicturesAndTicksAreNotMoved) {
    ColumnWidths widths(kColumns);
    EXPECT_EQ(widths.MovedBy(columnPhoto), -1);
    EXPECT_EQ(widths.MovedBy(columnTime), -1);
    widths.Drag(columnTime, kTold, 20);
    EXPECT_TRUE(widths.AreTold());
}

TEST(ColumnWidths, WithoutNamesTheLastColumnGivesTheRoom) {
    ColumnWidths widths(kPlain);
    widths.Drag(0, widths.Laid(300), 30);
    EXPECT_EQ(widths.Laid(300), (Widths{130, 100, 70}));
    widths.Drag(1, widths.Laid(300), -20);
    EXPECT_EQ(widths.Laid(300), (Widths{130, 80, 90}));
}

TEST(ColumnWidths, InANarrowerListWhatWasWidenedGivesWay) {
    ColumnWidths widths(kColumns);
    widths.Drag(columnStar, widths.Laid(kRoom + 400), -300);
    EXPECT_EQ(widths.Laid(kRoom + 400), (Widths{60, 240, 44, 450, 44, 0}));
    EXPECT_EQ(widths.Laid(kRoom), (Widths{60, 60, 44, 230, 44, 0}));
    EXPECT_EQ(widths.Laid(kRoom + 400), (Widths{60, 240, 44, 450, 44, 0}));
}

TEST(ColumnWidths, ARestoredColumnIsAsTold) {
    ColumnWidths widths(kColumns);
    widths.Drag(columnStar, kTold, -30);
    widths.Restore(columnTime);
    EXPECT_TRUE(widths.AreTold());
    EXPECT_EQ(widths.Laid(kRoom), kTold);
}

TEST(ColumnWidths, WhatIsKeptIsTakenOverAgain) {
    ColumnWidths widths(kColumns);
    widths.Drag(columnStar, kTold, -30);
    ColumnWidths again(kColumns);
    EXPECT_TRUE(again.Read(widths.Text()));
    EXPECT_EQ(again.Laid(kRoom), widths.Laid(kRoom));
}

TEST(ColumnWidths, WhatIsNoneOfTheListsWidthsChangesNothing) {
    for (const std::string_view text :
         {"", "60", "60 140 44 180 44 0 0", "60 140 44 180 44", "60 140 44 5 44 0",
          "60 140 44 99999 44 0", "60 140 50 180 44 0", "60 140 44 180 44 x", "60  140 44 180 44 0",
          "60 140 44 180 44 99999999999999999999"}) {
        ColumnWidths widths(kColumns);
        EXPECT_FALSE(widths.Read(text)) << text;
        EXPECT_TRUE(widths.AreTold()) << text;
    }
}

}  // namespace
}  // namespace quorvi

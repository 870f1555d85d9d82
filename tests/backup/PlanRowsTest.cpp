#include <gmock/gmock.h>

#include "backup/PlanRows.h"
#include "base/Text.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::Field;

RestorePlan Plan() {
    RestorePlan plan;
    plan.items = {
        {BackupKind::groups, RestoreAction::there, "friends", {}, {}},
        {BackupKind::groups, RestoreAction::add, "family", {}, GroupToAdd{"family"}},
        {BackupKind::contacts, RestoreAction::change, "Anna", "why", CardToComplete{0, 7}},
        {BackupKind::contacts, RestoreAction::add, "Bert", {}, CardToAdd{1}},
        {BackupKind::messages, RestoreAction::impossible, Ansi(u8"短信 12400"), "why", {}},
    };
    return plan;
}

TEST(PlanRows, WhatIsImpossibleStandsFirstAndWhatIsThereLast) {
    EXPECT_THAT(
        PlanRowsOf(Plan()),
        ElementsAre(Field(&PlanRow::action, RestoreAction::impossible),
                    Field(&PlanRow::action, RestoreAction::change), Field(&PlanRow::what, "family"),
                    Field(&PlanRow::what, "Bert"), Field(&PlanRow::action, RestoreAction::there)));
}

TEST(PlanRows, OrderIsThatOfTheRestore) {
    const auto rows = PlanRowsOf(Plan());
    EXPECT_EQ(rows[1].order, 1u);  // Anna, who is completed after the group is added
    EXPECT_EQ(rows[2].order, 0u);
    EXPECT_EQ(rows[3].order, 2u);
}

TEST(PlanRows, AWholeKindIsItsCount) {
    EXPECT_EQ(PlanRowsOf(Plan())[0].what, Ansi(u8"12,400 项"));
}

TEST(PlanRows, AnItemThatIsCalledLikeItsKindKeepsItsName) {
    RestorePlan plan;
    plan.items = {{BackupKind::alarms, RestoreAction::impossible, Ansi(u8"闹铃 响"), "", {}}};
    EXPECT_EQ(PlanRowsOf(plan)[0].what, Ansi(u8"闹铃 响"));
}

TEST(PlanRows, EachRowHasItsReasonInWords) {
    const auto rows = PlanRowsOf(Plan());
    EXPECT_EQ(rows[1].why, "why");
    EXPECT_EQ(rows[2].why, Ansi(u8"手机里没有，新建一个"));
    EXPECT_EQ(rows[4].why, Ansi(u8"手机里已有，不会改动"));
}

TEST(PlanRows, WhatIsDoneIsCalledSo) {
    EXPECT_EQ(ActionName(RestoreAction::add), Ansi(u8"新增"));
    EXPECT_EQ(ActionName(RestoreAction::add, true), Ansi(u8"已新增"));
    EXPECT_EQ(ActionName(RestoreAction::change, true), Ansi(u8"已补充"));
}

}  // namespace
}  // namespace quorvi

// What a list counts, in words, and when it says so.
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "tests/support/QtTest.h"
#include "tests/support/SampleList.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

class ListCount : public QtTest {
  protected:
    SampleListCtrl list_;
};

TEST_F(ListCount, NamesItsRowsAndThoseThatAreTicked) {
    list_.SetRecords(SampleRecords(7));
    list_.SetTicked(3, true);
    list_.SetTicked(5, true);
    list_.SetTicked(5, true);
    EXPECT_EQ(list_.CountText(), ToQString(u8"共 7 项 · 已选 2 项"));
    EXPECT_EQ(list_.TickedCount(), 2);
}

TEST_F(ListCount, SetsThousandsApart) {
    list_.SetRecords(SampleRecords(3000));
    list_.TickAll(true);
    EXPECT_EQ(list_.CountText(), ToQString(u8"共 3,000 项 · 已选 3,000 项"));
}

TEST_F(ListCount, FollowsARowThatIsTakenAwayTickedOrNot) {
    list_.SetRecords(SampleRecords(5));
    list_.SetTicked(1, true);
    list_.Remove(0);
    EXPECT_EQ(list_.CountText(), ToQString(u8"共 4 项 · 已选 1 项"));
    list_.Remove(0);  // the ticked one, which has moved up
    EXPECT_EQ(list_.CountText(), ToQString(u8"共 3 项 · 已选 0 项"));
    list_.Append({});
    EXPECT_EQ(list_.CountText(), ToQString(u8"共 4 项 · 已选 0 项"));
}

TEST_F(ListCount, ForgetsTheTicksOfRowsThatWereReplaced) {
    list_.SetRecords(SampleRecords(5));
    list_.TickAll(true);
    list_.SetRecords(SampleRecords(2));
    EXPECT_EQ(list_.CountText(), ToQString(u8"共 2 项 · 已选 0 项"));
}

TEST_F(ListCount, IsEmptyWhereThereIsNothingToCount) {
    EXPECT_EQ(list_.CountText(), QString());
    list_.SetRecords(SampleRecords(5));
    list_.SetState(ListState::loading);
    EXPECT_EQ(list_.CountText(), QString());
    list_.SetState(ListState::failed);
    EXPECT_EQ(list_.CountText(), QString());
    list_.SetState(ListState::idle);
    list_.SetRedraw(false);
    EXPECT_EQ(list_.CountText(), QString());
    list_.SetRedraw(true);
    EXPECT_NE(list_.CountText(), QString());
}

constexpr std::array<ListColumn, 1> kWithoutTicks{{{u8"名称", 100}}};

class WithoutTicks : public RecordListCtrl<SampleRecord> {
  public:
    WithoutTicks() : RecordListCtrl(kWithoutTicks, look::Metric::rowCompact) {}

  protected:
    [[nodiscard]] Cell CellOf(const SampleRecord& record, int) const override {
        return {.text = record.name};
    }
};

TEST_F(ListCount, SaysNothingOfTicksWhereThereAreNone) {
    WithoutTicks list;
    list.SetRecords(SampleRecords(2));
    EXPECT_EQ(list.CountText(), ToQString(u8"共 2 项"));
}

TEST_F(ListCount, IsToldOnceForAllThatChangesInOneTurn) {
    list_.SetRecords(SampleRecords(1));
    QCoreApplication::processEvents();
    QSignalSpy told(&list_, &CSkinListCtrl::countChanged);
    list_.SetRecords(SampleRecords(3000));
    list_.TickAll(true);
    EXPECT_EQ(told.count(), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(told.count(), 1);
    list_.SetTicked(0, false);
    QCoreApplication::processEvents();
    EXPECT_EQ(told.count(), 2);
}

}  // namespace
}  // namespace quorvi

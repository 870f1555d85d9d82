#include <gtest/gtest.h>

#include <array>

#include "base/Text.h"
#include "pages/alarms/AlarmList.h"
#include "tests/pages/alarms/AlarmReplies.h"

namespace quorvi {
namespace {

AlarmList Parse(const WireBytes& bytes) {
    return ParseAlarmList(bytes.Buffer());
}

TEST(AlarmReading, ReadsEachFieldOfARow) {
    const AlarmList list = Parse(AlarmsPayload(
        {{0x500000009, 21, 3, 0x41, 1, 0, "晚报", "铃声二", 1308361330999, "content://x"}}));
    EXPECT_FALSE(list.EndedByMark());
    ASSERT_EQ(list.rows.size(), 1u);
    const AlarmRow& row = list.rows[0];
    EXPECT_EQ(row.id, 9u);  // the low 32 bits
    EXPECT_EQ(row.hour, 21u);
    EXPECT_EQ(row.minute, 3u);
    EXPECT_EQ(row.days, 0x41u);
    EXPECT_TRUE(row.enabled);
    EXPECT_FALSE(row.vibrate);
    EXPECT_EQ(row.label, Ansi(u8"晚报"));
    EXPECT_EQ(row.tone, Ansi(u8"铃声二"));
    EXPECT_EQ(row.alertTime, 1308361330999u);
    EXPECT_EQ(row.alert, "content://x");
}

TEST(AlarmReading, KeepsTheOrderOfTheAgent) {
    const AlarmList list = Parse(AlarmsPayload({{9}, {3}, {5}}));
    ASSERT_EQ(list.rows.size(), 3u);
    EXPECT_EQ(list.rows[0].id, 9u);
    EXPECT_EQ(list.rows[1].id, 3u);
    EXPECT_EQ(list.rows[2].id, 5u);
}

TEST(AlarmReading, OnlyAOneSwitchesOn) {
    const AlarmList list =
        Parse(AlarmsPayload({{.enabled = 2, .vibrate = 1}, {.enabled = 0, .vibrate = 0xFFFFFFFF}}));
    ASSERT_EQ(list.rows.size(), 2u);
    EXPECT_FALSE(list.rows[0].enabled);
    EXPECT_TRUE(list.rows[0].vibrate);
    EXPECT_FALSE(list.rows[1].enabled);
    EXPECT_FALSE(list.rows[1].vibrate);
}

TEST(AlarmReading, AnAbsentLabelEndsTheReadAndLeavesARowWithWhatStoodBeforeIt) {
    WireBytes bytes = AlarmsPayload({{1}});
    // A second record: id, hour, minute, days, enabled, vibrate, and no label.
    bytes.U64(2).U32(6).U32(30).U32(0).U32(1).U32(1).Absent();
    const AlarmList list = Parse(bytes);
    EXPECT_EQ(list.rows.size(), 1u);
    ASSERT_TRUE(list.EndedByMark());
    EXPECT_EQ(list.marked->id, 2u);
    EXPECT_EQ(list.marked->minute, 30u);
    EXPECT_TRUE(list.marked->vibrate);
}

TEST(AlarmReading, AbsentToneAndAlertAreEmpty) {
    WireBytes bytes;
    bytes
        .U32(0)         // leading word
        .U64(7)         // alarm id
        .U32(7)         // hour
        .U32(5)         // minute
        .U32(0)         // days
        .U32(1)         // enabled
        .U32(1)         // vibrate
        .Text("label")  // label
        .Absent()       // tone title
        .U64(8)         // alert time
        .Absent();      // alert
    const AlarmList list = Parse(bytes);
    EXPECT_FALSE(list.EndedByMark());
    ASSERT_EQ(list.rows.size(), 1u);
    EXPECT_EQ(list.rows[0].tone, "");
    EXPECT_EQ(list.rows[0].alertTime, 8u);
    EXPECT_EQ(list.rows[0].alert, "");
}

TEST(AlarmReading, ARowInWhoseIdACutReplyEndsIsDropped) {
    const std::size_t first = AlarmsPayload({{1}}).Get().size();
    const WireBytes bytes = AlarmsPayload({{1}, {0x102}});
    EXPECT_EQ(ParseAlarmList(bytes.CutAfter(first + 7)).rows.size(), 1u);  // 0x100 is another
    ASSERT_EQ(ParseAlarmList(bytes.CutAfter(first + 8)).rows.size(), 2u);
    EXPECT_EQ(ParseAlarmList(bytes.CutAfter(first + 8)).rows[1].id, 0x102u);
}

TEST(AlarmReading, ALengthThatPointsOutsideEndsTheRun) {
    WireBytes bytes = AlarmsPayload({{1}});
    // A second record, whose label is longer than the reply.
    bytes.U64(2).U32(6).U32(30).U32(0).U32(1).U32(1).U32(0x7FFFFFFF).Raw("abc");
    const AlarmList list = Parse(bytes);
    EXPECT_EQ(list.rows.size(), 1u);
    EXPECT_FALSE(list.EndedByMark());
}

TEST(AlarmText, TheTimeHasTwoDigitsEach) {
    EXPECT_EQ(AlarmTimeText(7, 5), "07:05");
    EXPECT_EQ(AlarmTimeText(0, 0), "00:00");
    EXPECT_EQ(AlarmTimeText(23, 59), "23:59");
}

TEST(AlarmText, ATimeThatIsNoneShowsAsItsNumbers) {
    EXPECT_EQ(AlarmTimeText(24, 100), "24:100");
    EXPECT_EQ(AlarmTimeText(0xFFFFFFFF, 5), "-1:05");
}

TEST(AlarmText, TheSwitchesHaveTheirWords) {
    EXPECT_EQ(AlarmStateText(true), Ansi(u8"已启用"));
    EXPECT_EQ(AlarmStateText(false), Ansi(u8"已禁用"));
    EXPECT_EQ(AlarmVibrateText(true), Ansi(u8"振动提醒"));
    EXPECT_EQ(AlarmVibrateText(false), Ansi(u8"振动关闭"));
}

TEST(AlarmRequests, DeletingCarriesTheIdsInOrder) {
    const std::array<std::uint32_t, 2> ids{7, 0x01020304};
    EXPECT_EQ(DeleteAlarmsRequest(ids), WireBytes()
                                            .U32(870405)      // code
                                            .U32(20)          // total
                                            .U32(2)           // item count
                                            .U32(7)           // first id
                                            .U32(0x01020304)  // second id
                                            .Get());
}

}  // namespace
}  // namespace quorvi

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <ctime>

#include "base/Text.h"
#include "pages/calls/CallLog.h"
#include "tests/pages/calls/CallReplies.h"

namespace quorvi {
namespace {

class CallLogReading : public testing::Test {
  protected:
    CallLogReading() {
        setenv("TZ", "Asia/Shanghai", 1);
        tzset();
    }
};

std::string Mark(std::string_view number) {
    return "<" + std::string(number) + ">";
}

CallLog Parse(const WireBytes& bytes) {
    return ParseCallLog(bytes.Buffer(), Mark);
}

TEST_F(CallLogReading, ReadsEachFieldOfARow) {
    WireBytes bytes = CallsPayload({{0x500000009, "13861234567", 1308361330999, 61, 2, "林远舟"}});
    const CallLog log = Parse(bytes);
    EXPECT_FALSE(log.EndedByMark());
    ASSERT_EQ(log.rows.size(), 1u);
    const CallLogRow& row = log.rows[0];
    EXPECT_EQ(row.id, 9u);  // the low 32 bits
    EXPECT_EQ(row.number, "13861234567");
    EXPECT_EQ(row.attribution, "<13861234567>");
    EXPECT_EQ(row.time, "2011-06-18 09:42:10");
    EXPECT_EQ(row.duration, "00:01:01\n");
    EXPECT_EQ(row.type, 2u);
    EXPECT_EQ(row.name, Ansi(u8"林远舟"));
}

TEST_F(CallLogReading, KeepsTheOrderOfTheAgent) {
    WireBytes bytes = CallsPayload({{9}, {3}, {5}});
    const CallLog log = Parse(bytes);
    ASSERT_EQ(log.rows.size(), 3u);
    EXPECT_EQ(log.rows[0].id, 9u);
    EXPECT_EQ(log.rows[1].id, 3u);
    EXPECT_EQ(log.rows[2].id, 5u);
}

TEST_F(CallLogReading, AnAbsentNumberEndsTheReadAndLeavesARowWithItsId) {
    WireBytes bytes = CallsPayload({{1}});
    bytes.U64(2).Absent();  // a second record whose number is absent
    const CallLog log = Parse(bytes);
    EXPECT_EQ(log.rows.size(), 1u);
    EXPECT_TRUE(log.EndedByMark());
    EXPECT_EQ(log.marked->id, 2u);
}

TEST_F(CallLogReading, DurationsDropTheDaysAndKeepTheLineFeed) {
    WireBytes bytes = CallsPayload({{.duration = 3'700}, {.duration = 90'000}});
    const CallLog log = Parse(bytes);
    ASSERT_EQ(log.rows.size(), 2u);
    EXPECT_EQ(log.rows[0].duration, "01:01:40\n");
    EXPECT_EQ(log.rows[1].duration, "01:00:00\n");
}

TEST_F(CallLogReading, ADateOfZeroShowsTheLocalTimeOf1970) {
    WireBytes bytes = CallsPayload({{.date = 0}});
    const CallLog log = Parse(bytes);
    ASSERT_EQ(log.rows.size(), 1u);
    EXPECT_EQ(log.rows[0].time, "1970-01-01 08:00:00");
}

TEST_F(CallLogReading, AnEmptyNameStaysEmpty) {
    WireBytes bytes = CallsPayload({{.name = ""}});
    const CallLog log = Parse(bytes);
    ASSERT_EQ(log.rows.size(), 1u);
    EXPECT_EQ(log.rows[0].name, "");
    EXPECT_EQ(log.rows[0].number, "10086");
}

TEST_F(CallLogReading, ARowInWhoseIdACutReplyEndsIsDropped) {
    const std::size_t first = CallsPayload({{1}}).Get().size();
    const WireBytes bytes = CallsPayload({{1}, {0x102}});
    EXPECT_EQ(ParseCallLog(bytes.CutAfter(first + 7), Mark).rows.size(), 1u);  // 0x100 is another
    ASSERT_EQ(ParseCallLog(bytes.CutAfter(first + 8), Mark).rows.size(), 2u);
    EXPECT_EQ(ParseCallLog(bytes.CutAfter(first + 8), Mark).rows[1].id, 0x102u);
}

TEST_F(CallLogReading, ALengthThatPointsOutsideEndsTheRun) {
    WireBytes bytes = CallsPayload({{1}});
    bytes.U64(2).U32(0x7FFFFFFF).Raw("138");  // a number longer than the reply
    const CallLog log = Parse(bytes);
    EXPECT_EQ(log.rows.size(), 1u);
    EXPECT_FALSE(log.EndedByMark());
}

TEST(CallType, HasItsTextAndAnyOtherIsUnknown) {
    EXPECT_EQ(CallTypeText(1), Ansi(u8"已接来电"));
    EXPECT_EQ(CallTypeText(2), Ansi(u8"拨出电话"));
    EXPECT_EQ(CallTypeText(3), Ansi(u8"未接来电"));
    EXPECT_EQ(CallTypeText(0), Ansi(u8"未知类型"));
    EXPECT_EQ(CallTypeText(4), Ansi(u8"未知类型"));
}

TEST(CallId, StandsWithATrailingBlankAndReadsBack) {
    EXPECT_EQ(CallIdText(7), "7 ");
    EXPECT_EQ(CallIdOf("7 "), 7u);
    EXPECT_EQ(CallIdOf(CallIdText(0xFFFFFFFE)), 0xFFFFFFFEu);
}

TEST(CallRequests, DeletingCarriesTheIdsInOrder) {
    const std::array<std::uint32_t, 2> ids{7, 0x01020304};
    EXPECT_EQ(DeleteCallsRequest(ids), WireBytes()
                                           .U32(870303)      // code
                                           .U32(20)          // total
                                           .U32(2)           // item count
                                           .U32(7)           // first id
                                           .U32(0x01020304)  // second id
                                           .Get());
}

TEST(CallRequests, DeletingAllHasACountOfOneAndNothingBehindIt) {
    EXPECT_EQ(DeleteAllCallsRequest(), WireBytes()
                                           .U32(870304)  // code
                                           .U32(12)      // total
                                           .U32(1)       // item count, of no items
                                           .Get());
}

}  // namespace
}  // namespace quorvi

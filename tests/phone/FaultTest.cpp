#include <gtest/gtest.h>

#include "phone/adb/Packet.h"
#include "phone/agent/Fault.h"
#include "tests/support/Bytes.h"

namespace quorvi::phone {
namespace {

// A payload of the strings "ab" and "c".
AgentReply Reply() {
    ReplyWriter writer;
    writer.Text("ab").Text("c");
    return writer.Take();
}

Delivery DeliverWith(const std::vector<std::string>& words) {
    const auto fault = ParseFault(words);
    EXPECT_TRUE(fault) << words[0];
    return Deliver(Reply(), fault);
}

const Bytes kWhole = Join({
    {0, 0, 0, 15},  // length
    "QVLW",         // leading word
    {0, 0, 0, 2},
    "ab",  //
    {0, 0, 0, 1},
    "c",
});

TEST(Deliver, AReplyWithoutAFaultIsWholeAndStaysOpen) {
    const Delivery delivery = Deliver(Reply(), std::nullopt);
    EXPECT_EQ(delivery.bytes, kWhole);
    EXPECT_EQ(delivery.ending, Ending::keepOpen);
}

TEST(Deliver, ACommandWithoutAReplyCloses) {
    const Delivery delivery = Deliver({}, std::nullopt);
    EXPECT_TRUE(delivery.bytes.empty());
    EXPECT_EQ(delivery.ending, Ending::close);
}

TEST(Deliver, NoDataIsTheMarkAloneBehindWhichTheConnectionEnds) {
    const Delivery delivery = DeliverWith({"nodata"});
    EXPECT_EQ(delivery.bytes, Join({{0x07, 0x5b, 0xcd, 0x17}}));
    EXPECT_EQ(delivery.ending, Ending::close);
}

TEST(Deliver, AbsentTakesTheFirstStringOut) {
    EXPECT_EQ(DeliverWith({"absent"}).bytes, Join({
                                                 {0, 0, 0, 13},
                                                 "QVLW",
                                                 {0x0d, 0xf0, 0xad, 0xba},
                                                 {0, 0, 0, 1},
                                                 "c",
                                             }));
}

TEST(Deliver, CloseSendsNothing) {
    const Delivery delivery = DeliverWith({"close"});
    EXPECT_TRUE(delivery.bytes.empty());
    EXPECT_EQ(delivery.ending, Ending::close);
}

TEST(Deliver, CutCountsTheLengthWord) {
    const Delivery delivery = DeliverWith({"cut", "6"});
    EXPECT_EQ(delivery.bytes, Join({{0, 0, 0, 15}, "QV"}));
    EXPECT_EQ(delivery.ending, Ending::close);
    EXPECT_EQ(DeliverWith({"cut", "1000"}).bytes, kWhole);
}

TEST(Deliver, ResetAndUnplugEndDifferently) {
    EXPECT_EQ(DeliverWith({"reset", "4"}).ending, Ending::reset);
    EXPECT_EQ(DeliverWith({"unplug"}).ending, Ending::unplug);
    EXPECT_TRUE(DeliverWith({"unplug"}).bytes.empty());
}

TEST(Deliver, StallHoldsTheRestBack) {
    const Delivery delivery = DeliverWith({"stall", "4"});
    EXPECT_EQ(delivery.bytes, Join({{0, 0, 0, 15}}));
    EXPECT_EQ(delivery.held.size(), kWhole.size() - 4);
    EXPECT_EQ(delivery.ending, Ending::keepOpen);
}

TEST(Deliver, TrickleIsPaced) {
    const Delivery delivery = DeliverWith({"trickle", "3", "7"});
    EXPECT_EQ(delivery.bytes, kWhole);
    EXPECT_EQ(delivery.pieceBytes, 3u);
    EXPECT_EQ(delivery.pace.count(), 7);
}

TEST(Deliver, AFalseLengthClaimsThreeGigabytesWithTenBytesBehind) {
    const Delivery delivery = DeliverWith({"length", "3000000000", "10"});
    EXPECT_EQ(delivery.bytes, Join({{0xb2, 0xd0, 0x5e, 0x00}, "QVLW", {0, 0, 0, 2}, "ab"}));
    EXPECT_EQ(delivery.ending, Ending::close);
}

TEST(Deliver, AFalseLengthThatIsTooSmallHasTheWholeReplyBehindIt) {
    EXPECT_EQ(DeliverWith({"length", "5"}).bytes.size(), kWhole.size());
}

TEST(Deliver, AFalseStringLengthStandsInItsField) {
    Bytes expected = kWhole;
    expected[17] = std::byte{9};
    EXPECT_EQ(DeliverWith({"string", "1", "9"}).bytes, expected);
    EXPECT_EQ(DeliverWith({"string", "2", "9"}).bytes, kWhole);
}

TEST(Deliver, AWordStandsAlone) {
    EXPECT_EQ(DeliverWith({"word", "19"}).bytes, Join({{0, 0, 0, 19}}));
}

TEST(Deliver, ADelayIsKept) {
    EXPECT_EQ(DeliverWith({"delay", "250"}).delay.count(), 250);
}

TEST(ParseFault, RefusesWhatItCannotRead) {
    for (const std::vector<std::string>& words : {std::vector<std::string>{},
                                                  {"nosuch"},
                                                  {"cut"},
                                                  {"cut", "x"},
                                                  {"cut", "1", "2"},
                                                  {"close", "times", "0"},
                                                  {"trickle", "0"},
                                                  {"string", "1"}}) {
        EXPECT_FALSE(ParseFault(words));
    }
}

TEST(FaultTable, TheCommandsOwnFaultGoesBeforeThatOfAll) {
    FaultTable table;
    table.Set(0, ParseFault({"close"}));
    table.Set(870101, ParseFault({"nodata"}));
    EXPECT_EQ(table.Meet(870101)->kind, FaultKind::noData);
    EXPECT_EQ(table.Meet(870102)->kind, FaultKind::close);
    table.Set(0, std::nullopt);
    EXPECT_FALSE(table.Meet(870102));
}

TEST(FaultTable, CountsAFaultOff) {
    FaultTable table;
    table.Set(870101, ParseFault({"close", "times", "2"}));
    EXPECT_TRUE(table.Meet(870101));
    EXPECT_TRUE(table.Meet(870101));
    EXPECT_FALSE(table.Meet(870101));
}

TEST(ReplyWriter, AReplyToWhichNothingWasAddedIsNoData) {
    EXPECT_EQ(ReplyWriter().Take().bytes, Join({{0x07, 0x5b, 0xcd, 0x17}}));
}

TEST(ReplyWriter, AWordIsNoPayload) {
    ReplyWriter writer;
    writer.Word(20);
    EXPECT_EQ(writer.Take().bytes, Join({{0, 0, 0, 20}}));
}

}  // namespace
}  // namespace quorvi::phone

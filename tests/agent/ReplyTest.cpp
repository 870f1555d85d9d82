#include <gtest/gtest.h>

#include <limits>

#include "agent/Reply.h"
#include "agent/Wire.h"
#include "base/ByteText.h"
#include "tests/support/LoopbackAgent.h"

namespace quorvi {
namespace {

constexpr std::uint32_t kLeadingWord = 0xDEADBEEF;  // counted, and never looked at

// A reply that claims `length` bytes, of which only `bytes` came.
ReplyBuffer Cut(std::uint32_t length, const Bytes& bytes) {
    ReplyBuffer reply(length);
    std::copy(bytes.begin(), bytes.end(), reply.Room().begin());
    reply.Commit(bytes.size());
    return reply;
}

TEST(ReplyCursor, ReadsEachFormOfFieldFromOffsetFour) {
    const ReplyBuffer reply = ReplyBuffer::Holding(Join({
        Word(kLeadingWord),
        Word(0xFFFFFFFE),      // i32 -2
        LongWord(1ULL << 40),  // u64
        Text("连接"),          // string
        Text(""),              // string, present and empty
        Word(AbsentMark),      // absent string
        Text("\xFF\xD8"),      // blob
        Text("skipped"),       //
        Word(AbsentMark),      // skipped too
        Word(7),
    }));
    ReplyCursor cursor(reply);
    EXPECT_EQ(cursor.Offset(), 4u);
    EXPECT_EQ(cursor.TakeInt32(), -2);
    EXPECT_EQ(cursor.TakeUInt64(), 1ULL << 40);
    EXPECT_EQ(cursor.TakeText(), "\xC1\xAC\xBD\xD3");
    EXPECT_EQ(cursor.TakeText(), "");
    EXPECT_EQ(cursor.TakeText(), std::nullopt);
    const auto blob = cursor.TakeBlob();
    ASSERT_TRUE(blob);
    EXPECT_EQ(Bytes(blob->begin(), blob->end()), (Bytes{std::byte{0xFF}, std::byte{0xD8}}));
    cursor.SkipText();
    cursor.SkipText();
    EXPECT_FALSE(cursor.AtEnd());
    EXPECT_EQ(cursor.TakeUInt32(), 7u);
    EXPECT_TRUE(cursor.AtEnd());
    EXPECT_FALSE(cursor.Overran());
}

TEST(ReplyCursor, AnEmptyStringIsPresentAndAnAbsentOneIsNot) {
    const ReplyBuffer reply =
        ReplyBuffer::Holding(Join({Word(kLeadingWord), Text(""), Word(AbsentMark)}));
    ReplyCursor cursor(reply);
    EXPECT_TRUE(cursor.TakeUtf8().has_value());
    EXPECT_FALSE(cursor.TakeUtf8().has_value());
    EXPECT_FALSE(cursor.Overran());
}

TEST(ReplyCursor, BothAnEmptyAndAnAbsentStringShowAsEmptyText) {
    const ReplyBuffer reply =
        ReplyBuffer::Holding(Join({Word(kLeadingWord), Text(""), Word(AbsentMark)}));
    ReplyCursor cursor(reply);
    EXPECT_EQ(cursor.TakeTextOrEmpty(), "");
    EXPECT_EQ(cursor.TakeTextOrEmpty(), "");
}

TEST(ReplyCursor, ALengthOfTheReservedValueReadsAsAbsentWhateverStandsBehind) {
    const ReplyBuffer reply =
        ReplyBuffer::Holding(Join({Word(kLeadingWord), Word(AbsentMark), Word(7)}));
    ReplyCursor cursor(reply);
    EXPECT_EQ(cursor.TakeText(), std::nullopt);
    EXPECT_EQ(cursor.TakeUInt32(), 7u);
}

TEST(ReplyCursor, ALengthThatPointsOutsideReadsAsEmptyAndEndsTheRun) {
    for (const std::uint32_t length : {5u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        const ReplyBuffer reply = ReplyBuffer::Holding(Join({
            Word(kLeadingWord),
            Word(length),  // four bytes are there
            Word(7),
        }));
        ReplyCursor cursor(reply);
        EXPECT_EQ(cursor.TakeText(), "") << length;
        EXPECT_TRUE(cursor.Overran()) << length;
        EXPECT_TRUE(cursor.AtEnd()) << length;
        EXPECT_EQ(cursor.TakeUInt32(), 0u) << length;
        EXPECT_EQ(cursor.Offset(), reply.Length()) << length;
    }
}

TEST(ReplyCursor, AStringThatEndsWithTheBufferIsWhole) {
    const ReplyBuffer reply = ReplyBuffer::Holding(Join({Word(kLeadingWord), Text("abc")}));
    ReplyCursor cursor(reply);
    EXPECT_EQ(cursor.TakeText(), "abc");
    EXPECT_FALSE(cursor.Overran());
}

TEST(ReplyCursor, ASkipPastTheEndEndsTheRun) {
    const ReplyBuffer reply = ReplyBuffer::Holding(Join({Word(kLeadingWord), Word(7)}));
    ReplyCursor cursor(reply);
    cursor.SkipBytes(std::numeric_limits<std::size_t>::max());
    EXPECT_TRUE(cursor.Overran());
    EXPECT_EQ(cursor.Offset(), reply.Length());
}

TEST(ReplyCursor, TakeBytesPastTheEndClearsTheDestination) {
    const ReplyBuffer reply = ReplyBuffer::Holding(Join({Word(kLeadingWord), Word(7)}));
    ReplyCursor cursor(reply);
    std::array<std::byte, 5> taken;
    taken.fill(std::byte{0xAA});
    cursor.TakeBytes(taken.data(), taken.size());
    EXPECT_EQ(taken, (std::array<std::byte, 5>{}));
    EXPECT_TRUE(cursor.Overran());
}

TEST(ReplyCursor, NoBytesAreTakenToNoPlace) {
    const ReplyBuffer reply = ReplyBuffer::Holding(Join({Word(kLeadingWord), Word(7)}));
    ReplyCursor cursor(reply);
    cursor.TakeBytes(nullptr, 0);
    EXPECT_EQ(cursor.TakeUInt32(), 7U);
    EXPECT_FALSE(cursor.Overran());
}

TEST(ReplyCursor, ABufferOfNoBytesIsAtItsEnd) {
    const ReplyBuffer nothing;
    ReplyCursor cursor(nothing);
    EXPECT_TRUE(cursor.AtEnd());
    EXPECT_EQ(cursor.TakeUInt32(), 0u);
    EXPECT_TRUE(cursor.Overran());
}

TEST(ReplyCursor, APayloadShorterThanItsFirstFieldIsNotReadPastItsEnd) {
    for (std::size_t size = 1; size < 8; ++size) {
        const ReplyBuffer reply = ReplyBuffer::Holding(Bytes(size, std::byte{0x11}));
        ReplyCursor cursor(reply);
        EXPECT_EQ(cursor.TakeUInt32(), 0u) << size;
        EXPECT_TRUE(cursor.Overran()) << size;
        EXPECT_TRUE(cursor.AtEnd()) << size;
        EXPECT_EQ(cursor.TakeText(), "") << size;
        EXPECT_EQ(cursor.Offset(), size) << size;
    }
}

TEST(ReplyCursor, TheEndIsTestedBehindARecordAndAByteTooManyCountsAsTheEnd) {
    // One byte behind the last record is not worth another one; two are.
    for (const std::size_t surplus : {0u, 1u, 2u}) {
        Bytes payload = Join({Word(kLeadingWord), Word(7)});
        payload.resize(payload.size() + surplus);
        const ReplyBuffer reply = ReplyBuffer::Holding(payload);
        ReplyCursor cursor(reply);
        EXPECT_EQ(cursor.TakeUInt32(), 7u);
        EXPECT_EQ(cursor.AtEnd(), surplus < 2) << surplus;
    }
}

TEST(ReplyCursor, ALengthBeyond31BitsIsNegativeInTheEndTestSoThatOneRecordIsRead) {
    const ReplyBuffer reply = Cut(0x80000010, Bytes(64, std::byte{0}));
    ReplyCursor cursor(reply);
    EXPECT_EQ(cursor.TakeUInt32(), 0u);
    EXPECT_FALSE(cursor.Overran());
    EXPECT_TRUE(cursor.AtEnd());
}

TEST(ReplyCursor, TheBytesThatACutReplyLacksReadAsZeroAndEndTheRun) {
    const ReplyBuffer reply = Cut(1000, Join({
                                            Word(kLeadingWord),
                                            Word(7),  // first record
                                            Bytes{std::byte{0x01}, std::byte{0x02}},  // cut here
                                        }));
    ReplyCursor cursor(reply);
    EXPECT_EQ(cursor.TakeUInt32(), 7u);
    EXPECT_FALSE(cursor.AtEnd());
    EXPECT_EQ(cursor.TakeUInt32(), 0x01020000u);
    EXPECT_FALSE(cursor.Overran());
    EXPECT_TRUE(cursor.AtEnd());
}

TEST(ReplyCursor, IsCutTellsAFieldThatIsNotAllThere) {
    const ReplyBuffer reply = Cut(1000, Join({Word(kLeadingWord), Word(7), LongWord(8)}));
    ReplyCursor cursor(reply);
    static_cast<void>(cursor.TakeUInt32());
    EXPECT_FALSE(cursor.IsCut());
    cursor.SkipBytes(8);  // ends with what came
    EXPECT_FALSE(cursor.IsCut());
    cursor.SkipBytes(1);
    EXPECT_TRUE(cursor.IsCut());
    cursor.SkipBytes(1000);
    EXPECT_TRUE(cursor.Overran());
    EXPECT_TRUE(cursor.IsCut());
}

TEST(ReplyCursor, OfAStringThatACutReplyEndsInOnlyTheBytesThatCameAreRead) {
    const ReplyBuffer reply = Cut(1000, Join({
                                            Word(kLeadingWord),
                                            Word(900),                              // length
                                            Bytes{std::byte{'a'}, std::byte{'b'}},  // cut here
                                        }));
    ReplyCursor cursor(reply);
    EXPECT_EQ(cursor.TakeText(), "ab");
    EXPECT_FALSE(cursor.Overran());
    EXPECT_TRUE(cursor.AtEnd());
}

TEST(ReplyBuffer, HoldsWhatCameAndZeroBehindIt) {
    const ReplyBuffer reply = Cut(6, Bytes(2, std::byte{0xAA}));
    EXPECT_EQ(reply.Length(), 6u);
    EXPECT_EQ(reply.Received(), 2u);
    EXPECT_EQ(Bytes(reply.Data(), reply.Data() + 6),
              (Bytes{std::byte{0xAA}, std::byte{0xAA}, std::byte{0}, std::byte{0}, std::byte{0},
                     std::byte{0}}));
}

TEST(ReplyBuffer, MovingLeavesNothingBehind) {
    ReplyBuffer from = ReplyBuffer::Holding(Word(7));
    const ReplyBuffer to = std::move(from);
    EXPECT_EQ(to.Length(), 4u);
    EXPECT_EQ(from.Length(), 0u);    // NOLINT(bugprone-use-after-move): that is the promise
    EXPECT_EQ(from.Received(), 0u);  // NOLINT(bugprone-use-after-move)
    EXPECT_TRUE(from.Room().empty());
}

TEST(ReplyBuffer, MoreCannotBeCommittedThanThereIsRoom) {
    ReplyBuffer reply(4);
    reply.Commit(5);
    EXPECT_EQ(reply.Received(), 4u);
    EXPECT_TRUE(reply.Room().empty());
}

TEST(ReplyBytes, OutliveTheParse) {
    ReplyBytes photo;
    EXPECT_TRUE(photo.Empty());
    std::weak_ptr<const ReplyBuffer> held;
    {
        const SharedReply reply =
            ShareReply(ReplyBuffer::Holding(Join({Word(kLeadingWord), Text("photo")})));
        ReplyCursor cursor(*reply);
        if (const auto blob = cursor.TakeBlob()) {
            photo = {reply, *blob};
        }
        held = reply;
    }
    EXPECT_EQ(AsText(photo.Bytes()), "photo");
    EXPECT_EQ(held.use_count(), 1);
    photo = {};
    EXPECT_TRUE(held.expired());
}

TEST(ReplyBytes, OfNoLengthHoldNothing) {
    const SharedReply reply = ShareReply(ReplyBuffer::Holding(Word(kLeadingWord)));
    const ReplyBytes none(reply, {});
    EXPECT_TRUE(none.Empty());
    EXPECT_EQ(reply.use_count(), 1);
}

}  // namespace
}  // namespace quorvi

#include <gtest/gtest.h>

#include "base/ByteText.h"
#include "phone/adb/Packet.h"
#include "tests/support/Bytes.h"

namespace quorvi::phone {
namespace {

const Bytes kHello = Join({
    "WRTE",                    // command
    {7, 0, 0, 0},              // our stream
    {9, 1, 0, 0},              // the peer's stream, 265
    {2, 0, 0, 0},              // payload length
    {0xd1, 0, 0, 0},           // sum of 'h' and 'i'
    {0xa8, 0xad, 0xab, 0xba},  // complement of the command
    "hi",
});

TEST(Packet, IsWrittenLittleEndianWithTheSumOfItsPayload) {
    EXPECT_EQ(EncodePacket({kWrite, 7, 265, ToBytes("hi")}, kVersionWithChecksum), kHello);
}

TEST(Packet, LeavesTheSumZeroInTheNewerVersion) {
    const Bytes bytes = EncodePacket({kWrite, 7, 265, ToBytes("hi")}, kVersionWithoutChecksum);
    EXPECT_EQ(ReadLittleEndian(bytes.data() + 16), 0u);
}

TEST(PacketReader, TakesAPacketThatComesByteByByte) {
    PacketReader reader;
    reader.SetVersion(kVersionWithChecksum);
    for (std::size_t i = 0; i + 1 < kHello.size(); ++i) {
        reader.Feed(std::span(kHello).subspan(i, 1));
        EXPECT_FALSE(reader.Take());
    }
    reader.Feed(std::span(kHello).last(1));
    const auto packet = reader.Take();
    ASSERT_TRUE(packet);
    EXPECT_EQ(packet->command, kWrite);
    EXPECT_EQ(packet->arg0, 7u);
    EXPECT_EQ(packet->arg1, 265u);
    EXPECT_EQ(packet->payload, ToBytes("hi"));
    EXPECT_FALSE(reader.Take());
}

TEST(PacketReader, TakesTwoPacketsThatComeTogether) {
    PacketReader reader;
    Bytes both = kHello;
    both.insert(both.end(), kHello.begin(), kHello.end());
    reader.Feed(both);
    EXPECT_TRUE(reader.Take());
    EXPECT_TRUE(reader.Take());
    EXPECT_FALSE(reader.Take());
    EXPECT_EQ(reader.Fault(), PacketFault::none);
}

TEST(PacketReader, StopsAtAWrongComplement) {
    PacketReader reader;
    Bytes bytes = kHello;
    bytes[20] ^= std::byte{1};
    reader.Feed(bytes);
    EXPECT_FALSE(reader.Take());
    EXPECT_EQ(reader.Fault(), PacketFault::badMagic);
    reader.Feed(kHello);
    EXPECT_FALSE(reader.Take());
}

TEST(PacketReader, DoesNotBelieveALengthPastTheLimit) {
    PacketReader reader;
    Bytes bytes = kHello;
    bytes[15] = std::byte{0xff};
    reader.Feed(bytes);
    EXPECT_FALSE(reader.Take());
    EXPECT_EQ(reader.Fault(), PacketFault::payloadTooLong);
}

TEST(PacketReader, HoldsAPayloadAgainstItsSumInTheOlderVersionOnly) {
    Bytes bytes = kHello;
    bytes[16] ^= std::byte{1};
    PacketReader older;
    older.SetVersion(kVersionWithChecksum);
    older.Feed(bytes);
    EXPECT_FALSE(older.Take());
    EXPECT_EQ(older.Fault(), PacketFault::badChecksum);

    PacketReader newer;
    newer.SetVersion(kVersionWithoutChecksum);
    newer.Feed(bytes);
    EXPECT_TRUE(newer.Take());
}

}  // namespace
}  // namespace quorvi::phone

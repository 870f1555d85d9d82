#include <gtest/gtest.h>

#include "base/ByteText.h"
#include "phone/adb/Packet.h"
#include "phone/adb/SyncService.h"
#include "tests/support/Bytes.h"

namespace quorvi::phone {
namespace {

// Keeps what a service says.
class RecordingSink : public Sink {
  public:
    using Sink::Write;
    void Write(SharedBytes bytes) override {
        written.insert(written.end(), bytes->begin(), bytes->end());
    }
    void Close() override { closed = true; }
    void Abort() override { closed = true; }
    void DropTransport() override { closed = true; }

    Bytes written;
    bool closed = false;
};

class Sync : public testing::Test {
  protected:
    Bytes Say(const Bytes& bytes) {
        sink_.written.clear();
        service_.OnBytes(bytes);
        return sink_.written;
    }

    Handset handset_{DeliveredProfile(0)};
    RecordingSink sink_;
    SyncService service_{handset_, sink_};
};

const Bytes kSendHi = Join({
    "SEND",
    {14, 0, 0, 0},
    "/data/hi,33188",  // path, mode 0100644
    "DATA",
    {2, 0, 0, 0},
    "hi",  //
    "DONE",
    {4, 3, 2, 1},  // time of the last change
});

const Bytes kOkayZero = Join({"OKAY", {0, 0, 0, 0}});

TEST_F(Sync, StoresAFileThatIsSent) {
    EXPECT_EQ(Say(kSendHi), kOkayZero);
    const StoredFile* file = handset_.FindFile("/data/hi");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->bytes, ToBytes("hi"));
    EXPECT_EQ(file->mode, 0100644u);
    EXPECT_EQ(file->modified, 0x01020304u);
}

TEST_F(Sync, StoresAFileThatComesByteByByte) {
    for (const std::byte b : kSendHi) {
        service_.OnBytes(std::span(&b, 1));
    }
    EXPECT_EQ(sink_.written, kOkayZero);
    EXPECT_TRUE(handset_.FindFile("/data/hi"));
}

TEST_F(Sync, StatesWhatAPathIs) {
    Say(kSendHi);
    EXPECT_EQ(Say(Join({"STAT", {8, 0, 0, 0}, "/data/hi"})),
              Join({"STAT", {0xa4, 0x81, 0, 0}, {2, 0, 0, 0}, {4, 3, 2, 1}}));
    EXPECT_EQ(Say(Join({"STAT", {5, 0, 0, 0}, "/data"})),
              Join({"STAT", {0xed, 0x41, 0, 0}, {0, 0, 0, 0}, {0, 0, 0, 0}}));
    EXPECT_EQ(Say(Join({"STAT", {2, 0, 0, 0}, "/x"})),
              Join({"STAT", {0, 0, 0, 0}, {0, 0, 0, 0}, {0, 0, 0, 0}}));
}

TEST_F(Sync, GivesAFileBackAndKnowsTheEndOfAMissingOne) {
    Say(kSendHi);
    EXPECT_EQ(Say(Join({"RECV", {8, 0, 0, 0}, "/data/hi"})),
              Join({"DATA", {2, 0, 0, 0}, "hi", "DONE", {0, 0, 0, 0}}));
    EXPECT_EQ(Say(Join({"RECV", {2, 0, 0, 0}, "/x"})),
              Join({"FAIL", {25, 0, 0, 0}, "No such file or directory"}));
    EXPECT_TRUE(sink_.closed);
}

TEST_F(Sync, ListsAFolder) {
    Say(kSendHi);
    EXPECT_EQ(Say(Join({"LIST", {5, 0, 0, 0}, "/data"})),
              Join({"DENT",
                    {0xa4, 0x81, 0, 0},
                    {2, 0, 0, 0},
                    {4, 3, 2, 1},
                    {2, 0, 0, 0},
                    "hi",
                    "DONE",
                    {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}}));
}

TEST_F(Sync, EndsAtQuit) {
    EXPECT_TRUE(Say(Join({"QUIT", {0, 0, 0, 0}})).empty());
    EXPECT_TRUE(sink_.closed);
}

TEST_F(Sync, RefusesANameLongerThanItsLimit) {
    EXPECT_EQ(Say(Join({"STAT", {1, 4, 0, 0}})), Join({"FAIL", {13, 0, 0, 0}, "name too long"}));
    EXPECT_TRUE(sink_.closed);
}

TEST_F(Sync, RefusesAPieceLongerThanItsLimit) {
    Say(Join({"SEND", {8, 0, 0, 0}, "/data/hi"}));
    EXPECT_EQ(Say(Join({"DATA", {1, 0, 1, 0}})),
              Join({"FAIL", {20, 0, 0, 0}, "invalid data message"}));
    EXPECT_FALSE(handset_.FindFile("/data/hi"));
}

TEST_F(Sync, SaysNothingMoreOnceItHasFailed) {
    Say(Join({"NOPE", {0, 0, 0, 0}}));
    EXPECT_TRUE(Say(kSendHi).empty());
    EXPECT_FALSE(handset_.FindFile("/data/hi"));
}

TEST_F(Sync, DoesNotOverwriteAFolder) {
    EXPECT_EQ(Say(Join({"SEND", {5, 0, 0, 0}, "/data", "DONE", {0, 0, 0, 0}})),
              Join({"FAIL", {14, 0, 0, 0}, "Is a directory"}));
}

}  // namespace
}  // namespace quorvi::phone

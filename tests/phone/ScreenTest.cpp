#include <gtest/gtest.h>

#include "phone/Screen.h"
#include "phone/adb/FramebufferService.h"
#include "phone/adb/Packet.h"

namespace quorvi::phone {
namespace {

// Keeps what a service sends.
class KeptSink : public Sink {
  public:
    using Sink::Write;
    void Write(SharedBytes bytes) override {
        sent.insert(sent.end(), bytes->begin(), bytes->end());
    }
    void Close() override { closed = true; }
    void Abort() override {}
    void DropTransport() override {}

    Bytes sent;
    bool closed = false;
};

std::vector<std::uint32_t> WordsOf(const Bytes& bytes) {
    std::vector<std::uint32_t> words;
    for (std::size_t at = 0; at + 4 <= bytes.size(); at += 4) {
        words.push_back(ReadLittleEndian(bytes.data() + at));
    }
    return words;
}

ScreenForm Small(int bits) {
    ScreenForm form;
    form.width = 40;
    form.height = 60;
    form.bits = bits;
    return form;
}

using WordList = std::vector<std::uint32_t>;

TEST(Screen, HeaderOfVersion1) {
    const ScreenPicture frame = DrawFramebuffer(Small(32), 50);
    EXPECT_EQ(WordsOf(*frame.header), (WordList{1, 32, 40 * 60 * 4, 40, 60,  //
                                                0, 8, 16, 8, 8, 8, 24, 0}));
    EXPECT_EQ(frame.pixels->size(), 40U * 60 * 4);
}

TEST(Screen, HeaderOfVersion2HasAColourSpace) {
    ScreenForm form = Small(32);
    form.version = 2;
    EXPECT_EQ(WordsOf(*DrawFramebuffer(form, 50).header),
              (WordList{2, 32, 1, 40 * 60 * 4, 40, 60,  //
                        0, 8, 16, 8, 8, 8, 24, 0}));
}

TEST(Screen, OtherDepthsAreSentAsSixteenBits) {
    for (const int bits : {16, 15, 8}) {
        const ScreenPicture frame = DrawFramebuffer(Small(bits), 50);
        EXPECT_EQ(WordsOf(*frame.header),
                  (WordList{1, static_cast<std::uint32_t>(bits), 40 * 60 * 2, 40, 60,  //
                            11, 5, 0, 5, 5, 6, 0, 0}));
        EXPECT_EQ(frame.pixels->size(), 40U * 60 * 2);
    }
}

TEST(Screen, BlueFirstChangesTheOrderOfThePixelsAndSaysSo) {
    ScreenForm form = Small(24);
    const ScreenPicture red = DrawFramebuffer(form, 50);
    form.blueFirst = true;
    const ScreenPicture blue = DrawFramebuffer(form, 50);
    EXPECT_EQ(WordsOf(*blue.header), (WordList{1, 24, 40 * 60 * 3, 40, 60,  //
                                               16, 8, 0, 8, 8, 8, 24, 0}));
    for (std::size_t at = 0; at < red.pixels->size(); at += 3) {
        ASSERT_EQ((*red.pixels)[at], (*blue.pixels)[at + 2]);
        ASSERT_EQ((*red.pixels)[at + 2], (*blue.pixels)[at]);
    }
}

TEST(Screen, IsDrawnAnewForAnotherFormOnly) {
    Screen screen(Small(32), 50);
    const SharedBytes pixels = screen.Shown().pixels;
    screen.SetForm(Small(32));
    EXPECT_EQ(screen.Shown().pixels, pixels);
    screen.SetForm(Small(16));
    EXPECT_NE(screen.Shown().pixels, pixels);
}

class FramebufferServiceTest : public testing::Test {
  protected:
    static constexpr std::size_t kHeader = 13 * 4;
    static constexpr std::size_t kWhole = kHeader + 40 * 60 * 2;

    // What a service of that form sends, and whether it ends the stream; a client's byte after it.
    void Serve(const ScreenForm& form, bool asks = true) {
        Screen screen(form, 50);
        FramebufferService service(screen, sink_);
        if (asks) {
            const std::byte byte{'0'};
            service.OnBytes({&byte, 1});
        }
    }

    KeptSink sink_;
};

TEST_F(FramebufferServiceTest, SendsAllAtOnceAndLeavesTheEndToTheClient) {
    Serve(Small(16), false);
    EXPECT_EQ(sink_.sent.size(), kWhole);
    EXPECT_FALSE(sink_.closed);
}

TEST_F(FramebufferServiceTest, PixelsWaitForAByteWhereTheFormSaysSo) {
    ScreenForm form = Small(16);
    form.waits = true;
    Serve(form, false);
    EXPECT_EQ(sink_.sent.size(), kHeader);
    sink_.sent.clear();
    Serve(form);
    EXPECT_EQ(sink_.sent.size(), kWhole);
}

TEST_F(FramebufferServiceTest, EndsTheStreamWhereTheFormSaysSo) {
    ScreenForm form = Small(16);
    form.ends = true;
    Serve(form);
    EXPECT_EQ(sink_.sent.size(), kWhole);
    EXPECT_TRUE(sink_.closed);
}

TEST_F(FramebufferServiceTest, CutEndsTheStreamAfterSoManyBytes) {
    for (const std::uint32_t count : {0U, 20U, 52U, 100U}) {
        sink_ = {};
        ScreenForm form = Small(16);
        form.fault = ScreenFault::cut;
        form.number = count;
        Serve(form);
        EXPECT_EQ(sink_.sent.size(), count);
        EXPECT_TRUE(sink_.closed);
    }
}

TEST_F(FramebufferServiceTest, HangKeepsTheStreamOpen) {
    ScreenForm form = Small(16);
    form.ends = true;
    form.fault = ScreenFault::hang;
    form.number = 60;
    Serve(form);
    EXPECT_EQ(sink_.sent.size(), 60U);
    EXPECT_FALSE(sink_.closed);
}

TEST_F(FramebufferServiceTest, FaultsOfTheHeaderClaimWhatTheySay) {
    const std::pair<ScreenFault, std::size_t> words[]{
        {ScreenFault::size, 2}, {ScreenFault::width, 3}, {ScreenFault::height, 4}};
    for (const auto& [fault, word] : words) {
        ScreenForm form = Small(16);
        form.fault = fault;
        form.number = 4'000'000'000;
        EXPECT_EQ(WordsOf(*DrawFramebuffer(form, 50).header)[word], 4'000'000'000);
        EXPECT_EQ(DrawFramebuffer(form, 50).pixels->size(), 40U * 60 * 2);
    }
}

}  // namespace
}  // namespace quorvi::phone

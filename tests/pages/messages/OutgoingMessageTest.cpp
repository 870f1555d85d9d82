#include <gtest/gtest.h>

#include <vector>

#include "base/Text.h"
#include "pages/messages/OutgoingMessage.h"
#include "tests/support/WireBytes.h"

namespace quorvi {
namespace {

TEST(SendMessageRequest, CarriesTheNumbersAsTypedAndTheTextInUtf8) {
    const std::vector<std::string> numbers{"10086", "+8613861234567"};
    EXPECT_EQ(SendMessageRequest(numbers, Ansi(u8"好")), WireBytes()
                                                             .U32(870204)  // code
                                                             // 16, the text, 4 + 5, 4 + 14
                                                             .U32(46)  // total
                                                             .U32(2)   // count of recipients
                                                             .Text("10086")
                                                             .Text("+8613861234567")
                                                             .Text("好")  // three bytes
                                                             .Get());
}

TEST(SendMessageRequest, TheBytesOfANumberAreNotTurnedToUtf8) {
    const std::string number = Ansi(u8"一");  // two bytes
    EXPECT_EQ(SendMessageRequest(std::vector{number}, "x"), WireBytes()
                                                                .U32(870204)   // code
                                                                .U32(23)       // total
                                                                .U32(1)        // count
                                                                .Text(number)  // as typed
                                                                .Text("x")
                                                                .Get());
}

TEST(MessageLength, AnEmptyTextIsNoMessage) {
    const MessageLength length = MeasureMessage("");
    EXPECT_EQ(length.characters, 0u);
    EXPECT_EQ(length.messages, 0u);
    EXPECT_EQ(length.left, 160u);
}

TEST(MessageLength, TheDefaultAlphabetTakes160OrSeveralOf153) {
    EXPECT_EQ(MeasureMessage(std::string(160, 'a')).messages, 1u);
    EXPECT_EQ(MeasureMessage(std::string(161, 'a')).messages, 2u);
    EXPECT_EQ(MeasureMessage(std::string(306, 'a')).messages, 2u);
    EXPECT_EQ(MeasureMessage(std::string(307, 'a')).messages, 3u);
    EXPECT_EQ(MeasureMessage(std::string(161, 'a')).left, 145u);
}

TEST(MessageLength, CharactersOfTheExtensionTableCountTwice) {
    EXPECT_EQ(MeasureMessage("[]").characters, 4u);
    EXPECT_EQ(MeasureMessage(Ansi(u8"€")).characters, 2u);
}

TEST(MessageLength, ACharacterOfTheExtensionTableIsNotCutByTheEndOfAMessage) {
    // The 153rd and 154th would be an escape and its character.
    const std::string text = std::string(152, 'a') + "[" + std::string(152, 'a');
    EXPECT_EQ(MeasureMessage(text).characters, 306u);  // two messages if it could be cut
    EXPECT_EQ(MeasureMessage(text).messages, 3u);
    EXPECT_EQ(MeasureMessage(text).left, 152u);
    EXPECT_EQ(MeasureMessage(std::string(79, 'a') + "[" + std::string(79, 'a')).messages, 1u);
}

TEST(MessageLength, LineBreaksAndTheOtherCharactersOfTheDefaultAlphabetCountOnce) {
    const MessageLength length = MeasureMessage(Ansi(u8"a\n@$_ΔΩ§¤è"));
    EXPECT_EQ(length.characters, 10u);
    EXPECT_EQ(length.left, 150u);
    EXPECT_EQ(MeasureMessage("`").left, 69u);  // not in it, unlike its neighbours
    EXPECT_EQ(MeasureMessage("\t").left, 69u);
}

// The code page that loses no character.
class WideMessageLength : public testing::Test {
  protected:
    WideMessageLength() { SetCodePage(CodePage::gb18030); }
    ~WideMessageLength() override { SetCodePage(CodePage::gbk); }
};

TEST_F(WideMessageLength, ASurrogatePairCountsTwiceAndIsNotCutByTheEndOfAMessage) {
    EXPECT_EQ(MeasureMessage(Ansi(u8"🎂")).characters, 2u);
    EXPECT_EQ(MeasureMessage(Ansi(u8"🎂")).left, 68u);
    // The 67th and 68th unit would be the pair.
    const std::string text = std::string(66, 'a') + Ansi(u8"🎂") + std::string(66, 'a');
    EXPECT_EQ(MeasureMessage(text).characters, 134u);  // two messages if it could be cut
    EXPECT_EQ(MeasureMessage(text).messages, 3u);
    EXPECT_EQ(MeasureMessage(text).left, 66u);
}

TEST_F(WideMessageLength, TheDefaultAlphabetHas127CharactersAndItsExtensionTableTen) {
    const MessageLength once =
        MeasureMessage(Ansi(u8"@£$¥èéùìòÇ\nØø\rÅåΔ_ΦΓΛΩΠΨΣΘΞÆæßÉ !\"#¤%&'()*+,-./0123456789:;<=>?¡"
                            u8"ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§¿abcdefghijklmnopqrstuvwxyzäöñüà"));
    EXPECT_EQ(once.characters, 127u);
    EXPECT_EQ(once.left, 160u - 127u);
    const MessageLength twice = MeasureMessage(Ansi(u8"\f^{}\\[~]|€"));
    EXPECT_EQ(twice.characters, 20u);
    EXPECT_EQ(twice.left, 160u - 20u);
    EXPECT_EQ(MeasureMessage(Ansi(u8"₭")).left, 69u);  // the one behind the euro sign
    EXPECT_EQ(MeasureMessage(Ansi(u8"ç")).left, 69u);
}

TEST(MessageLength, ChineseTakes70OrSeveralOf67) {
    std::string text;
    for (int i = 0; i < 70; ++i) {
        text += Ansi(u8"好");
    }
    EXPECT_EQ(MeasureMessage(text).characters, 70u);
    EXPECT_EQ(MeasureMessage(text).messages, 1u);
    EXPECT_EQ(MeasureMessage(text + "a").messages, 2u);
    EXPECT_EQ(MeasureMessage(text + "a").left, 63u);
}

}  // namespace
}  // namespace quorvi

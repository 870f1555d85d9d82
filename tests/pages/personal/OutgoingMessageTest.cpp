#include <gtest/gtest.h>

#include <vector>

#include "base/Text.h"
#include "pages/personal/OutgoingMessage.h"
#include "tests/pages/WireBytes.h"

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

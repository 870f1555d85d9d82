#include "tests/support/WidgetTest.h"
#include "ui/kit/FieldTexts.h"
#include "ui/kit/SkinFields.h"

namespace quorvi {
namespace {

class TextsOfFields : public WidgetTest {
  protected:
    FieldTexts texts_;
    CSkinEdit line_;
    SkinTextEdit area_;
};

TEST_F(TextsOfFields, ATextThatIsLeftAloneIsTheOneThatWasPutIn) {
    const std::string odd("a\r\nb\0c\td", 9);
    texts_.Set(line_, odd);
    texts_.Set(area_, odd);
    EXPECT_EQ(texts_.Text(line_), odd);
    EXPECT_EQ(texts_.Text(area_), odd);
    EXPECT_EQ(area_.toPlainText().size(), 8);  // it shows one line end for the two characters
}

TEST_F(TextsOfFields, AChangeLeavesTheRestAsItCame) {
    texts_.Set(area_, "a\r\nb");
    area_.setPlainText(QStringLiteral("a\nbc"));
    EXPECT_EQ(texts_.Text(area_), "a\r\nbc");
}

TEST_F(TextsOfFields, AFieldThatNothingWasPutIntoGivesWhatItShows) {
    line_.setText(QStringLiteral("typed"));
    EXPECT_EQ(texts_.Text(line_), "typed");
}

}  // namespace
}  // namespace quorvi

// The border between text in memory and text in widgets.
#include <gtest/gtest.h>

#include "base/Text.h"
#include "ui/kit/PlainTip.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

TEST(QtText, OfALongTextItsStartIsShown) {
    EXPECT_EQ(ToShownQString(std::string(1024, 'n')), QString(1024, QLatin1Char('n')));
    EXPECT_EQ(ToShownQString(std::string(1 << 20, 'n')),
              QString(1024, QLatin1Char('n')) + QStringLiteral("…"));
}

TEST(QtText, ATextIsShownInOneLine) {
    using namespace std::string_view_literals;
    EXPECT_EQ(ToShownQString("Lin\nYuan\r\nzhou\rx"), QStringLiteral("Lin Yuan zhou x"));
    EXPECT_EQ(ToShownQString("Lin\0 Yuan\0"sv), QStringLiteral("Lin Yuan"));
    EXPECT_EQ(ToShownQString("\n" + std::string(2000, 'n')),
              QStringLiteral(" ") + QString(1023, QLatin1Char('n')) + QStringLiteral("…"));
}

TEST(QtText, AStartNeverEndsInsideACharacter) {
    std::string text = "n";  // the cut goes through a character of two bytes
    for (int i = 0; i < 1000; ++i) {
        text += Ansi(u8"林");
    }
    const QString shown = ToShownQString(text);
    EXPECT_EQ(shown, QStringLiteral("n") + QString(511, QChar(u'林')) + QStringLiteral("…"));
}

TEST(QtText, AStartNeverEndsInsideACharacterOfFourBytes) {
    SetCodePage(CodePage::gb18030);
    for (qsizetype before = 0; before < 4; ++before) {  // the cut goes through each of its bytes
        std::string text(static_cast<std::size_t>(before), 'n');
        for (int i = 0; i < 300; ++i) {
            text += Ansi(u8"🎈");
        }
        QString whole(before, QLatin1Char('n'));
        for (int i = 0; i < (before == 0 ? 256 : 255); ++i) {
            whole += QStringLiteral("\U0001F388");
        }
        EXPECT_EQ(ToShownQString(text), whole + QStringLiteral("…")) << before;
    }
    SetCodePage(CodePage::gbk);
}

TEST(QtText, TextFitsTheCodePageWhenItComesBackAsItWas) {
    EXPECT_TRUE(FitsCodePage(QString()));
    EXPECT_TRUE(FitsCodePage(QStringLiteral("A? 林")));
    EXPECT_FALSE(FitsCodePage(QStringLiteral("林\U0001F388")));
    EXPECT_FALSE(FitsCodePage(QString(QChar(0xD83C))));  // half of a pair
}

TEST(PlainTip, LinesAreBrokenAfterSixtyCharactersAndNoPairInTwo) {
    EXPECT_EQ(BrokenForTip(QStringLiteral("brief\nand brief")), QStringLiteral("brief\nand brief"));
    EXPECT_EQ(BrokenForTip(QString(61, QLatin1Char('x'))),
              QString(60, QLatin1Char('x')) + QStringLiteral("\nx"));
    const QString pair = QStringLiteral("\U0001F388");
    EXPECT_EQ(BrokenForTip(QString(59, QLatin1Char('x')) + pair + pair),
              QString(59, QLatin1Char('x')) + pair + QLatin1Char('\n') + pair);
}

}  // namespace
}  // namespace quorvi

// Dialog 433, driven by control number.
#include <gtest/gtest.h>

#include <QTest>
#include <QUrl>

#include "pages/numbers/NumberQueryDlg.h"
#include "tests/support/QtTest.h"
#include "tests/support/SmallPhoneDb.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

class NumberQueryDlgTest : public QtTest {
  protected:
    void SetUp() override {
        dialog_.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog_));
    }
    template <typename Control = QLabel>
    [[nodiscard]] Control& Find(int number) {
        return *FindControl<Control>(&dialog_, number);
    }
    void Type(const char* text) { QTest::keyClicks(&Find<QLineEdit>(1123), QLatin1String(text)); }
    void Query() {
        QTest::mouseClick(&Find<QWidget>(1124), Qt::LeftButton);
        ASSERT_TRUE(QTest::qWaitFor([this] { return Find<QWidget>(1124).isEnabled(); }, 30'000));
    }

    const ScratchDirectory scratch_{};
    QStringList opened_;
    int made_ = 0;
    NumberQueryDlg dialog_{[this] {
                               ++made_;
                               return CPhoneDb(scratch_.Path(), DatabaseOf({{1391234, 145}}));
                           },
                           [this](const QString& address) { opened_.append(address); }};
};

TEST_F(NumberQueryDlgTest, IsDialog433AndHasAskedNothing) {
    EXPECT_EQ(dialog_.objectName(), QStringLiteral("dialog 433"));
    EXPECT_EQ(made_, 0);
    EXPECT_EQ(Find<QAbstractButton>(1124).text(), ToQString(u8"立即查询"));
    EXPECT_TRUE(Find(1138).text().isEmpty());
}

TEST_F(NumberQueryDlgTest, TheKeyboardComesToThePlaceOnceThereIsOne) {
    EXPECT_FALSE(Find<QWidget>(1127).isEnabled());
    Type("1391234");
    Query();
    EXPECT_TRUE(Find<QWidget>(1127).isEnabled());
}

TEST_F(NumberQueryDlgTest, TextIsCutAtElevenCharactersOnEveryChange) {
    Type("1391234567890");
    EXPECT_EQ(Find<QLineEdit>(1123).text(), QStringLiteral("13912345678"));
    Find<QLineEdit>(1123).setCursorPosition(0);
    Type("9");
    EXPECT_EQ(Find<QLineEdit>(1123).text(), QStringLiteral("91391234567"));
    EXPECT_EQ(Find<QLineEdit>(1123).cursorPosition(), 1);
}

TEST_F(NumberQueryDlgTest, OfThirteenDigitsTheFirstSevenAreAskedFor) {
    Type("1391234567890");
    Query();
    EXPECT_EQ(Find(1138).text(), ToQString(u8"1391234 属于城市:"));
    EXPECT_EQ(Find<QAbstractButton>(1127).text(), ToQString(u8"江苏常州"));
    EXPECT_EQ(Find(1128).text(), QStringLiteral("0519"));
    EXPECT_EQ(Find(1129).text(), QStringLiteral("213000"));
}

TEST_F(NumberQueryDlgTest, APrefixWithoutARecordShowsTheTextsOfNone) {
    Type("1861234");
    Query();
    EXPECT_EQ(Find<QAbstractButton>(1127).text(), ToQString(u8"没有记录"));
    EXPECT_EQ(Find(1128).text(), QStringLiteral("00"));
    EXPECT_EQ(Find(1129).text(), ToQString(u8"没有找到"));
}

TEST_F(NumberQueryDlgTest, EachQueryMakesADatabaseOfItsOwn) {
    Query();
    Query();
    EXPECT_EQ(made_, 2);
}

TEST_F(NumberQueryDlgTest, AClickOnThePlaceSearchesTheWebForIt) {
    Type("1391234");
    Query();
    auto& place = Find<QWidget>(1127);
    ASSERT_TRUE(QTest::qWaitFor([&] { return place.size() == place.sizeHint(); }));
    QTest::mouseClick(&place, Qt::LeftButton);
    ASSERT_EQ(opened_.size(), 1);
    const QUrl address(opened_[0]);
    EXPECT_TRUE(address.isValid());
    EXPECT_EQ(address.query(QUrl::FullyDecoded), ToQString(u8"q=江苏常州"));
}

TEST_F(NumberQueryDlgTest, WithoutAnAnswerThereIsNothingToSearch) {
    Find<QAbstractButton>(1127).click();
    EXPECT_TRUE(opened_.isEmpty());
}

}  // namespace
}  // namespace quorvi

// The fields of the kit, given what nobody would type.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <QWheelEvent>

#include "tests/support/QtTest.h"
#include "ui/kit/SkinFields.h"

namespace quorvi {
namespace {

constexpr int kMegabyte = 1 << 20;

class FieldsTest : public QtTest {
  protected:
    static void Turn(QWidget& widget) {
        const QPoint at = widget.rect().center();
        QWheelEvent wheel(at, widget.mapToGlobal(at), {}, {0, -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &wheel);
    }
};

TEST_F(FieldsTest, ALineHoldsAMegabyte) {
    CSkinEdit edit;
    edit.setText(QString(kMegabyte, QLatin1Char('n')));
    EXPECT_EQ(edit.text().size(), kMegabyte);
}

TEST_F(FieldsTest, AnAreaBreaksLinesBetweenWords) {
    SkinTextEdit area;
    area.SetText(QStringLiteral("word ").repeated(kMegabyte / 5));
    EXPECT_EQ(area.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
}

TEST_F(FieldsTest, AnAreaBreaksAWordOfAMegabyteAnywhere) {
    SkinTextEdit area;
    area.show();
    area.SetText(QStringLiteral("a ") + QString(kMegabyte, QLatin1Char('x')));
    EXPECT_EQ(area.wordWrapMode(), QTextOption::WrapAnywhere);
    EXPECT_EQ(area.toPlainText().size(), kMegabyte + 2);
    area.SetText(QStringLiteral("short"));
    EXPECT_EQ(area.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
}

TEST_F(FieldsTest, AnAreaBreaksAPastedWordOfAMegabyteAnywhere) {
    SkinTextEdit area;
    area.show();
    QGuiApplication::clipboard()->setText(QString(kMegabyte, QLatin1Char('x')));
    area.paste();
    EXPECT_EQ(area.wordWrapMode(), QTextOption::WrapAnywhere);
    EXPECT_EQ(area.toPlainText().size(), kMegabyte);
    QGuiApplication::clipboard()->clear();
}

TEST_F(FieldsTest, TheWheelTurnsAComboOnlyWhileItHasTheFocus) {
    QWidget window;
    CSkinCombo combo(&window);
    combo.addItems({QStringLiteral("1"), QStringLiteral("2")});
    CSkinEdit edit({}, &window);
    ShowActive(window);
    edit.setFocus();
    Turn(combo);
    EXPECT_EQ(combo.currentIndex(), 0);
    EXPECT_TRUE(edit.hasFocus());
    combo.setFocus();
    Turn(combo);
    EXPECT_EQ(combo.currentIndex(), 1);
}

}  // namespace
}  // namespace quorvi

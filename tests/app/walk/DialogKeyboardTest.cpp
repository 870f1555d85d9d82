// Every dialog of the suite with the keyboard alone.
#include <QAbstractButton>
#include <QApplication>
#include <QStringList>

#include "tests/support/PrintQt.h"
#include "tests/support/SuiteDialogs.h"
#include "ui/html/HtmlCtrl.h"

namespace quorvi {
namespace {

class DialogKeyboard : public EachDialog {
  protected:
    // The number, or other name, of the control that has the focus: its own, or the number of the
    // view whose browser it belongs to.
    QString Focused() {
        for (const QWidget* at = Dialog().focusWidget(); at != nullptr; at = at->parentWidget()) {
            if (at->objectName().toInt() != 0) {
                return at->objectName();
            }
        }
        return Dialog().focusWidget() == nullptr ? QString() : Dialog().focusWidget()->objectName();
    }
    // Presses a key in the control that has the focus, and waits until the focus has gone on. A
    // view hands it on later: its browser is asked first.
    void Step(Qt::Key key) {
        const QPointer<QWidget> before = Dialog().focusWidget();
        const QString number = Focused();
        QTest::keyClick(Dialog().windowHandle(), key,
                        key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        EXPECT_TRUE(WaitFor([&] { return Focused() != number; })) << number.toStdString();
    }
    // The controls from `first` on, once round.
    QStringList Round(const QString& first, Qt::Key key) {
        const qsizetype most = Dialog().findChildren<QWidget*>().size();
        QStringList round;
        for (qsizetype i = 0; i < most && Focused() != first; ++i) {
            Step(key);
        }
        do {
            round.append(Focused());
            Step(key);
        } while (Focused() != first && round.size() < most && !HasFailure());
        return round;
    }
    [[nodiscard]] static QStringList Expected() {
        return QString::fromLatin1(GetParam().controls).split(QLatin1Char(' '));
    }
};

TEST_P(DialogKeyboard, TabGoesOnceRoundAndMeetsEveryControl) {
    EXPECT_EQ(Round(Expected().front(), Qt::Key_Tab).join(QLatin1Char(' ')),
              QString::fromLatin1(GetParam().controls));
}

TEST_P(DialogKeyboard, ShiftTabGoesTheSameWayBack) {
    QStringList back = Expected();
    std::reverse(back.begin(), back.end());
    EXPECT_EQ(Round(back.front(), Qt::Key_Backtab), back);
}

TEST_P(DialogKeyboard, EveryControlThatCanBeSeenTakesPartInTheRound) {
    QStringList missed;
    for (const QWidget* widget : Dialog().findChildren<QWidget*>()) {
        const bool control = qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                             (widget->focusPolicy() & Qt::TabFocus) != 0;
        const QString number = widget->objectName();
        if (control && number.toInt() != 0 && widget->isVisible() && widget->isEnabled() &&
            !Expected().contains(number)) {
            missed.append(number);
        }
    }
    EXPECT_EQ(missed, QStringList());
}

TEST_P(DialogKeyboard, EscapeEndsItWhereverTheFocusIs) {
    const QStringList controls = Expected();
    QStringList deaf;
    for (const QString& control : controls) {
        static_cast<void>(Round(control, Qt::Key_Tab));
        ASSERT_EQ(Focused(), control);
        bool ended = false;
        const auto connection =
            QObject::connect(&Dialog(), &QDialog::finished, [&](int) { ended = true; });
        Dialog().setAttribute(Qt::WA_DeleteOnClose, false);
        QTest::keyClick(Dialog().windowHandle(), Qt::Key_Escape);
        if (!WaitFor([&] { return ended; })) {
            deaf.append(control);
        }
        QObject::disconnect(connection);
        Dialog().open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Dialog()));
    }
    EXPECT_EQ(deaf, QStringList());
}

INSTANTIATE_TEST_SUITE_P(Suite, DialogKeyboard, testing::ValuesIn(SuiteDialogs()),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace quorvi

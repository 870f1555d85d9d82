// The frame of dialogs, and the questions made from it.
#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include "tests/support/QtTest.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"

namespace quorvi {
namespace {

class DialogsTest : public QtTest {
  protected:
    void SetUp() override {
        window_.resize(600, 400);
        ShowActive(window_);
    }

    // Opens the dialog and keeps its result once it has ended.
    template <typename Dialog>
    Dialog* Open(Dialog* dialog) {
        dialog->Open([this](int result) { result_ = result; });
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog, kPatience));
        return dialog;
    }
    [[nodiscard]] QWidget* FindScrim() const {
        return window_.findChild<QWidget*>(QStringLiteral("scrim"));
    }

    QWidget window_;
    int result_ = -1;
};

TEST_F(DialogsTest, ADialogIsFoundByItsNumber) {
    SkinDialog dialog(533, QStringLiteral("设备管理器 - Quorvi"));
    EXPECT_EQ(dialog.objectName(), QStringLiteral("dialog 533"));
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("设备管理器 - Quorvi"));
}

TEST_F(DialogsTest, OpeningDoesNotBlockAndTheEndIsHeardLater) {
    auto* dialog = Open(new CNothingCheckedDlg(&window_));
    EXPECT_EQ(result_, -1);
    EXPECT_TRUE(dialog->isModal());
    QPointer<QObject> alive(dialog);
    FindControl<QAbstractButton>(dialog, 1215)->click();
    EXPECT_EQ(result_, QDialog::Accepted);
    QTest::qWait(0);
    EXPECT_TRUE(alive.isNull());
}

TEST_F(DialogsTest, EscapeIsTheWayOut) {
    auto* dialog = Open(new CConfirmDeleteDlg(QStringLiteral("?"), &window_));
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_EQ(result_, QDialog::Rejected);
}

TEST_F(DialogsTest, EscapeAsksFirstWhereSomethingWouldBeLost) {
    bool typed = false;
    auto* dialog = new SkinDialog(540, QStringLiteral("修改联系人"), &window_);
    dialog->AskBeforeEscape([&] { return typed; });
    Open(dialog);
    typed = true;
    QTest::keyClick(dialog, Qt::Key_Escape);
    auto* question = dialog->findChild<ConsentDlg*>();
    ASSERT_NE(question, nullptr);
    EXPECT_TRUE(FindControl<QPushButton>(question, 2)->isDefault());
    QTest::keyClick(question, Qt::Key_Escape);  // goes on with what was typed
    EXPECT_EQ(result_, -1);
    EXPECT_TRUE(dialog->isVisible());
    typed = false;
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_EQ(result_, QDialog::Rejected);
}

TEST_F(DialogsTest, AsDoesACloseThatTheDesktopAsksFor) {
    auto* dialog = new SkinDialog(540, QStringLiteral("修改联系人"), &window_);
    dialog->AskBeforeEscape([] { return true; });
    Open(dialog);
    QCloseEvent close;
    QSpontaneKeyEvent::setSpontaneous(&close);  // as if from the desktop
    qApp->notify(dialog, &close);
    EXPECT_TRUE(dialog->isVisible());
    auto* question = dialog->findChild<ConsentDlg*>();
    ASSERT_NE(question, nullptr);
    FindControl<QAbstractButton>(question, 1)->click();
    EXPECT_EQ(result_, QDialog::Rejected);
}

TEST_F(DialogsTest, TheCloseButtonOfTheFrameEndsItAtOnce) {
    auto* dialog = new SkinDialog(540, QStringLiteral("修改联系人"), &window_);
    dialog->AskBeforeEscape([] { return true; });
    Open(dialog);
    dialog->findChild<WindowButton*>()->click();
    EXPECT_EQ(result_, QDialog::Rejected);
}

TEST_F(DialogsTest, TheDeleteQuestionDefaultsToCancel) {
    auto* dialog = Open(new CConfirmDeleteDlg(QStringLiteral("?"), &window_));
    auto* cancel = FindControl<QPushButton>(dialog, 1021);
    EXPECT_TRUE(cancel->isDefault());
    EXPECT_TRUE(WaitFor([&] { return cancel->hasFocus(); }));
    EXPECT_TRUE(FocusRing::ShownOn(cancel));
    QTest::keyClick(dialog, Qt::Key_Return);
    EXPECT_EQ(result_, QDialog::Rejected);
}

TEST_F(DialogsTest, OnlyTheDeleteButtonDeletes) {
    auto* dialog = Open(new CConfirmDeleteDlg(QStringLiteral("?"), &window_));
    QTest::mouseClick(FindControl(dialog, 1215), Qt::LeftButton);
    EXPECT_EQ(result_, QDialog::Accepted);
}

TEST_F(DialogsTest, TheQuestionStandsInItsControl) {
    const QString text = ToQString(u8"您真的要删除选择的【 2 】条联系人吗？");
    auto* dialog = Open(new CConfirmDeleteDlg(text, &window_));
    EXPECT_EQ(FindControl<QLabel>(dialog, 1378)->text(), text);
    dialog->reject();
}

TEST_F(DialogsTest, TheQuestionsSayWhatTheyAreMeantTo) {
    CConfirmDeleteDlg confirm(QStringLiteral("?"));
    EXPECT_EQ(confirm.objectName(), QStringLiteral("dialog 548"));
    EXPECT_EQ(FindControl<QAbstractButton>(&confirm, 1215)->text(), QStringLiteral("删除"));
    EXPECT_EQ(FindControl<QAbstractButton>(&confirm, 1021)->text(), QStringLiteral("取消"));
    CNothingCheckedDlg nothing;
    EXPECT_EQ(nothing.objectName(), QStringLiteral("dialog 682"));
    EXPECT_EQ(FindControl<QAbstractButton>(&nothing, 1215)->text(), QStringLiteral("确定"));
    EXPECT_EQ(FindControl<QAbstractButton>(&nothing, 1199)->text(), QStringLiteral("使用帮助"));
    EXPECT_EQ(nothing.Body()->findChild<QLabel*>()->text(),
              QStringLiteral("请先勾选每项最后的复选框后，再执行删除操作"));
}

TEST_F(DialogsTest, TheHelpButtonOfNothingCheckedDoesNothing) {
    auto* dialog = Open(new CNothingCheckedDlg(&window_));
    QTest::mouseClick(FindControl(dialog, 1199), Qt::LeftButton);
    EXPECT_EQ(result_, -1);
    EXPECT_TRUE(dialog->isVisible());
    dialog->reject();
}

TEST_F(DialogsTest, TheWindowBehindIsDimmedWhileTheDialogIsShown) {
    auto* dialog = Open(new CNothingCheckedDlg(&window_));
    ASSERT_NE(FindScrim(), nullptr);
    EXPECT_EQ(FindScrim()->geometry(), window_.rect());
    window_.resize(700, 500);
    EXPECT_EQ(FindScrim()->geometry(), window_.rect());
    dialog->reject();
    EXPECT_EQ(FindScrim(), nullptr);
}

TEST_F(DialogsTest, ADialogStandsInTheMiddleOfItsWindow) {
    auto* dialog = Open(new CNothingCheckedDlg(&window_));
    const QPoint off = dialog->geometry().center() - window_.geometry().center();
    EXPECT_LE(off.manhattanLength(), 2);
    dialog->reject();
}

TEST_F(DialogsTest, ADialogOfAWindowThatWasNeverShownBelongsToItAndDimsItLater) {
    QWidget hidden(nullptr, Qt::Window | Qt::FramelessWindowHint);
    CNothingCheckedDlg dialog(&hidden);
    dialog.open();
    ASSERT_NE(hidden.windowHandle(), nullptr);
    EXPECT_EQ(dialog.windowHandle()->transientParent(), hidden.windowHandle());
    EXPECT_EQ(hidden.findChild<QWidget*>(QStringLiteral("scrim")), nullptr);
    hidden.resize(700, 500);
    hidden.show();
    EXPECT_NE(hidden.findChild<QWidget*>(QStringLiteral("scrim")), nullptr);
    const QPoint off = dialog.geometry().center() - hidden.geometry().center();
    EXPECT_LE(off.manhattanLength(), 2);
    dialog.reject();
}

TEST_F(DialogsTest, ALongSentenceMakesTheQuestionHigher) {
    CConfirmDeleteDlg brief(QStringLiteral("?"));
    CConfirmDeleteDlg wordy(QString(400, QChar(0x5B57)));
    EXPECT_GT(wordy.height(), brief.height());
    EXPECT_EQ(wordy.width(), brief.width());
}

TEST_F(DialogsTest, ADialogGoesWithItsParent) {
    auto* parent = new QWidget;
    parent->show();
    bool told = false;
    ShowMessage(parent, QuestionDlg::Kind::error, QStringLiteral("初始化错误"),
                [&] { told = true; });
    delete parent;
    QTest::qWait(0);
    EXPECT_FALSE(told);
}

}  // namespace
}  // namespace quorvi

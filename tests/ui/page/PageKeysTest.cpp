// The keys of a page, by real events.
#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include "tests/support/QtTest.h"
#include "tests/support/SampleList.h"
#include "ui/page/PageKeys.h"

namespace quorvi {
namespace {

class PageKeysTest : public QtTest {
  protected:
    void SetUp() override {
        window_.resize(760, 462);
        page_ = new QWidget(&window_);
        list_ = new SampleListCtrl(page_);
        list_->SetRecords(SampleRecords(3));
        field_ = new QLineEdit(page_);
        outside_ = new QLineEdit(&window_);
        auto* inside = new QVBoxLayout(page_);
        inside->addWidget(field_);
        inside->addWidget(list_);
        auto* all = new QVBoxLayout(&window_);
        all->addWidget(outside_);
        all->addWidget(page_);
        HeedKeys(*page_, {.refresh = [this] { ++refreshed_; },
                          .add = [this] { ++added_; },
                          .list = list_,
                          .erase = [this] { ++erased_; }});
        ShowActive(window_);
        list_->setFocus();
    }
    void PressAll() {
        QTest::keyClick(window_.windowHandle(), Qt::Key_F5);
        QTest::keyClick(window_.windowHandle(), Qt::Key_N, Qt::ControlModifier);
        QTest::keyClick(window_.windowHandle(), Qt::Key_Delete);
    }
    [[nodiscard]] std::vector<int> Heard() const { return {refreshed_, added_, erased_}; }

    QWidget window_;
    QWidget* page_ = nullptr;
    SampleListCtrl* list_ = nullptr;
    QLineEdit* field_ = nullptr;
    QLineEdit* outside_ = nullptr;
    int refreshed_ = 0;
    int added_ = 0;
    int erased_ = 0;
};

TEST_F(PageKeysTest, InTheListAllThreeCount) {
    PressAll();
    EXPECT_EQ(Heard(), (std::vector{1, 1, 1}));
}

TEST_F(PageKeysTest, ElsewhereInTheWindowDeleteIsNotThePages) {
    outside_->setFocus();
    PressAll();
    EXPECT_EQ(Heard(), (std::vector{1, 1, 0}));
}

TEST_F(PageKeysTest, AFieldThatHasTheFocusKeepsWhatItUses) {
    field_->setText(QStringLiteral("ab"));
    field_->setFocus();
    field_->setCursorPosition(0);
    PressAll();
    EXPECT_EQ(Heard(), (std::vector{1, 1, 0}));
    EXPECT_EQ(field_->text(), QStringLiteral("b"));
}

TEST_F(PageKeysTest, APageThatIsDisabledOrHiddenHearsNone) {
    page_->setEnabled(false);
    PressAll();
    EXPECT_EQ(Heard(), (std::vector{0, 0, 0}));
    page_->setEnabled(true);
    page_->hide();
    outside_->setFocus();
    PressAll();
    EXPECT_EQ(Heard(), (std::vector{0, 0, 0}));
}

TEST_F(PageKeysTest, UnderADialogItHearsNone) {
    QDialog dialog(&window_);
    dialog.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog, kPatience));
    for (const auto key : {Qt::Key_F5, Qt::Key_Delete}) {
        QTest::keyClick(dialog.windowHandle(), key);
    }
    QTest::keyClick(dialog.windowHandle(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(Heard(), (std::vector{0, 0, 0}));
}

TEST_F(PageKeysTest, AKeyThatIsHeldCountsOnce) {
    QTest::keyPress(window_.windowHandle(), Qt::Key_Delete);
    for (int time = 0; time < 3; ++time) {
        QTest::simulateEvent(window_.windowHandle(), true, Qt::Key_Delete, Qt::NoModifier,
                             QString(), true);
    }
    QTest::keyRelease(window_.windowHandle(), Qt::Key_Delete);
    EXPECT_EQ(erased_, 1);
}

}  // namespace
}  // namespace quorvi

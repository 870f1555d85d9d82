// What assistive tools are told of the kit.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>

#include "tests/support/QtTest.h"
#include "tests/support/SampleList.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QuestionDlg.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"
#include "ui/kit/SkinTree.h"

namespace quorvi {
namespace {

class AccessibleTest : public QtTest {
  protected:
    static QAccessibleInterface* Of(QObject* object) {
        return QAccessible::queryAccessibleInterface(object);
    }
    static QString NameOf(QObject* object) { return Of(object)->text(QAccessible::Name); }
};

TEST_F(AccessibleTest, EachControlHasTheRoleOfItsStockBase) {
    CSkinButton button(QStringLiteral("刷新"));
    CSkinToggle toggle;
    CSkinCheck check(QStringLiteral("隐藏系统应用"));
    SkinRadio radio(QStringLiteral("一"));
    CSkinEdit edit;
    CSkinCombo combo;
    CSkinProgress progress;
    CSkinStateLabel label(QStringLiteral("就绪"));
    CSkinGroupBox box(QStringLiteral("常规设置"));
    SampleListCtrl list;
    CSkinTree tree;
    EXPECT_EQ(Of(&button)->role(), QAccessible::Button);
    EXPECT_EQ(Of(&toggle)->role(), QAccessible::CheckBox);
    EXPECT_EQ(Of(&check)->role(), QAccessible::CheckBox);
    EXPECT_EQ(Of(&radio)->role(), QAccessible::RadioButton);
    EXPECT_EQ(Of(&edit)->role(), QAccessible::EditableText);
    EXPECT_EQ(Of(&combo)->role(), QAccessible::ComboBox);
    EXPECT_EQ(Of(&progress)->role(), QAccessible::ProgressBar);
    EXPECT_EQ(Of(&label)->role(), QAccessible::StaticText);
    EXPECT_EQ(Of(&box)->role(), QAccessible::Grouping);
    EXPECT_EQ(Of(&list)->role(), QAccessible::Table);
    EXPECT_EQ(Of(&tree)->role(), QAccessible::Tree);
}

TEST_F(AccessibleTest, AButtonThatLeadsNowhereIsATextWithNothingToPress) {
    CSkinButton button(QStringLiteral("使用帮助"));
    button.SetInert();
    EXPECT_EQ(Of(&button)->role(), QAccessible::StaticText);
    EXPECT_EQ(NameOf(&button), QStringLiteral("使用帮助"));
    EXPECT_EQ(Of(&button)->actionInterface()->actionNames(), QStringList());
    EXPECT_EQ(button.focusPolicy(), Qt::NoFocus);
}

TEST_F(AccessibleTest, NamesAreReadOut) {
    CSkinButton button(QStringLiteral("刷新"));
    CSkinStateLabel label(QStringLiteral("就绪"));
    WindowButton close(QStringLiteral("win-close"), QStringLiteral("关闭"));
    CSkinToggle toggle;
    SetControlNumber(&toggle, 1250, QStringLiteral("蓝牙"));
    EXPECT_EQ(NameOf(&button), QStringLiteral("刷新"));
    EXPECT_EQ(NameOf(&label), QStringLiteral("就绪"));
    EXPECT_EQ(NameOf(&close), QStringLiteral("关闭"));
    EXPECT_EQ(close.toolTip(), QStringLiteral("关闭"));
    EXPECT_EQ(NameOf(&toggle), QStringLiteral("蓝牙"));
}

TEST_F(AccessibleTest, AToggleIsCheckedWhenOnAndPressedByItsAction) {
    CSkinToggle toggle;
    EXPECT_FALSE(Of(&toggle)->state().checked);
    Of(&toggle)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(Of(&toggle)->state().checked);
    EXPECT_EQ(toggle.GetCheck(), 1);
}

TEST_F(AccessibleTest, ABoxThatAToolFlipsDoesWhatAClickDoes) {
    CSkinCheck check(QStringLiteral("隐藏系统应用"));
    CSkinToggle toggle;
    SkinRadio radio(QStringLiteral("一"));
    for (QAbstractButton* box : std::initializer_list<QAbstractButton*>{&check, &toggle, &radio}) {
        int told = 0;
        QObject::connect(box, &QAbstractButton::clicked, [&] { ++told; });
        ASSERT_TRUE(Of(box)->actionInterface()->actionNames().contains(
            QAccessibleActionInterface::toggleAction()));
        Of(box)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        EXPECT_EQ(told, 1);
        EXPECT_TRUE(Of(box)->state().checked);
        // What the program sets is not the user's wish.
        box->setChecked(!box->isChecked());
        EXPECT_EQ(told, 1);
        box->setEnabled(false);
        Of(box)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        EXPECT_EQ(told, 1);
    }
    EXPECT_EQ(NameOf(&check), QStringLiteral("隐藏系统应用"));
    EXPECT_EQ(NameOf(&radio), QStringLiteral("一"));
}

TEST_F(AccessibleTest, AComboIsCalledByItsNameAndItsEntryIsItsValue) {
    CSkinCombo combo;
    combo.addItems({QStringLiteral("手机"), QStringLiteral("个人")});
    SetControlNumber(&combo, 1380, QStringLiteral("电话 1的类型"));
    EXPECT_EQ(NameOf(&combo), QStringLiteral("电话 1的类型"));
    EXPECT_EQ(Of(&combo)->text(QAccessible::Value), QStringLiteral("手机"));
    ShowActive(combo);
    EXPECT_FALSE(Of(&combo)->state().expanded);
    Of(&combo)->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(WaitFor([&] { return Of(&combo)->state().expanded; }));
    QAccessibleInterface* list = Of(&combo)->child(0);
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->childCount(), 2);
    Of(&combo)->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(WaitFor([&] { return !Of(&combo)->state().expanded; }));
}

TEST_F(AccessibleTest, AListIsATableOfCellsInWords) {
    SampleListCtrl list;
    list.resize(760, 462);
    list.SetRecords(SampleRecords(3));
    list.SetTicked(1, true);
    list.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
    QAccessibleTableInterface* table = Of(&list)->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rowCount(), 3);
    EXPECT_EQ(table->columnDescription(sampleName), QStringLiteral("联系人"));
    QAccessibleInterface* name = table->cellAt(1, sampleName);
    EXPECT_EQ(name->role(), QAccessible::Cell);
    EXPECT_EQ(name->text(QAccessible::Name), QStringLiteral("联系人 1\n13800000001"));
    EXPECT_TRUE(table->cellAt(1, sampleTick)->state().checked);
    EXPECT_FALSE(table->cellAt(0, sampleTick)->state().checked);
    for (int column = 0; column < table->columnCount(); ++column) {
        EXPECT_FALSE(table->cellAt(2, column)->text(QAccessible::Name).isEmpty()) << column;
    }
    EXPECT_EQ(table->cellAt(1, samplePicture)->text(QAccessible::Name), QStringLiteral("有照片"));
    EXPECT_EQ(table->cellAt(1, sampleTick)->text(QAccessible::Name), QStringLiteral("已勾选"));
    EXPECT_EQ(table->cellAt(0, sampleTick)->text(QAccessible::Name), QStringLiteral("未勾选"));
}

TEST_F(AccessibleTest, ADialogIsADialogWithItsTitle) {
    CNothingCheckedDlg dialog;
    EXPECT_EQ(Of(&dialog)->role(), QAccessible::Dialog);
    EXPECT_EQ(NameOf(&dialog), QStringLiteral("提示 - Quorvi"));
}

TEST_F(AccessibleTest, NumbersAreDescriptionsWhenAskedFor) {
    qputenv("QUORVI_CONTROL_NUMBERS", "1");
    CSkinToggle toggle;
    SetControlNumber(&toggle, 1250);
    QWidget page;
    SetDialogNumber(page, 130);
    qunsetenv("QUORVI_CONTROL_NUMBERS");
    EXPECT_EQ(toggle.accessibleDescription(), QStringLiteral("1250"));
    EXPECT_EQ(page.accessibleDescription(), QStringLiteral("dialog 130"));
}

TEST_F(AccessibleTest, DescriptionsAreForPeopleOtherwise) {
    CSkinToggle toggle;
    SetControlNumber(&toggle, 1250);
    EXPECT_TRUE(toggle.accessibleDescription().isEmpty());
}

}  // namespace
}  // namespace quorvi

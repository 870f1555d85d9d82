// Finding in a tree: the bar over it, and the nodes that it leaves.
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include "tests/support/QtTest.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinTree.h"
#include "ui/list/TreeFind.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

TreeNode Group(std::u8string_view name, std::initializer_list<std::u8string_view> members) {
    TreeNode group{.text = ToQString(name) + QStringLiteral(" [%1]").arg(members.size())};
    group.find = ToQString(name);
    for (const std::u8string_view member : members) {
        const QString text = ToQString(member);
        group.children.push_back({.text = text, .find = QString(text).replace(u' ', u'\n')});
    }
    return group;
}

class TreeFinding : public QtTest {
  protected:
    void SetUp() override {
        window_.resize(300, 200);
        tree_ = SetControlNumber(new CSkinTree(&window_, CSkinTree::Ticks::each), 1338,
                                 ToQString(u8"联系人"));
        tree_->setGeometry(0, 0, 300, 200);
        tree_->SetNodes({
            Group(u8"朋友", {u8"林远舟 [13861234567]", u8"Anna [10086]", u8"李雨泽 [136]"}),
            Group(u8"家人", {u8"表妹罗忆中 [13700008642]", u8"老朋友 [95588]"}),
        });
        new TreeFind(*tree_);
        ShowActive(window_);
        tree_->setFocus();
    }
    QLineEdit& Field() { return *window_.findChild<QLineEdit*>(QStringLiteral("find")); }
    QString Count() { return window_.findChild<QLabel*>(QStringLiteral("findCount"))->text(); }
    void Type(std::u8string_view text) {
        QTest::keySequence(QGuiApplication::focusWindow(), QKeySequence::Find);
        Field().setText(ToQString(text));
    }
    QTreeWidgetItem* Top(int group) { return tree_->topLevelItem(group); }
    QTreeWidgetItem* Member(int group, int row) { return Top(group)->child(row); }
    // The names of what can be seen, from the top.
    QStringList Seen() {
        QStringList names;
        for (auto* item = Top(0); item != nullptr; item = tree_->itemBelow(item)) {
            if (!tree_->visualItemRect(item).isEmpty()) {
                names.append(item->text(0).section(u' ', 0, 0));
            }
        }
        return names;
    }

    QWidget window_;
    CSkinTree* tree_ = nullptr;
};

TEST_F(TreeFinding, CtrlFOpensTheBarAndEscapeClosesIt) {
    EXPECT_FALSE(Field().isVisible());
    const int top = tree_->viewport()->mapTo(&window_, QPoint()).y();
    QTest::keySequence(tree_, QKeySequence::Find);
    EXPECT_TRUE(Field().hasFocus());
    EXPECT_EQ(Field().accessibleName(), ToQString(u8"在列表中查找"));
    const auto* bar = window_.findChild<QWidget*>(QStringLiteral("findBar"));
    const int line = look::Metric::hairline;
    EXPECT_EQ(bar->geometry(), QRect(line, line, 300 - 2 * line, look::Metric::findBar));
    EXPECT_EQ(tree_->viewport()->mapTo(tree_, QPoint()).y(), bar->geometry().bottom() + 1);
    tree_->resize(200, 200);
    EXPECT_EQ(bar->width(), 200 - 2 * line);
    const QWidget& count = *window_.findChild<QLabel*>(QStringLiteral("findCount"));
    EXPECT_LT(Field().geometry().right(), count.x());
    EXPECT_GT(Field().width(), look::Metric::findField);
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_FALSE(Field().isVisible());
    EXPECT_TRUE(tree_->hasFocus());
    EXPECT_EQ(tree_->viewport()->mapTo(&window_, QPoint()).y(), top);
}

TEST_F(TreeFinding, ABarThatWasOpenedBeforeTheTreeIsShownLiesRight) {
    QWidget window;
    window.resize(300, 200);
    CSkinTree tree(&window);
    tree.setGeometry(0, 0, 300, 200);
    (new TreeFind(tree))->Open();
    window.show();
    const auto* bar = tree.findChild<QWidget*>(QStringLiteral("findBar"));
    EXPECT_EQ(tree.viewport()->mapTo(&tree, QPoint()).y(), bar->geometry().bottom() + 1);
}

TEST_F(TreeFinding, AGroupIsShownWhileOneOfItsMembersIsFoundAndOpensForThem) {
    QTest::keySequence(tree_, QKeySequence::Find);
    QTest::keyClicks(&Field(), QStringLiteral("lyz"));
    EXPECT_EQ(Seen(),
              (QStringList{ToQString(u8"朋友"), ToQString(u8"林远舟"), ToQString(u8"李雨泽"),
                           ToQString(u8"家人"), ToQString(u8"表妹罗忆中")}));
    EXPECT_EQ(Count(), ToQString(u8"找到 3 项"));
    QTest::keyClicks(&Field(), QStringLiteral("hou"));
    EXPECT_EQ(Seen(), (QStringList{ToQString(u8"朋友"), ToQString(u8"林远舟")}));
}

TEST_F(TreeFinding, AGroupThatIsFoundItselfStaysAsItIsWithAllItsMembers) {
    Type(u8"py");
    EXPECT_EQ(Seen(),
              (QStringList{ToQString(u8"朋友"), ToQString(u8"家人"), ToQString(u8"老朋友")}));
    tree_->expandAll();
    EXPECT_EQ(Seen().size(), 6);
}

TEST_F(TreeFinding, ANumberIsFoundByItsDigitsAndACountIsNone) {
    Type(u8"13861");
    EXPECT_EQ(Seen(), (QStringList{ToQString(u8"朋友"), ToQString(u8"林远舟")}));
    Field().setText(QStringLiteral("2"));  // how many are in the other group
    EXPECT_EQ(Seen(), (QStringList{ToQString(u8"朋友"), ToQString(u8"林远舟"), ToQString(u8"家人"),
                                   ToQString(u8"表妹罗忆中")}));
}

TEST_F(TreeFinding, WhereNothingIsFoundTheTreeSaysSo) {
    const QImage before = tree_->viewport()->grab().toImage();
    Type(u8"xyz");
    EXPECT_EQ(Seen(), QStringList());
    EXPECT_EQ(Count(), ToQString(u8"找到 0 项"));
    const QImage nothing = tree_->viewport()->grab().toImage();
    Field().setText(QStringLiteral("xyzw"));
    EXPECT_NE(tree_->viewport()->grab().toImage(), nothing);  // it names what was typed
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_EQ(tree_->viewport()->grab().toImage(), before);
}

TEST_F(TreeFinding, ClosedTheTreeIsAsItWas) {
    std::vector<TreeNode> groups;
    for (int i = 0; i < 40; ++i) {
        groups.push_back(Group(u8"组", {u8"成员甲", u8"成员乙"}));
    }
    groups[7].children[1] = {.text = ToQString(u8"林远舟")};
    tree_->SetNodes(groups);
    Top(2)->setExpanded(true);
    tree_->setCurrentItem(Top(9));
    tree_->verticalScrollBar()->setValue(300);
    const QStringList seen = Seen();
    Type(u8"lyz");
    ASSERT_EQ(Seen().size(), 2);
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_EQ(Seen(), seen);
    EXPECT_EQ(tree_->verticalScrollBar()->value(), 300);
    EXPECT_EQ(tree_->currentItem(), Top(9));
    EXPECT_TRUE(Top(2)->isExpanded());
    EXPECT_FALSE(Top(7)->isExpanded());
}

TEST_F(TreeFinding, ANodeThatWasChosenMeanwhileIsInViewWhenItIsClosed) {
    Type(u8"luoyi");
    QTest::mouseClick(tree_->viewport(), Qt::LeftButton, {},
                      tree_->visualItemRect(Member(1, 0)).center());
    QTest::keyClick(tree_, Qt::Key_Escape);
    EXPECT_EQ(tree_->currentItem(), Member(1, 0));
    EXPECT_FALSE(tree_->visualItemRect(Member(1, 0)).isEmpty());
}

TEST_F(TreeFinding, TicksOfHiddenNodesStay) {
    tree_->SetTicked(Member(0, 1), true);
    Type(u8"lyz");
    QTest::mouseClick(tree_->viewport(), Qt::LeftButton, {},
                      tree_->TickRect(Member(0, 2)).center());
    EXPECT_TRUE(tree_->IsTicked(Member(0, 1)));
    EXPECT_TRUE(tree_->IsTicked(Member(0, 2)));
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_TRUE(tree_->IsTicked(Member(0, 1)));
}

TEST_F(TreeFinding, AGroupsTickMeansTheMembersThatAreSeen) {
    const QSignalSpy told(tree_, &CSkinTree::ticksChanged);
    tree_->SetTicked(Member(0, 1), true);
    Type(u8"lyz");
    const auto tickGroup = [&] {
        QTest::mouseClick(tree_->viewport(), Qt::LeftButton, {}, tree_->TickRect(Top(0)).center());
    };
    const auto ticked = [&] {
        return std::vector<bool>{tree_->IsTicked(Member(0, 0)), tree_->IsTicked(Member(0, 1)),
                                 tree_->IsTicked(Member(0, 2))};
    };
    tickGroup();
    EXPECT_EQ(ticked(), (std::vector{true, true, true}));
    tickGroup();
    EXPECT_EQ(ticked(), (std::vector{false, true, false}));
    EXPECT_EQ(told.count(), 2);
}

TEST_F(TreeFinding, SpaceLeavesTheTickOfAHiddenNodeAlone) {
    Top(0)->setExpanded(true);
    tree_->setCurrentItem(Member(0, 1));
    Type(u8"lyz");
    tree_->setFocus();
    QTest::keyClick(tree_, Qt::Key_Space);
    EXPECT_FALSE(tree_->IsTicked(Member(0, 1)));
    EXPECT_EQ(tree_->currentItem(), Member(0, 1));  // and the selection stays there
}

TEST_F(TreeFinding, DownLeadsFromTheFieldToTheFirstNodeThatIsSeen) {
    Type(u8"luoyi");
    QTest::keyClick(&Field(), Qt::Key_Down);
    EXPECT_TRUE(tree_->hasFocus());
    EXPECT_EQ(tree_->currentItem(), Top(1));
    QTest::keyClick(tree_, Qt::Key_Down);
    EXPECT_EQ(tree_->currentItem(), Member(1, 0));
}

TEST_F(TreeFinding, TheTabKeyLeadsThroughTheBarToTheTree) {
    Type(u8"lyz");
    QTest::keyClick(&Field(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("findClose"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(tree_->hasFocus());
}

TEST_F(TreeFinding, NodesThatAreFetchedAnewAreNarrowedToo) {
    Type(u8"lyz");
    tree_->SetNodes(
        {Group(u8"同事", {u8"王朝 [1]", u8"刘易之 [2]"}), Group(u8"朋友", {u8"王 [3]"})});
    EXPECT_TRUE(WaitFor([&] {
        return Seen() == (QStringList{ToQString(u8"同事"), ToQString(u8"刘易之")});
    }));
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_EQ(Seen(), (QStringList{ToQString(u8"同事"), ToQString(u8"朋友")}));
}

TEST_F(TreeFinding, WhatWasFoundStandsOut) {
    Type(u8"lyz");
    const QRect row = tree_->visualItemRect(Member(0, 0));
    const QImage found = tree_->viewport()->grab(row).toImage();
    bool hasAccent = false;
    for (int y = 0; y < found.height(); ++y) {
        for (int x = 0; x < found.width(); ++x) {
            hasAccent = hasAccent || found.pixelColor(x, y) == look::color(look::Color::plum7);
        }
    }
    EXPECT_TRUE(hasAccent);
}

}  // namespace
}  // namespace quorvi

// The tree of the kit, driven by mouse and keys.
#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>
#include <QToolTip>

#include "tests/support/QtTest.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/SkinTree.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

const std::vector<TreeNode> kGroups{
    {QStringLiteral("a"), {}, {{QStringLiteral("a1")}, {QStringLiteral("a2")}}},
    {QStringLiteral("b"), {}, {{QStringLiteral("b1")}}},
};

class TreeTest : public QtTest {
  protected:
    void SetUp() override {
        window_.resize(300, 300);
        ShowActive(window_);
    }
    CSkinTree* Make(CSkinTree::Ticks ticks) {
        auto* tree = SetControlNumber(new CSkinTree(&window_, ticks), 1184, QStringLiteral("树"));
        tree->setGeometry(0, 0, 300, 300);
        tree->SetNodes(kGroups);
        tree->show();
        return tree;
    }
    static void Click(CSkinTree* tree, const QPoint& at) {
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, at);
    }

    QWidget window_;
};

TEST_F(TreeTest, RowsAreTwentyEightHigh) {
    CSkinTree* tree = Make(CSkinTree::Ticks::none);
    EXPECT_EQ(tree->visualItemRect(tree->topLevelItem(1)).top() -
                  tree->visualItemRect(tree->topLevelItem(0)).top(),
              28);
}

TEST_F(TreeTest, ALeafStandsUnderItsParentsText) {
    CSkinTree* tree = Make(CSkinTree::Ticks::none);
    tree->SetNodes({{QStringLiteral("H"), {}, {{QStringLiteral("H")}}}});
    tree->expandAll();
    const QImage shot = tree->viewport()->grab().toImage();
    // The first dark pixel of a node's middle line, right of the chevron.
    const auto textLeft = [&](QTreeWidgetItem* node) {
        const QRect row = tree->visualItemRect(node);
        int x = look::Metric::treePadding + look::Metric::chevron + look::Metric::treeCellPadding;
        while (x < shot.width() && shot.pixelColor(x, row.center().y()).lightness() > 128) {
            ++x;
        }
        return x;
    };
    QTreeWidgetItem* parent = tree->topLevelItem(0);
    ASSERT_LT(textLeft(parent), shot.width());
    EXPECT_EQ(textLeft(parent->child(0)), textLeft(parent));
}

TEST_F(TreeTest, NodesComeClosedAndInTheirOrder) {
    CSkinTree* tree = Make(CSkinTree::Ticks::none);
    ASSERT_EQ(tree->topLevelItemCount(), 2);
    EXPECT_EQ(tree->topLevelItem(0)->child(1)->text(0), QStringLiteral("a2"));
    EXPECT_FALSE(tree->topLevelItem(0)->isExpanded());
}

TEST_F(TreeTest, ThePositionCountsTheNodesThatCanBeSeen) {
    CSkinTree* tree = Make(CSkinTree::Ticks::none);
    EXPECT_EQ(tree->CurrentPosition(), -1);
    tree->setCurrentItem(tree->topLevelItem(1));
    EXPECT_EQ(tree->CurrentPosition(), 1);
    tree->expandAll();
    EXPECT_EQ(tree->CurrentPosition(), 3);
}

TEST_F(TreeTest, ATickOfAGroupTicksItsMembers) {
    CSkinTree* tree = Make(CSkinTree::Ticks::each);
    QSignalSpy changed(tree, &CSkinTree::ticksChanged);
    Click(tree, tree->TickRect(tree->topLevelItem(0)).center());
    EXPECT_TRUE(tree->IsTicked(tree->topLevelItem(0)->child(0)));
    EXPECT_TRUE(tree->IsTicked(tree->topLevelItem(0)->child(1)));
    EXPECT_FALSE(tree->IsTicked(tree->topLevelItem(1)));
    EXPECT_EQ(changed.count(), 1);  // told once, when all is done
    Click(tree, tree->TickRect(tree->topLevelItem(0)).center());
    EXPECT_FALSE(tree->IsTicked(tree->topLevelItem(0)->child(0)));
}

TEST_F(TreeTest, SomeMembersMakeTheGroupHalfTickedAndAClickOnItTicksAll) {
    CSkinTree* tree = Make(CSkinTree::Ticks::each);
    QTreeWidgetItem* group = tree->topLevelItem(0);
    tree->SetTicked(group->child(1), true);
    EXPECT_EQ(group->checkState(0), Qt::PartiallyChecked);
    Click(tree, tree->TickRect(group).center());
    EXPECT_TRUE(tree->IsTicked(group));
    EXPECT_TRUE(tree->IsTicked(group->child(0)));
}

TEST_F(TreeTest, TickingByProgramTellsNothing) {
    CSkinTree* tree = Make(CSkinTree::Ticks::each);
    QSignalSpy changed(tree, &CSkinTree::ticksChanged);
    tree->SetTicked(tree->topLevelItem(0), true);
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(TreeTest, AClickBesideTheTickOnlySelects) {
    CSkinTree* tree = Make(CSkinTree::Ticks::each);
    QSignalSpy changed(tree, &CSkinTree::ticksChanged);
    QSignalSpy clicked(tree, &CSkinTree::nodeClicked);
    Click(tree, tree->visualItemRect(tree->topLevelItem(1)).center());
    EXPECT_EQ(tree->currentItem(), tree->topLevelItem(1));
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(clicked.count(), 1);
}

TEST_F(TreeTest, KeysMoveOpenAndTick) {
    CSkinTree* tree = Make(CSkinTree::Ticks::each);
    tree->setFocus();
    tree->setCurrentItem(tree->topLevelItem(0));
    QTest::keyClick(tree, Qt::Key_Right);
    EXPECT_TRUE(tree->topLevelItem(0)->isExpanded());
    QTest::keyClick(tree, Qt::Key_Down);
    EXPECT_EQ(tree->currentItem()->text(0), QStringLiteral("a1"));
    QTest::keyClick(tree, Qt::Key_Space);
    EXPECT_TRUE(tree->IsTicked(tree->topLevelItem(0)->child(0)));
    QTest::keyClick(tree, Qt::Key_Home);
    QTest::keyClick(tree, Qt::Key_Return);
    EXPECT_FALSE(tree->topLevelItem(0)->isExpanded());
}

TEST_F(TreeTest, ATreeWithRedrawOffStaysAsItIs) {
    CSkinTree* tree = Make(CSkinTree::Ticks::none);
    const QImage before = tree->viewport()->grab().toImage();
    tree->SetRedraw(false);
    tree->SetNodes({{QStringLiteral("z")}});
    EXPECT_EQ(tree->viewport()->grab().toImage(), before);
    tree->SetRedraw(true);
    EXPECT_NE(tree->viewport()->grab().toImage(), before);
}

TEST_F(TreeTest, ATreeClearedBeforeRedrawWentOffStaysBlank) {
    CSkinTree* tree = Make(CSkinTree::Ticks::none);
    tree->Clear();
    tree->SetRedraw(false);
    const QImage shot = tree->viewport()->grab().toImage();
    EXPECT_EQ(shot.pixelColor(150, 150), look::color(look::Color::surface));
    tree->SetRedraw(true);
    EXPECT_NE(tree->viewport()->grab().toImage(), shot);  // now it says that it is empty
}

TEST_F(TreeTest, ADisabledTreeHasOneGroundToItsFrame) {
    CSkinTree* tree = Make(CSkinTree::Ticks::each);
    for (const bool enabled : {true, false}) {
        tree->setEnabled(enabled);
        const QImage shot = tree->grab().toImage();
        EXPECT_EQ(shot.pixelColor(3, 200), shot.pixelColor(150, 200)) << enabled;
    }
}

TEST_F(TreeTest, ATextOfAMegabyteIsShownAsFarAsItGoes) {
    constexpr int kMegabyte = 1'000'000;
    CSkinTree* tree = Make(CSkinTree::Ticks::each);
    const auto shot = [&](int characters) {
        tree->SetNodes({{QString(characters, QChar(u'名'))}});
        return tree->viewport()->grab().toImage();
    };
    EXPECT_EQ(shot(kMegabyte), shot(500));  // both end in dots at the same place
    EXPECT_NE(shot(kMegabyte), shot(5));
    shot(kMegabyte);
    EXPECT_EQ(tree->topLevelItem(0)->text(0).size(), kMegabyte);  // the node keeps all of it
    const QPoint at = tree->visualItemRect(tree->topLevelItem(0)).center();
    QHelpEvent help(QEvent::ToolTip, at, tree->viewport()->mapToGlobal(at));
    QApplication::sendEvent(tree->viewport(), &help);
    EXPECT_EQ(QToolTip::text().count(QChar(u'名')), 1024);
    QToolTip::hideText();
}

class TreeViewTest : public TreeTest {
  protected:
    // Two nodes with two below each, and one below each of these.
    void SetUp() override {
        TreeTest::SetUp();
        for (int i = 0; i < 2; ++i) {
            auto* top = new QStandardItem(QStringLiteral("top"));
            for (int k = 0; k < 2; ++k) {
                auto* middle = new QStandardItem(QStringLiteral("middle"));
                middle->appendRow(new QStandardItem(QStringLiteral("leaf")));
                top->appendRow(middle);
            }
            model_.appendRow(top);
        }
        view_.setGeometry(0, 0, 300, 300);
        view_.setModel(&model_);
        view_.show();
    }
    [[nodiscard]] QModelIndex Top(int row) const { return model_.index(row, 0); }
    [[nodiscard]] QModelIndex Middle(int top, int row) const {
        return model_.index(row, 0, Top(top));
    }
    QStandardItemModel model_;
    SkinTreeView view_{&window_};
};

TEST_F(TreeViewTest, ExpandTopOpensTheTopLevelAlone) {
    view_.ExpandTop();
    EXPECT_TRUE(view_.isExpanded(Top(0)));
    EXPECT_TRUE(view_.isExpanded(Top(1)));
    EXPECT_FALSE(view_.isExpanded(Middle(0, 0)));
    EXPECT_EQ(view_.visualRect(Top(1)).top() - view_.visualRect(Top(0)).top(), 3 * 28);
}

TEST_F(TreeViewTest, CollapseTopKeepsWhatIsOpenBelow) {
    view_.ExpandTop();
    view_.expand(Middle(0, 1));
    view_.CollapseTop();
    EXPECT_FALSE(view_.isExpanded(Top(0)));
    EXPECT_TRUE(view_.isExpanded(Middle(0, 1)));
    EXPECT_EQ(view_.visualRect(Top(1)).top() - view_.visualRect(Top(0)).top(), 28);
}

TEST_F(TreeViewTest, CollapseTopBringsAHiddenCurrentNodeToTheTop) {
    view_.ExpandTop();
    view_.setCurrentIndex(Middle(1, 0));
    view_.CollapseTop();
    EXPECT_EQ(view_.currentIndex(), Top(1));
    EXPECT_FALSE(view_.isExpanded(Top(1)));
}

TEST_F(TreeViewTest, WithoutAModelOrNodesThereIsNothingToOpen) {
    SkinTreeView bare(&window_);
    bare.ExpandTop();
    bare.CollapseTop();
    bare.show();
    EXPECT_FALSE(bare.grab().isNull());  // says that it is empty
    model_.clear();
    view_.CollapseTop();
    EXPECT_FALSE(view_.currentIndex().isValid());
}

TEST_F(TreeViewTest, ANodeIsDrawnInTheInkThatItNames) {
    const QImage before = view_.viewport()->grab().toImage();
    model_.item(0)->setData(static_cast<int>(look::Color::red), treeRoleTextInk);
    const QImage inked = view_.viewport()->grab().toImage();
    EXPECT_NE(inked, before);
    model_.item(0)->setData(QStringLiteral("autostart"), treeRoleIcon);
    EXPECT_NE(view_.viewport()->grab().toImage(), inked);
}

TEST_F(TreeTest, CollapsingAnEmptyTreeDoesNothing) {
    CSkinTree* tree = Make(CSkinTree::Ticks::none);
    tree->Clear();
    tree->collapseAll();
    EXPECT_EQ(tree->topLevelItemCount(), 0);
}

}  // namespace
}  // namespace quorvi

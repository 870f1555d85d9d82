// A user's story with the auto-start page: through the window by its control numbers.
#include "tests/support/PagesOnPhone.h"
#include "ui/kit/SkinTree.h"

namespace quorvi {
namespace {

constexpr int kPage = 43;
constexpr int kTree = 1184;
constexpr std::size_t kRefresh = 0;
constexpr std::size_t kExpandAll = 1;
constexpr std::size_t kCollapseAll = 2;
constexpr int kList = 871701;

class AutoStartStory : public PagesOnPhone {
  protected:
    void SetUp() override {
        PagesOnPhone::SetUp();
        OpenFresh(kPage);
    }

    static SkinTreeView& Tree() { return OnPage<SkinTreeView>(kTree); }
    static QModelIndex Node(std::initializer_list<int> rows) {
        QModelIndex node;
        for (const int row : rows) {
            node = Tree().model()->index(row, 0, node);
        }
        return node;
    }
    static QString Text(std::initializer_list<int> rows) { return Node(rows).data().toString(); }
    static int Events() { return Tree().model()->rowCount(); }
    static void Refresh() {
        Command(kRefresh);
        ASSERT_TRUE(WaitIdle());
    }
};

TEST_F(AutoStartStory, WhatStartsOnAnEventIsUnfoldedDownToThePackage) {
    EXPECT_EQ(Text({0}), ToQString(u8"系统启动后"));
    EXPECT_EQ(Text({1}), ToQString(u8"网络连接状态改变时"));
    EXPECT_EQ(Tree().model()->rowCount(Node({1})), 5);
    Command(kExpandAll);
    EXPECT_TRUE(Tree().isExpanded(Node({0})));
    EXPECT_FALSE(Tree().isExpanded(Node({0, 0})));
    // A double click opens an application.
    Tree().scrollTo(Node({0, 3}));
    const QPoint at = Tree().visualRect(Node({0, 3})).center();
    QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(Tree().viewport(), Qt::LeftButton, {}, at);
    EXPECT_TRUE(Tree().isExpanded(Node({0, 3})));
    EXPECT_EQ(Text({0, 3, 0}), QStringLiteral("com.android.alarmclock"));
    Command(kCollapseAll);
    EXPECT_FALSE(Tree().isExpanded(Node({0})));
    EXPECT_TRUE(Requests(kList).empty());  // unfolding asks nobody
    EXPECT_EQ(Status(), ToQString(u8"就绪"));
}

TEST_F(AutoStartStory, AnEventThatIsNotKnownEndsTheTreeAndIsTold) {
    Tell("data hostile 1");
    Refresh();
    EXPECT_EQ(Requests(kList).size(), 1u);
    EXPECT_GT(Events(), 0);
    EXPECT_TRUE(Tree().Redraw());
    EXPECT_EQ(Status(), ToQString(u8"【X】未知的启动事件 145，其后的启动项没有读取，请升级本软件"));
    Command(kExpandAll);
    Tree().viewport()->repaint();
    EXPECT_TRUE(Tree().isExpanded(Node({0})));
    Tell("data");
    Refresh();
    EXPECT_EQ(Status(), ToQString(u8"就绪"));
}

TEST_F(AutoStartStory, TwentyThousandRecordsAreUnfoldedAndFolded) {
    Tell("data auto-starts 20000");
    Refresh();
    EXPECT_EQ(Events(), 145);
    Command(kExpandAll);
    const QModelIndex last = Node({144, Tree().model()->rowCount(Node({144})) - 1});
    Tree().scrollTo(last);
    EXPECT_TRUE(Tree().viewport()->rect().intersects(Tree().visualRect(last)));
    Command(kCollapseAll);
    EXPECT_FALSE(Tree().isExpanded(Node({144})));
    Refresh();
    EXPECT_EQ(Events(), 145);
}

}  // namespace
}  // namespace quorvi

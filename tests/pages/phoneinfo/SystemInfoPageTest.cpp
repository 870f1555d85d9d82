#include "base/Text.h"
#include "pages/phoneinfo/SystemInfoPage.h"
#include "tests/pages/phoneinfo/SystemInfoReply.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/PageTest.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/list/SkinListCtrl.h"

namespace quorvi {
namespace {

class SystemInfoPage : public PageTest {
  protected:
    static CSkinListCtrl& List(const CSystemInfoPage& page) {
        return *FindControl<CSkinListCtrl>(&page, CSystemInfoPage::kList);
    }
    static QStringList Values(const CSystemInfoPage& page) {
        QStringList values;
        for (int row = 0; row < List(page).RowCount(); ++row) {
            values.append(List(page).CellAt(row, 1).second);
        }
        return values;
    }
    // Loads and waits for the end.
    void Load(CSystemInfoPage& page) {
        page.Load();
        ASSERT_TRUE(WaitFor([&] { return host_.loadState.Value(10) == PageLoadState::kEnded; }));
    }
};

TEST_F(SystemInfoPage, RowsStandFromTheStartWithTheirCaptions) {
    const CSystemInfoPage page(host_, services_.At(UnusedPort()));
    EXPECT_EQ(page.objectName(), QStringLiteral("dialog 135"));
    ASSERT_EQ(List(page).RowCount(), 19);
    EXPECT_EQ(List(page).CellAt(0, 1).text, ToQString(u8"手机型号"));
    EXPECT_EQ(List(page).CellAt(18, 1).text, ToQString(u8"扩展硬件"));
    // What is not the phone's to tell stands there too.
    EXPECT_EQ(Values(page).join(QString()), ToQString(u8"无"));
    EXPECT_EQ(List(page).CellAt(18, 1).second, ToQString(u8"无"));
}

TEST_F(SystemInfoPage, ColumnsAreTypeDetailsAndComparison) {
    const CSystemInfoPage page(host_, services_.At(UnusedPort()));
    const CSkinListCtrl& list = List(page);
    ASSERT_EQ(list.ColumnCount(), 3);
    EXPECT_EQ(list.Column(0).caption, u8"类型");
    EXPECT_EQ(list.Column(0).width, 80);
    EXPECT_EQ(list.Column(1).caption, u8"详细信息");
    EXPECT_EQ(list.Column(1).width, 448);
    EXPECT_EQ(list.Column(2).caption, u8"主流对比");
    EXPECT_EQ(list.Column(2).width, 200);
    for (int row = 0; row < list.RowCount(); ++row) {
        EXPECT_FALSE(list.CellAt(row, 0).icon.isEmpty()) << row;
        EXPECT_EQ(list.CellAt(row, 2).text, QString()) << row;
    }
}

TEST_F(SystemInfoPage, LoadShowsTheRowsThatTheCommandLinePrints) {
    LoopbackAgent agent({.bytes = Framed(WholeSystemInfo().Get())});
    CSystemInfoPage page(host_, services_.At(agent.Port()));
    Load(page);
    QStringList expected;
    for (const SystemInfoRow& row :
         SystemInfoTable(ParseSystemInfo(WholeSystemInfo().Buffer()).value())) {
        expected.append(ToQString(row.text));
    }
    EXPECT_EQ(Values(page), expected);
    EXPECT_EQ(agent.Exchanges(1).front().firstPiece, Word(870004));
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(SystemInfoPage, ConnectFailureIsToldAndTheRowsStay) {
    CSystemInfoPage page(host_, services_.At(UnusedPort()));
    Load(page);
    EXPECT_EQ(host_.statuses, QStringList{ToQString(u8"【X】连接错误")});
    EXPECT_EQ(List(page).RowCount(), 19);
    EXPECT_EQ(List(page).State(), ListState::idle);
}

TEST_F(SystemInfoPage, ALoadThatWorksTakesAnOldConnectFailureBack) {
    FailBefore();
    LoopbackAgent agent({.bytes = Framed(WholeSystemInfo().Get())});
    CSystemInfoPage page(host_, services_.At(agent.Port()));
    Load(page);
    EXPECT_EQ(host_.status, kReady);
}

TEST_F(SystemInfoPage, AbsentModelLeavesTheTableAsItIs) {
    LoopbackAgent agent({.bytes = Framed(LeadingWord().Absent().U64(0).Get())});
    CSystemInfoPage page(host_, services_.At(agent.Port()));
    Load(page);
    EXPECT_EQ(Values(page).join(QString()), ToQString(u8"无"));
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(SystemInfoPage, RefreshDuringALoadIsIgnored) {
    LoopbackAgent agent(
        {.bytes = Word(NoDataMark), .piece = 1, .pause = std::chrono::milliseconds(20)});
    CSystemInfoPage page(host_, services_.At(agent.Port()));
    page.Load();
    Load(page);
    Settle();
    Load(page);  // one that comes after the end is not
    EXPECT_EQ(agent.Exchanges(2).size(), 2U);
}

}  // namespace
}  // namespace quorvi

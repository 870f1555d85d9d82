// A user's story with the task manager: through the window by its control numbers, to the phone and
// back.
#include <gmock/gmock.h>

#include <QLabel>

#include "tests/support/PagesOnPhone.h"

namespace quorvi {
namespace {

using testing::HasSubstr;

constexpr int kTasks = 45;
constexpr int kFreeMemory = 1363;
constexpr std::size_t kRefresh = 0;
constexpr std::size_t kEnd = 1;

enum Column {
    columnIcon,
    columnName,
    columnSystem,
    columnCpu,
    columnMemory,
    columnPid,
    columnDetails,
    columnTick
};

class TaskStory : public PagesOnPhone {
  protected:
    void SetUp() override {
        PagesOnPhone::SetUp();
        OpenFresh(kTasks);
    }

    static CSkinListCtrl& List() { return TheList(); }
    static QString Text(int row, int column) { return List().CellAt(row, column).text; }
    static QString FreeMemory() { return OnPage<QLabel>(kFreeMemory).text(); }
};

TEST_F(TaskStory, TwoProcessesAreEndedAndTheirMemoryIsFree) {
    ASSERT_EQ(List().RowCount(), 21);
    EXPECT_EQ(FreeMemory(), QStringLiteral("148 MB"));
    EXPECT_EQ(Text(14, columnName), ToQString(u8"小区天气"));
    EXPECT_EQ(List().CellAt(14, columnName).second, QStringLiteral("com.example.weather"));
    EXPECT_EQ(Text(14, columnCpu), QStringLiteral("1 %"));
    EXPECT_EQ(Text(14, columnMemory), QStringLiteral("9.21 MB"));
    EXPECT_EQ(List().CellAt(14, columnMemory).second, ToQString(u8"服务"));
    EXPECT_EQ(Text(14, columnPid), QStringLiteral("2603"));

    ClickCell(List(), 19, columnTick);
    ClickCell(List(), 14, columnTick);
    Command(kEnd);
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(List().RowCount(), 19);
    for (int row = 0; row < List().RowCount(); ++row) {
        EXPECT_NE(List().CellAt(row, columnName).second, QStringLiteral("com.example.weather"));
        EXPECT_NE(List().CellAt(row, columnName).second, QStringLiteral("com.example.gomoku"));
    }
    EXPECT_EQ(FreeMemory(), QStringLiteral("166 MB"));  // 148 MB, 9,432 KB and 9,192 KB
    ASSERT_EQ(Requests(871804).size(), 1u);
    EXPECT_THAT(Requests(871804)[0], HasSubstr(Hex(WireBytes()
                                                       .U32(871804)  // code
                                                       .U32(57)      // total
                                                       .U32(2)       // count of packages
                                                       .Text("com.example.weather")
                                                       .Text("com.example.gomoku"))));
    // The memory is asked for first, before each list.
    EXPECT_EQ(Requests(871806).size(), 1u);
    EXPECT_EQ(Requests(871801).size(), 1u);
    EXPECT_EQ(Status(), ToQString(u8"已结束 2 个进程"));
}

TEST_F(TaskStory, NothingTickedIsSentAndAskedForAgain) {
    Command(kEnd);
    ASSERT_TRUE(WaitIdle());
    ASSERT_EQ(Requests(871804).size(), 1u);
    EXPECT_THAT(Requests(871804)[0], HasSubstr(" 12 bytes " + Hex(WireBytes()
                                                                      .U32(871804)  // code
                                                                      .U32(12)      // total
                                                                      .U32(0))));   // count
    EXPECT_EQ(Requests(871801).size(), 1u);
    EXPECT_EQ(List().RowCount(), 21);
}

TEST_F(TaskStory, HostileProcessesAreShownAndEnded) {
    Tell("data hostile 1");
    Command(kRefresh);
    ASSERT_TRUE(WaitIdle());
    ASSERT_EQ(List().RowCount(), 21 + 20);
    for (int row = 21; row < List().RowCount(); ++row) {
        List().SelectRow(row);
        static_cast<void>(List().viewport()->grab());
        List().SetTicked(row, true);
    }
    Command(kEnd);
    ASSERT_TRUE(WaitIdle());
    // Those stay whose names have no way to ANSI and back.
    EXPECT_LT(List().RowCount(), 21 + 10);
    EXPECT_GE(List().RowCount(), 21);
}

}  // namespace
}  // namespace quorvi

// A user's story with the cleaner: through the window by its control numbers, to the phone and
// back.
#include <gmock/gmock.h>

#include <QLabel>

#include "tests/support/PagesOnPhone.h"

namespace quorvi {
namespace {

using testing::HasSubstr;

constexpr int kCleaner = 42;
constexpr int kState = 1109;
constexpr std::size_t kScan = 0;
constexpr std::size_t kClean = 1;

enum Column { columnIcon, columnItem, columnPeriod, columnRisk, columnSize, columnTick };

class CleanerStory : public PagesOnPhone {
  protected:
    void SetUp() override {
        PagesOnPhone::SetUp();
        OpenFresh(kCleaner);
    }

    static CSkinListCtrl& List() { return TheList(); }
    static QString State() { return OnPage<QLabel>(kState).text(); }
};

TEST_F(CleanerStory, ACleanWithRowOneUntickedKeepsTheHistory) {
    ASSERT_EQ(List().RowCount(), 14);
    EXPECT_EQ(List().TickedRows().size(), 14u);
    EXPECT_EQ(State(), ToQString(u8"扫描完成"));
    EXPECT_EQ(List().CellAt(3, columnItem).text, ToQString(u8"图库"));
    EXPECT_EQ(List().CellAt(3, columnItem).second, QStringLiteral("com.android.gallery"));
    EXPECT_EQ(List().CellAt(3, columnSize).text, QStringLiteral("38.3 MB"));

    ClickCell(List(), 1, columnTick);
    for (int row = 5; row < 14; ++row) {
        ClickCell(List(), row, columnTick);
    }
    Command(kClean);
    ASSERT_TRUE(WaitIdle());
    ASSERT_EQ(Requests(871602).size(), 1u);
    EXPECT_THAT(Requests(871602)[0], HasSubstr(Hex(WireBytes()
                                                       .U32(871602)         // code
                                                       .U32(61)             // total
                                                       .U32(2)              // count of names
                                                       .Raw({"\1\0\1", 3})  // flags
                                                       .Text("com.android.gallery")
                                                       .Text("com.android.browser"))));
    EXPECT_THAT(Requests(871602)[0], HasSubstr("cleaned browser-searches: 5 market-searches: 3 "
                                               "com.android.gallery: 1 com.android.browser: 1"));
    // The list keeps what was cleaned until the next scan.
    EXPECT_EQ(List().RowCount(), 14);
    EXPECT_TRUE(Requests(871601).empty());

    Command(kScan);
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(List().RowCount(), 12);
    EXPECT_EQ(List().CellAt(3, columnItem).text, ToQString(u8"听书"));
    EXPECT_EQ(List().TickedRows().size(), 12u);

    Command(kClean);
    ASSERT_TRUE(WaitIdle());
    ASSERT_EQ(Requests(871602).size(), 2u);
    EXPECT_THAT(Requests(871602)[1],
                HasSubstr("cleaned browser-searches: 0 browser-history: 7 market-searches: 0"));
    Command(kScan);
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(List().RowCount(), 3);
    // The phone answers that it has no data. Kept on purpose: that leaves the list without redraw
    // and the words of the scan standing, as every early end does.
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(State(), ToQString(u8"正在获取应用的缓存信息，整个过程需要5秒左右，请稍等..."));
    EXPECT_EQ(Status(), ToQString(u8"就绪"));
}

TEST_F(CleanerStory, NothingTickedIsSentAllTheSame) {
    List().TickAll(false);
    Command(kClean);
    ASSERT_TRUE(WaitIdle());
    ASSERT_EQ(Requests(871602).size(), 1u);
    EXPECT_THAT(Requests(871602)[0],
                HasSubstr(" 15 bytes " + Hex(WireBytes()
                                                 .U32(871602)             // code
                                                 .U32(15)                 // total
                                                 .U32(0)                  // count of names
                                                 .Raw({"\0\0\0", 3}))));  // flags
}

TEST_F(CleanerStory, HostileCachesAreShownAndCleaned) {
    Tell("data hostile 1");
    Command(kScan);
    ASSERT_TRUE(WaitIdle());
    ASSERT_EQ(List().RowCount(), 14 + 20);
    for (int row = 14; row < List().RowCount(); ++row) {
        List().SelectRow(row);
        static_cast<void>(List().viewport()->grab());
    }
    Command(kClean);
    ASSERT_TRUE(WaitIdle());
    Command(kScan);
    ASSERT_TRUE(WaitIdle());
    // Those stay whose names have no way to ANSI and back.
    EXPECT_LT(List().RowCount(), 3 + 10);
}

}  // namespace
}  // namespace quorvi

// A user's story with the phone's files: through the window by its control numbers, to the phone
// and back.
#include <gmock/gmock.h>

#include "tests/support/ControlDriver.h"
#include "tests/support/PagesOnPhone.h"

namespace quorvi {
namespace {

using testing::HasSubstr;

constexpr int kList = 1091;
constexpr int kUp = 1048;

enum Column { columnName, columnSize, columnType, columnModified, columnAttributes };

class FileStory : public PagesOnPhone {
  protected:
    void SetUp() override {
        PagesOnPhone::SetUp();
        OpenFresh(kFiles);
    }

    static CSkinListCtrl& List() { return OnPage<CSkinListCtrl>(kList); }
    static QString Text(int row, int column) { return List().CellAt(row, column).text; }
    // The row of a name.
    static int RowOf(std::u8string_view name) {
        for (int row = 0; row < List().RowCount(); ++row) {
            if (Text(row, columnName) == ToQString(name)) {
                return row;
            }
        }
        return -1;
    }
    static void Open(std::u8string_view name) {
        const int row = RowOf(name);
        ASSERT_GE(row, 0) << ToQString(name).toStdString();
        ClickCell(List(), row, columnName);
        DoubleClickCell(List(), row, columnName);
        ASSERT_TRUE(WaitIdle());
    }
    static void GoUp() {
        ClickOn(OnPage(kUp));
        ASSERT_TRUE(WaitIdle());
    }
    // Expects that the last folder that was asked for is that of this path.
    static void ExpectAskedFor(std::string_view path) {
        const auto requests = Requests(870602);
        ASSERT_FALSE(requests.empty());
        EXPECT_THAT(requests.back(),
                    HasSubstr(Hex(WireBytes()
                                      .U32(870602)                                        // code
                                      .U32(static_cast<std::uint32_t>(path.size()) + 16)  // total
                                      .U32(1)          // item count
                                      .Text(path))));  // path
    }
};

TEST_F(FileStory, AFolderIsWalkedDownAndUp) {
    EXPECT_EQ(List().RowCount(), 16);
    Open(u8"sdcard");
    ExpectAskedFor("/sdcard");
    EXPECT_EQ(List().RowCount(), 17);
    const int backup = RowOf(u8"backup_0618.tar");
    ASSERT_GE(backup, 0);
    EXPECT_EQ(Text(backup, columnSize), QStringLiteral("18.5 MB"));
    EXPECT_EQ(Text(backup, columnType), ToQString(u8"文件"));
    EXPECT_EQ(Text(backup, columnModified), QStringLiteral("2011-06-18 07:02:40"));
    EXPECT_EQ(Text(backup, columnAttributes), ToQString(u8"可读 可写"));
    EXPECT_EQ(Text(RowOf(u8"LOST"), columnModified), ToQString(u8"未知"));

    Open(u8"工作 2011");
    ExpectAskedFor("/sdcard/工作 2011.06");
    Open(u8"扫描件");
    ExpectAskedFor("/sdcard/工作 2011.06/扫描件");
    EXPECT_EQ(List().RowCount(), 14);
    Open(u8"Scan.2011.06.01");  // a file: nothing happens
    EXPECT_EQ(List().RowCount(), 14);
    EXPECT_EQ(Requests(870602).size(), 3u);

    GoUp();
    ExpectAskedFor("/sdcard/工作 2011.06");
    EXPECT_EQ(List().RowCount(), 5);
    GoUp();
    EXPECT_EQ(List().RowCount(), 17);
    GoUp();
    ExpectAskedFor("/");
    EXPECT_EQ(List().RowCount(), 16);
    GoUp();  // the root is its own parent
    ExpectAskedFor("/");
    EXPECT_EQ(List().RowCount(), 16);
    EXPECT_EQ(Requests(870602).size(), 7u);
    EXPECT_TRUE(Requests(870601).empty());
    Command(0);
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(Requests(870601).size(), 1u);
    EXPECT_EQ(Status(), ToQString(u8"就绪"));
}

TEST_F(FileStory, AnEmptyFolderSaysThatItIsAndIsLeftAgain) {
    Open(u8"sdcard");
    Open(u8"空文件夹");
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_TRUE(List().Redraw());
    GoUp();
    EXPECT_EQ(List().RowCount(), 17);
}

TEST_F(FileStory, HostileNamesAreShownAndTheirFoldersCanBeWalked) {
    Tell("data hostile 1");
    Command(0);
    ASSERT_TRUE(WaitIdle());
    const int first = 16;  // behind what is delivered
    const int rows = List().RowCount();
    ASSERT_GT(rows, first);
    List().scrollTo(List().model()->index(rows - 1, 0));
    Window().grab();
    for (int row = first; row < rows; ++row) {
        ClickCell(List(), row, columnName);
        DoubleClickCell(List(), row, columnName);
        ASSERT_TRUE(WaitIdle());
        Command(0);
        ASSERT_TRUE(WaitIdle());
        ASSERT_EQ(List().RowCount(), rows) << row;
    }
    EXPECT_EQ(Status(), ToQString(u8"就绪"));
}

}  // namespace
}  // namespace quorvi

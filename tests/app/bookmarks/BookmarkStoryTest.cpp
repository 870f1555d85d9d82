// A user's story with the bookmarks of the phone's browser: through the window by its control
// numbers, to the phone and back, and to a browser of the PC.
#include <gmock/gmock.h>

#include <QLineEdit>

#include "tests/support/OpenedAddresses.h"
#include "tests/support/PagesOnPhone.h"

namespace quorvi {
namespace {

using testing::HasSubstr;

// Numbers of the page and its controls, and of the editor.
constexpr int kList = 1074;
constexpr std::size_t kAdd = 1;
constexpr std::size_t kEdit = 2;
constexpr std::size_t kDelete = 3;

constexpr int kEditor = 553;
constexpr int kTitle = 1257;
constexpr int kUrl = 1261;
constexpr int kVisits = 1262;
constexpr int kOk = 1215;
constexpr int kCancel = 1021;

// The question before an address is opened.
constexpr int kQuestion = 0;
constexpr int kNo = 2;

enum Column {
    columnThumbnail,
    columnTitle,
    columnStore,
    columnVisits,
    columnLastVisit,
    columnOpen,
    columnTick
};

class BookmarkStory : public PagesOnPhone {
  protected:
    void SetUp() override {
        PagesOnPhone::SetUp();
        OpenFresh(kBookmarks);
    }

    static CSkinListCtrl& List() { return OnPage<CSkinListCtrl>(kList); }
    static Cell At(int row, int column) { return List().CellAt(row, column); }
    static void TypeIn(int control, std::u8string_view text) {
        Type(In(kEditor, control), ToQString(text));
    }
    static QString TextIn(int control) { return In<QLineEdit>(kEditor, control).text(); }
    static void Save() {
        Press(kEditor, kOk);
        ASSERT_TRUE(WaitForNoDialog(kEditor));
    }

    OpenedAddresses opened_{{QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("ftp"),
                             QStringLiteral("file")}};
};

TEST_F(BookmarkStory, ABookmarkIsAddedVisitedChangedAndDeleted) {
    ASSERT_EQ(List().RowCount(), 14);
    EXPECT_EQ(At(0, columnTitle).text, ToQString(u8"天气预报 - 无锡"));
    EXPECT_EQ(At(0, columnVisits).text, ToQString(u8"214 次"));
    EXPECT_EQ(At(0, columnLastVisit).text, QStringLiteral("2011-06-18 07:10:22"));
    EXPECT_EQ(List().PictureAt(0).bytes.size(), 65'745u);

    // ---- added
    Command(kAdd);
    ASSERT_TRUE(WaitForDialog(kEditor));
    EXPECT_EQ(OpenDialog(kEditor)->windowTitle(), ToQString(u8"新建书签 - Quorvi"));
    TypeIn(kTitle, u8"菜谱");
    TypeIn(kUrl, u8"http://cook.example/");
    TypeIn(kVisits, u8"2");
    Save();
    ASSERT_EQ(Requests(870702).size(), 1u);
    EXPECT_THAT(Requests(870702)[0], HasSubstr(Hex(WireBytes()
                                                       .U32(870702)   // code
                                                       .U32(50)       // total
                                                       .U32(1)        // item count
                                                       .U32(2)        // visits
                                                       .Text("菜谱")  // title
                                                       .Text("http://cook.example/"))));  // url
    ASSERT_EQ(List().RowCount(), 15);
    EXPECT_EQ(At(14, columnTitle).text, ToQString(u8"菜谱"));
    EXPECT_EQ(At(14, columnTitle).second, QStringLiteral("http://cook.example/"));
    EXPECT_EQ(At(14, columnStore).text, ToQString(u8"仅手机上的"));
    EXPECT_EQ(At(14, columnVisits).text, ToQString(u8"2 次"));
    EXPECT_EQ(At(14, columnLastVisit).text, ToQString(u8"从未"));

    // ---- visited, which the phone hears nothing of
    ClickCell(List(), 14, columnOpen);
    EXPECT_EQ(opened_.taken, QStringList{QStringLiteral("http://cook.example/")});
    EXPECT_EQ(Requests(870701).size(), 1u);

    // ---- changed
    Command(kEdit);
    ASSERT_TRUE(WaitForDialog(kEditor));
    EXPECT_EQ(OpenDialog(kEditor)->windowTitle(), ToQString(u8"修改书签 - Quorvi"));
    EXPECT_EQ(TextIn(kTitle), ToQString(u8"菜谱"));
    EXPECT_EQ(TextIn(kVisits), QStringLiteral("2"));
    TypeIn(kTitle, u8"家常菜");
    Save();
    ASSERT_EQ(Requests(870703).size(), 1u);
    EXPECT_EQ(At(14, columnTitle).text, ToQString(u8"家常菜"));
    EXPECT_EQ(At(14, columnTitle).second, QStringLiteral("http://cook.example/"));

    // ---- deleted, with another one
    ClickCell(List(), 14, columnTick);
    ClickCell(List(), 1, columnTick);
    Command(kDelete);
    EXPECT_EQ(ConfirmDelete(), ToQString(u8"您真的要删除选择的【 2 】条浏览器书签项吗？"));
    ASSERT_TRUE(WaitIdle());
    ASSERT_EQ(List().RowCount(), 13);
    EXPECT_EQ(At(1, columnTitle).text, ToQString(u8"火车票余票查询"));
    EXPECT_THAT(Requests(870705).at(0), HasSubstr(Hex(WireBytes()
                                                          .U32(870705)  // code
                                                          .U32(20)      // total
                                                          .U32(2)       // item count
                                                          .U32(2)  // bookmark ids, in row order
                                                          .U32(15))));
    EXPECT_EQ(Requests(870701).size(), 3u);  // one behind each change
    EXPECT_EQ(Status(), ToQString(u8"已删除 2 个书签"));
}

TEST_F(BookmarkStory, WhatIsNoWebPageIsAskedAboutAndWhatHasNoAddressStartsNothing) {
    const int fileServer = 9;
    const int nothing = 13;
    ASSERT_EQ(At(fileServer, columnTitle).second, QStringLiteral("ftp://files.example/pub/"));
    ClickCell(List(), fileServer, columnOpen);
    ASSERT_TRUE(WaitForDialog(kQuestion));
    Press(kQuestion, kNo);
    ASSERT_TRUE(WaitForNoDialog(kQuestion));
    ASSERT_EQ(At(nothing, columnTitle).second, QString());
    ClickCell(List(), nothing, columnOpen);
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(OpenDialog(kQuestion), nullptr);
    EXPECT_TRUE(opened_.taken.isEmpty());
    EXPECT_TRUE(Requests(870701).empty());
}

TEST_F(BookmarkStory, ABookmarkThatThePhoneDidNotTakeStandsInTheNextEditor) {
    Tell("agent stop");
    Command(kAdd);
    ASSERT_TRUE(WaitForDialog(kEditor));
    TypeIn(kTitle, u8"别丢了");
    Save();
    Restore();
    Command(kAdd);
    ASSERT_TRUE(WaitForDialog(kEditor));
    EXPECT_EQ(TextIn(kTitle), ToQString(u8"别丢了"));
    Save();
    ASSERT_EQ(List().RowCount(), 15);
    EXPECT_EQ(At(14, columnTitle).text, ToQString(u8"别丢了"));
}

TEST_F(BookmarkStory, HostileBookmarksAreShownOpenedAndDeleted) {
    Tell("data hostile 1");
    Command(0);
    ASSERT_TRUE(WaitIdle());
    const int rows = List().RowCount();
    ASSERT_GT(rows, 14);
    for (int row = 0; row < rows; ++row) {
        ClickCell(List(), row, columnTitle);
        Command(kEdit);
        ASSERT_TRUE(WaitForDialog(kEditor)) << row;
        Press(kEditor, kCancel);
        ASSERT_TRUE(WaitForNoDialog(kEditor));
    }
    List().TickAll(true);
    Command(kDelete);
    static_cast<void>(ConfirmDelete());
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(List().RowCount(), 0);
}

}  // namespace
}  // namespace quorvi

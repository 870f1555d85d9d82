// Bookmarks to a file and from one, through the page's menu.
#include <QLabel>
#include <filesystem>

#include "backup/BookmarkFile.h"
#include "tests/pages/bookmarks/BookmarkPageFixture.h"
#include "tests/support/TransfersPageTest.h"

namespace quorvi {
namespace {

// The question before an import.
constexpr int kQuestion = 0;
constexpr int kYes = 1;
constexpr int kNo = 2;

class BookmarkTransfers : public TransfersPageTest<BookmarkPage> {
  protected:
    QString Question() {
        SkinDialog* dialog = OpenDialog(kQuestion);
        return dialog == nullptr ? QString() : FindControl<QLabel>(dialog, 65535)->text();
    }
    static QString Remark() { return FindControl<QLabel>(OpenDialog(kQuestion), 4)->text(); }
    std::size_t Added() { return agent_.Requests(AgentCommand::addBookmark).size(); }
};

// One that is on the phone, and two that are not.
constexpr std::string_view kFile =
    "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n<DL><p>\n"
    "<DT><A HREF=\"http://weather.example/\">天气</A>\n"
    "<DT><A HREF=\"http://a.example/\">甲</A>\n"
    "<DT><A HREF=\"http://b.example/\">乙</A>\n"
    "</DL><p>\n";

TEST_F(BookmarkTransfers, ExportWritesTheFileOfTheBrowsersAndSaysWhere) {
    OpenLoaded();
    ExportTo("mine.html");
    EXPECT_EQ(host_.status, ToQString(u8"已导出 3 个书签：") + Path("mine.html"));
    const auto text = ReadSmallFile(folder_.Path() / "mine.html", 10'000);
    ASSERT_TRUE(text);
    EXPECT_EQ(ReadBookmarkFile(*text).bookmarks.size(), 3u);
}

TEST_F(BookmarkTransfers, ANameWithoutAnEndingGetsThatOfTheFilter) {
    OpenLoaded();
    ExportTo("mine");
    EXPECT_TRUE(std::filesystem::exists(folder_.Path() / "mine.html"));
}

TEST_F(BookmarkTransfers, ImportSaysWhatItWillDoAndAddsWhatThePhoneDoesNotHave) {
    OpenLoaded();
    ImportFrom("a.html", kFile);
    EXPECT_EQ(Question(), ToQString(u8"要把 2 个书签导入到手机吗？"));
    EXPECT_EQ(Remark(), ToQString(u8"手机上已有 1 个书签"));
    EXPECT_EQ(Added(), 0u);
    PressIn(kQuestion, kYes);
    Settle();
    EXPECT_EQ(Added(), 2u);
    EXPECT_EQ(host_.status, ToQString(u8"已导入 2 个书签，手机上已有 1 个书签"));
    EXPECT_TRUE(page_->isEnabled());
    EXPECT_EQ(Loads(), 4u);  // the page's, the plan's, the import's, and the new list
}

TEST_F(BookmarkTransfers, ANoLeavesThePhoneAsItIs) {
    OpenLoaded();
    ImportFrom("a.html", kFile);
    PressIn(kQuestion, kNo);
    Settle();
    EXPECT_EQ(Added(), 0u);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(BookmarkTransfers, WhatThePhoneHasAlreadyIsNotAskedAbout) {
    OpenLoaded();
    ImportFrom("a.html", "<DT><A HREF=\"http://weather.example/\">天气</A>");
    EXPECT_EQ(OpenDialog(kQuestion), nullptr);
    EXPECT_EQ(host_.status, ToQString(u8"【提示】文件里没有要导入的书签，手机上已有 1 个书签"));
}

TEST_F(BookmarkTransfers, AFileThatIsNoneOfBookmarksIsNotImported) {
    OpenLoaded();
    ImportFrom("a.html", "<p>a page</p>");
    EXPECT_EQ(OpenDialog(kQuestion), nullptr);
    EXPECT_EQ(host_.status, ToQString(u8"【X】书签没有导入：文件里没有书签"));
    EXPECT_EQ(Added(), 0u);
}

TEST_F(BookmarkTransfers, AnImportThatBreaksOffSaysHowFarItCame) {
    OpenLoaded();
    ImportFrom("a.html", kFile);
    agent_.Answer(AgentCommand::addBookmark, {});  // closed without a word
    PressIn(kQuestion, kYes);
    Settle();
    EXPECT_EQ(Added(), 1u);
    EXPECT_EQ(host_.status,
              ToQString(u8"【X】书签没有导入：甲: 手机没有确认。请重新连接手机，再导入一次，"
                        u8"已经有的不会重复"));
    EXPECT_EQ(Loads(), 4u);  // it may have come all the same
}

TEST_F(BookmarkTransfers, WhileItIsImportedThePageIsDisabled) {
    OpenLoaded();
    ImportFrom("a.html", kFile);
    agent_.Hold(AgentCommand::addBookmark);
    PressIn(kQuestion, kYes);
    ASSERT_TRUE(WaitFor([&] { return Added() == 1; }));
    EXPECT_FALSE(page_->isEnabled());
    page_->OnCommand(CBookmarkPage::commandRefresh);
    agent_.Release();
    Settle();
    EXPECT_TRUE(page_->isEnabled());
    EXPECT_EQ(Loads(), 4u);
}

TEST_F(BookmarkTransfers, TheMenuOfARowHasItsOwnItemsInFront) {
    OpenLoaded();
    Q_EMIT List().menuAsked(0, QPoint(0, 0));
    auto* menu = page_->findChild<CSkinMenu*>();
    ASSERT_NE(menu, nullptr);
    QStringList texts;
    for (const QAction* action : menu->actions()) {
        texts.append(action->isSeparator() ? QStringLiteral("-") : action->text());
    }
    EXPECT_EQ(texts,
              (QStringList{ToQString(u8"立即访问"), ToQString(u8"修改选择的"), QStringLiteral("-"),
                           ToQString(u8"导出书签…"), ToQString(u8"导入书签…")}));
    menu->close();
}

}  // namespace
}  // namespace quorvi

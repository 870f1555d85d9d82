// What the bookmark page does with a bookmark: open it on the PC, and have it edited.
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>

#include "base/Text.h"
#include "phone/agent/HostileTexts.h"
#include "tests/pages/bookmarks/BookmarkPageFixture.h"
#include "tests/support/KeptDeletePageTest.h"
#include "tests/support/KeyDriver.h"

namespace quorvi {
namespace {

// The question before an address is opened.
constexpr int kQuestion = 0;
constexpr int kYes = 1;
constexpr int kNo = 2;
constexpr int kAddress = 3;

class BookmarkVisit : public BookmarkPage {
  protected:
    void OpenWith(const std::string& url) { OpenLoaded({{.url = url}}); }
    void Visit() {
        ClickCell(List(), 0, kOpenColumn);
        DrainWindow();
    }
    QString Asked() {
        return FindControl<QPlainTextEdit>(OpenDialog(kQuestion), kAddress)->toPlainText();
    }
};

TEST_F(BookmarkVisit, AWebPageIsOpenedAtOnce) {
    OpenLoaded();
    ClickCell(List(), 2, kOpenColumn);
    ClickCell(List(), 0, kOpenColumn);
    EXPECT_EQ(opened_.taken, (QStringList{QStringLiteral("https://untitled.example/"),
                                          QStringLiteral("http://weather.example/")}));
    EXPECT_EQ(OpenDialog(kQuestion), nullptr);
    EXPECT_EQ(Selected(), 7u);  // the click selects its row, too
    EXPECT_TRUE(host_.statuses.isEmpty());
    EXPECT_EQ(agent_.Requests().size(), 1u);  // the list
}

TEST_F(BookmarkVisit, TheLettersOfTheSchemeMayBeOfEitherCase) {
    OpenWith("HTTP://Weather.example/A?b=c d");
    Visit();
    EXPECT_EQ(opened_.taken, QStringList{QStringLiteral("http://weather.example/A?b=c%20d")});
}

TEST_F(BookmarkVisit, AClickInAnotherColumnOpensNothing) {
    OpenLoaded();
    for (const int column : {0, 1, 2, 3, 4, 6}) {
        ClickCell(List(), 0, column);
    }
    DrainWindow();
    EXPECT_TRUE(opened_.taken.isEmpty());
}

TEST_F(BookmarkVisit, AnyOtherSchemeIsAskedAboutWithItsAddressInFull) {
    const std::string address = "ftp://files.example/" + std::string(3'000, 'p') + "/end";
    OpenWith(address);
    Visit();
    ASSERT_NE(OpenDialog(kQuestion), nullptr);
    EXPECT_EQ(Asked(), QString::fromStdString(address));
    EXPECT_TRUE(opened_.taken.isEmpty());
    // The way back has the focus.
    EXPECT_EQ(OpenDialog(kQuestion)->focusWidget(), FindControl(OpenDialog(kQuestion), kNo));
    PressIn(kQuestion, kYes);
    EXPECT_EQ(opened_.taken, QStringList{QString::fromStdString(address)});
}

TEST_F(BookmarkVisit, AnythingButYesOpensNothing) {
    OpenWith("javascript:alert(1)");
    Visit();
    PressIn(kQuestion, kNo);
    ASSERT_TRUE(WaitFor([] { return OpenDialog(kQuestion) == nullptr; }));
    Visit();
    OpenDialog(kQuestion)->close();
    ASSERT_TRUE(WaitFor([] { return OpenDialog(kQuestion) == nullptr; }));
    Visit();
    QTest::keyClick(OpenDialog(kQuestion), Qt::Key_Escape);
    ASSERT_TRUE(WaitFor([] { return OpenDialog(kQuestion) == nullptr; }));
    EXPECT_TRUE(opened_.taken.isEmpty());
}

TEST_F(BookmarkVisit, NothingOfTheAddressIsHiddenInTheQuestion) {
    SetCodePage(CodePage::gb18030);
    OpenWith("file:///a\xE2\x80\xAE\xE7\x94\xB2\nc\x01");
    Visit();
    EXPECT_EQ(Asked(), ToQString(u8"file:///a%E2%80%AE甲%0Ac%01"));
    PressIn(kQuestion, kNo);
    SetCodePage(CodePage::gbk);
}

TEST_F(BookmarkVisit, AnAddressWithoutASchemeIsOpenedAsItsUserWouldTypeIt) {
    OpenWith("www.weather.example/a");
    Visit();
    PressIn(kQuestion, kYes);
    EXPECT_EQ(opened_.taken, QStringList{QStringLiteral("http://www.weather.example/a")});
}

TEST_F(BookmarkVisit, ABookmarkWithoutAnAddressHasNoLinkAndStartsNothing) {
    OpenWith("");
    EXPECT_EQ(At(0, kOpenColumn).icon, QString());
    Visit();
    EXPECT_EQ(OpenDialog(kQuestion), nullptr);
    EXPECT_TRUE(opened_.taken.isEmpty());
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(BookmarkVisit, AnAddressThatNoProgramTakesIsToldUntilOneIsOpened) {
    const QString failure = ToQString(u8"【X】电脑上没有能打开这个网址的程序");
    OpenLoaded({{.url = "http://[broken"}, {.id = 8}});
    ClickCell(List(), 0, kOpenColumn);
    EXPECT_EQ(host_.status, failure);
    ClickCell(List(), 1, kOpenColumn);
    EXPECT_EQ(host_.status, kReady);
    EXPECT_EQ(opened_.taken, QStringList{QStringLiteral("http://weather.example/")});
}

TEST_F(BookmarkVisit, HostileAddressesAreAskedAbout) {
    std::vector<ListedBookmark> bookmarks;
    for (const std::string& text : phone::HostileTexts()) {
        bookmarks.push_back({.id = bookmarks.size(), .url = text});
    }
    for (const char* url : {"file:///etc/passwd", "qvh:did=1", "data:text/html,<b>", "--help",
                            "/bin/sh", " http://x.example/", "http:", "http://"}) {
        bookmarks.push_back({.id = bookmarks.size(), .url = url});
    }
    OpenLoaded(bookmarks);
    for (int row = 0; row < List().RowCount(); ++row) {
        ClickCell(List(), row, kOpenColumn);
        ASSERT_NE(OpenDialog(kQuestion), nullptr) << row;
        OpenDialog(kQuestion)->grab();
        PressIn(kQuestion, kNo);
        ASSERT_TRUE(WaitFor([] { return OpenDialog(kQuestion) == nullptr; }));
    }
    EXPECT_TRUE(opened_.taken.isEmpty());
}

TEST_F(BookmarkVisit, WithoutAMouseTheMenuOfTheRowOpensIt) {
    OpenLoaded();
    const auto choose = [&](int item) {
        Q_EMIT List().menuAsked(List().CurrentRow(), QPoint(0, 0));
        auto* menu = page_->findChild<QMenu*>();
        ASSERT_NE(menu, nullptr);
        menu->actions().at(item)->trigger();
        delete menu;
    };
    List().SelectRow(0);
    choose(0);
    EXPECT_EQ(opened_.taken, QStringList{QStringLiteral("http://weather.example/")});
    choose(1);
    EXPECT_EQ(Title().text(), ToQString(u8"天气"));
    EndBy(kCancel);
}

TEST_F(BookmarkPage, AddingOpensTheEditorForANewBookmarkAndOkLoadsAgain) {
    CBookmarkPage& page = OpenLoaded();
    page.OnCommand(CBookmarkPage::commandAdd);
    EXPECT_EQ(Editor()->windowTitle(), ToQString(u8"新建书签 - Quorvi"));
    EndBy(kOk);
    EXPECT_EQ(agent_.Requests(AgentCommand::addBookmark).size(), 1u);
    EXPECT_EQ(Loads(), 2u);
}

TEST_F(BookmarkPage, CancellingTheEditorLoadsNothing) {
    OpenLoaded().OnCommand(CBookmarkPage::commandAdd);
    EndBy(kCancel);
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(BookmarkPage, ChangingBeforeAnyClickDoesNothing) {
    OpenLoaded().OnCommand(CBookmarkPage::commandEdit);
    EXPECT_EQ(OpenDialog(kEditor), nullptr);
    EXPECT_EQ(Selected(), std::nullopt);
}

TEST_F(BookmarkPage, ChangingGoesToTheBookmarkOfTheLastClick) {
    CBookmarkPage& page = OpenLoaded();
    Click(1);
    Click(0);
    EXPECT_EQ(Selected(), 7u);  // the low 32 bits of its id
    page.OnCommand(CBookmarkPage::commandEdit);
    EXPECT_EQ(Editor()->windowTitle(), ToQString(u8"修改书签 - Quorvi"));
    EXPECT_EQ(Title().text(), ToQString(u8"天气"));
    EndBy(kOk);
    EXPECT_EQ(Loads(), 2u);
    EXPECT_EQ(agent_.Requests(AgentCommand::updateBookmark),
              std::vector<Bytes>{WireBytes()
                                     .U32(870703)                      // code
                                     .U32(57)                          // total
                                     .U32(1)                           // item count
                                     .U32(7)                           // bookmark id
                                     .U32(3)                           // visits
                                     .Text("天气")                     // title
                                     .Text("http://weather.example/")  // url
                                     .Get()});
}

TEST_F(BookmarkPage, ARowThatIsOpenedOrComeToByKeyIsTheOneToChange) {
    OpenLoaded();
    List().SelectRow(0);  // as the focus does, sooner or later
    QTest::keyClick(&List(), Qt::Key_Down);
    EXPECT_EQ(Selected(), 8u);
    QTest::keyClick(&List(), Qt::Key_Return);
    EXPECT_EQ(Title().text(), ToQString(u8"词典"));
    EndBy(kCancel);
    DoubleClickCell(List(), 0, 1);
    EXPECT_EQ(Title().text(), ToQString(u8"天气"));
    EndBy(kCancel);
}

TEST_F(BookmarkPage, TheEditorShowsTheBookmarkOfTheLastClickAfterARefreshToo) {
    CBookmarkPage& page = OpenLoaded();
    Click(1);
    agent_.AnswerPayload(AgentCommand::listBookmarks,
                         BookmarksPayload({{.id = 8, .title = "别的"}}).Get());
    page.OnCommand(CBookmarkPage::commandRefresh);
    WaitForLoads(2);
    page.OnCommand(CBookmarkPage::commandEdit);
    EXPECT_EQ(Title().text(), ToQString(u8"词典"));
    EndBy(kCancel);
}

TEST_F(BookmarkPage, ANewBookmarkThatWasNotAcknowledgedStandsInTheNextEditor) {
    CBookmarkPage& page = OpenLoaded();
    agent_.Answer(AgentCommand::addBookmark, {});  // closed without a word
    page.OnCommand(CBookmarkPage::commandAdd);
    Title().setText(ToQString(u8"新"));
    EndBy(kOk);
    EXPECT_EQ(host_.status, kUnacknowledged);
    page.OnCommand(CBookmarkPage::commandAdd);
    EXPECT_EQ(Title().text(), ToQString(u8"新"));
    EXPECT_EQ(State(), ToQString(u8"上次填写的书签没有得到手机的确认"));
    EXPECT_EQ(host_.status, kReady);  // it stands before the user
    agent_.AnswerAcknowledged(AgentCommand::addBookmark);
    EndBy(kOk);
    page.OnCommand(CBookmarkPage::commandAdd);
    EXPECT_EQ(Title().text(), QString());
    EndBy(kCancel);
}

TEST_F(BookmarkPage, AChangeThatWasNotAcknowledgedStandsInTheNextEditorOfThatBookmarkOnThatPhone) {
    CBookmarkPage& page = OpenLoaded();
    services_.device.SetSerial("first");
    agent_.Answer(AgentCommand::updateBookmark, {});
    Click(0);
    page.OnCommand(CBookmarkPage::commandEdit);
    Title().setText(ToQString(u8"改过的"));
    EndBy(kOk);
    const auto shown = [&](const char* serial, int row) {
        services_.device.SetSerial(serial);
        Click(row);
        page.OnCommand(CBookmarkPage::commandEdit);
        const QString text = Title().text();
        EndBy(kCancel);
        return text;
    };
    EXPECT_EQ(shown("first", 1), ToQString(u8"词典"));
    EXPECT_EQ(shown("second", 0), ToQString(u8"天气"));
    EXPECT_EQ(shown("first", 0), ToQString(u8"改过的"));
    EXPECT_EQ(shown("first", 0), ToQString(u8"天气"));  // given up by then
}

TEST_F(BookmarkPage, AChangeThatThePhoneHasByNowIsNotResumed) {
    CBookmarkPage& page = OpenLoaded();
    agent_.Answer(AgentCommand::updateBookmark, {});
    Click(0);
    page.OnCommand(CBookmarkPage::commandEdit);
    Title().setText(ToQString(u8"改过的"));
    FindControl<QLineEdit>(Editor(), 1262)->clear();
    agent_.AnswerPayload(AgentCommand::listBookmarks,
                         BookmarksPayload({{.id = 7, .title = "改过的", .visits = 0}}).Get());
    EndBy(kOk);
    Click(0);
    page.OnCommand(CBookmarkPage::commandEdit);
    EXPECT_EQ(Title().text(), ToQString(u8"改过的"));
    EXPECT_EQ(State(), ToQString(u8"就绪"));
    EndBy(kCancel);
}

// ---- what is kept of a delete ------------------------------------------------------------------

TEST_F(BookmarkPage, CtrlNOpensAnEditorAndADeleteIsToldInTheStatus) {
    OpenLoaded();
    PressKeyIn(List(), Qt::Key_N, Qt::ControlModifier);
    ASSERT_NE(Editor(), nullptr);
    Editor()->reject();
    Settle();
    List().TickAll(true);
    PressKeyIn(List(), Qt::Key_Delete);
    PressIn(548, 1215);
    WaitForLoads(2);
    EXPECT_EQ(host_.status, ToQString(u8"已删除 3 个书签"));
}

using BookmarkDelete =
    TickedDelete<BookmarkPage, CBookmarkPage::commandDelete, AgentCommand::listBookmarks,
                 AgentCommand::deleteBookmarks, BackupKind::bookmarks, 2>;
INSTANTIATE_TYPED_TEST_SUITE_P(Bookmarks, KeptDeletePage, BookmarkDelete);

}  // namespace
}  // namespace quorvi

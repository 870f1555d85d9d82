#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include "pages/bookmarks/BookmarkEditDlg.h"
#include "tests/support/AgentDialogTest.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/WireBytes.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

constexpr int kTitle = 1257;
constexpr int kUrl = 1261;
constexpr int kStore = 1260;
constexpr int kVisits = 1262;
constexpr int kOk = 1215;
constexpr int kCancel = 1021;

const BookmarkForm kWeather{"weather", "http://weather.example/", "3"};

class BookmarkEditor : public AgentDialogTest<CBookmarkEditDlg> {
  protected:
    void SetUp() override {
        agent_.AnswerAcknowledged(AgentCommand::addBookmark);
        agent_.AnswerAcknowledged(AgentCommand::updateBookmark);
    }

    void OpenToAdd() { Show(new CBookmarkEditDlg(host_, nullptr, agent_.Port())); }
    void OpenToUpdate(const BookmarkForm& form = kWeather) {
        Show(new CBookmarkEditDlg(host_, 7, form, nullptr, agent_.Port()));
    }
    QLineEdit& Edit(int number) { return *FindControl<QLineEdit>(dialog_, number); }
    QAbstractButton& Button(int number) { return *FindControl<QAbstractButton>(dialog_, number); }
    QString State() { return dialog_->findChild<CSkinStateLabel*>()->text(); }
    // Presses 确定, waits for the end with OK, and gives what was sent by now.
    std::vector<Bytes> Save() {
        Button(kOk).click();
        EXPECT_TRUE(Ended(QDialog::Accepted));
        EXPECT_TRUE(Gone());
        results_.clear();
        return agent_.Requests();
    }
};

TEST_F(BookmarkEditor, ANewBookmarkIsEmptyAndGoesToThePhone) {
    OpenToAdd();
    EXPECT_EQ(dialog_->objectName(), QStringLiteral("dialog 553"));
    EXPECT_EQ(dialog_->windowTitle(), ToQString(u8"新建书签 - Quorvi"));
    for (const int field : {kTitle, kUrl, kVisits}) {
        EXPECT_EQ(Edit(field).text(), QString()) << field;
    }
    const auto& store = *FindControl<QComboBox>(dialog_, kStore);
    EXPECT_EQ(store.count(), 1);
    EXPECT_EQ(store.currentText(), ToQString(u8"仅手机上的"));
    EXPECT_EQ(State(), ToQString(u8"就绪"));
    EXPECT_EQ(dialog_->focusWidget(), &Edit(kTitle));
    const auto groups = dialog_->findChildren<QGroupBox*>();
    ASSERT_EQ(groups.size(), 2);
    EXPECT_EQ(groups[0]->title(), ToQString(u8"必填内容"));
    EXPECT_EQ(groups[1]->title(), ToQString(u8"选填内容"));
}

TEST_F(BookmarkEditor, ANewBookmarkIsSentAsItIsFilledIn) {
    OpenToAdd();
    Edit(kTitle).setText(ToQString(u8"菜谱"));
    Edit(kUrl).setText(QStringLiteral("http://cook.example/"));
    QTest::keyClicks(&Edit(kVisits), QStringLiteral("1a2"));  // letters are no number
    EXPECT_EQ(Save(), std::vector<Bytes>{WireBytes()
                                             .U32(870702)                   // code
                                             .U32(50)                       // total
                                             .U32(1)                        // item count
                                             .U32(12)                       // visits
                                             .Text("菜谱")                  // title
                                             .Text("http://cook.example/")  // url
                                             .Get()});
    EXPECT_EQ(host_.statuses, QStringList{ToQString(u8"已添加书签")});
}

TEST_F(BookmarkEditor, NothingIsRefusedAnEmptyTitleNeither) {
    OpenToAdd();
    EXPECT_EQ(Save(), std::vector<Bytes>{WireBytes()
                                             .U32(870702)  // code
                                             .U32(24)      // total
                                             .U32(1)       // item count
                                             .U32(0)       // visits
                                             .Text("")     // title
                                             .Text("")     // url
                                             .Get()});
}

TEST_F(BookmarkEditor, ABookmarkIsShownInItsFields) {
    OpenToUpdate();
    EXPECT_EQ(dialog_->windowTitle(), ToQString(u8"修改书签 - Quorvi"));
    EXPECT_EQ(Edit(kTitle).text(), QStringLiteral("weather"));
    EXPECT_EQ(Edit(kUrl).text(), QStringLiteral("http://weather.example/"));
    EXPECT_EQ(Edit(kVisits).text(), QStringLiteral("3"));
    EXPECT_EQ(Save(), std::vector<Bytes>{UpdateBookmarkRequest(7, SettingsOf(kWeather))});
    EXPECT_EQ(host_.statuses, QStringList{ToQString(u8"已保存书签")});
}

TEST_F(BookmarkEditor, AVisitsNumberBelowZeroStandsAsItCame) {
    BookmarkForm form = kWeather;
    form.visits = "-1";
    OpenToUpdate(form);
    EXPECT_EQ(Edit(kVisits).text(), QStringLiteral("-1"));
    BookmarkSettings sent = SettingsOf(kWeather);
    sent.visits = 0xFFFFFFFF;
    EXPECT_EQ(Save(), std::vector<Bytes>{UpdateBookmarkRequest(7, sent)});
}

TEST_F(BookmarkEditor, TextsThatAreLeftAloneGoBackInTheVeryBytesThatCame) {
    BookmarkForm form = kWeather;
    form.title = std::string("a\r\nb\0c\td", 9);
    form.url = std::string("x\0\ny", 4);
    OpenToUpdate(form);
    Edit(kVisits).setText(QStringLiteral("4"));
    BookmarkSettings sent = SettingsOf(form);
    sent.visits = 4;
    EXPECT_EQ(Save(), std::vector<Bytes>{UpdateBookmarkRequest(7, sent)});
}

TEST_F(BookmarkEditor, ConnectFailureIsToldAndEndsWithOk) {
    Show(new CBookmarkEditDlg(host_, nullptr, UnusedPort()));
    Save();
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
}

TEST_F(BookmarkEditor, ASaveThatIsNotAcknowledgedIsKept) {
    const auto saveAt = [&](std::uint16_t port) {
        Show(new CBookmarkEditDlg(host_, nullptr, port));
        Edit(kTitle).setText(QStringLiteral("A"));
        std::optional<BookmarkForm> unsaved;
        QObject::connect(dialog_, &QDialog::finished, dialog_,
                         [&] { unsaved = dialog_->Unsaved(); });
        Save();
        return unsaved;
    };
    EXPECT_FALSE(saveAt(agent_.Port()));
    const auto unsaved = saveAt(UnusedPort());
    ASSERT_TRUE(unsaved);
    EXPECT_EQ(unsaved->title, "A");
}

TEST_F(BookmarkEditor, ASaveThatIsOnItsWayEndsWithOkHoweverItIsClosed) {
    // It may have reached the phone: the list has to be read again.
    agent_.Hold(AgentCommand::addBookmark);
    const auto closeBy = [&](const std::function<void()>& close) {
        results_.clear();
        OpenToAdd();
        Edit(kTitle).setText(QStringLiteral("A"));
        const std::size_t before = agent_.Requests().size();
        Button(kOk).click();
        EXPECT_FALSE(Edit(kTitle).isEnabled());
        EXPECT_FALSE(Button(kOk).isEnabled());
        EXPECT_TRUE(Button(kCancel).isEnabled());
        ASSERT_TRUE(WaitFor([&] { return agent_.Requests().size() == before + 1; }));
        close();
        EXPECT_TRUE(Ended(QDialog::Accepted));
        ASSERT_TRUE(Gone());
    };
    closeBy([&] { Button(kCancel).click(); });
    closeBy([&] { QTest::keyClick(dialog_, Qt::Key_Escape); });
    closeBy([&] { dialog_->close(); });
    agent_.Release();
}

TEST_F(BookmarkEditor, CharactersThatCannotBeSavedAreWarnedOfWhileTheyStand) {
    OpenToUpdate();
    Edit(kUrl).setText(QStringLiteral("\U0001F388"));
    EXPECT_EQ(State(), ToQString(u8"有些字符无法保存，会变成“?”"));
    Edit(kUrl).setText(QStringLiteral("A"));
    EXPECT_EQ(State(), ToQString(u8"就绪"));
}

TEST_F(BookmarkEditor, EscapeAsksBeforeWhatWasTypedIsLost) {
    OpenToUpdate();
    Edit(kUrl).setText(QStringLiteral("x"));
    QTest::keyClick(dialog_, Qt::Key_Escape);
    ASSERT_NE(OpenDialog(0), nullptr);
    PressIn(0, 2);
    EXPECT_TRUE(dialog_->isVisible());
    Edit(kUrl).setText(QStringLiteral("http://weather.example/"));  // as it was
    QTest::keyClick(dialog_, Qt::Key_Escape);
    EXPECT_TRUE(Ended(QDialog::Rejected));
}

}  // namespace
}  // namespace quorvi

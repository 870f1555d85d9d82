// Messages to a file, through the menu of the conversations.
#include <gmock/gmock.h>

#include <QClipboard>
#include <QGuiApplication>
#include <filesystem>

#include "tests/pages/messages/SmsPageFixture.h"
#include "tests/support/TransfersPageTest.h"

namespace quorvi {
namespace {

using testing::HasSubstr;

class SmsTransfers : public TransfersPageTest<SmsPage> {
  protected:
    static constexpr int kView = 1;
    static constexpr int kDelete = 2;
    static constexpr int kExportOne = 3;

    // Opens the menu with the right button, on a link or beside all of them.
    CSkinMenu* Menu(const char* link) {
        const QPoint at =
            link == nullptr
                ? QPoint(5, View().height() - 5)
                : MiddleOf(View(), QStringLiteral("a[href='qvh:%1']").arg(QLatin1String(link)));
        OpenMenuOf(View(), at, QContextMenuEvent::Mouse);
        EXPECT_TRUE(WaitFor([&] { return page_->findChild<CSkinMenu*>() != nullptr; }));
        return page_->findChild<CSkinMenu*>();
    }
    void Export(const char* link, int command, const char* name) {
        ChooseFrom(Menu(link), command);
        ASSERT_NE(OpenFileDialog(), nullptr);
        Give(name);
    }
    static QStringList TextsOf(const CSkinMenu& menu) {
        QStringList texts;
        for (const QAction* action : menu.actions()) {
            texts.append(action->isSeparator() ? QStringLiteral("-") : action->text());
        }
        return texts;
    }
};

TEST_F(SmsTransfers, TheMenuOfAConversationHasWhatItsLinksDoAndTheExports) {
    OpenLoaded();
    CSkinMenu* menu = Menu("vid=7");
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(
        TextsOf(*menu),
        (QStringList{ToQString(u8"查看会话"), ToQString(u8"删除会话"), ToQString(u8"导出会话…"),
                     QStringLiteral("-"), ToQString(u8"复制号码"), ToQString(u8"给这个号码写短信"),
                     ToQString(u8"添加为联系人"), QStringLiteral("-"), ToQString(u8"导出短信…")}));
    menu->close();
}

TEST_F(SmsTransfers, TheNumberOfAConversationIsCopied) {
    OpenLoaded();
    ChooseFrom(Menu("vid=7"), NumberMenu::commandCopy);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("10086"));
    EXPECT_EQ(host_.status, ToQString(u8"已复制号码 10086"));
}

TEST_F(SmsTransfers, BesideTheConversationsTheMenuHasTheExportOfAll) {
    OpenLoaded();
    CSkinMenu* menu = Menu(nullptr);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(TextsOf(*menu), QStringList(ToQString(u8"导出短信…")));
    menu->close();
}

TEST_F(SmsTransfers, OneConversationIsExportedInTheFormatOfTheName) {
    OpenLoaded();
    Export("vid=7", kExportOne, "a.txt");
    EXPECT_EQ(host_.status, ToQString(u8"已导出 1 条短信：") + Path("a.txt"));
    EXPECT_THAT(TextOf("a.txt"), HasSubstr("你好"));
    EXPECT_EQ(agent_.Requests(AgentCommand::readConversation),
              std::vector<Bytes>{Join({Word(870202), Word(7)})});
    Export("vid=7", kExportOne, "a.csv");
    EXPECT_THAT(TextOf("a.csv"), HasSubstr("13861234567"));
    Export("vid=7", kExportOne, "a.html");
    EXPECT_THAT(TextOf("a.html"), HasSubstr("<html"));
}

TEST_F(SmsTransfers, TheNameThatIsSuggestedIsThatOfTheSenderWithoutSigns) {
    agent_.AnswerPayload(AgentCommand::listConversations,
                         ConversationsPayload({{.name = "a/b:\"c\nd"}}).Get());
    OpenLoaded();
    ChooseFrom(Menu("vid=7"), kExportOne);
    ASSERT_NE(OpenFileDialog(), nullptr);
    EXPECT_THAT(OpenFileDialog()
                    ->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
                    ->text()
                    .toStdString(),
                testing::StartsWith("短信 a_b__c d "));
}

TEST_F(SmsTransfers, AllConversationsAreExportedIntoOneFile) {
    OpenLoaded();
    Export("vid=7", FileTransfers::menuExport, "all.html");
    EXPECT_EQ(host_.status, ToQString(u8"已导出 2 条短信：") + Path("all.html"));
    EXPECT_THAT(TextOf("all.html"), HasSubstr("林远舟"));
}

TEST_F(SmsTransfers, AConversationThatBreaksOffWritesNoFile) {
    OpenLoaded();
    agent_.Answer(AgentCommand::readConversation, {});  // closed without a word
    Export("vid=7", kExportOne, "a.txt");
    EXPECT_EQ(host_.status, ToQString(u8"【X】短信没有导出：手机端没有回答，请重新连接手机后再试"));
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

TEST_F(SmsTransfers, TheMenuShowsAndDeletesItsConversation) {
    OpenLoaded();
    ChooseFrom(Menu("vid=7"), kView);
    ASSERT_NE(OpenDialog(kComposer), nullptr);
    PressIn(kComposer, 1021);
    Settle();
    ChooseFrom(Menu("did=7"), kDelete);
    WaitForLoads(2);
    EXPECT_EQ(Deletes(), std::vector<Bytes>{DeleteConversationRequest(7)});
}

}  // namespace
}  // namespace quorvi

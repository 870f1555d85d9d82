// A user's story with messages: through the window by its control numbers, to the phone and back.
#include <gmock/gmock.h>

#include <QLineEdit>

#include "tests/support/PagesOnPhone.h"

namespace quorvi {
namespace {

using testing::HasSubstr;

constexpr int kView = 1361;
constexpr std::size_t kCompose = 1;

constexpr int kComposer = 550;
constexpr int kTree = 1338;
constexpr int kRecipients = 1337;
constexpr int kText = 1271;
constexpr int kTalk = 1359;
constexpr int kSend = 1030;
constexpr int kCancel = 1021;

class MessageStory : public PagesOnPhone {
  protected:
    void SetUp() override {
        PagesOnPhone::SetUp();
        OpenFresh(kMessages);
        ASSERT_TRUE(WaitFor([] { return !Senders().isEmpty(); }));  // its template has loaded
    }

    static CHtmlCtrlBase& View() { return OnPage<CHtmlCtrlBase>(kView); }
    // What the blocks of the view show in one of their classes.
    static QStringList Shown(const char* what) {
        return AskHtml(View(), QStringLiteral("[...document.querySelectorAll('#sms_ul > li %1')]"
                                              ".map(e => e.innerText.trim())")
                                   .arg(QLatin1String(what)))
            .toStringList();
    }
    static QStringList Senders() { return Shown(".sender"); }
    // Presses a link of the block of a sender: his name, or 删除.
    static void Follow(std::u8string_view sender, const char* link) {
        const auto block = Senders().indexOf(ToQString(sender));
        ASSERT_GE(block, 0);
        ClickHtml(View(), QStringLiteral("#sms_ul > li:nth-child(%1) %2 > a")
                              .arg(block + 1)
                              .arg(QLatin1String(link)));
    }

    static CSkinTree& Tree() { return In<CSkinTree>(kComposer, kTree); }
    static QString Recipients() { return In<QLineEdit>(kComposer, kRecipients).text(); }
    // What is said in the composer's conversation: who, and what.
    static QStringList Talk() {
        return AskHtml(In<CHtmlCtrlBase>(kComposer, kTalk),
                       QStringLiteral(
                           "[...document.querySelectorAll('#conversation_list .entry')]"
                           ".map(e => e.querySelector('strong').innerText + ' ' +"
                           "          e.querySelector('dd').innerText.trim().replace('\\n', ''))"))
            .toStringList();
    }
};

TEST_F(MessageStory, AMessageGoesToTwoAndTheirConversationsAreReadAndDeleted) {
    const QStringList before = Senders();
    EXPECT_TRUE(before.contains(ToQString(u8"房东 王阿姨")));
    EXPECT_FALSE(before.contains(ToQString(u8"爸爸")));

    // ---- written: one of nobody's group by the mouse, one of the family by keys
    Command(kCompose);
    ASSERT_TRUE(WaitForDialog(kComposer));
    QTreeWidgetItem* alone = Tree().topLevelItem(0);
    ASSERT_TRUE(alone->text(0).startsWith(ToQString(u8"【未分组】 [")));
    for (int i = 0; i < alone->childCount(); ++i) {
        if (alone->child(i)->text(0) == ToQString(u8"房东 王阿姨 [13705710571]")) {
            ClickTick(Tree(), *alone->child(i));
        }
    }
    EXPECT_EQ(Recipients(), ToQString(u8"\"房东 王阿姨 \" <13705710571>;"));
    QTreeWidgetItem* family = Tree().topLevelItem(1);
    ASSERT_EQ(family->text(0), ToQString(u8"家人 [5]"));
    Tree().scrollToItem(family);
    QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {},
                      Tree().visualItemRect(family).center());
    QTest::keyClick(&Tree(), Qt::Key_Return);
    ASSERT_TRUE(family->isExpanded());
    for (int i = 0; i < family->childCount() &&
                    Tree().currentItem()->text(0) != ToQString(u8"爸爸 [13861113344]");
         ++i) {
        QTest::keyClick(&Tree(), Qt::Key_Down);
    }
    QTest::keyClick(&Tree(), Qt::Key_Space);
    EXPECT_EQ(Recipients(), ToQString(u8"\"房东 王阿姨 \" <13705710571>;\"爸爸 \" <13861113344>;"));
    Type(In(kComposer, kText), ToQString(u8"周六七点见 <b>"));
    Press(kComposer, kSend);
    ASSERT_TRUE(WaitForNoDialog(kComposer));
    ASSERT_EQ(Requests(870204).size(), 1u);
    EXPECT_THAT(Requests(870204)[0], HasSubstr(Hex(WireBytes()
                                                       .U32(870204)  // code
                                                       .U32(65)      // total
                                                       .U32(2)       // recipients
                                                       .Text("13705710571")
                                                       .Text("13861113344")
                                                       .Text("周六七点见 <b>"))));
    EXPECT_THAT(Requests(870204)[0], HasSubstr("to 13705710571,13861113344: 周六七点见 <b>"));

    // ---- in the list, which was fetched again; markup of the phone's is markup in the view
    EXPECT_EQ(Senders().size(), before.size() + 1);
    EXPECT_EQ(Shown(".text").mid(0, 2),
              (QStringList{ToQString(u8"周六七点见"), ToQString(u8"周六七点见")}));

    // ---- read
    Follow(u8"爸爸", ".sender");
    ASSERT_TRUE(WaitForDialog(kComposer));
    EXPECT_EQ(Talk(), QStringList{ToQString(u8"本机 我说：周六七点见")});
    EXPECT_EQ(Recipients(), ToQString(u8"\"爸爸\" <13861113344>;"));
    Press(kComposer, kCancel);
    ASSERT_TRUE(WaitForNoDialog(kComposer));
    EXPECT_EQ(Requests(870201).size(), 1u);  // cancelled: no list is fetched

    // ---- deleted, without a question
    Follow(u8"爸爸", ".tool");
    ASSERT_TRUE(WaitFor([] { return Requests(870206).size() == 1; }));
    ASSERT_TRUE(WaitIdle());
    EXPECT_FALSE(Senders().contains(ToQString(u8"爸爸")));
    EXPECT_TRUE(Senders().contains(ToQString(u8"房东 王阿姨")));
    EXPECT_EQ(Requests(870201).size(), 2u);
    EXPECT_EQ(Status(), ToQString(u8"已删除 1 个会话"));
}

TEST_F(MessageStory, AConversationIsAnswered) {
    Follow(u8"顾晓棠", ".text");
    ASSERT_TRUE(WaitForDialog(kComposer));
    EXPECT_EQ(Talk(),
              (QStringList{
                  ToQString(u8"本机 我说：照片传到你邮箱了，一共 36 张。"),
                  ToQString(u8"13512340098 "
                            u8"对您说：照片收到了，拍得真好！我挑几张洗出来，下次见面带给你。")}));
    EXPECT_EQ(Recipients(), ToQString(u8"\"顾晓棠\" <13512340098>;"));
    Type(In(kComposer, kText), ToQString(u8"好"));
    Press(kComposer, kSend);
    ASSERT_TRUE(WaitForNoDialog(kComposer));
    EXPECT_EQ(Senders().value(0), ToQString(u8"顾晓棠"));
    EXPECT_EQ(Shown(".text").value(0), ToQString(u8"好"));
}

TEST_F(MessageStory, AConversationIsReadAndDeletedByKeys) {
    const QString first = Senders().value(0);
    const auto goToFirst = [&] {
        View().setFocus();
        ASSERT_TRUE(WaitFor(
            [] { return AskHtml(View(), QStringLiteral("document.hasFocus()")).toBool(); }));
        QTest::keyClick(View().Browser()->focusProxy(), Qt::Key_Tab);
        ASSERT_TRUE(WaitFor([&] {
            return AskHtml(View(), QStringLiteral("document.activeElement?.innerText"))
                       .toString() == first;
        }));
    };
    goToFirst();
    QTest::keyClick(View().Browser()->focusProxy(), Qt::Key_Return);
    ASSERT_TRUE(WaitForDialog(kComposer));
    Press(kComposer, kCancel);
    ASSERT_TRUE(WaitForNoDialog(kComposer));
    goToFirst();
    QTest::keyClick(View().Browser()->focusProxy(), Qt::Key_Delete);
    ASSERT_TRUE(WaitFor([] { return Requests(870206).size() == 1; }));
    ASSERT_TRUE(WaitIdle());
    EXPECT_FALSE(Senders().contains(first));
}

// Its id is past 31 bits, and stands as a negative number in its links.
TEST_F(MessageStory, AConversationOfANegativeIdIsReadAndDeleted) {
    const auto block = Senders().indexOf(ToQString(u8"工行客服"));
    ASSERT_GE(block, 0);
    Follow(u8"工行客服", ".sender");
    ASSERT_TRUE(WaitForDialog(kComposer));
    EXPECT_EQ(Talk().size(), 1);
    EXPECT_THAT(Requests(870202).at(0), HasSubstr(Hex(WireBytes().U32(870202).U32(0x8000002D))));
    Press(kComposer, kCancel);
    ASSERT_TRUE(WaitForNoDialog(kComposer));
    Follow(u8"工行客服", ".tool");
    ASSERT_TRUE(WaitFor([] { return Requests(870206).size() == 1; }));
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(Senders().indexOf(ToQString(u8"工行客服")), -1);
}

}  // namespace
}  // namespace quorvi

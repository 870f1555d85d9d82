// A user's story with the call log: through the window by its control numbers, to the phone and
// back.
#include <gmock/gmock.h>

#include <QLineEdit>

#include "pages/kit/NumberMenu.h"
#include "tests/support/MenuDriver.h"
#include "tests/support/PagesOnPhone.h"

namespace quorvi {
namespace {

using testing::HasSubstr;

constexpr int kList = 1072;
constexpr std::size_t kDelete = 1;
constexpr std::size_t kDeleteAll = 2;

constexpr int kComposer = 550;
constexpr int kRecipients = 1337;
constexpr int kText = 1271;
constexpr int kSend = 1030;

constexpr int kEditor = 540;
constexpr int kName = 1149;
constexpr int kMobile = 1150;
constexpr int kSave = 1020;

enum Column {
    columnHead,
    columnContact,
    columnType,
    columnDuration,
    columnTime,
    columnTick,
    columnId
};

class CallStory : public PagesOnPhone {
  protected:
    void SetUp() override {
        PagesOnPhone::SetUp();
        OpenFresh(kCalls);
    }

    // Chooses from the menu of the call with a number.
    static void Choose(const char* number, int command) {
        int row = 0;
        while (row < List().RowCount() &&
               List().CellAt(row, columnContact).text != QLatin1String(number) &&
               List().CellAt(row, columnContact).second != QLatin1String(number)) {
            ++row;
        }
        ASSERT_LT(row, List().RowCount()) << number;
        ChooseFrom(OpenRowMenu(*Window().ShownPage(), List(), row, columnContact), command);
    }

    static CSkinListCtrl& List() { return OnPage<CSkinListCtrl>(kList); }
    static QString Text(int row, int column) { return List().CellAt(row, column).text; }
};

TEST_F(CallStory, TickedCallsAreDeletedAndThenAllTheRest) {
    ASSERT_EQ(List().RowCount(), 33);
    EXPECT_EQ(Text(0, columnContact), ToQString(u8"林远舟"));
    EXPECT_EQ(List().CellAt(0, columnContact).second, QStringLiteral("13861234567"));
    EXPECT_EQ(Text(0, columnType), ToQString(u8"已接来电"));
    EXPECT_EQ(Text(0, columnDuration), QStringLiteral("00:03:27\n"));
    EXPECT_EQ(Text(0, columnTime), QStringLiteral("2011-06-18 09:12:44"));
    EXPECT_EQ(Text(0, columnId), QStringLiteral("32 "));
    EXPECT_EQ(Text(2, columnId), QStringLiteral("30 "));

    ClickCell(List(), 2, columnTick);
    ClickCell(List(), 0, columnTick);
    Command(kDelete);
    EXPECT_EQ(ConfirmDelete(), ToQString(u8"您真的要删除选择的【 2 】条通话记录吗？"));
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(List().RowCount(), 31);
    EXPECT_EQ(Text(0, columnId), QStringLiteral("31 "));
    EXPECT_EQ(Text(1, columnId), QStringLiteral("29 "));
    EXPECT_TRUE(List().TickedRows().empty());
    ASSERT_EQ(Requests(870303).size(), 1u);
    EXPECT_THAT(Requests(870303)[0], HasSubstr(Hex(WireBytes()
                                                       .U32(870303)  // code
                                                       .U32(20)      // total
                                                       .U32(2)       // item count
                                                       .U32(32)      // call ids, in row order
                                                       .U32(30))));

    Command(kDeleteAll);
    EXPECT_EQ(ConfirmDelete(), ToQString(u8"您真的要删除【 所有 】通话记录吗？"));
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(List().RowCount(), 0);
    ASSERT_EQ(Requests(870304).size(), 1u);
    EXPECT_THAT(Requests(870304)[0],
                HasSubstr(" 12 bytes " + Hex(WireBytes()
                                                 .U32(870304)  // code
                                                 .U32(12)      // total
                                                 .U32(1))));   // item count, of nothing
    // The phone answers for an empty log that it has no data. Kept on purpose: that leaves the list
    // without redraw, as every early end of a load does.
    EXPECT_FALSE(List().Redraw());
    // At first, before all calls go, so that each is kept on the PC, and after that.
    EXPECT_EQ(Requests(870301).size(), 3u);
    EXPECT_EQ(Status(), ToQString(u8"已删除所有通话记录"));
}

TEST_F(CallStory, AQuestionThatIsNotConfirmedSendsNothing) {
    Command(kDeleteAll);
    ASSERT_TRUE(WaitForDialog(548));
    Press(548, 1021);
    ASSERT_TRUE(WaitForNoDialog(548));
    EXPECT_TRUE(Requests(870304).empty());
    EXPECT_EQ(List().RowCount(), 33);
    Command(kDelete);
    ASSERT_TRUE(WaitForDialog(682));
    Press(682, 1215);
    ASSERT_TRUE(WaitForNoDialog(682));
    EXPECT_TRUE(Requests(870303).empty());
}

// Over the page of the calls, which stays: neither of the other two pages was shown before.
TEST_F(CallStory, AMessageIsWrittenToTheNumberOfACall) {
    Choose("13861234567", NumberMenu::commandWrite);
    ASSERT_TRUE(WaitForDialog(kComposer));
    EXPECT_EQ(In<QLineEdit>(kComposer, kRecipients).text(),
              ToQString(u8"\"林远舟\" <13861234567>;"));
    EXPECT_EQ(Window().MainPage(), kCalls);
    Type(In(kComposer, kText), ToQString(u8"晚点回你"));
    Press(kComposer, kSend);
    ASSERT_TRUE(WaitForNoDialog(kComposer));
    ASSERT_EQ(Requests(870204).size(), 1u);
    EXPECT_THAT(Requests(870204)[0], HasSubstr("to 13861234567: 晚点回你"));
    EXPECT_EQ(Status(), ToQString(u8"已发送给 1 人"));
    EXPECT_EQ(Window().MainPage(), kCalls);
}

TEST_F(CallStory, TheNumberOfACallIsAddedAsAContact) {
    Choose("13000000000", NumberMenu::commandAdd);
    ASSERT_TRUE(WaitForDialog(kEditor));
    EXPECT_EQ(In<QLineEdit>(kEditor, kMobile).text(), QStringLiteral("13000000000"));
    EXPECT_EQ(In<QLineEdit>(kEditor, kName).text(), QString());
    EXPECT_EQ(Window().MainPage(), kCalls);
    Type(In(kEditor, kName), ToQString(u8"叶师傅"));
    Press(kEditor, kSave);
    ASSERT_TRUE(WaitForNoDialog(kEditor));
    ASSERT_EQ(Requests(870103).size(), 1u);
    EXPECT_EQ(Status(), ToQString(u8"已添加联系人 叶师傅"));
    EXPECT_EQ(Window().MainPage(), kCalls);
}

}  // namespace
}  // namespace quorvi

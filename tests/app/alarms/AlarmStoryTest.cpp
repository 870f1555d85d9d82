// A user's story with the alarms of the phone's clock: through the window by its control numbers,
// to the phone and back.
#include <gmock/gmock.h>

#include <QComboBox>
#include <QLineEdit>

#include "tests/support/PagesOnPhone.h"

namespace quorvi {
namespace {

using testing::HasSubstr;

// Numbers of the page and its controls, and of the editor.
constexpr int kList = 1090;
constexpr std::size_t kAdd = 1;
constexpr std::size_t kEdit = 2;
constexpr std::size_t kDelete = 3;

constexpr int kEditor = 551;
constexpr int kLabel = 1257;
constexpr int kHalfDay = 1231;
constexpr int kHour = 1229;
constexpr int kMinute = 1268;
constexpr int kMonday = 1248;
constexpr int kSunday = 1254;
constexpr int kEnabled = 1256;
constexpr int kOk = 1215;
constexpr int kCancel = 1021;

enum Column {
    columnSign,
    columnLabel,
    columnRepeat,
    columnTone,
    columnVibrate,
    columnState,
    columnTick
};

constexpr const char* kOwnTone = "content://settings/system/alarm_alert";

class AlarmStory : public PagesOnPhone {
  protected:
    void SetUp() override {
        PagesOnPhone::SetUp();
        OpenFresh(kAlarms);
    }

    static CSkinListCtrl& List() { return OnPage<CSkinListCtrl>(kList); }
    static Cell At(int row, int column) { return List().CellAt(row, column); }
    static void TypeLabel(std::u8string_view text) { Type(In(kEditor, kLabel), ToQString(text)); }
    static QString LabelInEditor() { return In<QLineEdit>(kEditor, kLabel).text(); }
    // Comes to an entry of a combo box by its keys.
    static void Choose(int control, const QString& entry) {
        auto& box = In<QComboBox>(kEditor, control);
        QTest::keyClick(&box, Qt::Key_Home);
        while (box.currentText() != entry) {
            const int before = box.currentIndex();
            QTest::keyClick(&box, Qt::Key_Down);
            ASSERT_NE(box.currentIndex(), before) << "no such entry";
        }
    }
    static void Save() {
        Press(kEditor, kOk);
        ASSERT_TRUE(WaitForNoDialog(kEditor));
    }
};

TEST_F(AlarmStory, AnAlarmIsAddedChangedAndDeleted) {
    ASSERT_EQ(List().RowCount(), 9);
    EXPECT_EQ(At(0, columnLabel).text, ToQString(u8"起床上班"));
    EXPECT_EQ(At(0, columnLabel).second, QStringLiteral("07:05"));
    EXPECT_EQ(At(0, columnTone).text, ToQString(u8"晨光"));

    // ---- added
    Command(kAdd);
    ASSERT_TRUE(WaitForDialog(kEditor));
    EXPECT_EQ(OpenDialog(kEditor)->windowTitle(), ToQString(u8"添加闹铃提醒"));
    TypeLabel(u8"晨跑");
    Choose(kHalfDay, ToQString(u8"下午"));
    Choose(kHour, QStringLiteral("6"));
    Choose(kMinute, QStringLiteral("20"));
    ClickOn(In(kEditor, kMonday));
    ClickOn(In(kEditor, kSunday));
    ClickOn(In(kEditor, kEnabled));
    Save();
    ASSERT_EQ(Requests(870402).size(), 1u);
    EXPECT_THAT(Requests(870402)[0], HasSubstr(Hex(WireBytes()
                                                       .U32(870402)     // code
                                                       .U32(91)         // total
                                                       .U32(1)          // item count
                                                       .U32(18)         // hour
                                                       .U32(20)         // minute
                                                       .U32(0x41)       // days
                                                       .U64(0)          // alert time
                                                       .U32(1)          // enabled
                                                       .U32(0)          // vibrate
                                                       .Text("晨跑")    // label
                                                       .Text(kOwnTone)  // alert
                                                   )));
    ASSERT_EQ(List().RowCount(), 10);
    EXPECT_EQ(At(9, columnLabel).text, ToQString(u8"晨跑"));
    EXPECT_EQ(At(9, columnLabel).second, QStringLiteral("18:20"));
    EXPECT_EQ(At(9, columnRepeat).text, ToQString(u8"一 日 "));
    EXPECT_EQ(At(9, columnRepeat).second, ToQString(u8"有重复"));
    EXPECT_EQ(At(9, columnVibrate).text, ToQString(u8"振动关闭"));
    EXPECT_EQ(At(9, columnState).text, ToQString(u8"已启用"));

    // ---- changed
    ClickCell(List(), 9, columnLabel);
    Command(kEdit);
    ASSERT_TRUE(WaitForDialog(kEditor));
    EXPECT_EQ(OpenDialog(kEditor)->windowTitle(), ToQString(u8"修改闹铃提醒"));
    EXPECT_EQ(LabelInEditor(), ToQString(u8"晨跑"));
    EXPECT_EQ(In<QComboBox>(kEditor, kHour).currentText(), QStringLiteral("6"));
    TypeLabel(u8"夜跑");
    ClickOn(In(kEditor, kSunday));
    ClickOn(In(kEditor, kEnabled));
    Save();
    ASSERT_EQ(Requests(870403).size(), 1u);
    EXPECT_EQ(At(9, columnLabel).text, ToQString(u8"夜跑"));
    EXPECT_EQ(At(9, columnRepeat).text, ToQString(u8"一 "));
    EXPECT_EQ(At(9, columnState).text, ToQString(u8"已禁用"));

    // ---- deleted, with another one
    ClickCell(List(), 9, columnTick);
    ClickCell(List(), 2, columnTick);
    Command(kDelete);
    EXPECT_EQ(ConfirmDelete(), ToQString(u8"您真的要删除选择的【 2 】条闹铃提醒吗？"));
    ASSERT_TRUE(WaitIdle());
    ASSERT_EQ(List().RowCount(), 8);
    EXPECT_EQ(At(2, columnLabel).text, ToQString(u8"午饭后给妈妈打电话"));
    EXPECT_THAT(Requests(870405).at(0), HasSubstr(Hex(WireBytes()
                                                          .U32(870405)  // code
                                                          .U32(20)      // total
                                                          .U32(2)       // item count
                                                          .U32(3)       // alarm ids, in row order
                                                          .U32(10))));
    EXPECT_EQ(Requests(870401).size(), 3u);  // one behind each change
    EXPECT_EQ(Status(), ToQString(u8"已删除 2 个闹铃"));
}

TEST_F(AlarmStory, AnAlarmAtMidnightKeepsItsHour) {
    ASSERT_EQ(At(4, columnLabel).second, QStringLiteral("00:00"));
    ClickCell(List(), 4, columnLabel);
    Command(kEdit);
    ASSERT_TRUE(WaitForDialog(kEditor));
    EXPECT_EQ(In<QComboBox>(kEditor, kHour).currentIndex(), -1);
    TypeLabel(u8"零点");
    Save();
    EXPECT_EQ(At(4, columnLabel).text, ToQString(u8"零点"));
    EXPECT_EQ(At(4, columnLabel).second, QStringLiteral("00:00"));
}

TEST_F(AlarmStory, AnAlarmThatThePhoneDidNotTakeStandsInTheNextEditor) {
    Tell("agent stop");
    Command(kAdd);
    ASSERT_TRUE(WaitForDialog(kEditor));
    TypeLabel(u8"别丢了");
    Save();
    Restore();
    Command(kAdd);
    ASSERT_TRUE(WaitForDialog(kEditor));
    EXPECT_EQ(LabelInEditor(), ToQString(u8"别丢了"));
    Save();
    ASSERT_EQ(List().RowCount(), 10);
    EXPECT_EQ(At(9, columnLabel).text, ToQString(u8"别丢了"));
}

TEST_F(AlarmStory, HostileAlarmsAreShownOpenedAndDeleted) {
    Tell("data hostile 1");
    Command(0);
    ASSERT_TRUE(WaitIdle());
    const int rows = List().RowCount();
    ASSERT_GT(rows, 9);
    for (int row = 0; row < rows; ++row) {
        ClickCell(List(), row, columnLabel);
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

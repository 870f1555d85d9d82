#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "pages/alarms/AlarmEditDlg.h"
#include "tests/support/AgentDialogTest.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/WireBytes.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

constexpr int kLabel = 1257;
constexpr int kHour = 1229;
constexpr int kMinute = 1268;
constexpr int kHalfDay = 1231;
constexpr int kMonday = 1248;
constexpr int kSunday = 1254;
constexpr int kVibrate = 1255;
constexpr int kEnabled = 1256;
constexpr int kAlert = 1368;
constexpr int kOk = 1215;
constexpr int kCancel = 1021;

AlarmRow At(std::uint32_t hour, std::uint32_t minute) {
    AlarmRow row;
    row.id = 7;
    row.hour = hour;
    row.minute = minute;
    row.label = "A";
    row.alert = "content://x";
    return row;
}

class AlarmEditor : public AgentDialogTest<CAlarmEditDlg> {
  protected:
    void SetUp() override {
        agent_.AnswerAcknowledged(AgentCommand::addAlarm);
        agent_.AnswerAcknowledged(AgentCommand::updateAlarm);
    }

    void OpenToAdd() { Show(new CAlarmEditDlg(host_, nullptr, agent_.Port())); }
    void OpenToUpdate(const AlarmRow& row) {
        Show(new CAlarmEditDlg(host_, row.id, FormOf(row), nullptr, agent_.Port()));
    }
    QLineEdit& Edit(int number) { return *FindControl<QLineEdit>(dialog_, number); }
    QComboBox& Combo(int number) { return *FindControl<QComboBox>(dialog_, number); }
    QAbstractButton& Button(int number) { return *FindControl<QAbstractButton>(dialog_, number); }
    QString State() { return dialog_->findChild<CSkinStateLabel*>()->text(); }
    // The days whose ticks are set, as bits.
    unsigned Days() {
        unsigned days = 0;
        for (int day = kMonday; day <= kSunday; ++day) {
            days |= (Button(day).isChecked() ? 1u : 0u) << (day - kMonday);
        }
        return days;
    }
    // Presses 确定, waits for the end with OK, and gives what was sent.
    std::vector<Bytes> Save() {
        Button(kOk).click();
        EXPECT_TRUE(Ended(QDialog::Accepted));
        EXPECT_TRUE(Gone());
        results_.clear();
        return agent_.Requests();
    }
    // The hour that a save of an alarm at that hour sends.
    Bytes Unchanged(const AlarmRow& row) { return UpdateAlarmRequest(7, SettingsOf(FormOf(row))); }
};

TEST_F(AlarmEditor, ANewAlarmIsAtEightInTheMorningWithTheRingToneOfThePhone) {
    OpenToAdd();
    EXPECT_EQ(dialog_->objectName(), QStringLiteral("dialog 551"));
    EXPECT_EQ(dialog_->windowTitle(), ToQString(u8"添加闹铃提醒"));
    EXPECT_EQ(Edit(kLabel).text(), QString());
    EXPECT_EQ(Combo(kHalfDay).currentIndex(), 0);
    EXPECT_EQ(Combo(kHalfDay).currentText(), ToQString(u8"上午"));
    EXPECT_EQ(Combo(kHour).currentIndex(), 7);
    EXPECT_EQ(Combo(kHour).currentText(), QStringLiteral("8"));
    EXPECT_EQ(Combo(kMinute).currentIndex(), 0);
    EXPECT_EQ(Combo(kMinute).currentText(), QStringLiteral("00"));
    EXPECT_EQ(Days(), 0u);
    EXPECT_FALSE(Button(kEnabled).isChecked());
    EXPECT_FALSE(Button(kVibrate).isChecked());
    EXPECT_EQ(Edit(kAlert).text(), QStringLiteral("content://settings/system/alarm_alert"));
    EXPECT_EQ(State(), ToQString(u8"就绪"));
    EXPECT_EQ(dialog_->focusWidget(), &Edit(kLabel));
}

TEST_F(AlarmEditor, EntriesAndCaptionsAreAsTold) {
    OpenToAdd();
    EXPECT_EQ(Combo(kHour).count(), 12);
    EXPECT_EQ(Combo(kHour).itemText(11), QStringLiteral("12"));
    EXPECT_EQ(Combo(kMinute).count(), 60);
    EXPECT_EQ(Combo(kMinute).itemText(5), QStringLiteral("05"));
    EXPECT_EQ(Combo(kMinute).itemText(59), QStringLiteral("59"));
    EXPECT_EQ(Combo(kHalfDay).count(), 2);
    EXPECT_EQ(Combo(kHalfDay).itemText(1), ToQString(u8"下午"));
    EXPECT_EQ(Button(kMonday).text(), ToQString(u8"周一"));
    EXPECT_EQ(Button(kSunday).text(), ToQString(u8"周日"));
    EXPECT_EQ(Button(kOk).text(), ToQString(u8"确定"));
    EXPECT_EQ(Button(kCancel).text(), ToQString(u8"取消"));
}

TEST_F(AlarmEditor, VibratingSaysInItsCaptionWhetherItDoes) {
    OpenToAdd();
    EXPECT_EQ(Button(kVibrate).text(), ToQString(u8"振动关闭"));
    Button(kVibrate).click();
    EXPECT_EQ(Button(kVibrate).text(), ToQString(u8"振动提醒"));
    Button(kVibrate).click();
    EXPECT_EQ(Button(kVibrate).text(), ToQString(u8"振动关闭"));
    AlarmRow row = At(7, 5);
    row.vibrate = true;
    delete dialog_;
    OpenToUpdate(row);
    EXPECT_EQ(Button(kVibrate).text(), ToQString(u8"振动提醒"));
}

TEST_F(AlarmEditor, ANewAlarmIsSentAsItIsFilledIn) {
    OpenToAdd();
    Edit(kLabel).setText(ToQString(u8"晨跑"));
    Combo(kHalfDay).setCurrentIndex(1);
    Combo(kHour).setCurrentIndex(5);
    Combo(kMinute).setCurrentIndex(20);
    Button(kMonday).click();
    Button(kSunday).click();
    Button(kEnabled).click();
    Button(kVibrate).click();
    Edit(kAlert).setText(QStringLiteral("content://a"));
    EXPECT_EQ(Save(), std::vector<Bytes>{WireBytes()
                                             .U32(870402)          // code
                                             .U32(65)              // total
                                             .U32(1)               // item count
                                             .U32(18)              // hour
                                             .U32(20)              // minute
                                             .U32(0x41)            // days
                                             .U64(0)               // alert time
                                             .U32(1)               // enabled
                                             .U32(1)               // vibrate
                                             .Text("晨跑")         // label
                                             .Text("content://a")  // alert
                                             .Get()});
    EXPECT_EQ(host_.statuses, QStringList{ToQString(u8"已添加闹铃")});
}

TEST_F(AlarmEditor, AnAlarmIsShownInItsFields) {
    AlarmRow row = At(18, 9);
    row.days = 0x41;
    row.enabled = true;
    OpenToUpdate(row);
    EXPECT_EQ(dialog_->windowTitle(), ToQString(u8"修改闹铃提醒"));
    EXPECT_EQ(Edit(kLabel).text(), QStringLiteral("A"));
    EXPECT_EQ(Combo(kHalfDay).currentText(), ToQString(u8"下午"));
    EXPECT_EQ(Combo(kHour).currentText(), QStringLiteral("6"));
    EXPECT_EQ(Combo(kMinute).currentText(), QStringLiteral("09"));
    EXPECT_EQ(Days(), 0x41u);
    EXPECT_TRUE(Button(kEnabled).isChecked());
    EXPECT_FALSE(Button(kVibrate).isChecked());
    EXPECT_EQ(Edit(kAlert).text(), QStringLiteral("content://x"));
    EXPECT_EQ(Save(), std::vector<Bytes>{Unchanged(row)});
}

TEST_F(AlarmEditor, EveryDaySetsAllTicksAndMondayItsOwn) {
    AlarmRow row = At(7, 0);
    row.days = 0x7F;
    OpenToUpdate(row);
    EXPECT_EQ(Days(), 0x7Fu);
    delete dialog_;
    row.days = 1;
    OpenToUpdate(row);
    EXPECT_EQ(Days(), 1u);
}

TEST_F(AlarmEditor, AnAlarmAtMidnightOpensWithNoHourAndIsSavedAsItWas) {
    OpenToUpdate(At(0, 15));
    EXPECT_EQ(Combo(kHour).currentIndex(), -1);
    EXPECT_EQ(Combo(kHalfDay).currentText(), ToQString(u8"上午"));
    AlarmSettings sent = SettingsOf(FormOf(At(0, 15)));
    EXPECT_EQ(sent.hour, 0u);
    EXPECT_EQ(Save(), std::vector<Bytes>{UpdateAlarmRequest(7, sent)});
}

TEST_F(AlarmEditor, AnAlarmAtNoonOpensAsTwelveOfTheMorningAndIsSavedAsItWas) {
    OpenToUpdate(At(12, 30));
    EXPECT_EQ(Combo(kHour).currentText(), QStringLiteral("12"));
    EXPECT_EQ(Combo(kHalfDay).currentText(), ToQString(u8"上午"));
    AlarmSettings sent = SettingsOf(FormOf(At(12, 30)));
    EXPECT_EQ(sent.hour, 12u);
    EXPECT_EQ(Save(), std::vector<Bytes>{UpdateAlarmRequest(7, sent)});
}

TEST_F(AlarmEditor, TwelveOfTheAfternoonIsSentAs24) {
    OpenToUpdate(At(12, 30));
    Combo(kHalfDay).setCurrentIndex(1);
    AlarmSettings sent = SettingsOf(FormOf(At(12, 30)));
    sent.hour = 24;
    EXPECT_EQ(Save(), std::vector<Bytes>{UpdateAlarmRequest(7, sent)});
}

TEST_F(AlarmEditor, WithoutALabelOrARingToneNothingIsSentAndItEndsWithOk) {
    OpenToAdd();
    EXPECT_TRUE(Save().empty());
    OpenToUpdate(At(7, 5));
    Edit(kAlert).clear();
    EXPECT_TRUE(Save().empty());
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(AlarmEditor, SaysThatNothingWouldBeSavedOnceSomethingIsFilledIn) {
    const QString incomplete = ToQString(u8"标题和音乐都填了才会保存");
    OpenToAdd();
    Button(kMonday).click();
    EXPECT_EQ(State(), incomplete);
    Edit(kLabel).setText(QStringLiteral("A"));
    EXPECT_EQ(State(), ToQString(u8"就绪"));
    Edit(kAlert).clear();
    EXPECT_EQ(State(), incomplete);
}

TEST_F(AlarmEditor, WhatCouldNotBeSentIsKept) {
    const auto unsaved = [&](bool fill) {
        OpenToAdd();
        if (fill) {
            Button(kMonday).click();
        }
        std::optional<AlarmForm> form;
        QObject::connect(dialog_, &QDialog::finished, dialog_, [&] { form = dialog_->Unsaved(); });
        Save();
        return form;
    };
    EXPECT_FALSE(unsaved(false));  // there is nothing to lose
    const auto form = unsaved(true);
    ASSERT_TRUE(form);
    EXPECT_EQ(form->days, 1u);
}

TEST_F(AlarmEditor, ABlankLabelIsSent) {
    OpenToAdd();
    Edit(kLabel).setText(QStringLiteral(" "));
    EXPECT_EQ(Save().size(), 1u);
}

TEST_F(AlarmEditor, TextsThatAreLeftAloneGoBackInTheVeryBytesThatCame) {
    AlarmRow row = At(7, 5);
    row.label = std::string("a\r\nb\0c\td", 9);
    row.alert = std::string("x\0\ny", 4);
    OpenToUpdate(row);
    Button(kEnabled).click();
    AlarmSettings sent = SettingsOf(FormOf(row));
    sent.enabled = true;
    EXPECT_EQ(Save(), std::vector<Bytes>{UpdateAlarmRequest(7, sent)});
    EXPECT_EQ(host_.statuses, QStringList{ToQString(u8"已保存闹铃")});
}

TEST_F(AlarmEditor, ConnectFailureIsToldAndEndsWithOk) {
    Show(new CAlarmEditDlg(host_, nullptr, UnusedPort()));
    Edit(kLabel).setText(QStringLiteral("A"));
    Save();
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
}

TEST_F(AlarmEditor, ASaveThatIsNotAcknowledgedIsKept) {
    const auto saveAt = [&](std::uint16_t port) {
        Show(new CAlarmEditDlg(host_, nullptr, port));
        Edit(kLabel).setText(QStringLiteral("A"));
        std::optional<AlarmForm> unsaved;
        QObject::connect(dialog_, &QDialog::finished, dialog_,
                         [&] { unsaved = dialog_->Unsaved(); });
        Save();
        return unsaved;
    };
    EXPECT_FALSE(saveAt(agent_.Port()));
    const auto unsaved = saveAt(UnusedPort());
    ASSERT_TRUE(unsaved);
    EXPECT_EQ(unsaved->label, "A");
}

TEST_F(AlarmEditor, ASaveThatIsOnItsWayEndsWithOkHoweverItIsClosed) {
    // It may have reached the phone: the list has to be read again.
    agent_.Hold(AgentCommand::addAlarm);
    const auto closeBy = [&](const std::function<void()>& close) {
        results_.clear();
        OpenToAdd();
        Edit(kLabel).setText(QStringLiteral("A"));
        const std::size_t before = agent_.Requests().size();
        Button(kOk).click();
        EXPECT_FALSE(Edit(kLabel).isEnabled());
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

TEST_F(AlarmEditor, CharactersThatCannotBeSavedAreWarnedOfWhileTheyStand) {
    OpenToUpdate(At(7, 5));
    Edit(kLabel).setText(QStringLiteral("\U0001F388"));
    EXPECT_EQ(State(), ToQString(u8"有些字符无法保存，会变成“?”"));
    Edit(kLabel).setText(QStringLiteral("A"));
    EXPECT_EQ(State(), ToQString(u8"就绪"));
}

TEST_F(AlarmEditor, EscapeAsksBeforeWhatWasTypedIsLost) {
    OpenToAdd();
    Combo(kHour).setCurrentIndex(3);
    QTest::keyClick(dialog_, Qt::Key_Escape);
    ASSERT_NE(OpenDialog(0), nullptr);
    PressIn(0, 2);
    EXPECT_TRUE(dialog_->isVisible());
    Combo(kHour).setCurrentIndex(7);  // as it was
    QTest::keyClick(dialog_, Qt::Key_Escape);
    EXPECT_TRUE(Ended(QDialog::Rejected));
}

}  // namespace
}  // namespace quorvi

// What the page shows of the phone's settings.
#include <QGroupBox>

#include "tests/pages/phonesettings/PhoneSettingsFixture.h"
#include "tests/support/LoopbackAgent.h"

namespace quorvi {
namespace {

class PhoneSettingsPage : public PhoneSettingsFixture {};

// ---- what stands there -------------------------------------------------------------------------

TEST_F(PhoneSettingsPage, NumbersAreTheControls) {
    CPhoneSettingsPage& page = Open();
    EXPECT_EQ(page.objectName(), QStringLiteral("dialog 420"));
    EXPECT_EQ(CPhoneSettingsPage::kNumbers.loadKey, 11);
    for (const int number : kSwitches) {
        EXPECT_NE(FindControl<QAbstractButton>(&page, number), nullptr) << number;
    }
    for (const int number : kLists) {
        EXPECT_NE(FindControl<CSkinCombo>(&page, number), nullptr) << number;
    }
    Settle();
    EXPECT_TRUE(agent_.Requests().empty());  // the navigator loads it, not the page itself
}

TEST_F(PhoneSettingsPage, ControlsAreCalledByTheCaptionsOfTheTable) {
    Open();
    const std::pair<int, std::u8string_view> captions[] = {{kWifi, u8"WiFi"},
                                                           {kBluetooth, u8"蓝牙"},
                                                           {kAirplane, u8"飞行模式"},
                                                           {kGps, u8"GPS"},
                                                           {kGravity, u8"重力"},
                                                           {kVibrate, u8"来电振动"},
                                                           {kBacklight, u8"背光时间"},
                                                           {kRingVolume, u8"来电铃声音量"},
                                                           {kMusicVolume, u8"音乐播放音量"},
                                                           {kTime24, u8"使用24小时时间格式"},
                                                           {kDateFormat, u8"日期格式"}};
    for (const auto& [number, caption] : captions) {
        EXPECT_EQ(Control(number).accessibleName(), ToQString(caption)) << number;
    }
}

TEST_F(PhoneSettingsPage, GroupsHaveTheirCaptionsAndTheLastIsHidden) {
    CPhoneSettingsPage& page = Open();
    const std::tuple<int, std::u8string_view, bool> groups[] = {{1212, u8"常规设置", true},
                                                                {1211, u8"声音和显示", true},
                                                                {1209, u8"日期和时间", true},
                                                                {1210, u8"壁纸和铃声", false}};
    for (const auto& [number, caption, visible] : groups) {
        auto* group = FindControl<QGroupBox>(&page, number);
        ASSERT_NE(group, nullptr) << number;
        EXPECT_EQ(group->title(), ToQString(caption));
        EXPECT_EQ(group->isVisible(), visible) << number;
    }
    EXPECT_FALSE(Control(1207).isVisible());
    EXPECT_FALSE(Control(1208).isVisible());
}

TEST_F(PhoneSettingsPage, TheHiddenButtonsAskForTheirPages) {
    Open();
    Switch(1207).click();
    Switch(1208).click();
    ASSERT_EQ(host_.posted.size(), 2u);
    EXPECT_EQ(host_.posted[0], (FakeHost::Posted{Message::goToPage, 3, 36}));
    EXPECT_EQ(host_.posted[1], (FakeHost::Posted{Message::goToPage, 3, 31}));
}

TEST_F(PhoneSettingsPage, TheTabKeyGoesAsTheFormIsRead) {
    CPhoneSettingsPage& page = Open();
    const int order[] = {kWifi,      kGps,        kBluetooth,   kGravity,    kAirplane, kVibrate,
                         kBacklight, kRingVolume, kMusicVolume, kDateFormat, kTime24};
    std::vector<int> met;
    for (QWidget* next = page.nextInFocusChain(); next != &page; next = next->nextInFocusChain()) {
        if ((next->focusPolicy() & Qt::TabFocus) != 0 && next->isVisible()) {
            met.push_back(next->objectName().toInt());
        }
    }
    EXPECT_EQ(met, std::vector<int>(std::begin(order), std::end(order)));
}

TEST_F(PhoneSettingsPage, NothingIsChosenBeforeTheFirstReading) {
    Open();
    EXPECT_EQ(Shown(), (std::vector<int>{0, 0, 0, 0, 0, 0, 0, -1, -1, -1, -1}));
    EXPECT_EQ(Said(), QString());
}

// ---- reading -----------------------------------------------------------------------------------

TEST_F(PhoneSettingsPage, ShowsEachSettingInItsControl) {
    OpenWith({.wifi = 1,
              .bluetooth = 0,
              .airplane = 1,
              .gps = 0,
              .gravity = 1,
              .vibrate = 1,
              .backlight = 120'000,
              .ringVolume = 7,
              .musicVolume = 12,
              .dateFormat = 1,
              .time24 = 0});
    EXPECT_TRUE(Switch(kWifi).isChecked());
    EXPECT_FALSE(Switch(kBluetooth).isChecked());
    EXPECT_TRUE(Switch(kAirplane).isChecked());
    EXPECT_FALSE(Switch(kGps).isChecked());
    EXPECT_TRUE(Switch(kGravity).isChecked());
    EXPECT_TRUE(Switch(kVibrate).isChecked());
    EXPECT_EQ(List(kBacklight).currentText(), ToQString(u8"2 分钟"));
    EXPECT_EQ(List(kRingVolume).currentText(), ToQString(u8"7 最大"));
    EXPECT_EQ(List(kMusicVolume).currentText(), QStringLiteral("12"));
    EXPECT_EQ(List(kDateFormat).currentText(), ToQString(u8"XX月XX日XXXX年"));
    EXPECT_FALSE(Switch(kTime24).isChecked());
    EXPECT_TRUE(host_.statuses.isEmpty());
    EXPECT_EQ(Said(), QString());
}

TEST_F(PhoneSettingsPage, ARefreshIsOneRequestAndWritesNothing) {
    OpenLoaded();
    Tell({.wifi = 0,
          .bluetooth = 1,
          .airplane = 1,
          .gps = 0,
          .gravity = 0,
          .vibrate = 1,
          .backlight = 15'000,
          .ringVolume = 0,
          .musicVolume = 0,
          .dateFormat = 0,
          .time24 = 0});
    LoadAgain();
    EXPECT_EQ(Shown(), (std::vector<int>{0, 1, 1, 0, 0, 1, 0, 0, 0, 0, 0}));
    EXPECT_EQ(agent_.Requests(), (std::vector<Bytes>{Word(871501), Word(871501)}));
}

TEST_F(PhoneSettingsPage, ABacklightOf45000MillisecondsShows15SecondsAndWritesNothing) {
    OpenWith({.backlight = 45'000});
    Settle();
    EXPECT_EQ(List(kBacklight).currentText(), ToQString(u8"15 秒"));
    EXPECT_TRUE(Writes().empty());
}

TEST_F(PhoneSettingsPage, ARingVolumeOf8To10SelectsNothing) {
    OpenLoaded();
    for (const std::uint32_t step : {8u, 9u, 10u}) {
        Tell({.ringVolume = step});
        LoadAgain();
        EXPECT_EQ(List(kRingVolume).currentIndex(), -1) << step;
    }
    Tell({.ringVolume = 11});
    LoadAgain();
    EXPECT_EQ(List(kRingVolume).currentIndex(), 0);
}

TEST_F(PhoneSettingsPage, AMusicVolumeBeyondTheListShowsSilence) {
    OpenWith({.musicVolume = 16});
    EXPECT_EQ(List(kMusicVolume).currentText(), ToQString(u8"0 静音"));
}

TEST_F(PhoneSettingsPage, AToggleOf2IsOff) {
    OpenWith({.wifi = 2, .bluetooth = 2, .time24 = 2});
    EXPECT_FALSE(Switch(kWifi).isChecked());
    EXPECT_FALSE(Switch(kBluetooth).isChecked());
    EXPECT_FALSE(Switch(kTime24).isChecked());
}

TEST_F(PhoneSettingsPage, ADateFormatOutsideTheListSelectsNothing) {
    OpenLoaded();
    for (const std::uint32_t format : {3u, 0xFFFFFFFFu}) {
        Tell({.dateFormat = format});
        LoadAgain();
        EXPECT_EQ(List(kDateFormat).currentIndex(), -1) << format;
    }
}

TEST_F(PhoneSettingsPage, WhileItReadsNoControlCanBeUsedAndARefreshIsDropped) {
    CPhoneSettingsPage& page = Open();
    agent_.Hold(AgentCommand::readSettings);
    page.Load();
    EXPECT_TRUE(Usable().empty());
    EXPECT_TRUE(page.IsAtWork());
    EXPECT_EQ(Said(), ToQString(u8"正在读取手机的设置…"));
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kRunning; }));
    page.Load();
    Switch(kWifi).click();
    agent_.Release();
    WaitForLoads(1);
    Settle();
    EXPECT_EQ(Usable().size(), kControls);
    EXPECT_FALSE(page.IsAtWork());
    EXPECT_EQ(agent_.Requests().size(), 1u);
}

TEST_F(PhoneSettingsPage, AConnectFailureIsToldAndTheControlsStay) {
    OpenAt(UnusedPort()).Load();
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
    EXPECT_EQ(Shown(), (std::vector<int>{0, 0, 0, 0, 0, 0, 0, -1, -1, -1, -1}));
    EXPECT_EQ(Usable().size(), kControls);
    EXPECT_TRUE(Said().contains(ToQString(u8"没有连上手机")));
    EXPECT_TRUE(Said().contains(ToQString(u8"刷新系统设置")));
}

TEST_F(PhoneSettingsPage, ALoadThatWorksTakesAnOldConnectFailureBack) {
    FailBefore();
    OpenLoaded();
    EXPECT_EQ(host_.status, kReady);
}

TEST_F(PhoneSettingsPage, AReplyThatIsCutShowsWhatCameAndZeroForTheRest) {
    OpenLoaded();
    Bytes cut = Join({Word(48), SettingsPayload({.wifi = 1, .bluetooth = 1, .airplane = 1}).Get()});
    cut.resize(4 + 4 + 3 * 4);  // the length, the leading word, three settings
    agent_.Answer(AgentCommand::readSettings, {cut});
    LoadAgain();
    EXPECT_EQ(Shown(), (std::vector<int>{1, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_TRUE(Said().contains(ToQString(u8"没有发完")));
    EXPECT_TRUE(host_.statuses.isEmpty());
}

// Replies that hold no settings.
class PhoneSettingsPageEarlyEnd : public PhoneSettingsPage,
                                  public testing::WithParamInterface<ScriptedAgent::Reply> {};

TEST_P(PhoneSettingsPageEarlyEnd, LeavesTheControlsAsTheyWereAndALaterRefreshWorks) {
    OpenLoaded();
    const std::vector<int> before = Shown();
    agent_.Answer(AgentCommand::readSettings, GetParam());
    LoadAgain();
    EXPECT_EQ(Shown(), before);
    EXPECT_EQ(Usable().size(), kControls);
    EXPECT_EQ(Key(), PageLoadState::kEnded);
    EXPECT_TRUE(host_.statuses.isEmpty());
    EXPECT_TRUE(Said().contains(ToQString(u8"手机没有给出它的设置")));
    Tell({.wifi = 0});
    LoadAgain();
    EXPECT_FALSE(Switch(kWifi).isChecked());
    EXPECT_EQ(Said(), QString());
}

INSTANTIATE_TEST_SUITE_P(
    NoData_Closed_Broken_Short, PhoneSettingsPageEarlyEnd,
    testing::Values(ScriptedAgent::Reply{Word(NoDataMark)}, ScriptedAgent::Reply{Bytes{}},
                    ScriptedAgent::Reply{Join({Word(48), Word(0)}), ScriptedAgent::End::reset},
                    ScriptedAgent::Reply{Join({Word(12), Word(0), Word(0), Word(0)})}));

TEST_F(PhoneSettingsPage, MayGoWhileItsPhoneStalls) {
    GoWhileThePhoneStalls();
}

}  // namespace
}  // namespace quorvi

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QGroupBox>
#include <QLabel>
#include <algorithm>
#include <span>

#include "pages/phonesettings/PhoneSettingsPage.h"
#include "tests/pages/phonesettings/PhoneSettingsReplies.h"
#include "tests/support/AgentPageTest.h"
#include "tests/support/ControlDriver.h"
#include "tests/support/LoopbackAgent.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinFields.h"

namespace quorvi {
namespace {

// Control numbers.
constexpr int kWifi = 1280;
constexpr int kBluetooth = 1282;
constexpr int kAirplane = 1284;
constexpr int kGps = 1281;
constexpr int kGravity = 1283;
constexpr int kVibrate = 1255;
constexpr int kBacklight = 1213;
constexpr int kRingVolume = 1214;
constexpr int kMusicVolume = 1215;
constexpr int kTime24 = 1204;
constexpr int kDateFormat = 1206;

constexpr int kSwitches[] = {kWifi, kBluetooth, kAirplane, kGps, kGravity, kVibrate, kTime24};
constexpr int kLists[] = {kBacklight, kRingVolume, kMusicVolume, kDateFormat};

// The request that writes a setting.
Bytes Written(std::uint32_t key, std::uint32_t value) {
    return WireBytes()
        .U32(871502)  // code
        .U32(20)      // total
        .U32(1)       // item count
        .U32(key)     //
        .U32(value)   //
        .Get();
}

class PhoneSettingsPage : public AgentPageTest<CPhoneSettingsPage, AgentCommand::readSettings> {
  protected:
    void SetUp() override {
        Tell({});
        agent_.AnswerAcknowledged(AgentCommand::writeSetting);
    }

    void Tell(const ToldSettings& settings) {
        agent_.AnswerPayload(AgentCommand::readSettings, SettingsPayload(settings).Get());
    }
    CPhoneSettingsPage& OpenAt(std::uint16_t port) {
        MakeAt(port).show();
        return *page_;
    }
    CPhoneSettingsPage& Open() { return OpenAt(agent_.Port()); }
    CPhoneSettingsPage& OpenLoaded() {
        Open().Load();
        WaitForLoads(1);
        return *page_;
    }
    CPhoneSettingsPage& OpenWith(const ToldSettings& settings) {
        Tell(settings);
        return OpenLoaded();
    }
    // Reads the settings again, to the end.
    void LoadAgain() {
        page_->Load();
        Settle();
    }

    QWidget& Control(int number) { return *FindControl(page_.get(), number); }
    QAbstractButton& Switch(int number) {
        return *FindControl<QAbstractButton>(page_.get(), number);
    }
    CSkinCombo& List(int number) { return *FindControl<CSkinCombo>(page_.get(), number); }
    QString Said() { return page_->findChild<QLabel*>(QStringLiteral("settingsState"))->text(); }
    // Chooses an entry as the arrow keys do, one step after the other.
    void StepTo(int number, int entry) {
        while (List(number).currentIndex() != entry) {
            QTest::keyClick(&List(number),
                            List(number).currentIndex() < entry ? Qt::Key_Down : Qt::Key_Up);
        }
    }
    std::vector<Bytes> Writes() { return agent_.Requests(AgentCommand::writeSetting); }
    void WaitForWrites(std::size_t count) {
        ASSERT_TRUE(WaitFor([&] { return Writes().size() == count; }));
    }
    // What all controls show.
    std::vector<int> Shown() {
        std::vector<int> shown;
        for (const int number : kSwitches) {
            shown.push_back(Switch(number).isChecked() ? 1 : 0);
        }
        for (const int number : kLists) {
            shown.push_back(List(number).currentIndex());
        }
        return shown;
    }
    // The controls that can be used.
    std::vector<int> Usable() {
        std::vector<int> usable;
        for (const auto& numbers :
             {std::span<const int>(kSwitches), std::span<const int>(kLists)}) {
            std::ranges::copy_if(numbers, std::back_inserter(usable),
                                 [&](int number) { return Control(number).isEnabled(); });
        }
        return usable;
    }
};

constexpr std::size_t kControls = std::size(kSwitches) + std::size(kLists);

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

// ---- writing -----------------------------------------------------------------------------------

struct SwitchCase {
    int control;
    std::uint32_t key;
};

class PhoneSettingsSwitch : public PhoneSettingsPage,
                            public testing::WithParamInterface<SwitchCase> {};

TEST_P(PhoneSettingsSwitch, IsWrittenOnAndOffAtAClick) {
    const auto& [control, key] = GetParam();
    OpenWith({.wifi = 0, .gps = 0, .gravity = 0, .time24 = 0});
    ClickOn(Switch(control));
    Settle();
    EXPECT_TRUE(Switch(control).isChecked());
    ClickOn(Switch(control));
    Settle();
    EXPECT_FALSE(Switch(control).isChecked());
    EXPECT_EQ(Writes(), (std::vector<Bytes>{Written(key, 1), Written(key, 0)}));
    EXPECT_EQ(Loads(), 1u);  // nothing is read back
}

INSTANTIATE_TEST_SUITE_P(Each, PhoneSettingsSwitch,
                         testing::Values(SwitchCase{kWifi, 0}, SwitchCase{kBluetooth, 1},
                                         SwitchCase{kAirplane, 2}, SwitchCase{kGps, 3},
                                         SwitchCase{kGravity, 4}, SwitchCase{kVibrate, 5},
                                         SwitchCase{kTime24, 9}));

struct ListCase {
    int control;
    std::uint32_t key;
    std::vector<std::uint32_t> values;  // of each entry
};

class PhoneSettingsList : public PhoneSettingsPage, public testing::WithParamInterface<ListCase> {};

TEST_P(PhoneSettingsList, IsWrittenAtEachEntry) {
    const auto& [control, key, values] = GetParam();
    OpenWith({.backlight = 15'000, .ringVolume = 0, .musicVolume = 0, .dateFormat = 0});
    ASSERT_EQ(List(control).count(), static_cast<int>(values.size()));
    std::vector<Bytes> expected;
    for (std::size_t entry = 1; entry < values.size(); ++entry) {
        expected.push_back(Written(key, values[entry]));
    }
    expected.push_back(Written(key, values.front()));
    StepTo(control, static_cast<int>(values.size()) - 1);
    QTest::keyClick(&List(control), Qt::Key_Home);
    Settle();
    EXPECT_EQ(Writes(), expected);
    EXPECT_EQ(List(control).currentIndex(), 0);
    EXPECT_EQ(Loads(), 1u);
}

INSTANTIATE_TEST_SUITE_P(
    Each, PhoneSettingsList,
    testing::Values(ListCase{kBacklight, 6, {15'000, 30'000, 60'000, 120'000, 600'000, 1'800'000}},
                    ListCase{kRingVolume, 7, {0, 1, 2, 3, 4, 5, 6, 7}},
                    ListCase{
                        kMusicVolume, 8, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}},
                    ListCase{kDateFormat, 10, {0, 1, 2}}));

TEST_F(PhoneSettingsPage, ASettingChangedTwiceQuicklyGoesOutTwiceAndInOrder) {
    CPhoneSettingsPage& page = OpenLoaded();
    agent_.Hold(AgentCommand::writeSetting);
    ClickOn(Switch(kWifi));
    ClickOn(Switch(kWifi));
    WaitForWrites(1);
    Switch(kWifi).click();
    DrainWindow();
    EXPECT_EQ(Writes().size(), 1u);  // one exchange at a time
    EXPECT_TRUE(page.IsAtWork());
    agent_.Release();
    Settle();
    EXPECT_EQ(Writes(), (std::vector<Bytes>{Written(0, 0), Written(0, 1), Written(0, 0)}));
    EXPECT_FALSE(Switch(kWifi).isChecked());
    EXPECT_FALSE(page.IsAtWork());
}

TEST_F(PhoneSettingsPage, WhileASettingIsWrittenOnlyItsOwnControlCanBeUsed) {
    OpenLoaded();
    agent_.Hold(AgentCommand::writeSetting);
    StepTo(kMusicVolume, 12);
    EXPECT_EQ(Usable(), std::vector<int>{kMusicVolume});
    ClickOn(Switch(kWifi));
    EXPECT_TRUE(Switch(kWifi).isChecked());
    agent_.Release();
    Settle();
    EXPECT_EQ(Writes(), std::vector<Bytes>{Written(8, 12)});
    EXPECT_EQ(Usable().size(), kControls);
}

TEST_F(PhoneSettingsPage, TheKeysStayInTheControlThatIsWritten) {
    OpenLoaded();
    page_->activateWindow();
    List(kRingVolume).setFocus();
    agent_.Hold(AgentCommand::writeSetting);
    QTest::keyClick(&List(kRingVolume), Qt::Key_Down);
    EXPECT_EQ(page_->focusWidget(), &List(kRingVolume));
    agent_.Release();
    Settle();
    EXPECT_EQ(page_->focusWidget(), &List(kRingVolume));
}

TEST_F(PhoneSettingsPage, AFormThatIsLockedForLongIsDrawnSo) {
    OpenLoaded();
    agent_.Hold(AgentCommand::writeSetting);
    ClickOn(Switch(kWifi));
    EXPECT_FALSE(Switch(kGps).updatesEnabled());  // not at once: a quick exchange must not flicker
    EXPECT_TRUE(Switch(kWifi).updatesEnabled());
    EXPECT_TRUE(WaitFor([&] { return Switch(kGps).updatesEnabled(); }));
    EXPECT_FALSE(Switch(kGps).isEnabled());
    agent_.Release();
    Settle();
    EXPECT_TRUE(Switch(kGps).isEnabled());
}

TEST_F(PhoneSettingsPage, ARefreshComesBehindTheChangesThatAreOnTheirWay) {
    CPhoneSettingsPage& page = OpenLoaded();
    agent_.Hold(AgentCommand::writeSetting);
    ClickOn(Switch(kVibrate));
    page.Load();
    page.Load();
    ClickOn(Switch(kVibrate));
    WaitForWrites(1);
    EXPECT_EQ(Loads(), 1u);
    agent_.Release();
    Settle();
    EXPECT_EQ(agent_.Requests(),
              (std::vector<Bytes>{Word(871501), Written(5, 1), Written(5, 0), Word(871501)}));
}

TEST_F(PhoneSettingsPage, AnEntryThatIsChosenAgainIsWrittenAgain) {
    OpenWith({.backlight = 45'000});  // shown as 15 seconds, which it is not
    CSkinCombo& list = List(kBacklight);
    list.showPopup();
    ASSERT_TRUE(WaitFor([&] { return list.view()->isVisible(); }));
    QTest::keyClick(list.view(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(list.currentIndex(), 0);
    EXPECT_EQ(Writes(), std::vector<Bytes>{Written(6, 15'000)});
}

TEST_F(PhoneSettingsPage, AControlKeepsWhatTheUserChoseWhenThePhoneRefuses) {
    OpenLoaded();
    agent_.Answer(AgentCommand::writeSetting, {Word(0)});  // not acknowledged
    ClickOn(Switch(kAirplane));
    Settle();
    EXPECT_TRUE(Switch(kAirplane).isChecked());
    EXPECT_TRUE(host_.statuses.isEmpty());
    EXPECT_EQ(agent_.Requests().size(), 2u);
}

TEST_F(PhoneSettingsPage, AWriteThatGetsNoAnswerLeavesTheControlAndTheRestGoesOut) {
    OpenLoaded();
    agent_.Answer(AgentCommand::writeSetting, {Bytes{}});
    ClickOn(Switch(kAirplane));
    ClickOn(Switch(kAirplane));
    Settle();
    EXPECT_EQ(Writes(), (std::vector<Bytes>{Written(2, 1), Written(2, 0)}));
    EXPECT_TRUE(host_.statuses.isEmpty());
    EXPECT_EQ(Usable().size(), kControls);
}

TEST_F(PhoneSettingsPage, AWriteThatFindsNoPhoneIsToldAndTheControlKeepsItsValue) {
    OpenAt(UnusedPort());
    ClickOn(Switch(kGps));
    Settle();
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
    EXPECT_TRUE(Switch(kGps).isChecked());
    EXPECT_EQ(Usable().size(), kControls);
}

TEST_F(PhoneSettingsPage, AWriteThatWorksTakesAnOldConnectFailureBack) {
    OpenLoaded();
    FailBefore();
    ClickOn(Switch(kGps));
    Settle();
    EXPECT_EQ(host_.status, kReady);
}

TEST_F(PhoneSettingsPage, MayGoWhileItsPhoneStalls) {
    GoWhileThePhoneStalls();
}

TEST_F(PhoneSettingsPage, MayGoWhileAChangeIsOnItsWay) {
    OpenLoaded();
    agent_.Hold(AgentCommand::writeSetting);
    ClickOn(Switch(kWifi));
    ClickOn(Switch(kWifi));
    WaitForWrites(1);
    page_.reset();
    agent_.Release();
    Settle();
    EXPECT_EQ(Writes().size(), 1u);  // what had not gone out goes with the page
}

}  // namespace
}  // namespace quorvi

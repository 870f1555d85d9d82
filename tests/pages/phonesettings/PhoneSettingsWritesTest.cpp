// What the page writes of what the user chooses, and in which order.
#include <QAbstractItemView>

#include "tests/pages/phonesettings/PhoneSettingsFixture.h"
#include "tests/support/LoopbackAgent.h"

namespace quorvi {
namespace {

class PhoneSettingsWrites : public PhoneSettingsFixture {};

struct SwitchCase {
    int control;
    std::uint32_t key;
};

class PhoneSettingsSwitch : public PhoneSettingsWrites,
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

class PhoneSettingsList : public PhoneSettingsWrites,
                          public testing::WithParamInterface<ListCase> {};

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

TEST_F(PhoneSettingsWrites, ASettingChangedTwiceQuicklyGoesOutTwiceAndInOrder) {
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

TEST_F(PhoneSettingsWrites, WhileASettingIsWrittenOnlyItsOwnControlCanBeUsed) {
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

TEST_F(PhoneSettingsWrites, TheKeysStayInTheControlThatIsWritten) {
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

TEST_F(PhoneSettingsWrites, AFormThatIsLockedForLongIsDrawnSo) {
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

TEST_F(PhoneSettingsWrites, ARefreshComesBehindTheChangesThatAreOnTheirWay) {
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

TEST_F(PhoneSettingsWrites, AnEntryThatIsChosenAgainIsWrittenAgain) {
    OpenWith({.backlight = 45'000});  // shown as 15 seconds, which it is not
    CSkinCombo& list = List(kBacklight);
    list.showPopup();
    ASSERT_TRUE(WaitFor([&] { return list.view()->isVisible(); }));
    QTest::keyClick(list.view(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(list.currentIndex(), 0);
    EXPECT_EQ(Writes(), std::vector<Bytes>{Written(6, 15'000)});
}

TEST_F(PhoneSettingsWrites, AControlKeepsWhatTheUserChoseWhenThePhoneRefuses) {
    OpenLoaded();
    agent_.Answer(AgentCommand::writeSetting, {Word(0)});  // not acknowledged
    ClickOn(Switch(kAirplane));
    Settle();
    EXPECT_TRUE(Switch(kAirplane).isChecked());
    EXPECT_TRUE(host_.statuses.isEmpty());
    EXPECT_EQ(agent_.Requests().size(), 2u);
}

TEST_F(PhoneSettingsWrites, AWriteThatGetsNoAnswerLeavesTheControlAndTheRestGoesOut) {
    OpenLoaded();
    agent_.Answer(AgentCommand::writeSetting, {Bytes{}});
    ClickOn(Switch(kAirplane));
    ClickOn(Switch(kAirplane));
    Settle();
    EXPECT_EQ(Writes(), (std::vector<Bytes>{Written(2, 1), Written(2, 0)}));
    EXPECT_TRUE(host_.statuses.isEmpty());
    EXPECT_EQ(Usable().size(), kControls);
}

TEST_F(PhoneSettingsWrites, AWriteThatFindsNoPhoneIsToldAndTheControlKeepsItsValue) {
    OpenAt(UnusedPort());
    ClickOn(Switch(kGps));
    Settle();
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
    EXPECT_TRUE(Switch(kGps).isChecked());
    EXPECT_EQ(Usable().size(), kControls);
}

TEST_F(PhoneSettingsWrites, AWriteThatWorksTakesAnOldConnectFailureBack) {
    OpenLoaded();
    FailBefore();
    ClickOn(Switch(kGps));
    Settle();
    EXPECT_EQ(host_.status, kReady);
}

TEST_F(PhoneSettingsWrites, MayGoWhileAChangeIsOnItsWay) {
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

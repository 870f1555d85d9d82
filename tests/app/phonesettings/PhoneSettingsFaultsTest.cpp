// Every fault of the phone against the commands of the phone settings' page.
#include <QAbstractButton>

#include "tests/support/ChangeFaults.h"
#include "ui/kit/SkinFields.h"

namespace quorvi {
namespace {

constexpr int kPage = 41;
constexpr std::size_t kRefresh = 0;
constexpr int kWifi = 1280;
constexpr int kGps = 1281;
constexpr int kBacklight = 1213;

class SettingFaults : public WindowFaults, public testing::WithParamInterface<FaultMode> {
  protected:
    void SetUp() override {
        WindowFaults::SetUp();
        OpenFresh(kPage);
        ASSERT_TRUE(Wifi().isChecked());
    }

    static QAbstractButton& Wifi() { return OnPage<QAbstractButton>(kWifi); }
    static void Refresh() { Command(kRefresh); }
    static void RefreshToTheEnd() {
        Refresh();
        ASSERT_TRUE(WaitIdle());
    }
    // No control stays disabled behind a fault.
    static void ExpectUsable() {
        for (const int control : {kWifi, kGps, kBacklight}) {
            EXPECT_TRUE(OnPage(control).isEnabled()) << control;
        }
    }

    FaultMode mode_ = GetParam();
};

std::string NameOfMode(const testing::TestParamInfo<FaultMode>& test) {
    return test.param.name;
}

// ---- reading -----------------------------------------------------------------------------------

class SettingReadFaults : public SettingFaults {
  protected:
    // Whether the first setting came. The reply has no text to be absent or to lie about its
    // length; of one that is cut the rest is zero.
    [[nodiscard]] bool HasWifi() const {
        return mode_.left == Left::whole || mode_.left == Left::absent ||
               mode_.left == Left::blank || mode_.words.starts_with("string") ||
               mode_.words.ends_with(" 10");
    }
};

TEST_P(SettingReadFaults, ShowsWhatCameOrLeavesTheControlsAsTheyWere) {
    // The phone gets back what it was delivered with behind the page's back.
    ClickOn(Wifi());
    ASSERT_TRUE(WaitIdle());
    Tell("data");
    SetLook([] {
        EXPECT_FALSE(Wifi().isEnabled());
        Refresh();  // is dropped, not queued
    });
    Suffer(mode_, AgentCommand::readSettings, &Refresh);
    if (mode_.means == Means::fault) {
        EXPECT_EQ(Asked(AgentCommand::readSettings), 1u);
    }
    EXPECT_EQ(Asked(AgentCommand::writeSetting), 0u);
    ExpectUsable();
    if (mode_.left == Left::cable) {
        ExpectNoLink(&Refresh);
        EXPECT_FALSE(Wifi().isChecked());
    } else {
        EXPECT_EQ(Wifi().isChecked(), HasWifi());
    }

    Lift();
    RefreshToTheEnd();
    EXPECT_TRUE(Wifi().isChecked());
    EXPECT_EQ(Status(), Ready());
}

INSTANTIATE_TEST_SUITE_P(Each, SettingReadFaults, testing::ValuesIn(kFaultModes), NameOfMode);

// ---- writing -----------------------------------------------------------------------------------

class SettingWriteFaults : public SettingFaults {};

TEST_P(SettingWriteFaults, IsTakenAndTheControlKeepsWhatTheUserChose) {
    SetLook([] {
        EXPECT_FALSE(OnPage(kGps).isEnabled());
        EXPECT_TRUE(Wifi().isEnabled());
    });
    Suffer(mode_, AgentCommand::writeSetting, [] { ClickOn(Wifi()); });
    EXPECT_FALSE(Wifi().isChecked());
    ExpectUsable();
    EXPECT_EQ(Asked(AgentCommand::readSettings), 0u);
    const bool taken = mode_.means == Means::fault;
    if (taken) {
        EXPECT_EQ(Asked(AgentCommand::writeSetting), 1u);
    }
    if (mode_.left == Left::cable) {
        ExpectNoLink(&Refresh);
    }

    Lift();
    RefreshToTheEnd();
    EXPECT_EQ(Wifi().isChecked(), !taken);
    EXPECT_EQ(Status(), Ready());
}

INSTANTIATE_TEST_SUITE_P(Each, SettingWriteFaults, testing::ValuesIn(ModesOfAWord()), NameOfMode);

}  // namespace
}  // namespace quorvi

// The window, the link, the real adb server and simulated phones together.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QDialog>
#include <QLabel>

#include "tests/app/window/MainDlgFixture.h"
#include "tests/support/PhoneDesk.h"

namespace quorvi {
namespace {

constexpr int kConnect = 1215;

class WindowOnPhones : public WidgetTest {
  protected:
    std::unique_ptr<PhoneDesk> desk_;

    void Start(std::size_t phones) {
        desk_ = std::make_unique<PhoneDesk>(phones, ProbePages());
        ASSERT_EQ(desk_->Error(), "");
    }
    [[nodiscard]] QString BannerText() const { return BannerOf(desk_->Window()); }
    [[nodiscard]] bool WaitForDashboardLoads(int loads) const {
        return WaitFor([&] { return ProbeOf(desk_->Window(), 0).loads == loads; });
    }
    [[nodiscard]] QDialog* Manager() const {
        return desk_->Window().findChild<QDialog*>(QStringLiteral("dialog 533"));
    }
    // Opens with as many rows as there are phones.
    [[nodiscard]] QAbstractItemView* WaitForRows(int rows) const {
        if (!WaitFor([&] { return Manager() != nullptr; })) {
            return nullptr;
        }
        auto* list = Manager()->findChild<QAbstractItemView*>();
        const bool filled = WaitFor([&] { return list->model()->rowCount() == rows; });
        return filled ? list : nullptr;
    }
};

TEST_F(WindowOnPhones, TheBannerTurnsGreenByItselfAndTheDashboardIsRefreshed) {
    Start(1);
    ASSERT_TRUE(desk_->WaitForLink());
    EXPECT_EQ(BannerText(), ToQString(u8"连接成功:)"));
    EXPECT_EQ(desk_->Window().Link().Banner(), BannerState::success);
    EXPECT_EQ(desk_->Device().Serial(), desk_->Rig().Serial(0));
    EXPECT_TRUE(WaitForDashboardLoads(1));
    EXPECT_EQ(desk_->Played(), std::vector{Sound::linkUp});
}

TEST_F(WindowOnPhones, PluggedInAgainThePhoneIsLinkedAgain) {
    Start(1);
    ASSERT_TRUE(desk_->WaitForLink());
    ASSERT_TRUE(WaitForDashboardLoads(1));
    desk_->Window().Link().OnUsbRemoval();
    EXPECT_EQ(desk_->Window().Link().Banner(), BannerState::working);
    desk_->Window().Link().OnUsbArrival();
    ASSERT_TRUE(desk_->WaitForLink());
    EXPECT_EQ(BannerText(), ToQString(u8"连接成功:)"));
    EXPECT_TRUE(WaitForDashboardLoads(2));
}

TEST_F(WindowOnPhones, APhoneThatAsksItsUserIsLinkedToByItselfOnceItsUserAllowsIt) {
    Start(1);
    ASSERT_TRUE(desk_->WaitForLink());
    ASSERT_TRUE(WaitForDashboardLoads(1));
    ASSERT_TRUE(desk_->FollowDevices());
    const auto tip = [&] {
        return desk_->Window()
            .findChild<QLabel*>(QStringLiteral("banner"))
            ->accessibleDescription();
    };
    ASSERT_EQ(desk_->Rig().Control(0, "unplug"), "ok\n");
    ASSERT_TRUE(WaitFor([&] { return BannerText() == ToQString(u8"【提示】检测到一个设备断开"); }));
    ASSERT_EQ(desk_->Rig().Control(0, "debugging asks"), "ok\n");
    ASSERT_EQ(desk_->Rig().Control(0, "plug"), "ok\n");
    ASSERT_TRUE(WaitFor([&] { return tip() == ToQString(u8"手机在等您允许“USB 调试”"); }));
    ASSERT_TRUE(
        WaitFor([&] { return BannerText() == ToQString(u8"【错误】没有找到Android设备"); }));
    EXPECT_EQ(desk_->Tray().balloons.back().text,
              ToQString(u8"检测到Android设备，正在尝试连接..."));

    ASSERT_EQ(desk_->Rig().Control(0, "debugging allowed"), "ok\n");
    ASSERT_TRUE(WaitFor([&] { return BannerText() == ToQString(u8"连接成功:)"); }));
    EXPECT_EQ(tip(), QString());
    EXPECT_TRUE(WaitForDashboardLoads(2));
}

TEST_F(WindowOnPhones, APhoneThatIsPluggedInIsLinkedToWithoutAUsbEvent) {
    Start(1);
    ASSERT_TRUE(desk_->WaitForLink());
    ASSERT_TRUE(WaitForDashboardLoads(1));
    ASSERT_TRUE(desk_->FollowDevices());
    ASSERT_EQ(desk_->Rig().Control(0, "unplug"), "ok\n");
    ASSERT_TRUE(WaitFor([&] { return BannerText() == ToQString(u8"【提示】检测到一个设备断开"); }));
    ASSERT_EQ(desk_->Rig().Control(0, "plug"), "ok\n");
    ASSERT_TRUE(WaitFor([&] { return BannerText() == ToQString(u8"连接成功:)"); }));
    EXPECT_TRUE(WaitForDashboardLoads(2));
}

TEST_F(WindowOnPhones, OfSeveralPhonesTheUserChoosesOne) {
    Start(2);
    QAbstractItemView* list = WaitForRows(2);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(Manager()->windowTitle(), ToQString(u8"连接管理器 - Quorvi"));
    EXPECT_EQ(desk_->Device().Serial(), "");
    list->setCurrentIndex(list->model()->index(1, 0));
    FindControl<QAbstractButton>(Manager(), kConnect)->click();
    ASSERT_TRUE(desk_->WaitForLink());
    EXPECT_EQ(BannerText(), ToQString(u8"连接成功:)"));
    EXPECT_EQ(desk_->Device().Serial(), desk_->Rig().Serial(1));
}

TEST_F(WindowOnPhones, ClosingTheChoiceChoosesNone) {
    Start(2);
    ASSERT_NE(WaitForRows(2), nullptr);
    Manager()->close();
    ASSERT_TRUE(desk_->WaitForLink());
    EXPECT_EQ(BannerText(), ToQString(u8"【错误】没有选择任何设备"));
    EXPECT_EQ(desk_->Window().Link().Banner(), BannerState::error);
}

TEST_F(WindowOnPhones, WithoutAPhoneTheBannerSaysSo) {
    Start(0);
    ASSERT_TRUE(desk_->WaitForLink());
    EXPECT_EQ(BannerText(), ToQString(u8"【错误】没有找到Android设备"));
}

}  // namespace
}  // namespace quorvi

// The window, the link, the real adb server and simulated phones together.
#include <QAbstractButton>
#include <QAbstractItemView>

#include "app/WindowLinkFace.h"
#include "link/DeviceManagerDlg.h"
#include "link/PhoneLink.h"
#include "tests/app/MainDlgFixture.h"
#include "tests/e2e/Bench.h"
#include "tests/e2e/LinkRun.h"

namespace quorvi {
namespace {

constexpr int kConnect = 1215;

// The window's face, which notes that nothing of the procedure runs any more.
class NotedFace : public WindowLinkFace {
  public:
    using WindowLinkFace::WindowLinkFace;
    std::atomic<bool> ended = false;
    void LinkEnded() override { ended = true; }
};

class WindowOnPhones : public MainDlgTest {
  protected:
    std::unique_ptr<e2e::Bench> bench_;
    std::unique_ptr<e2e::EagerClock> clock_;
    std::unique_ptr<NotedFace> face_;
    std::unique_ptr<PhoneLink> link_;

    void Start(std::size_t phones) {
        bench_ = std::make_unique<e2e::Bench>(phones);
        ASSERT_EQ(bench_->Error(), "");
        clock_ = std::make_unique<e2e::EagerClock>(*bench_);
        connectPhone_ = [this](bool delay) {
            face_->ended = false;
            link_->ConnectPhone(delay);
        };
        openDeviceManager_ = [this](QWidget* parent, const QString& title,
                                    std::function<void()> done) {
            auto* dialog = new CDeviceManagerDlg(
                device_, [this](const QString& text) { window_->SetStatus(text); }, title, parent,
                Environment());
            dialog->Open([done = std::move(done)](int) { done(); });
        };
        MakeWindow<CMainDlg>(false, [this](CMainDlg& window) {
            face_ = std::make_unique<NotedFace>(window);
            link_ = std::make_unique<PhoneLink>(device_, *face_, *clock_, Environment());
        });
    }
    // No worker of the link may outlive what it stands on.
    void TearDown() override {
        if (link_) {
            EXPECT_TRUE(WaitForEnd());
        }
    }

    [[nodiscard]] static LinkEnvironment Environment() {
        LinkEnvironment environment;
        environment.packageFile = std::filesystem::path(QUORVI_BIN_DIR) / kAgentPackageFile;
        return environment;
    }
    [[nodiscard]] bool WaitForEnd() {
        const bool ended = WaitFor([this] { return face_->ended.load(); });
        Settle();
        return ended;
    }
    [[nodiscard]] QDialog* Manager() const {
        return window_->findChild<QDialog*>(QStringLiteral("dialog 533"));
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
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(BannerText(), ToQString(u8"连接成功:)"));
    EXPECT_EQ(window_->Banner(), BannerState::success);
    EXPECT_EQ(device_.Serial(), bench_->Serial(0));
    EXPECT_TRUE(WaitFor([&] { return Probe(0).loads == 1; }));
    EXPECT_EQ(sounds_.played, std::vector{Sound::linkUp});
}

TEST_F(WindowOnPhones, PluggedInAgainThePhoneIsLinkedAgain) {
    Start(1);
    ASSERT_TRUE(WaitForEnd());
    ASSERT_TRUE(WaitFor([&] { return Probe(0).loads == 1; }));
    window_->OnUsbRemoval();
    EXPECT_EQ(window_->Banner(), BannerState::working);
    window_->OnUsbArrival();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(BannerText(), ToQString(u8"连接成功:)"));
    EXPECT_TRUE(WaitFor([&] { return Probe(0).loads == 2; }));
}

TEST_F(WindowOnPhones, OfSeveralPhonesTheUserChoosesOne) {
    Start(2);
    QAbstractItemView* list = WaitForRows(2);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(Manager()->windowTitle(), ToQString(u8"连接管理器 - Quorvi"));
    EXPECT_EQ(device_.Serial(), "");
    list->setCurrentIndex(list->model()->index(1, 0));
    FindControl<QAbstractButton>(Manager(), kConnect)->click();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(BannerText(), ToQString(u8"连接成功:)"));
    EXPECT_EQ(device_.Serial(), bench_->Serial(1));
}

TEST_F(WindowOnPhones, ClosingTheChoiceChoosesNone) {
    Start(2);
    ASSERT_NE(WaitForRows(2), nullptr);
    Manager()->close();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(BannerText(), ToQString(u8"【错误】没有选择任何设备"));
    EXPECT_EQ(window_->Banner(), BannerState::error);
}

TEST_F(WindowOnPhones, WithoutAPhoneTheBannerSaysSo) {
    Start(0);
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(BannerText(), ToQString(u8"【错误】没有找到Android设备"));
}

}  // namespace
}  // namespace quorvi

#include <atomic>
#include <future>

#include "app/window/WindowLinkFace.h"
#include "base/Text.h"
#include "tests/app/window/MainDlgFixture.h"

namespace quorvi {
namespace {

class LinkFaceOfTheWindow : public MainDlgTest {
  protected:
    void SetUp() override { MakeWindow(); }
};

TEST_F(LinkFaceOfTheWindow, BannersFromAnotherThreadReachTheWindowInOrder) {
    WindowLinkFace face(*window_);
    std::thread([&face] {
        face.ShowBanner(Ansi(u8"安装成功"), BannerState::success);
        face.ShowBanner(Ansi(u8"连接设备中..."), BannerState::working);
    }).join();
    EXPECT_TRUE(BannerText().isEmpty());
    Settle();
    EXPECT_EQ(BannerText(), ToQString(u8"连接设备中..."));
    EXPECT_EQ(window_->Link().Banner(), BannerState::working);
}

TEST_F(LinkFaceOfTheWindow, ALinkThatStandsIsToldToTheWindow) {
    WindowLinkFace face(*window_);
    std::thread([&face] { face.LinkUp(); }).join();
    Settle();
    EXPECT_EQ(sounds_.played, std::vector{Sound::linkUp});
}

TEST_F(LinkFaceOfTheWindow, TheEndOfTheProcedureIsToldToTheWindow) {
    WindowLinkFace face(*window_);
    std::thread([&face] { face.LinkEnded(); }).join();
    EXPECT_FALSE(window_->Link().HasEnded());
    Settle();
    EXPECT_TRUE(window_->Link().HasEnded());
}

TEST_F(LinkFaceOfTheWindow, ChoosingWaitsForTheEndOfTheDialog) {
    WindowLinkFace face(*window_);
    steps_.clear();
    std::atomic<bool> ended = false;
    // Whether the dialog had ended by the return.
    auto choice = std::async(std::launch::async, [&] {
        face.ChooseDevice(Ansi(u8"连接管理器 - Quorvi"));
        return ended.load();
    });
    ASSERT_TRUE(WaitFor([&] { return devicesDone_ != nullptr; }));
    EXPECT_EQ(steps_, std::vector<std::string>{"devices:连接管理器 - Quorvi"});
    ended = true;
    devicesDone_();
    ASSERT_EQ(choice.wait_for(std::chrono::milliseconds(kPatience)), std::future_status::ready);
    EXPECT_TRUE(choice.get());
}

TEST_F(LinkFaceOfTheWindow, AWindowThatIsGoneEndsTheWaitAndDropsTheRest) {
    WindowLinkFace face(*window_);
    window_.reset();
    auto choice = std::async(std::launch::async, [&face] {
        face.ShowBanner("x", BannerState::error);
        face.ChooseDevice("x");
    });
    EXPECT_TRUE(WaitFor(
        [&] { return choice.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
}

}  // namespace
}  // namespace quorvi

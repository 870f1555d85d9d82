// What the tests of the capture page share: the page, an adb server that answers as told, and
// places of its own.
#pragma once

#include <ctime>
#include <memory>
#include <optional>

#include "pages/screen/ScreenOptions.h"
#include "pages/screen/ScreenshotPage.h"
#include "tests/pages/screen/FrameServer.h"
#include "tests/support/ControlDriver.h"
#include "tests/support/PageTest.h"
#include "tests/support/TemporaryFolder.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinFields.h"

namespace quorvi {

// 22 November, 07:45:12.
[[nodiscard]] inline std::tm TheTime() {
    std::tm time{};
    time.tm_mon = 10;
    time.tm_mday = 22;
    time.tm_hour = 7;
    time.tm_min = 45;
    time.tm_sec = 12;
    return time;
}

class ScreenshotFixture : public PageTest {
  protected:
    void SetUp() override { services_.device.SetSerial("HT04CPL0012"); }
    void TearDown() override {
        server_.Release();
        Settle();
        page_.reset();
    }

    // Makes the page and shows it; nothing is captured yet.
    CScreenshotPage& OpenAt(std::uint16_t port,
                            std::chrono::milliseconds stall = std::chrono::seconds(20)) {
        Places places;
        places.home = folder_.Path() / "home";
        places.config = folder_.Path() / "config";
        places.data = folder_.Path() / "data";
        places.temporary = folder_.Path() / "temporary";
        std::filesystem::create_directories(places.temporary);
        page_ = std::make_unique<CScreenshotPage>(
            host_, services_.At(UnusedPort()),
            ScreenMeans{AdbHostClient(port), stall, places, [this] { return now_; }});
        page_->resize(760, 462);
        page_->show();
        return *page_;
    }
    CScreenshotPage& Open() { return OpenAt(server_.Port()); }
    // The same, with what the server shows.
    CScreenshotPage& OpenWithPicture() {
        Open().Load();
        Settle();
        EXPECT_TRUE(Picture().Picture());
        return *page_;
    }
    static void ShowActive(QWidget& window) {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window, kPatience));
    }
    // Lets the user choose an entry of a list.
    void Choose(int control, int index) {
        auto& list = List(control);
        list.setCurrentIndex(index);
        Q_EMIT list.activated(index);
    }

    [[nodiscard]] ScreenCaptureCtrl& Picture() {
        return *FindControl<ScreenCaptureCtrl>(page_.get(), CScreenshotPage::kPicture);
    }
    [[nodiscard]] CSkinCombo& List(int control) {
        return *FindControl<CSkinCombo>(page_.get(), control);
    }
    [[nodiscard]] CSkinCheck& Box(int control) {
        return *FindControl<CSkinCheck>(page_.get(), control);
    }
    [[nodiscard]] QSize SizeShown() { return {Picture().Size().width, Picture().Size().height}; }
    [[nodiscard]] std::optional<int> Key() {
        return host_.loadState.Value(CScreenshotPage::kNumbers.loadKey);
    }

    TemporaryFolder folder_;
    FrameServer server_;
    std::tm now_ = TheTime();
    std::unique_ptr<CScreenshotPage> page_;
};

}  // namespace quorvi

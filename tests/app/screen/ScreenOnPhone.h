// The capture page in the suite's window: a real adb server and the screen of a simulated phone.
#pragma once

#include <QApplication>
#include <QFileDialog>

#include "pages/screen/ScreenCaptureCtrl.h"
#include "tests/support/PagesOnPhone.h"
#include "ui/kit/SkinFields.h"

namespace quorvi {

class ScreenOnPhone : public PagesOnPhone {
  protected:
    static constexpr int kScreen = 44;
    // Commands.
    static constexpr std::size_t kRefresh = 0;
    static constexpr std::size_t kSave = 1;
    static constexpr std::size_t kChooseFolder = 2;
    // Controls.
    static constexpr int kRotation = 1348;
    static constexpr int kFormat = 1347;
    static constexpr int kSize = 1349;
    static constexpr int kBatchSave = 1351;
    static constexpr int kPicture = 1353;

    // The first pixel of the phone's screen: that of the bar at its top.
    static constexpr QRgb kBar = qRgb(16, 16, 20);

    void SetUp() override {
        PagesOnPhone::SetUp();
        TellScreen("size 480x800x32 version 1 order rgb waits 0 ends 0 fault none");
    }
    static void TellScreen(const std::string& words) { ASSERT_EQ(Tell("screen " + words), "ok\n"); }
    static void Capture() {
        Command(kRefresh);
        ASSERT_TRUE(WaitIdle());
    }

    static ScreenCaptureCtrl& Picture() { return OnPage<ScreenCaptureCtrl>(kPicture); }
    // What the page shows; a null image when it shows nothing.
    static QImage Shown() { return Picture().Picture() ? Picture().Picture()->image : QImage(); }
    static CSkinCombo& List(int control) { return OnPage<CSkinCombo>(control); }
    static void Step(int control, Qt::Key key) {
        List(control).setFocus();
        QTest::keyClick(&List(control), key);
        ASSERT_TRUE(WaitIdle());
    }
};

}  // namespace quorvi

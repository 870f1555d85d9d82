// What a page's test needs: a main window, and a way to let the window's thread run.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>

#include "tests/support/FakeHost.h"
#include "tests/support/TestServices.h"
#include "tests/support/WaitFor.h"
#include "ui/kit/QtText.h"
#include "ui/page/Job.h"

namespace quorvi {

// What the status says of a phone that is not found.
inline const QString kConnectError = ToQString(u8"【X】连接错误");
// And of one with which all is well.
inline const QString kReady = ToQString(u8"就绪");

// Runs all that has been posted to the window by now.
inline void DrainWindow() {
    bool reached = false;
    PostToWindow(qApp, [&reached] { reached = true; });
    ASSERT_TRUE(WaitFor([&reached] { return reached; }));
}

// And of one that did not acknowledge what was to be saved or sent.
inline const QString kUnacknowledged =
    ToQString(u8"【X】手机没有确认，填写的内容保留在下次打开的窗口里");

class PageTest : public testing::Test {
  protected:
    // Waits until all that has been started has come to its end: what would have been asked of the
    // phone has been asked, and what it answered is shown.
    static void Settle() {
        DrainWindow();
        ASSERT_TRUE(WaitFor([] { return RunningJobs() == 0; }));
        DrainWindow();
    }

    // As a failed connection left the status.
    void FailBefore() { host_.SetStatus(kConnectError); }

    FakeHost host_;
    TestServices services_;
};

}  // namespace quorvi

// The one application object of the widget tests, on the offscreen platform.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QWidget>

#include "tests/support/WaitFor.h"
#include "ui/kit/ApplyLook.h"

namespace quorvi {

// A test that needs the window's thread. The application lives from the first of them to the end
// of the process.
class QtTest : public ::testing::Test {
  public:
    static void SetUpTestSuite() {
        static int count = 1;
        static char name[] = "test";
        static char* arguments[] = {name, nullptr};
        if (QApplication::instance() == nullptr) {
            ApplyLook(*new QApplication(count, arguments));
        }
    }

  protected:
    // Shows a window, and waits until it is the active one, to which keys go.
    static void ShowActive(QWidget& window) {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window, kPatience));
    }
};

}  // namespace quorvi

// What a widget test needs: an application, and a way to let the window's thread run.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <functional>

#include "ui/Look.h"

namespace quorvi {

// Makes the process's one QApplication at the first test that needs it.
class WidgetTest : public ::testing::Test {
  protected:
    static constexpr int kPatienceMs = 5000;

    WidgetTest() { Application(); }

    static QApplication& Application() {
        static int argc = 1;
        static char name[] = "test";
        static char* argv[] = {name, nullptr};
        static auto* const application = [] {
            auto* made = new QApplication(argc, argv);
            look::Apply(*made);
            return made;
        }();
        return *application;
    }

    // Runs the window's thread until `reached` holds; false when it does not in good time.
    [[nodiscard]] static bool WaitFor(const std::function<bool()>& reached,
                                      int patienceMs = kPatienceMs) {
        QElapsedTimer timer;
        timer.start();
        while (!reached()) {
            if (timer.elapsed() > patienceMs) {
                return false;
            }
            QTest::qWait(1);
        }
        return true;
    }

    // Lets all that is posted happen.
    static void Settle() {
        for (int turn = 0; turn < 5; ++turn) {
            QApplication::sendPostedEvents();
            QApplication::processEvents();
        }
    }
};

}  // namespace quorvi

// What a widget test needs: an application, and a way to let the window's thread run.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>

#include "tests/support/WaitFor.h"
#include "ui/kit/ApplyLook.h"

namespace quorvi {

// Makes the process's one QApplication at the first test that needs it.
class WidgetTest : public ::testing::Test {
  protected:
    WidgetTest() { Application(); }

    static QApplication& Application() {
        static int argc = 1;
        static char name[] = "test";
        static char* argv[] = {name, nullptr};
        static auto* const application = [] {
            auto* made = new QApplication(argc, argv);
            ApplyLook(*made);
            return made;
        }();
        return *application;
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

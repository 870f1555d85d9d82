// What a widget test needs: an application, and a way to let the window's thread run.
#pragma once

#include "tests/support/QtTest.h"
#include "tests/support/WaitFor.h"

namespace quorvi {

class WidgetTest : public QtTest {
  protected:
    static QApplication& Application() { return *qApp; }

    // Lets all that is posted happen.
    static void Settle() {
        for (int turn = 0; turn < 5; ++turn) {
            QApplication::sendPostedEvents();
            QApplication::processEvents();
        }
    }
};

}  // namespace quorvi

// What a page's test needs: a main window, and a way to let the window's thread run.
#pragma once

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QTest>
#include <functional>

#include "tests/pages/FakeHost.h"

namespace quorvi {

class PageTest : public testing::Test {
  protected:
    static constexpr int kPatience = 30'000;  // ms: the machine may be busy

    // Runs the window's thread until `met` holds; false when it does not in good time.
    [[nodiscard]] static bool WaitFor(const std::function<bool()>& met) {
        const QDeadlineTimer patience(kPatience);
        while (!met()) {
            if (patience.hasExpired()) {
                return false;
            }
            QTest::qWait(2);
        }
        return true;
    }

    FakeHost host_;
};

}  // namespace quorvi

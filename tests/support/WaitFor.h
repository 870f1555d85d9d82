// A wait that lets the window's thread run.
#pragma once

#include <QDeadlineTimer>
#include <QTest>
#include <functional>

namespace quorvi {

inline constexpr int kPatience = 30'000;  // ms: the machine may be busy

// Runs the window's thread until `met` holds; false when it does not in good time. In short turns:
// a browser posts events without end, and one long turn would not come back.
[[nodiscard]] inline bool WaitFor(const std::function<bool()>& met) {
    const QDeadlineTimer patience(kPatience);
    while (!met()) {
        if (patience.hasExpired()) {
            return false;
        }
        QTest::qWait(2);
    }
    return true;
}

}  // namespace quorvi

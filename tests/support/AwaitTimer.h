// A wait for what must not happen.
#pragma once

#include <gtest/gtest.h>

#include <QTimer>
#include <chrono>

#include "tests/support/WaitFor.h"

namespace quorvi {

// Runs the window's thread until a timer of this length has fired. A shorter one that was started
// before has fired by then, however busy the machine is: timers fire in the order of their times.
inline void AwaitTimer(std::chrono::milliseconds length) {
    bool fired = false;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { fired = true; });
    timer.start(length);
    EXPECT_TRUE(WaitFor([&] { return fired; }));
}

}  // namespace quorvi

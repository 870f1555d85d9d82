// The window's thread of a benchmark: brought up without a screen, run for a while, and watched.
#pragma once

#include <QApplication>
#include <chrono>
#include <functional>
#include <memory>

namespace quorvi {

// The application object with the suite's look; offscreen, unless the environment says otherwise.
// Both arguments outlive it.
[[nodiscard]] std::unique_ptr<QApplication> MakeApplication(int& count, char** words);

// How long the window's thread was away from its events at the longest, in milliseconds: by the
// clock, and what of it the thread itself computed (the rest others had the processor, or it
// waited).
struct Absence {
    double longest = 0;
    double computed = 0;
};

// Does `what`, then runs the thread's events until `met` holds. Ends the program when it does not
// in a minute.
Absence RunWindowUntil(const std::function<bool()>& met, const std::function<void()>& what = {});
Absence RunWindowFor(std::chrono::milliseconds time, const std::function<void()>& what = {});

}  // namespace quorvi

// A wait for what another thread or process does. For tests without a window.
#pragma once

#include <chrono>
#include <thread>

namespace quorvi {

// Until `met` holds; false when it does not in good time: the machine may be busy.
template <typename Condition>
[[nodiscard]] bool Await(const Condition& met) {
    constexpr std::chrono::seconds kPatience{60};
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!met()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

}  // namespace quorvi

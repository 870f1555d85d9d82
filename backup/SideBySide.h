// Sessions that run side by side, and whose results are taken one after the other; whoever takes
// them can be stopped, whatever a session waits for.
#pragma once

#include <poll.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "base/CodePageScope.h"
#include "base/os/StopSignal.h"
#include "base/os/Wakeup.h"

namespace quorvi {

// So many details are asked for at a time: an agent has little to gain from more.
inline constexpr std::size_t kMostSideBySide = 4;

// Runs `run(0)` to `run(count - 1)` on threads of its own. A result that failed, as `failed` says,
// is asked for once more with no other beside it, and from then on all run one at a time: some
// phones can't do more. Threads share the state and nothing of the object; one that is stuck in a
// session is left behind. Used on one thread.
//
//   SideBySide<ContactReply> details(ids.size(), kMostSideBySide, fetch, failed);
//   while (auto reply = details.Next(stop)) …
template <typename Result>
class SideBySide {
  public:
    // Both are called on several threads at once, and own or share all that they use.
    using Run = std::function<Result(std::size_t index)>;
    using Failed = std::function<bool(const Result& result)>;

    SideBySide(std::size_t count, std::size_t width, Run run, Failed failed)
        : state_(std::make_shared<State>(count, width, std::move(run), std::move(failed))) {
        for (std::size_t i = 0; i < std::min(count, width); ++i) {
            std::thread([state = state_, codePage = ActiveCodePage()] {
                const CodePageScope scope(codePage);  // that of whoever takes the results
                Work(*state);
            }).detach();
        }
    }
    ~SideBySide() {
        const std::lock_guard lock(state_->mutex);
        state_->ended = true;
        state_->changed.notify_all();
    }
    SideBySide(const SideBySide&) = delete;
    SideBySide& operator=(const SideBySide&) = delete;

    // The result of the next index; nothing after the last, and when stopped. What is on its way at
    // a stop is still waited for, but for no longer than `grace`.
    [[nodiscard]] std::optional<Result> Next(const StopSignal& stop,
                                             std::chrono::milliseconds grace = {}) {
        using Clock = std::chrono::steady_clock;
        State& state = *state_;
        std::optional<Clock::time_point> end;
        for (;;) {
            int wait = -1;
            if (stop.IsStopped()) {
                const auto now = Clock::now();
                end = end.value_or(now + grace);
                if (now >= *end) {
                    return std::nullopt;
                }
                wait = static_cast<int>(
                    std::chrono::ceil<std::chrono::milliseconds>(*end - now).count());
            }
            {
                const std::lock_guard lock(state.mutex);
                if (state.taken == state.count) {
                    return std::nullopt;
                }
                if (auto found = state.results.extract(state.taken); !found.empty()) {
                    ++state.taken;
                    // Not for each: who waits for room is woken for half of it.
                    if (state.next <= state.taken + kMostAhead / 2) {
                        state.changed.notify_all();
                    }
                    return std::move(found.mapped());
                }
            }
            std::array<pollfd, 2> waiting{
                {{state.arrived.Descriptor(), POLLIN, 0}, {stop.Descriptor(), POLLIN, 0}}};
            poll(waiting.data(), end ? 1 : waiting.size(), wait);
            state.arrived.Take();
        }
    }

  private:
    // Results that nobody has taken yet, and those on their way.
    static constexpr std::size_t kMostAhead = 16;

    struct State {
        State(std::size_t indices, std::size_t most, Run toRun, Failed hasFailed)
            : count(indices), run(std::move(toRun)), failed(std::move(hasFailed)), width(most) {}

        const std::size_t count;
        const Run run;
        const Failed failed;
        Wakeup arrived;
        std::mutex mutex;
        std::condition_variable changed;
        std::size_t width;
        std::size_t next = 0;
        std::size_t taken = 0;
        std::size_t running = 0;
        bool ended = false;
        std::map<std::size_t, Result> results;
    };

    static Result RunUnlocked(State& state, std::unique_lock<std::mutex>& lock, std::size_t index) {
        ++state.running;
        lock.unlock();
        Result result = state.run(index);
        lock.lock();
        --state.running;
        return result;
    }

    static void Work(State& state) {
        std::unique_lock lock(state.mutex);
        for (;;) {
            state.changed.wait(lock, [&] {
                return state.ended || state.next == state.count ||
                       (state.running < state.width && state.next < state.taken + kMostAhead);
            });
            if (state.ended || state.next == state.count) {
                return;
            }
            const std::size_t index = state.next++;
            Result result = RunUnlocked(state, lock, index);
            if (state.failed(result)) {
                state.width = 1;
                state.changed.notify_all();
                state.changed.wait(lock, [&] { return state.ended || state.running == 0; });
                if (state.ended) {
                    return;
                }
                result = RunUnlocked(state, lock, index);
            }
            state.results.emplace(index, std::move(result));
            if (index == state.taken) {
                state.arrived.Raise();  // for any other nobody waits yet
            }
            if (state.width == 1) {
                state.changed.notify_all();
            }
        }
    }

    std::shared_ptr<State> state_;
};

// One session, whose wait ends with a stop, or `grace` after it: nothing then.
template <typename Result>
[[nodiscard]] std::optional<Result> RunUntilStopped(std::function<Result()> run,
                                                    const StopSignal& stop,
                                                    std::chrono::milliseconds grace = {}) {
    SideBySide<Result> one(
        1, 1, [run = std::move(run)](std::size_t) { return run(); },
        [](const Result&) { return false; });
    return one.Next(stop, grace);
}

}  // namespace quorvi

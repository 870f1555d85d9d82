// Work off the window's thread.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <thread>
#include <utility>

namespace quorvi {

// Runs `what` on the window's thread as soon as it is free, in the order of the calls, unless
// `receiver` is gone by then. Any thread; `receiver` is only looked at on the window's thread.
void PostToWindow(QPointer<QObject> receiver, std::function<void()> what);

// Counts one job for as long as it, or a copy of it, is there.
using JobMark = std::shared_ptr<void>;
[[nodiscard]] JobMark MarkJob();

// How many jobs are on their way: started, and their `done` neither called nor dropped yet. Tests
// wait until it is 0, and then know all that a step has led to.
[[nodiscard]] int RunningJobs();

// Runs `work` on a one-shot thread that nobody waits for, then `done(result)` on the window's
// thread, unless `receiver` is gone by then. `work` must not touch a widget, and must own or share
// all that it uses.
template <typename Work, typename Done>
void RunJob(QObject* receiver, Work work, Done done) {
    QPointer<QObject> guard(receiver);
    std::thread([guard, mark = MarkJob(), work = std::move(work),
                 done = std::move(done)]() mutable {
        auto result = std::make_shared<decltype(work())>(work());
        PostToWindow(guard, [result, mark = std::move(mark), done = std::move(done)]() mutable {
            done(std::move(*result));
        });
    }).detach();
}

}  // namespace quorvi

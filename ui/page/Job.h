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

// Runs `work` on a one-shot thread that nobody waits for, then `done(result)` on the window's
// thread, unless `receiver` is gone by then. `work` must not touch a widget, and must own or share
// all that it uses.
template <typename Work, typename Done>
void RunJob(QObject* receiver, Work work, Done done) {
    QPointer<QObject> guard(receiver);
    std::thread([guard, work = std::move(work), done = std::move(done)]() mutable {
        auto result = std::make_shared<decltype(work())>(work());
        PostToWindow(guard,
                     [result, done = std::move(done)]() mutable { done(std::move(*result)); });
    }).detach();
}

}  // namespace quorvi

#include "ui/page/Job.h"

#include <QCoreApplication>
#include <atomic>
#include <deque>
#include <mutex>

namespace quorvi {
namespace {

std::atomic<int> runningJobs = 0;

struct Posted {
    QPointer<QObject> receiver;
    std::function<void()> what;
};

// What is on its way to the window's thread. Qt only wakes that thread, once for each post: the
// hand-over is under a mutex of our own, so that the thread sanitizer, which sees nothing of Qt's
// inside, knows what comes before what. For the same reason the wake names its function: the memory
// that it takes is Qt's alone, and no object of ours is read on one thread that another has
// written. Lives as long as the process, so that a worker may post to it at any time.
class WindowQueue : public QObject {
    Q_OBJECT
  public:
    static WindowQueue& Get() {
        static auto* const queue = new WindowQueue;
        return *queue;
    }

    void Post(Posted posted) {
        {
            const std::lock_guard lock(mutex_);
            posted_.push_back(std::move(posted));
        }
        QMetaObject::invokeMethod(this, "RunFirst", Qt::QueuedConnection);
    }

    // Runs one post for each wake and leaves the others in the queue, since a post may itself run
    // the window's event loop, as a dialog does.
    Q_INVOKABLE void RunFirst() {
        const Posted first = TakeFirst();
        if (first.receiver) {
            first.what();
        }
    }

  private:
    Posted TakeFirst() {
        const std::lock_guard lock(mutex_);
        Posted first = std::move(posted_.front());
        posted_.pop_front();
        return first;
    }

    std::mutex mutex_;
    std::deque<Posted> posted_;
};

// The application's constructor makes the queue, on the window's thread, to which it belongs from
// then on: before there is a worker.
void MakeWindowQueue() {
    WindowQueue::Get();
}
Q_COREAPP_STARTUP_FUNCTION(MakeWindowQueue)

}  // namespace

JobMark MarkJob() {
    ++runningJobs;
    // It has no memory of its own: what counts is its end.
    return {nullptr, [](void*) { --runningJobs; }};
}

int RunningJobs() {
    return runningJobs;
}

void PostToWindow(QPointer<QObject> receiver, std::function<void()> what) {
    WindowQueue::Get().Post({std::move(receiver), std::move(what)});
}

}  // namespace quorvi

#include "Job.moc"

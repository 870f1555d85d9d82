#include "ui/page/Job.h"

#include <QCoreApplication>
#include <deque>
#include <mutex>

namespace quorvi {
namespace {

struct Posted {
    QPointer<QObject> receiver;
    std::function<void()> what;
};

// What is on its way to the window's thread. Qt only wakes that thread, once for each post: the
// hand-over is under a mutex of our own, so that the thread sanitizer, which sees nothing of Qt's
// inside, knows what comes before what. Lives as long as the process, so that a worker may post to
// it at any time.
class WindowQueue : public QObject {
    Q_OBJECT
  public:
    static WindowQueue& Get() {
        static WindowQueue* const queue = [] {
            auto* made = new WindowQueue;
            if (QCoreApplication::instance() != nullptr) {
                made->moveToThread(QCoreApplication::instance()->thread());
            }
            return made;
        }();
        return *queue;
    }

    void Post(Posted posted) {
        {
            const std::lock_guard lock(mutex_);
            posted_.push_back(std::move(posted));
        }
        Q_EMIT postCame();
    }

  Q_SIGNALS:
    void postCame();

  private:
    WindowQueue() {
        connect(this, &WindowQueue::postCame, this, &WindowQueue::RunFirst, Qt::QueuedConnection);
    }

    // One post for each wake: what runs may turn the window's loop itself.
    void RunFirst() {
        const Posted first = TakeFirst();
        if (first.receiver) {
            first.what();
        }
    }

    Posted TakeFirst() {
        const std::lock_guard lock(mutex_);
        Posted first = std::move(posted_.front());
        posted_.pop_front();
        return first;
    }

    std::mutex mutex_;
    std::deque<Posted> posted_;
};

}  // namespace

void PostToWindow(QPointer<QObject> receiver, std::function<void()> what) {
    WindowQueue::Get().Post({std::move(receiver), std::move(what)});
}

}  // namespace quorvi

#include "Job.moc"

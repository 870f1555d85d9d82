#include "log/EventLog.h"

#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace quorvi {
namespace {

// How long the end of a process waits for its last lines.
constexpr std::chrono::milliseconds kEndWait{200};

// Keeps signals away from the threads that are started while it stands: they are meant for those
// who listen for them.
class NoSignals {
  public:
    NoSignals() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    ~NoSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    NoSignals(const NoSignals&) = delete;
    NoSignals& operator=(const NoSignals&) = delete;

  private:
    sigset_t before_;
};

// Never deleted: workers may tell it something until the process ends.
std::atomic<EventLog*> theLog = nullptr;

}  // namespace

class EventLog::Writer {
  public:
    Writer(LogFile file, LogWord program, std::size_t waiting)
        : file_(std::move(file)), self_{program, static_cast<int>(getpid())}, most_(waiting) {}

    ~Writer() {
        {
            const std::lock_guard lock(mutex_);
            ends_ = true;
        }
        changed_.notify_all();
        if (thread_.joinable()) {
            thread_.join();
        }
    }

    void Add(LogWord event, std::initializer_list<LogField> fields) {
        std::string line = FormatLogLine(std::chrono::system_clock::now(), self_, event, fields);
        const std::lock_guard lock(mutex_);
        if (waiting_.size() >= most_) {
            ++dropped_;
            return;
        }
        waiting_.push_back(std::move(line));
        ++told_;
        Start();
        changed_.notify_all();
    }

    bool Flush(std::chrono::milliseconds limit) {
        std::unique_lock lock(mutex_);
        const std::uint64_t told = told_;
        return changed_.wait_for(lock, limit, [&] { return done_ >= told; });
    }

  private:
    // The thread starts with the first line; where none is to be had, the next line tries again.
    void Start() {
        if (thread_.joinable()) {
            return;
        }
        const NoSignals quiet;
        try {
            thread_ = std::thread([this] { Write(); });
        } catch (const std::system_error&) {
            waiting_.pop_back();
            --told_;
        }
    }

    void Write() {
        std::unique_lock lock(mutex_);
        while (true) {
            changed_.wait(lock, [this] { return ends_ || !waiting_.empty(); });
            if (waiting_.empty()) {
                return;
            }
            const std::vector<std::string> lines = std::exchange(waiting_, {});
            const std::int64_t dropped = std::exchange(dropped_, 0);
            lock.unlock();
            Write(lines, dropped);
            lock.lock();
            done_ += lines.size();
            changed_.notify_all();
        }
    }

    // Nobody is told of a failure: there is nothing that a user would do about it.
    void Write(const std::vector<std::string>& lines, std::int64_t dropped) {
        std::string text;
        for (const std::string& line : lines) {
            text += line;
        }
        if (dropped > 0) {
            text += FormatLogLine(std::chrono::system_clock::now(), self_, "log.dropped",
                                  {{"lines", LogValue::Count(dropped)}});
        }
        static_cast<void>(file_.Append(text));
    }

    const LogFile file_;
    const LogWriter self_;
    const std::size_t most_;

    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::string> waiting_;
    std::int64_t dropped_ = 0;  // since the last write
    std::uint64_t told_ = 0;    // lines
    std::uint64_t done_ = 0;    // of them, written or given up
    bool ends_ = false;
    std::thread thread_;
};

EventLog::EventLog(LogFile file, LogWord program, std::size_t waiting)
    : writer_(std::make_unique<Writer>(std::move(file), program, waiting)) {}

EventLog::~EventLog() = default;

void EventLog::Add(LogWord event, std::initializer_list<LogField> fields) {
    writer_->Add(event, fields);
}

bool EventLog::Flush(std::chrono::milliseconds limit) {
    return writer_->Flush(limit);
}

void StartLog(LogWord program, std::filesystem::path file) {
    theLog = new EventLog(LogFile(std::move(file)), program);
}

void LogEvent(LogWord event, std::initializer_list<LogField> fields) {
    if (EventLog* const log = theLog) {
        log->Add(event, fields);
    }
}

void FlushLog() {
    if (EventLog* const log = theLog) {
        static_cast<void>(log->Flush(kEndWait));
    }
}

}  // namespace quorvi

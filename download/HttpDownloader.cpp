#include "download/HttpDownloader.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "log/EventLog.h"

namespace quorvi {

// A run as the engine knows it.
struct CHttpDownloader::Known {
    StopSignal stop;
    std::filesystem::path target;
    bool complete = false;  // has told so; guarded by the engine's mutex
};

struct CHttpDownloader::State {
    explicit State(TransferLimits how) : limits(how) {}

    const TransferLimits limits;
    std::mutex mutex;  // guards all below, and is never held while an event is told
    std::weak_ptr<IDownloadSink> sink;
    std::string url;
    std::filesystem::path target;
    ResponseHead lastHead;  // of any run; nothing ever takes it back
    DownloadFault fault = DownloadFault::none;
    std::vector<std::shared_ptr<Known>> runs;
    const Known* latest = nullptr;  // the run that was started last
    std::condition_variable ended;  // a run has
};

namespace {

LogWord WordOf(DownloadEvent event) {
    switch (event) {
        case DownloadEvent::started:
            return "started";
        case DownloadEvent::progress:
            return "progress";
        case DownloadEvent::complete:
            return "complete";
        case DownloadEvent::stopped:
            return "stopped";
        case DownloadEvent::rangeRefused:
            return "range-refused";
        case DownloadEvent::closedEarly:
            return "closed-early";
        case DownloadEvent::receiveFailed:
            return "receive-failed";
        case DownloadEvent::refused:
            return "refused";
    }
    return "unknown";
}

LogWord WordOf(DownloadFault fault) {
    switch (fault) {
        case DownloadFault::none:
            return "none";
        case DownloadFault::noConnection:
            return "no-connection";
        case DownloadFault::diskFull:
            return "disk-full";
        case DownloadFault::cannotWrite:
            return "cannot-write";
    }
    return "unknown";
}

}  // namespace

// What one run has of the engine.
class CHttpDownloader::Run : public TransferFace {
  public:
    Run(std::shared_ptr<State> state, std::shared_ptr<const void> held)
        : state_(std::move(state)), held_(std::move(held)) {
        const std::lock_guard lock(state_->mutex);
        sink_ = state_->sink;
        url_ = state_->url;
        known_->target = state_->target;
        state_->runs.push_back(known_);
        state_->latest = known_.get();
    }
    ~Run() override {
        held_.reset();  // before anybody is told that nothing runs any more
        const std::lock_guard lock(state_->mutex);
        std::erase(state_->runs, known_);
        state_->ended.notify_all();
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    void Go() {
        Transfer(*this, known_->stop, state_->limits, url_, known_->target, LastHead()).Run();
    }

    void Tell(DownloadEvent event, std::int32_t speed, std::int32_t percent) override {
        {
            const std::lock_guard lock(state_->mutex);
            state_->fault = fault_;
            known_->complete = event == DownloadEvent::complete;
        }
        if (event != DownloadEvent::progress) {
            LogEvent("download", {{"event", WordOf(event)},
                                  {"fault", WordOf(fault_)},
                                  {"ms", LogValue::Since(start_)}});
        }
        if (const auto sink = sink_.lock()) {
            sink->OnDownloadEvent(event, speed, percent);
        }
    }
    void Fail(DownloadFault fault) override { fault_ = fault; }
    void Redirected(const std::string& url) override {
        const std::lock_guard lock(state_->mutex);
        if (state_->latest == known_.get()) {
            state_->url = url;
        }
    }
    void Answered(const ResponseHead& head) override {
        const std::lock_guard lock(state_->mutex);
        state_->lastHead = head;
    }

  private:
    ResponseHead LastHead() {
        const std::lock_guard lock(state_->mutex);
        return state_->lastHead;
    }

    const std::shared_ptr<State> state_;
    const std::shared_ptr<Known> known_ = std::make_shared<Known>();
    std::shared_ptr<const void> held_;
    std::weak_ptr<IDownloadSink> sink_;
    std::string url_;
    DownloadFault fault_ = DownloadFault::none;
    const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

CHttpDownloader::CHttpDownloader(TransferLimits limits) : state_(std::make_shared<State>(limits)) {}

void CHttpDownloader::SetSink(std::weak_ptr<IDownloadSink> sink) {
    const std::lock_guard lock(state_->mutex);
    state_->sink = std::move(sink);
}

void CHttpDownloader::SetJob(std::string url, std::filesystem::path target) {
    const std::lock_guard lock(state_->mutex);
    state_->url = std::move(url);
    state_->target = std::move(target);
}

void CHttpDownloader::Start(std::shared_ptr<const void> held) {
    const auto run = std::make_shared<Run>(state_, std::move(held));
    try {
        std::thread([run] { run->Go(); }).detach();
    } catch (const std::system_error&) {
        run->Tell(DownloadEvent::refused, -1, -1);
    }
}

void CHttpDownloader::Stop() {
    std::vector<std::shared_ptr<Known>> runs;
    {
        const std::lock_guard lock(state_->mutex);
        runs = state_->runs;
    }
    for (const auto& run : runs) {
        run->stop.Stop();
    }
}

std::string CHttpDownloader::Url() const {
    const std::lock_guard lock(state_->mutex);
    return state_->url;
}

DownloadFault CHttpDownloader::Fault() const {
    const std::lock_guard lock(state_->mutex);
    return state_->fault;
}

bool CHttpDownloader::IsIdle() const {
    const std::lock_guard lock(state_->mutex);
    return state_->runs.empty();
}

void CHttpDownloader::WaitForMove(const std::filesystem::path& target) const {
    std::unique_lock lock(state_->mutex);
    state_->ended.wait(lock, [&] {
        return std::ranges::none_of(state_->runs, [&](const std::shared_ptr<Known>& run) {
            return run->complete && run->target == target;
        });
    });
}

}  // namespace quorvi

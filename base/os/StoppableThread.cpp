#include "base/os/StoppableThread.h"

#include <system_error>
#include <utility>

namespace quorvi {

bool StoppableThread::Start(Work work) {
    Stop();
    auto stop = std::make_unique<StopSignal>();
    if (!stop->IsOpen()) {
        return false;
    }
    try {
        thread_ = std::thread([work = std::move(work), &signal = *stop] { work(signal); });
    } catch (const std::system_error&) {
        return false;
    }
    stop_ = std::move(stop);
    return true;
}

void StoppableThread::Stop() {
    if (thread_.joinable()) {
        stop_->Stop();
        thread_.join();
    }
}

}  // namespace quorvi

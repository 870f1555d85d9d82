#include "download/WorkLock.h"

#include <mutex>
#include <optional>
#include <utility>

#include "base/os/FileLock.h"

namespace quorvi {

struct WorkLock::State {
    explicit State(std::function<std::filesystem::path()> where) : file(std::move(where)) {}

    const std::function<std::filesystem::path()> file;
    std::mutex mutex;  // guards all below
    std::optional<FileLock> lock;
    int holders = 0;
};

WorkLock::WorkLock(std::function<std::filesystem::path()> file)
    : state_(std::make_shared<State>(std::move(file))) {}

std::shared_ptr<const void> WorkLock::Take() const {
    const std::lock_guard guard(state_->mutex);
    if (state_->holders == 0) {
        state_->lock.emplace(state_->file(), FileLock::Wait::never);
        if (state_->lock->IsBusy()) {
            state_->lock.reset();
            return nullptr;
        }
    }
    ++state_->holders;
    return {state_.get(), [state = state_](const void*) {
                const std::lock_guard guardOfEnd(state->mutex);
                if (--state->holders == 0) {
                    state->lock.reset();
                }
            }};
}

}  // namespace quorvi

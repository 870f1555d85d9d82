// The selected phone, process-wide. Start here for everything that touches adb.
#pragma once

#include <atomic>
#include <mutex>
#include <string>

namespace quorvi {

// One for the process. The serial is empty until a phone is chosen and never cleared when a phone
// goes away. Any thread.
class DeviceContext {
  public:
    [[nodiscard]] std::string Serial() const {
        const std::lock_guard lock(mutex_);
        return serial_;
    }
    void SetSerial(std::string serial) {
        const std::lock_guard lock(mutex_);
        serial_ = std::move(serial);
    }

    // Marks that the one retry after an install was used; true if it had not been. Never cleared:
    // one retry in the life of the process, whatever its outcome, and for any phone.
    [[nodiscard]] bool UseInstallRetry() { return !installRetried_.exchange(true); }

  private:
    mutable std::mutex mutex_;
    std::string serial_;
    std::atomic<bool> installRetried_{false};
};

}  // namespace quorvi

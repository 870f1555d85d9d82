// What a page remembers of each phone, whose ids mean nothing to another.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "link/DeviceContext.h"

namespace quorvi {

// One T for each phone, known by its serial. The window's thread.
template <typename T>
class OfEachPhone {
  public:
    // `device` outlives it.
    explicit OfEachPhone(const DeviceContext& device) : device_(device) {}

    // That of the phone that is selected; it stays where it is for as long as this object lives.
    // What was kept before a phone was selected is the first one's.
    [[nodiscard]] T& Here() {
        const std::string serial = device_.Serial();
        if (!all_.contains(serial)) {
            if (auto before = all_.extract(std::string())) {
                before.key() = serial;
                all_.insert(std::move(before));
            }
        }
        return all_[serial];
    }

  private:
    const DeviceContext& device_;
    std::map<std::string, T> all_;  // by the phone's serial
};

}  // namespace quorvi

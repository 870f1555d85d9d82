// The packages that links have named and nobody has looked up yet.
#pragma once

#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace quorvi {

// First in, first out. Copies share one list. Any thread.
class WaitingPackages {
  public:
    void Add(std::string package) const {
        const std::lock_guard lock(list_->mutex);
        list_->names.push_back(std::move(package));
    }
    // Takes the first name out; nothing where none waits.
    [[nodiscard]] std::optional<std::string> Take() const {
        const std::lock_guard lock(list_->mutex);
        if (list_->names.empty()) {
            return std::nullopt;
        }
        std::string first = std::move(list_->names.front());
        list_->names.pop_front();
        return first;
    }

  private:
    struct List {
        std::mutex mutex;
        std::deque<std::string> names;
    };
    std::shared_ptr<List> list_ = std::make_shared<List>();
};

}  // namespace quorvi

// The numbers with which one page wants another to do something.
#pragma once

#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace quorvi {

// ANSI, as the phone gave them. First in, first out; copies share one list. Any thread.
class WaitingNumbers {
  public:
    void Add(std::string number) const {
        const std::lock_guard lock(list_->mutex);
        list_->numbers.push_back(std::move(number));
    }
    // Takes the first number out; nothing where none waits.
    [[nodiscard]] std::optional<std::string> Take() const {
        const std::lock_guard lock(list_->mutex);
        if (list_->numbers.empty()) {
            return std::nullopt;
        }
        std::string first = std::move(list_->numbers.front());
        list_->numbers.pop_front();
        return first;
    }

  private:
    struct List {
        std::mutex mutex;
        std::deque<std::string> numbers;
    };
    std::shared_ptr<List> list_ = std::make_shared<List>();
};

}  // namespace quorvi

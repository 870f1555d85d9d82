// Keeps a kind of work on the tasks' table to one process at a time.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>

namespace quorvi {

// By a lock on a file, which the system takes back from a process that ends in whatever way. Any
// thread; copies are the same lock.
class WorkLock {
  public:
    // `file` gives the lock's file, which is made where it is missing; asked by each Take that
    // nobody here has taken before.
    explicit WorkLock(std::function<std::filesystem::path()> file);

    // For as long as one of what this has given is kept, no other process gets any. Nothing where
    // another process has one. Where the file can't be made, everybody gets one.
    [[nodiscard]] std::shared_ptr<const void> Take() const;

  private:
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace quorvi

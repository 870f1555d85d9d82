// What is told to a user who does not look at the window, once the last task has ended.
#pragma once

#include <optional>
#include <string>

#include "download/TaskQueue.h"

namespace quorvi {

// Counts what has ended since the last notice.
class EndedTasks {
  public:
    void Hear(const QueueEvent& event);

    // The notice, in ANSI, and begins to count anew; nothing while tasks are left, and where none
    // has ended.
    [[nodiscard]] std::optional<std::string> TakeNotice(bool tasksLeft);

  private:
    int installed_ = 0;
    int failed_ = 0;
};

}  // namespace quorvi

// The rows of the download page: the tasks of the table, and what is known of them beside it.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "download/DownloadTask.h"
#include "download/QueueText.h"
#include "download/TaskQueue.h"
#include "download/TaskStore.h"

namespace quorvi {

inline constexpr std::int32_t kNoPercent = -1;

struct DownloadRow {
    CDownloadTask task;
    // How far its download has come since the list was loaded; kNoPercent shows as kNoProgressCell.
    std::int32_t percent = kNoPercent;
    std::string note = {};  // what is to be known of its state, in ANSI; empty for nothing
};

// Why downloads and installations have ended as they did: the table keeps the state alone. Knows
// what it has heard since the program's start.
class TaskNotes {
  public:
    void Hear(const QueueEvent& event);
    // In words, with what to do next; empty where the state says all. ANSI.
    [[nodiscard]] std::string Of(const CDownloadTask& task) const;

  private:
    struct Note {
        TaskState state;  // about which it is: in another one it means nothing any more
        std::string text;
    };
    std::map<std::int32_t, Note> notes_;  // by the task's number
};

// The rows of a list that was loaded.
[[nodiscard]] std::vector<DownloadRow> RowsOf(std::vector<CDownloadTask> tasks,
                                              const TaskNotes& notes);

// What an event changes in its task's row; false where nothing.
bool ShowInRow(const QueueEvent& event, DownloadRow& row);

// The text of a row's column of progress, in ANSI.
[[nodiscard]] std::string ProgressText(const DownloadRow& row);

// What an event is told to the status line, in ANSI; empty for nothing.
[[nodiscard]] std::string EventStatus(const QueueEvent& event);

}  // namespace quorvi

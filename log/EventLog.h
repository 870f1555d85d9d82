// The suite's log, as those see it who have something to tell.
//
//   StartLog("quorvictl", ThePlaces().LogFile());          // once, at the program's start
//   LogEvent("install", {{"result", WordOf(result)}});    // anywhere, from then on
#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>

#include "log/LogFile.h"
#include "log/LogLine.h"

namespace quorvi {

// Lines that wait for the disk at most; what comes then is dropped and counted.
inline constexpr std::size_t kMostWaitingLines = 1000;

// A log that a thread of its own writes, so that nobody who tells it something waits for the disk.
// What cannot be written is dropped without a word. Any thread; it outlives who uses it.
class EventLog {
  public:
    // `waiting` differs in tests only.
    EventLog(LogFile file, LogWord program, std::size_t waiting = kMostWaitingLines);
    // Waits until all is written.
    ~EventLog();
    EventLog(const EventLog&) = delete;
    EventLog& operator=(const EventLog&) = delete;

    void Add(LogWord event, std::initializer_list<LogField> fields);

    // Waits until all is written that was told before, at most so long; false when time is up.
    [[nodiscard]] bool Flush(std::chrono::milliseconds limit);

  private:
    class Writer;
    std::unique_ptr<Writer> writer_;
};

// From here on LogEvent writes into this file, under the program's name. Called once, and by
// programs only: where nobody has called it, in a test above all, LogEvent does nothing.
void StartLog(LogWord program, std::filesystem::path file);

// Tells the process's log something. Any thread; waits for nothing.
void LogEvent(LogWord event, std::initializer_list<LogField> fields = {});

// Before the process ends: waits until all is written, at most a moment, since an end waits for
// nobody.
void FlushLog();

}  // namespace quorvi

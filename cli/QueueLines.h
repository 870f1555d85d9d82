// What a run of the queue says on the command line: a line for each event.
#pragma once

#include <json/value.h>

#include <mutex>
#include <string>

#include "cli/Command.h"
#include "cli/Output.h"
#include "download/TaskQueue.h"

namespace quorvi::cli {

// An event in words, ANSI; empty where it is no news for the command line.
[[nodiscard]] std::string EventText(const QueueEvent& event);

// {event, id, title, package, text} and, by event, percent and speed, fault, or result.
[[nodiscard]] Json::Value DocumentOf(const QueueEvent& event);

// Any thread.
class QueueLines {
  public:
    explicit QueueLines(Output& output) : output_(output) {}

    void Hear(const QueueEvent& event);

    // done, or noLink when a download or an installation has failed.
    [[nodiscard]] Status Worst();
    // The table could not be changed: the same row would come again without end.
    [[nodiscard]] bool StoreFailed();

  private:
    Output& output_;
    std::mutex mutex_;  // guards all below
    Status worst_ = Status::done;
    bool storeFailed_ = false;
    std::string last_;  // for people, who need not be told twice why a download failed
};

}  // namespace quorvi::cli

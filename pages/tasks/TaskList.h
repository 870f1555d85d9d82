// The processes that run on the phone as command 871801 lists them, its free memory, and the end of
// processes.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "agent/AgentSession.h"
#include "agent/Reply.h"
#include "agent/Request.h"
#include "pages/kit/ListReply.h"

namespace quorvi {

// One row; texts are ANSI.
struct TaskRecord {
    std::string name;              // of the application
    std::string package;           // what the process is ended by
    std::uint64_t memory = 0;      // bytes; FormatByteSize shows their lower 32 bits alone
    std::uint32_t importance = 0;  // see ImportanceText
    std::uint32_t cpu = 0;         // share in per cent
    std::uint32_t pid = 0;
    bool isSystem = false;  // came with the phone
    // An image file as the phone sent it, in any format; without one the default picture shows.
    ReplyBytes icon;
};

// Ended by the mark in a name.
using TaskList = ReadList<TaskRecord>;
using TaskListReply = ListReply<TaskRecord>;

// Reads the run of records. A record with a length that points outside the reply ends the run and
// is dropped; so is one whose package was cut, by which some other process would be ended. Any
// thread.
[[nodiscard]] TaskList ParseTaskList(const SharedReply& reply);

// One session that reads the list. Any thread.
[[nodiscard]] TaskListReply FetchTaskList(const AgentSession& session,
                                          const AgentSession::Progress& progress = {});

// One session that asks for the free memory: the word of its reply is bytes. Any thread.
[[nodiscard]] AcknowledgedReply FetchFreeMemory(const AgentSession& session);

// What an importance is called. ANSI.
[[nodiscard]] std::string ImportanceText(std::uint32_t importance);

// "12 %", with the sign that the 32 bits have. ANSI.
[[nodiscard]] std::string CpuShareText(std::uint32_t cpu);

// The request of command 871804. The names go out as they stand, without the way to UTF-8 that all
// other texts take: kept on purpose, agents have always been sent these bytes
// (TaskRequests.NamesAreSentAsTheyStand). Without names it has a count of 0 and is sent all the
// same.
[[nodiscard]] Bytes EndProcessesRequest(std::span<const std::string> packages);

}  // namespace quorvi

// Which applications the phone starts on which event, as command 871701 lists them.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "agent/AgentSession.h"
#include "agent/Reply.h"
#include "agent/StartEvents.h"

namespace quorvi {

// Texts are ANSI.
struct AutoStartItem {
    std::string name;     // of the application
    std::string package;  // its name
};

// The number of an event, which is below kStartEvents, to the applications that listen for it, in
// the order in which they came. Events ascend, whatever their order was.
using EventGroups = std::map<std::int32_t, std::vector<AutoStartItem>>;

struct AutoStartList {
    EventGroups groups;
    // AbsentMark stood in a name: nothing is shown of the list then, and `groups` is empty.
    bool endedByMark = false;
    // The number that ended the reading because no event has it; `groups` holds what came before.
    std::optional<std::uint32_t> unknownEvent{};
};

struct AutoStartReply {
    SessionOutcome outcome = SessionOutcome::connectFailed;
    AutoStartList list;
};

// Reads the run of records. A record with a length that points outside the reply, or in whose event
// the reply was cut, ends the run and is dropped. Any thread.
[[nodiscard]] AutoStartList ParseAutoStart(const ReplyBuffer& reply);

// One session that reads the list. Any thread.
[[nodiscard]] AutoStartReply FetchAutoStart(const AgentSession& session,
                                            const AgentSession::Progress& progress = {});

// The line for the status when a number ended the reading that no event has. ANSI.
[[nodiscard]] std::string UnknownEventText(std::uint32_t event);

}  // namespace quorvi

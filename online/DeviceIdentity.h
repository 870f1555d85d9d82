// What a phone says of itself to the site.
#pragma once

#include <cstdint>
#include <string>

#include "agent/AgentSession.h"

namespace quorvi {

// The text is ANSI.
struct DeviceIdentity {
    std::int32_t client = 0;  // the agent's version
    std::int32_t api = 0;     // the API level of the phone's system
    std::string model;
};

// Reads it out of the reply of command 870002. A model that is absent leaves the one before. Any
// thread.
void ParseDeviceIdentity(const ReplyBuffer& reply, DeviceIdentity& identity);

// One session that reads it; without data all stays as it is. Any thread.
SessionOutcome ReadDeviceIdentity(const AgentSession& session, DeviceIdentity& identity);

}  // namespace quorvi

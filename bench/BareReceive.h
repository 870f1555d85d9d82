// The yardstick for whatever reads a list: nothing but recv.
#pragma once

#include <cstddef>
#include <cstdint>

#include "agent/AgentCommand.h"

namespace quorvi {

// Asks the agent for a list and receives the payload into one buffer of its size; the bytes that
// came.
std::size_t BareReceive(std::uint16_t port, AgentCommand command = AgentCommand::listContacts);

}  // namespace quorvi

// The yardstick for whatever reads a list: nothing but recv.
#pragma once

#include <cstddef>
#include <cstdint>

namespace quorvi {

// Asks the agent for the contacts and receives the payload into one buffer of its size; the bytes
// that came.
std::size_t BareReceive(std::uint16_t port);

}  // namespace quorvi

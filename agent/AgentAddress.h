// Where the agent on the phone is reached from this computer.
#pragma once

#include <cstdint>

namespace quorvi {

// A port of 127.0.0.1: no other host is ever connected to. Programs make one from AgentPort at
// their start and hand it to whoever runs sessions; tests make theirs from the port of an agent of
// their own.
class AgentAddress {
  public:
    // Not explicit: a port is all that an address has.
    constexpr AgentAddress(std::uint16_t port) : port_(port) {}

    [[nodiscard]] constexpr std::uint16_t Port() const { return port_; }

  private:
    std::uint16_t port_;
};

}  // namespace quorvi

// How an agent misbehaves, and what of a reply goes out then.
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "phone/agent/Exchange.h"

namespace quorvi::phone {

enum class FaultKind {
    noData,       // NoDataMark in place of the length, then closes
    absentFirst,  // the first string of the payload is absent
    close,        // closes without a reply
    cut,          // closes after `a` bytes, the length word counted
    reset,        // after `a` bytes: breaks the stream off
    unplug,       // after `a` bytes: pulls the cable
    stall,        // after `a` bytes: nothing more until released
    trickle,      // `a` bytes every `b` milliseconds
    length,       // the length word says `a`; `b` bytes of payload follow, then the end
    string,       // the length word of string number `a`, from 0, says `b`
    word,         // four bytes, `a`, in place of the reply, and nothing behind them
    delay,        // the reply comes `a` milliseconds late
};

struct Fault {
    FaultKind kind;
    std::uint64_t a = 0;
    std::uint64_t b = 0;
    // How many more requests meet it; without a value all do.
    std::optional<std::uint32_t> times;
};

// "cut 100", "trickle 1 20 times 3". Nothing when it cannot be read.
[[nodiscard]] std::optional<Fault> ParseFault(const std::vector<std::string>& words);
[[nodiscard]] std::string Describe(const Fault& fault);

// The faults by command.
class FaultTable {
  public:
    // Code 0 stands for all commands that have no fault of their own.
    void Set(std::uint32_t code, std::optional<Fault> fault);
    void Clear() { faults_.clear(); }
    // The fault that a request for this command meets, which then has one time less.
    [[nodiscard]] std::optional<Fault> Meet(std::uint32_t code);
    [[nodiscard]] const std::map<std::uint32_t, Fault>& All() const { return faults_; }

  private:
    std::map<std::uint32_t, Fault> faults_;
};

enum class Ending { keepOpen, close, reset, unplug };

// What goes out: the bytes, in pieces if paced, and how the stream ends behind them. `held` goes
// out behind them when a stall is released.
struct Delivery {
    Bytes bytes;
    Bytes held;
    Ending ending = Ending::keepOpen;
    std::chrono::milliseconds delay{0};
    std::size_t pieceBytes = 0;  // zero: all at once
    std::chrono::milliseconds pace{0};
};

[[nodiscard]] Delivery Deliver(AgentReply reply, const std::optional<Fault>& fault);

}  // namespace quorvi::phone

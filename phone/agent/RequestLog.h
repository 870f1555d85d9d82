// Every request that the agent took, with what was wrong about its frame.
#pragma once

#include <cstdint>
#include <deque>
#include <fstream>
#include <string>
#include <vector>

namespace quorvi::phone {

// Lines kept in memory; the oldest go first.
inline constexpr std::size_t kMaxLogLines = 100'000;

struct LoggedRequest {
    std::uint32_t code = 0;
    std::string name;
    std::size_t bytes = 0;
    std::string hex;   // the request's first bytes
    std::string note;  // what the command was about, in words
    std::vector<std::string> deviations;
};

class RequestLog {
  public:
    void Add(LoggedRequest request);
    void Clear() { lines_.clear(); }
    // Each line is also appended to the file. False when it cannot be written.
    bool AlsoWriteTo(const std::string& path);

    // "1 870003 agentVersion 4 bytes 000d4673", then "; note: …" and "; deviation: …" as often as
    // needed.
    [[nodiscard]] std::vector<std::string> Lines() const { return {lines_.begin(), lines_.end()}; }
    // Only those with a deviation.
    [[nodiscard]] std::vector<std::string> Deviations() const;

  private:
    std::deque<std::string> lines_;
    std::uint64_t count_ = 0;
    std::ofstream file_;
};

}  // namespace quorvi::phone

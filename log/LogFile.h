// The log's file on the disk: bounded, and written by several processes.
//
// Two files keep the lines: the log itself, and what was the log until it was full
// ("quorvi.log.1"). Together they never have more than a limit of bytes. A third,
// "quorvi.log.lock", is empty, and keeps two writers apart.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace quorvi {

// Bytes that the log and what was the log before it have together.
inline constexpr std::size_t kMostLogBytes = 5'000'000;

class LogFile {
  public:
    // The limit differs in tests only.
    explicit LogFile(std::filesystem::path file, std::size_t most = kMostLogBytes);

    // Appends whole lines, all of them or none; makes the folder where it is missing. Blocks as
    // long as the disk does, and while another process writes. Lines of more than half of the limit
    // are refused.
    [[nodiscard]] std::error_code Append(std::string_view lines) const;

    // All lines that are kept, the oldest first; empty where none are to be read. Blocks likewise.
    [[nodiscard]] std::string Read() const;

    // Bytes that the lines have now; does not wait for a writer.
    [[nodiscard]] std::uintmax_t Size() const;

  private:
    std::filesystem::path file_;
    std::filesystem::path former_;
    std::filesystem::path lock_;
    std::size_t most_;
};

}  // namespace quorvi

// "shell:COMMAND": runs it, prints, ends. "shell:" alone reads commands line by line.
#pragma once

#include <string>

#include "phone/Handset.h"
#include "phone/adb/Service.h"

namespace quorvi::phone {

// Longest line typed at the phone's prompt, in bytes; a longer one is cut.
inline constexpr std::size_t kMaxTypedLine = 4096;

class ShellService : public Service {
  public:
    // `command` empty: a prompt.
    ShellService(Handset& handset, std::string_view command, Sink& sink);
    void OnBytes(std::span<const std::byte> bytes) override;

  private:
    void RunLine();

    Handset& handset_;
    Sink& sink_;
    bool typed_;
    std::string line_;
};

}  // namespace quorvi::phone

// The command line of quorvi-phone.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "phone/PhoneServer.h"

namespace quorvi::phone {

struct CommandLine {
    ServerOptions server;
    bool help = false;
    std::string error;  // why the line cannot be used; empty when it can
};

// The program's name is not among the words.
[[nodiscard]] CommandLine ParseCommandLine(const std::vector<std::string>& words);

[[nodiscard]] std::string HelpText();

}  // namespace quorvi::phone

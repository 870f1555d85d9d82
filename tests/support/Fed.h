// A command of quorvictl with its standard input.
#pragma once

#include <fstream>
#include <string>
#include <string_view>

#include "tests/support/TemporaryFolder.h"

namespace quorvi::cli {

// The rest of a line for Out or Err, which feeds `input` to the command.
[[nodiscard]] inline std::string Fed(std::string_view arguments, std::string_view input) {
    static const TemporaryFolder folder;
    const std::string path = (folder.Path() / "form").string();
    std::ofstream(path, std::ios::binary) << input;
    return std::string(arguments) + " <'" + path + "'";
}

}  // namespace quorvi::cli

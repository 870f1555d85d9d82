// Runs the built command line program.
#pragma once

#include <string>

namespace quorvi::cli {

struct Ended {
    int status = -1;  // -1 when it did not end by itself
    std::string output;
};

// A line of the shell; its standard output.
[[nodiscard]] Ended RunLine(const std::string& line);

// quorvictl with these arguments: what it wrote on one of its two streams.
[[nodiscard]] Ended Out(const std::string& arguments);
[[nodiscard]] Ended Err(const std::string& arguments);

}  // namespace quorvi::cli

// Operands given on the command line or, for "-", on standard input.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quorvi::cli {

// Calls visit(operand) for each operand in order, UTF-8 as it came. In the place of "-" stand the
// lines of standard input, each without its line end, as soon as it is there.
void ForEachOperand(const std::vector<std::string>& operands,
                    const std::function<void(const std::string& operand)>& visit);

}  // namespace quorvi::cli

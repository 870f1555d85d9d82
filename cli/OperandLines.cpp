#include "cli/OperandLines.h"

#include <iostream>

namespace quorvi::cli {

void ForEachOperand(const std::vector<std::string>& operands,
                    const std::function<void(const std::string& operand)>& visit) {
    for (const std::string& operand : operands) {
        if (operand != "-") {
            visit(operand);
            continue;
        }
        for (std::string line; std::getline(std::cin, line);) {
            if (line.ends_with('\r')) {
                line.pop_back();
            }
            visit(line);
        }
    }
}

}  // namespace quorvi::cli

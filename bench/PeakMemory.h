// How much memory the process has held at once.
#pragma once

#include <cstddef>

namespace quorvi {

// Resident bytes now, and the most since the last ResetPeakMemory. Zero where the system keeps no
// such record.
[[nodiscard]] std::size_t ResidentMemory();
[[nodiscard]] std::size_t PeakMemory();
void ResetPeakMemory();

}  // namespace quorvi

// What the report tells of the window's surroundings, which only the window knows.
#pragma once

#include "report/Report.h"

namespace quorvi {

// Qt's version, what the window is shown by, and size, scale and rate of each screen. Names of
// screens are left out: some hold a serial. The window's thread.
[[nodiscard]] ReportFile ScreenFacts();

}  // namespace quorvi

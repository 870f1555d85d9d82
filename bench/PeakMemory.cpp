#include "bench/PeakMemory.h"

#include <fstream>
#include <limits>
#include <string>
#include <string_view>

namespace quorvi {
namespace {

// A line of /proc/self/status such as "VmHWM:    1234 kB", in bytes.
std::size_t StatusLine(std::string_view name) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == name) {
            std::size_t kilobytes = 0;
            status >> kilobytes;
            return kilobytes * 1024;
        }
        status.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    }
    return 0;
}

}  // namespace

std::size_t ResidentMemory() {
    return StatusLine("VmRSS:");
}

std::size_t PeakMemory() {
    return StatusLine("VmHWM:");
}

void ResetPeakMemory() {
    std::ofstream("/proc/self/clear_refs") << "5";
}

}  // namespace quorvi

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "pages/apps/UninstallOutcome.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view said(reinterpret_cast<const char*>(data), size);
    const auto outcome = quorvi::ParseUninstall(said);
    const std::string reason = quorvi::UninstallReason(outcome, said);
    // Words for whatever failed, in one line.
    if (reason.empty() != (outcome == quorvi::UninstallOutcome::done) ||
        reason.find_first_of("\r\n") != std::string::npos) {
        std::abort();
    }
    return 0;
}

// Reads a call log out of any bytes, whole or cut.
//
// Input: see FuzzReplyOf.h.
#include <cstdlib>

#include "fuzz/agent/FuzzReplyOf.h"
#include "pages/calls/CallLog.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto reply = quorvi::fuzz::ReplyOf({data, size});
    if (!reply) {
        return 0;
    }
    const auto log =
        quorvi::ParseCallLog(*reply, [](std::string_view number) { return std::string(number); });
    for (const quorvi::CallLogRow& row : log.rows) {
        if (row.number != row.attribution || row.time.empty() ||
            quorvi::CallIdOf(quorvi::CallIdText(row.id)) != row.id) {
            std::abort();
        }
    }
    return 0;
}

// Reads what a phone starts on which event out of any bytes, whole or cut.
//
// Input: see FuzzReplyOf.h.
#include <cstdlib>

#include "fuzz/agent/FuzzReplyOf.h"
#include "pages/autostart/AutoStart.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto reply = quorvi::fuzz::ReplyOf({data, size});
    if (!reply) {
        return 0;
    }
    const quorvi::AutoStartList list = quorvi::ParseAutoStart(*reply);
    if (list.endedByMark && (!list.groups.empty() || list.unknownEvent)) {
        std::abort();
    }
    for (const auto& [event, items] : list.groups) {
        if (event < 0 || static_cast<std::size_t>(event) >= quorvi::kStartEvents ||
            quorvi::StartEventCaption(static_cast<std::size_t>(event)).empty() || items.empty()) {
            std::abort();
        }
    }
    if (list.unknownEvent && *list.unknownEvent < quorvi::kStartEvents) {
        std::abort();
    }
    return 0;
}

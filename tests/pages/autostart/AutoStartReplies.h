// Replies of a phone that starts applications on events.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/WireBytes.h"

namespace quorvi {

struct ListedStart {
    std::uint32_t event = 1;
    std::string name = "闹钟";
    std::string package = "com.android.alarmclock";
};

inline WireBytes AutoStartPayload(const std::vector<ListedStart>& starts) {
    WireBytes bytes;
    bytes.U32(0);  // leading word
    for (const ListedStart& start : starts) {
        bytes
            .U32(start.event)     // number of the event
            .Text(start.name)     // name of the application
            .Text(start.package)  // name of its package
            .U32(0);              // reserved
    }
    return bytes;
}

}  // namespace quorvi

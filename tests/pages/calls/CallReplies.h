// Replies of a phone with calls.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/WireBytes.h"

namespace quorvi {

struct ListedCall {
    std::uint64_t id = 7;
    std::string number = "10086";
    std::uint64_t date = 1308361330000;
    std::uint64_t duration = 61;
    std::uint32_t type = 1;
    std::string name = "林远舟";
};

inline WireBytes CallsPayload(const std::vector<ListedCall>& calls) {
    WireBytes bytes;
    bytes.U32(0);  // leading word
    for (const ListedCall& call : calls) {
        bytes
            .U64(call.id)        // call id
            .Text(call.number)   // number
            .U64(call.date)      // milliseconds since 1970
            .U64(call.duration)  // seconds
            .U32(call.type)      // type
            .Text(call.name);    // name
    }
    return bytes;
}

}  // namespace quorvi

// The calls kept on the phone.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "phone/agent/AddressBook.h"

namespace quorvi::phone {

struct Call {
    std::uint64_t id = 0;
    std::string number;
    std::uint64_t date = 0;      // milliseconds since 1970
    std::uint64_t duration = 0;  // seconds
    std::uint32_t type = 1;      // 1 came in, 2 went out, 3 was missed
    std::string name;            // as it was known when the call was made; empty: unknown
};

// The newest first.
using CallRecords = std::vector<Call>;

// The owner's calls, with the names of the address book.
[[nodiscard]] CallRecords DeliveredCalls(const AddressBook& book);

[[nodiscard]] CallRecords LargeCallRecords(std::uint32_t count);

}  // namespace quorvi::phone

// What kind of number a phone number is: a place, a service, a company, or a mark of bulk messages.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "refdata/PhoneDb.h"

namespace quorvi {

struct ClassifiedNumber {
    std::string_view caption;  // ANSI; lives as long as the process
    int areaCode = 0;          // that the caption is the place of; 0 when it is no place's
};

// Goes by the number's length first and by its leading digits then, after a country code ("+" and
// two characters) and all "-" are taken away. The number is ANSI as it came; any bytes will do.
// Any thread. Tables and captions stand in refdata/data/.
[[nodiscard]] ClassifiedNumber ClassifyNumber(std::string_view number, const CPhoneDb& db);

// The caption alone: what stands beside a number in the lists.
[[nodiscard]] inline std::string_view NumberAttribution(std::string_view number,
                                                        const CPhoneDb& db) {
    return ClassifyNumber(number, db).caption;
}

// How a reader of records asks for the text under a number, both ANSI. Any thread.
using AttributionOf = std::function<std::string(std::string_view number)>;

// The attribution of a process, made once at its start and handed to all who show numbers. It looks
// them up in one CPhoneDb, shared by all copies. The first call makes that database, and so writes
// a file of 1.2 MB: it belongs on a worker's thread.
[[nodiscard]] AttributionOf MakeNumberAttribution();

}  // namespace quorvi

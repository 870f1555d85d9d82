#include "phone/agent/CallRecords.h"

#include <fmt/format.h>

#include <array>
#include <string_view>

#include "base/Utf8.h"
#include "phone/agent/LocalTime.h"

namespace quorvi::phone {
namespace {

struct DeliveredCall {
    std::string_view number;
    std::string_view time;  // local
    std::uint64_t duration;
    std::uint32_t type;
};

constexpr std::uint32_t kIn = 1;
constexpr std::uint32_t kOut = 2;
constexpr std::uint32_t kMissed = 3;

// Three weeks of them, the newest first.
constexpr DeliveredCall kCalls[] = {
    {"13861234567", "2011-06-18 09:12:44", 207, kIn},
    {"95588", "2011-06-18 08:30:02", 0, kMissed},
    {"13861112233", "2011-06-17 19:45:10", 728, kOut},
    {"13758880001", "2011-06-16 15:31:00", 46, kIn},
    {"02161234567", "2011-06-16 10:08:53", 0, kMissed},
    {"13980012345", "2011-06-15 21:20:36", 3700, kOut},
    {"13512340098", "2011-06-14 12:02:27", 495, kIn},
    {"13811112222", "2011-06-13 18:44:05", 31, kOut},
    {"+8613912345678", "2011-06-13 12:15:40", 118, kIn},
    {"10086", "2011-06-12 20:10:09", 92, kOut},
    {"-1", "2011-06-12 16:00:00", 0, kMissed},
    {"13911345678", "2011-06-11 11:26:17", 22, kIn},
    {"4008123123", "2011-06-11 11:02:58", 84, kOut},
    {"138-1234-5678", "2011-06-10 17:35:20", 301, kOut},
    {"075586543210", "2011-06-10 09:55:31", 12, kIn},
    {"13861112233", "2011-06-09 20:03:12", 1530, kIn},
    {"13861113344", "2011-06-09 20:01:50", 0, kMissed},
    {"051988765432", "2011-06-08 18:30:44", 655, kOut},
    {"8812345", "2011-06-08 12:11:03", 25, kOut},
    {"18612345678", "2011-06-07 16:48:29", 77, kIn},
    {"13705710571", "2011-06-06 10:00:10", 143, kOut},
    {"13300001111", "2011-06-05 14:20:38", 66, kOut},
    {"110", "2011-06-05 02:13:00", 184, kOut},
    {"13651234567", "2011-06-04 08:05:55", 0, kMissed},
    {"15951230456", "2011-06-03 19:19:19", 242, kIn},
    {"01065551234", "2011-06-03 09:30:26", 610, kIn},
    {"13000000000", "2011-06-02 13:45:12", 3, kIn},
    // A line that was left open overnight: more than a day.
    {"13861234567", "2011-06-01 21:00:00", 90000, kOut},
    // Neither in, out nor missed: refused by the phone itself.
    {"106558001", "2011-05-31 15:15:15", 0, 0},
    {"17951075586543210", "2011-05-30 17:40:00", 905, kOut},
    {"14012345678", "2011-05-29 08:08:08", 9, kIn},
    {"13861113344", "2011-05-28 12:30:00", 367, kIn},
};

// Of made-up calls, one every so often.
constexpr std::uint64_t kCallDistance = 7 * 60'000;

}  // namespace

CallRecords DeliveredCalls(const AddressBook& book) {
    CallRecords calls;
    std::uint64_t id = std::size(kCalls);
    for (const auto& [number, time, duration, type] : kCalls) {
        calls.push_back({id--, std::string(number), LocalMilliseconds(time), duration, type,
                         book.NameOf(number).value_or("")});
    }
    // The clock was not set yet.
    calls.push_back({40, "112", 0, 0, kOut, ""});
    return calls;
}

CallRecords LargeCallRecords(std::uint32_t count) {
    CallRecords calls;
    calls.reserve(count);
    std::uint64_t date = LocalMilliseconds("2011-06-18 09:12:44");
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t type = i % 3 + 1;
        calls.push_back({count - i, fmt::format("138{:08}", i * 7919ull % 100'000'000), date,
                         type == kMissed ? 0 : i * 37ull % 4000, type,
                         i % 4 == 0 ? "" : Utf8(u8"联系人 ") + std::to_string(i + 1)});
        date -= kCallDistance;
    }
    return calls;
}

}  // namespace quorvi::phone

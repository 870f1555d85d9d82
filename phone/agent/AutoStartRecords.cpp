#include "phone/agent/AutoStartRecords.h"

#include <fmt/format.h>

#include <string_view>

#include "agent/StartEvents.h"
#include "base/Utf8.h"
#include "phone/agent/Applications.h"
#include "phone/agent/HostileTexts.h"

namespace quorvi::phone {
namespace {

struct Listener {
    std::string_view package;
    std::vector<std::uint32_t> events;
};

// Numbers of agent/StartEvents.h.
const std::vector<Listener>& Listeners() {
    static const std::vector<Listener> listeners{
        {"com.android.phone", {1, 3, 9, 71, 78, 80, 83}},
        {"com.android.mms", {1, 34, 79, 80, 81, 83}},
        {"com.android.systemui", {1, 4, 5, 6, 42, 43, 51}},
        {"com.android.alarmclock", {1, 44, 45, 46}},
        {"com.android.providers.calendar", {1, 10, 44, 57}},
        {"com.android.providers.media", {1, 22, 23, 26, 28}},
        {"com.android.providers.downloads", {1, 2, 11, 23}},
        {"com.android.email", {1, 2, 11, 12, 58}},
        {"com.android.bluetooth", {1, 98, 103, 104, 108, 131}},
        {"com.android.music", {15, 22, 19}},
        {"com.android.launcher", {33, 37, 38, 51, 67, 68}},
        {"com.example.weather", {1, 2, 10, 141, 142}},
        {"com.example.bus", {2, 74, 77}},
        {"com.example.chat", {1, 2, 43, 52, 86}},
        {"com.example.run", {1, 5}},
        {"com.example.dictionary", {1, 141}},
        {"com.android.gallery", {23, 69}},
    };
    return listeners;
}

}  // namespace

AutoStartRecords DeliveredAutoStarts() {
    AutoStartRecords records;
    for (const Listener& listener : Listeners()) {
        const std::string name = Utf8(ApplicationOf(listener.package).name);
        for (const std::uint32_t event : listener.events) {
            records.push_back({event, name, std::string(listener.package)});
        }
    }
    return records;
}

AutoStartRecords LargeAutoStarts(std::uint32_t count) {
    AutoStartRecords records;
    records.reserve(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        // Neighbours in the reply belong to events far apart.
        records.push_back({static_cast<std::uint32_t>(i * 53ull % kStartEvents),
                           Utf8(u8"应用 ") + std::to_string(i + 1),
                           fmt::format("com.example.made.up.n{}", i + 1)});
    }
    return records;
}

void AddHostileAutoStarts(AutoStartRecords& records) {
    for (std::uint32_t event = 0; const std::string& harm : HostileTexts()) {
        records.push_back({event, harm, "com.example.harm"});
        records.push_back({event++, "harm", harm});
    }
    records.push_back({kStartEvents, Utf8(u8"未知事件"), "com.example.unknown"});
}

}  // namespace quorvi::phone

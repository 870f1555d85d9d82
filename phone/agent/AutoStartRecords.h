// Which applications the phone starts on which event.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorvi::phone {

struct AutoStart {
    std::uint32_t event = 0;  // see agent/StartEvents.h
    std::string name;
    std::string package;
};

// In the order in which the phone's package list names them: application by application.
using AutoStartRecords = std::vector<AutoStart>;

[[nodiscard]] AutoStartRecords DeliveredAutoStarts();

// `count` records over all events.
[[nodiscard]] AutoStartRecords LargeAutoStarts(std::uint32_t count);

// Names that mean harm to whoever shows them, and at the end an event that there is not.
void AddHostileAutoStarts(AutoStartRecords& records);

}  // namespace quorvi::phone

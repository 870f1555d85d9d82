// The alarms of the phone's clock.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi::phone {

struct Alarm {
    std::uint64_t id = 0;
    std::uint32_t hour = 0;
    std::uint32_t minute = 0;
    std::uint32_t days = 0;  // bit 0 is Monday; 0: it goes off once
    std::uint32_t enabled = 0;
    std::uint32_t vibrate = 0;
    std::string label;
    std::uint64_t alertTime = 0;  // milliseconds since 1970; 0: the clock has not worked it out
    std::string alert;            // the address of its ring tone
};

class AlarmClock {
  public:
    std::vector<Alarm> alarms;

    [[nodiscard]] Alarm* Find(std::uint64_t id);
    // Under an id of its own, whatever the alarm's says.
    Alarm& Add(Alarm alarm);

  private:
    std::uint64_t lastId_ = 0;
};

// The title of the ring tone with that address; empty for one that the phone does not have.
[[nodiscard]] std::string ToneTitle(std::string_view alert);

// What the owner of the phone has set.
[[nodiscard]] AlarmClock DeliveredAlarms();

[[nodiscard]] AlarmClock LargeAlarmClock(std::uint32_t count);

// Alarms with hostile texts, and times that no clock shows.
void AddHostileAlarms(AlarmClock& clock);

}  // namespace quorvi::phone

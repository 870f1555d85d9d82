// All that the agent reads from and changes on its phone. Text is UTF-8.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "phone/Profile.h"

namespace quorvi::phone {

// What stands in the record of all system information, beside what the profile says.
struct PhoneFacts {
    std::string imei;
    std::string imsi;
    std::string cpu;
    std::string ram;
    std::string rom;
    std::string sdCard;
    std::string mobileNetwork;
    std::string wifiNetwork;
    std::uint32_t gps = 0;
    std::uint32_t bluetooth = 0;
    std::uint32_t wifi = 1;
    std::uint32_t gravity = 1;
    std::uint32_t brightness = 112;  // 0 to 255
};

class AgentData {
  public:
    explicit AgentData(const Profile& profile);

    Profile profile;
    std::uint32_t version = 0;
    PhoneFacts facts;

    [[nodiscard]] std::uint64_t MillisecondsSinceBoot() const;

  private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace quorvi::phone

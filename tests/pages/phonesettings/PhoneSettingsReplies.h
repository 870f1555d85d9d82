// Replies of a phone about its settings.
#pragma once

#include <cstdint>

#include "tests/support/WireBytes.h"

namespace quorvi {

struct ToldSettings {
    std::uint32_t wifi = 1;
    std::uint32_t bluetooth = 0;
    std::uint32_t airplane = 0;
    std::uint32_t gps = 1;
    std::uint32_t gravity = 1;
    std::uint32_t vibrate = 0;
    std::uint32_t backlight = 60'000;
    std::uint32_t ringVolume = 5;
    std::uint32_t musicVolume = 11;
    std::uint32_t dateFormat = 2;
    std::uint32_t time24 = 1;
};

inline WireBytes SettingsPayload(const ToldSettings& told = {}) {
    WireBytes bytes;
    bytes
        .U32(0)                 // leading word
        .U32(told.wifi)         //
        .U32(told.bluetooth)    //
        .U32(told.airplane)     //
        .U32(told.gps)          //
        .U32(told.gravity)      //
        .U32(told.vibrate)      //
        .U32(told.backlight)    // milliseconds
        .U32(told.ringVolume)   // step
        .U32(told.musicVolume)  // step
        .U32(told.dateFormat)   // index of the format: in front of the flag, whose key is lower
        .U32(told.time24);      //
    return bytes;
}

}  // namespace quorvi

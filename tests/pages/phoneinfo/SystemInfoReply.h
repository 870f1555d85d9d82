// The reply of a phone whose state the tests know.
#pragma once

#include "tests/support/WireBytes.h"

namespace quorvi {

struct StateWords {
    std::uint32_t gps = 1;
    std::uint32_t bluetooth = 0;
    std::uint32_t wifi = 1;
    std::uint32_t gravity = 0;
};

// A payload begins with a word that no reader looks at.
inline WireBytes LeadingWord() {
    return WireBytes().U32(0);
}

inline WireBytes WholeSystemInfo(std::string_view battery = "82", StateWords words = {}) {
    return LeadingWord()
        .Text("Aurora S2")          // model
        .U64(93'784'000)            // 1 day, 2 hours, 3 minutes, 4 seconds
        .Text("Android 2.3.4")      // system version
        .Text("356938035643809")    // IMEI
        .Text("460001234567890")    // IMSI
        .Text("480*800")            // resolution
        .Text(battery)              // battery level
        .Text("ARMv7 1.2GHz")       // CPU
        .Text("1024MB")             // RAM
        .Text("4GB")                // ROM
        .Text("5.62 GB / 7.39 GB")  // SD card
        .U32(words.gps)
        .U32(words.bluetooth)
        .U32(words.wifi)
        .U32(words.gravity)
        .Text("中国移动")  // mobile network
        .Text("home-wifi")
        .U32(128);  // brightness
}

}  // namespace quorvi

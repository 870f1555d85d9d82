// What kind of phone is pretended: the facts that adb and the agent report.
//
// All text of the simulated phone is UTF-8, as it is on a phone and on the wire.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace quorvi::phone {

struct Profile {
    std::string serial;        // ro.serialno
    std::string manufacturer;  // ro.product.manufacturer
    std::string brand;         // ro.product.brand
    std::string model;         // ro.product.model
    std::string fullModel;     // as the agent names the phone
    std::string androidVersion;
    int apiLevel = 10;
    int screenWidth = 480;
    int screenHeight = 800;
    int screenBits = 32;  // a pixel
    int battery = 82;     // per cent
};

// The phone that the simulated phone of this index pretends to be. Behind the last profile the
// first comes again, with another serial.
[[nodiscard]] Profile DeliveredProfile(std::size_t index);

// What getprop lists, in its order.
[[nodiscard]] std::vector<std::pair<std::string, std::string>> PropertiesOf(const Profile& profile);

}  // namespace quorvi::phone

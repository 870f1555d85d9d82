#include "online/WeatherCities.h"

#include <algorithm>

#include "base/Text.h"

namespace quorvi {
namespace {

struct City {
    std::u8string_view province;
    std::u8string_view name;
    int number;
};

constexpr City kCities[] = {
#include "online/data/WeatherCities.inc"
};

// No list offers it under its right name, but who has it stored gets its weather.
constexpr City kUnlisted{u8"江西", u8"抚州", 101240401};

bool HasName(const City& city, std::u8string_view name) {
    return city.name == name;
}

}  // namespace

const std::vector<Province>& WeatherProvinces() {
    static const std::vector<Province> provinces = [] {
        std::vector<Province> list;
        std::u8string_view last;
        for (const City& city : kCities) {
            if (list.empty() || city.province != last) {
                list.push_back({Ansi(city.province), {}});
                last = city.province;
            }
            list.back().cities.push_back(Ansi(city.name));
        }
        return list;
    }();
    return provinces;
}

std::string DefaultCity() {
    return Ansi(u8"北京");
}

int CityNumber(std::string_view city) {
    const std::string utf8 = ToUtf8(city);
    const std::u8string name(utf8.begin(), utf8.end());
    if (HasName(kUnlisted, name)) {
        return kUnlisted.number;
    }
    const auto* const found = std::find_if(std::begin(kCities), std::end(kCities),
                                           [&](const City& one) { return HasName(one, name); });
    return found == std::end(kCities) ? kDefaultCityNumber : found->number;
}

}  // namespace quorvi

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

// Null for a name that is not known. ANSI.
const City* Find(std::string_view city) {
    const std::string utf8 = ToUtf8(city);
    const std::u8string name(utf8.begin(), utf8.end());
    if (name == kUnlisted.name) {
        return &kUnlisted;
    }
    const auto* const found =
        std::ranges::find_if(kCities, [&](const City& one) { return one.name == name; });
    return found == std::end(kCities) ? nullptr : found;
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

bool IsWeatherCity(std::string_view city) {
    return Find(city) != nullptr;
}

int CityNumber(std::string_view city) {
    const City* const found = Find(city);
    return found == nullptr ? kDefaultCityNumber : found->number;
}

}  // namespace quorvi

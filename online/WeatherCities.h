// The cities of which the weather service tells. Texts are ANSI. Any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

struct Province {
    std::string name;
    std::vector<std::string> cities;
};

// In the order in which the user is offered them.
[[nodiscard]] const std::vector<Province>& WeatherProvinces();

// The city that is shown to who has chosen none, and whose number an unknown name gets.
[[nodiscard]] std::string DefaultCity();
inline constexpr int kDefaultCityNumber = 101010100;

// Whether the service knows a city by this name.
[[nodiscard]] bool IsWeatherCity(std::string_view city);

// The service's number of a city.
[[nodiscard]] int CityNumber(std::string_view city);

}  // namespace quorvi

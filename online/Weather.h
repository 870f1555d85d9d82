// Today's weather and that of the next days, as the weather service tells it.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/Deployment.h"
#include "base/SettingsStore.h"
#include "online/HttpTransfer.h"

namespace quorvi {

inline constexpr std::size_t kForecastDays = 6;

// What the day is good for, in the order in which it is shown.
enum class WeatherIndex {
    clothing,
    comfort,
    ultraviolet,
    ultravioletTomorrow,
    drying,
    carWash,
    travel,
    exercise,
};
inline constexpr std::size_t kWeatherIndexes = 8;

// Texts are ANSI and as the service gives them; empty where it gives none.
struct WeatherDay {
    std::string temperature;
    std::string weather;
    std::string wind;
    int icon = 0;  // 0 to 11
};

struct WeatherReport {
    std::string city;
    std::string updated;                         // "18:00"
    std::array<WeatherDay, kForecastDays> days;  // today is the first
    std::array<std::string, kWeatherIndexes> indexes;

    [[nodiscard]] const std::string& Index(WeatherIndex index) const {
        return indexes.at(static_cast<std::size_t>(index));
    }
};

// The icon that stands for the service's number of a weather.
[[nodiscard]] int WeatherIcon(int image);

// Reads a reply in UTF-8; nothing where it is none. Any thread.
[[nodiscard]] std::optional<WeatherReport> ParseWeather(std::string_view reply);

// Where the weather of a city is; `fresh` differs at each request, so that nothing on the way
// answers out of its memory.
[[nodiscard]] std::string WeatherUrl(const Deployment& deployment, int cityNumber,
                                     std::uint32_t fresh);

// Asks for a city by its name (CityNumber). Nothing where the service does not answer, or with
// something else. Waits.
[[nodiscard]] std::optional<WeatherReport> FetchWeather(const Deployment& deployment,
                                                        std::string_view city,
                                                        const HttpLimits& limits = {});

struct ForecastDate {
    std::string date;  // "2011-06-18"
    std::string day;   // 今天, or the day of the week. ANSI
};
// The days of a forecast that is shown at `now`, each 86,400 seconds behind the one before it, from
// midnight on, in local time.
[[nodiscard]] std::array<ForecastDate, kForecastDays> ForecastDates(
    std::chrono::system_clock::time_point now);

// The city that the user has chosen, by its name and by its places in the lists.
struct WeatherCity {
    std::string province = {};
    std::string city = {};
    std::uint32_t provinceIndex = 0;
    std::uint32_t cityIndex = 0;
};
// What is missing is the default city's.
[[nodiscard]] WeatherCity ReadWeatherCity(const SettingsStore& settings);
void WriteWeatherCity(SettingsStore& settings, const WeatherCity& city);
// Keeps today's weather, for displays that ask for none of their own.
void WriteWeatherState(SettingsStore& settings, const WeatherReport& report);

}  // namespace quorvi

#include "online/Weather.h"

#include <fmt/format.h>

#include <ctime>
#include <random>

#include "base/Json.h"
#include "base/Text.h"
#include "online/WeatherCities.h"

namespace quorvi {
namespace {

constexpr int kUnknownIcon = 11;

// By the service's numbers, as far as it uses them.
constexpr std::array<int, 32> kIcons{0, 1, 2, 4, 3,  3, 6, 4, 4, 5, 5, 5, 5, 7,  7,  7,
                                     8, 8, 9, 4, 10, 4, 5, 5, 5, 5, 7, 8, 8, 10, 10, 10};
constexpr int kOvercast = 99;
constexpr int kOvercastIcon = 2;

constexpr std::array<const char*, kWeatherIndexes> kIndexMembers{
    "index", "index_co", "index_uv", "index48_uv", "index_ls", "index_xc", "index_tr", "index_cl"};

constexpr std::array<std::u8string_view, 7> kWeekdays{
    u8"星期日", u8"星期一", u8"星期二", u8"星期三", u8"星期四", u8"星期五", u8"星期六"};

constexpr std::time_t kDaySeconds = 86400;

constexpr std::string_view kProvince = "province";
constexpr std::string_view kCity = "city";
constexpr std::string_view kProvinceIndex = "provinceIndex";
constexpr std::string_view kCityIndex = "cityIndex";
constexpr std::string_view kWeatherState = "weather_state";
constexpr std::string_view kWeatherIcon = "weather_icon";

// A member's text, a number's as it is written; empty for one that has none.
std::string MemberText(const Json::Value& info, const std::string& member) {
    const Json::Value& value = info[member];
    return value.isArray() || value.isObject() ? std::string() : ToAnsi(value.asString());
}

WeatherDay ReadDay(const Json::Value& info, std::size_t day) {
    // The pictures of a day and of its night have numbers of their own; that of the day is shown.
    return {.temperature = MemberText(info, fmt::format("temp{}", day)),
            .weather = MemberText(info, fmt::format("weather{}", day)),
            .wind = MemberText(info, fmt::format("wind{}", day)),
            .icon = WeatherIcon(ToInt(MemberText(info, fmt::format("img{}", day * 2 - 1))))};
}

std::uint32_t FreshNumber() {
    static thread_local std::mt19937 numbers{std::random_device{}()};
    return static_cast<std::uint32_t>(numbers() & 0x7FFFFFFFU);
}

}  // namespace

int WeatherIcon(int image) {
    if (image == kOvercast) {
        return kOvercastIcon;
    }
    return image >= 0 && image < static_cast<int>(kIcons.size())
               ? kIcons.at(static_cast<std::size_t>(image))
               : kUnknownIcon;
}

std::optional<WeatherReport> ParseWeather(std::string_view reply) {
    const auto document = ParseFirstJson(reply);
    if (!document || !document->isObject() || !(*document)["weatherinfo"].isObject()) {
        return std::nullopt;
    }
    const Json::Value& info = (*document)["weatherinfo"];
    WeatherReport report;
    report.city = MemberText(info, "city");
    if (const std::string hour = MemberText(info, "fchh"); !hour.empty()) {
        report.updated = hour + ":00";
    }
    for (std::size_t day = 0; day < kForecastDays; ++day) {
        report.days.at(day) = ReadDay(info, day + 1);
    }
    for (std::size_t index = 0; index < kWeatherIndexes; ++index) {
        report.indexes.at(index) = MemberText(info, kIndexMembers.at(index));
    }
    return report;
}

std::string WeatherUrl(const Deployment& deployment, int cityNumber, std::uint32_t fresh) {
    return fmt::format("http://{}/data/{}.html?{}", deployment.weatherHost, cityNumber, fresh);
}

std::optional<WeatherReport> FetchWeather(const Deployment& deployment, std::string_view city,
                                          const HttpLimits& limits) {
    const HttpReply reply =
        HttpGet(WeatherUrl(deployment, CityNumber(city), FreshNumber()), limits);
    return ParseWeather(reply.body);
}

std::array<ForecastDate, kForecastDays> ForecastDates(std::chrono::system_clock::time_point now) {
    const std::time_t today = std::chrono::system_clock::to_time_t(now);
    std::tm local{};
    localtime_r(&today, &local);
    local.tm_hour = local.tm_min = local.tm_sec = 0;
    local.tm_isdst = -1;
    const std::time_t midnight = std::mktime(&local);
    std::array<ForecastDate, kForecastDays> dates;
    for (std::size_t i = 0; i < dates.size(); ++i) {
        const std::time_t time = midnight + static_cast<std::time_t>(i) * kDaySeconds;
        std::tm day{};
        localtime_r(&time, &day);
        dates.at(i).date =
            fmt::format("{:04}-{:02}-{:02}", day.tm_year + 1900, day.tm_mon + 1, day.tm_mday);
        dates.at(i).day =
            Ansi(i == 0 ? u8"今天" : kWeekdays.at(static_cast<std::size_t>(day.tm_wday)));
    }
    return dates;
}

WeatherCity ReadWeatherCity(const SettingsStore& settings) {
    return {.province = settings.ReadText(kSettingsKey, kProvince).value_or(DefaultCity()),
            .city = settings.ReadText(kSettingsKey, kCity).value_or(DefaultCity()),
            .provinceIndex = settings.ReadNumber(kSettingsKey, kProvinceIndex).value_or(0),
            .cityIndex = settings.ReadNumber(kSettingsKey, kCityIndex).value_or(0)};
}

void WriteWeatherCity(SettingsStore& settings, const WeatherCity& city) {
    settings.WriteText(kSettingsKey, kProvince, city.province);
    settings.WriteText(kSettingsKey, kCity, city.city);
    settings.WriteNumber(kSettingsKey, kProvinceIndex, city.provinceIndex);
    settings.WriteNumber(kSettingsKey, kCityIndex, city.cityIndex);
}

void WriteWeatherState(SettingsStore& settings, const WeatherReport& report) {
    const WeatherDay& today = report.days.front();
    settings.WriteText(kSettingsKey, kWeatherState, today.weather + " " + today.temperature);
    settings.WriteNumber(kSettingsKey, kWeatherIcon, static_cast<std::uint32_t>(today.icon));
}

}  // namespace quorvi

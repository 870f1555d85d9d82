#include <array>
#include <chrono>
#include <optional>

#include "base/Json.h"
#include "base/SettingsFile.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "online/Weather.h"
#include "online/WeatherCities.h"

namespace quorvi::cli {
namespace {

// By WeatherIndex.
constexpr std::array<const char*, kWeatherIndexes> kIndexes{
    "clothing", "comfort",  "ultraviolet", "ultraviolet_tomorrow",
    "drying",   "car_wash", "travel",      "exercise"};

Json::Value DocumentOf(const WeatherReport& report,
                       const std::array<ForecastDate, kForecastDays>& dates) {
    const WeatherDay& today = report.days.front();
    Json::Value document;
    document["city"] = JsonText(report.city);
    document["updated"] = JsonText(report.updated);
    document["temperature"] = JsonText(today.temperature);
    document["weather"] = JsonText(today.weather);
    document["wind"] = JsonText(today.wind);
    for (std::size_t i = 0; i < kIndexes.size(); ++i) {
        document["indexes"][kIndexes.at(i)] = JsonText(report.indexes.at(i));
    }
    for (std::size_t i = 0; i < dates.size(); ++i) {
        Json::Value day;
        day["date"] = dates.at(i).date;
        day["weekday"] = JsonText(dates.at(i).day);
        day["weather"] = JsonText(report.days.at(i).weather);
        day["temperature"] = JsonText(report.days.at(i).temperature);
        day["wind"] = JsonText(report.days.at(i).wind);
        day["icon"] = report.days.at(i).icon;
        document["days"].append(day);
    }
    return document;
}

Table TableOf(const WeatherReport& report, const std::array<ForecastDate, kForecastDays>& dates) {
    Table table({u8"日期", u8"星期", u8"天气", u8"气温", u8"风向"});
    for (std::size_t i = 0; i < dates.size(); ++i) {
        const WeatherDay& day = report.days.at(i);
        table.AddRow({dates.at(i).date, dates.at(i).day, day.weather, day.temperature, day.wind});
    }
    return table;
}

}  // namespace

Status RunWeather(const Arguments& arguments, const Context& context, Output& output) {
    std::string city;
    if (const auto name = arguments.Option("--city")) {
        city = ToAnsi(*name);
        if (!IsWeatherCity(city)) {
            output.Complain(city + Ansi(u8": 没有这个城市的天气"));
            return Status::notFound;
        }
    } else {
        city = ReadWeatherCity(SettingsFile()).city;
    }
    const auto report = FetchWeather(context.deployment, city, context.limits);
    if (!report) {
        output.Complain(Ansi(u8"天气服务没有回答，请稍后再试"));
        return Status::noLink;
    }
    const auto dates = ForecastDates(std::chrono::system_clock::now());
    if (output.Json()) {
        output.PrintDocument(DocumentOf(*report, dates));
    } else {
        output.PrintLine(report->city + "  " + report->updated);
        output.PrintTable(TableOf(*report, dates));
    }
    return Status::done;
}

}  // namespace quorvi::cli

#include "site/Weather.h"

#include <fmt/format.h>

#include <array>
#include <map>
#include <string_view>

#include "base/Json.h"
#include "base/Utf8.h"
#include "online/WeatherCities.h"

namespace quorvi::site {
namespace {

struct Day {
    std::u8string_view weather;
    int image;  // the service's number of the weather
    int high;   // °C
    int low;
    std::u8string_view wind;
};

struct Sky {
    std::array<Day, 6> days;
    std::array<std::u8string_view, 8> indexes;  // in the order of kIndexMembers
};

constexpr std::array<const char*, 8> kIndexMembers{"index",    "index_co", "index_uv", "index48_uv",
                                                   "index_ls", "index_xc", "index_tr", "index_cl"};

// Each province has one of them, by its place in the list.
constexpr std::array<Sky, 4> kSkies{{
    {{{{u8"多云转晴", 1, 29, 21, u8"东南风3-4级"},
       {u8"小雨", 7, 26, 20, u8"东风3-4级"},
       {u8"中雨转大雨", 9, 24, 19, u8"东北风4-5级"},
       {u8"雷阵雨", 4, 27, 21, u8"东南风3-4级"},
       {u8"阴", 2, 28, 22, u8"微风"},
       {u8"晴", 0, 32, 23, u8"南风3-4级"}}},
     {u8"热，短袖衬衫即可", u8"较舒适", u8"中等", u8"弱", u8"适宜", u8"不宜，明天有雨", u8"适宜",
      u8"较适宜"}},
    {{{{u8"晴", 0, 33, 25, u8"南风3-4级"},
       {u8"晴转多云", 0, 34, 26, u8"南风3-4级"},
       {u8"多云", 1, 33, 26, u8"微风"},
       {u8"雷阵雨", 4, 30, 25, u8"西南风4-5级"},
       {u8"大雨", 9, 27, 23, u8"东南风5-6级"},
       {u8"阵雨转多云", 3, 29, 24, u8"微风"}}},
     {u8"炎热，穿得越薄越好", u8"闷热", u8"很强", u8"很强", u8"非常适宜", u8"适宜", u8"避开中午",
      u8"清早适宜"}},
    {{{{u8"阴", 2, 23, 17, u8"东北风3-4级"},
       {u8"小雨转阴", 7, 21, 16, u8"微风"},
       {u8"雾", 18, 22, 15, u8"微风"},
       {u8"多云", 1, 25, 16, u8"西北风3-4级"},
       {u8"晴", 0, 27, 17, u8"西北风3-4级"},
       {u8"晴", 0, 28, 18, u8"微风"}}},
     {u8"舒适，长袖衬衫加薄外套", u8"舒适", u8"最弱", u8"弱", u8"不太适宜", u8"不宜，明天有雨",
      u8"较适宜", u8"较适宜"}},
    {{{{u8"扬沙", 30, 19, 8, u8"西北风5-6级"},
       {u8"晴", 0, 17, 5, u8"西北风4-5级"},
       {u8"多云", 1, 15, 3, u8"北风3-4级"},
       {u8"雨夹雪", 6, 8, 0, u8"北风4-5级"},
       {u8"小雪", 14, 3, -4, u8"北风3-4级"},
       {u8"晴", 0, 9, -2, u8"微风"}}},
     {u8"凉，毛衣加外套", u8"偏凉", u8"中等", u8"强", u8"不宜，有沙尘", u8"不宜，有沙尘",
      u8"不太适宜", u8"不宜"}},
}};

struct City {
    std::string name;
    const Sky* sky;
};

// By their numbers. Where two have one, it is the first one's.
std::map<int, City> MakeCities() {
    std::map<int, City> cities;
    std::size_t place = 0;
    for (const Province& province : WeatherProvinces()) {
        const Sky& sky = kSkies.at(place++ % kSkies.size());
        for (const std::string& city : province.cities) {
            cities.emplace(CityNumber(city), City{city, &sky});
        }
    }
    return cities;
}

}  // namespace

std::optional<std::string> WeatherDocument(int cityNumber) {
    static const std::map<int, City> cities = MakeCities();
    const auto found = cities.find(cityNumber);
    if (found == cities.end()) {
        return std::nullopt;
    }
    Json::Value info;
    info["city"] = JsonText(found->second.name);
    info["cityid"] = std::to_string(cityNumber);
    info["fchh"] = "08";
    const Sky& sky = *found->second.sky;
    for (std::size_t i = 0; i < sky.days.size(); ++i) {
        const Day& day = sky.days.at(i);
        info[fmt::format("temp{}", i + 1)] =
            fmt::format("{}{}~{}{}", day.high, Utf8(u8"℃"), day.low, Utf8(u8"℃"));
        info[fmt::format("weather{}", i + 1)] = Utf8(day.weather);
        info[fmt::format("wind{}", i + 1)] = Utf8(day.wind);
        // A day has two pictures, of itself and of its night.
        info[fmt::format("img{}", i * 2 + 1)] = std::to_string(day.image);
        info[fmt::format("img{}", i * 2 + 2)] = std::to_string(day.image);
    }
    for (std::size_t i = 0; i < kIndexMembers.size(); ++i) {
        info[kIndexMembers.at(i)] = Utf8(sky.indexes.at(i));
    }
    Json::Value document;
    document["weatherinfo"] = info;
    return WriteJson(document, JsonForm::oneLine);
}

}  // namespace quorvi::site

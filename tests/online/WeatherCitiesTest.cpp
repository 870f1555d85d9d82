#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "base/Text.h"
#include "online/WeatherCities.h"

namespace quorvi {
namespace {

TEST(WeatherCities, AreThirtyFourProvincesWithFourHundredAndFiftyOneCities) {
    std::set<std::string> provinces;
    std::set<std::string> cities;
    for (const Province& province : WeatherProvinces()) {
        provinces.insert(province.name);
        cities.insert(province.cities.begin(), province.cities.end());
    }
    EXPECT_EQ(WeatherProvinces().size(), 34U);
    EXPECT_EQ(provinces.size(), 34U);
    EXPECT_EQ(cities.size(), 451U);  // no name twice, since it is what a city is found by
}

TEST(WeatherCities, StandInTheirOrder) {
    const auto& provinces = WeatherProvinces();
    EXPECT_EQ(provinces.front().name, Ansi(u8"北京"));
    EXPECT_EQ(provinces.front().cities.size(), 15U);
    EXPECT_EQ(provinces.front().cities.back(), Ansi(u8"平谷"));
    EXPECT_EQ(provinces[7].name, Ansi(u8"黑龙江"));
    EXPECT_EQ(provinces.back().name, Ansi(u8"海南"));
    EXPECT_EQ(provinces.back().cities.front(), Ansi(u8"三亚"));
    EXPECT_EQ(provinces.back().cities.back(), Ansi(u8"文昌"));
}

TEST(WeatherCities, HaveTheNumbersOfTheService) {
    EXPECT_EQ(CityNumber(Ansi(u8"朝阳")), 101010300);
    EXPECT_EQ(CityNumber(Ansi(u8"朝阳市")), 101071201);
    EXPECT_EQ(CityNumber(Ansi(u8"杭州")), 101210101);
    EXPECT_EQ(CityNumber(Ansi(u8"文昌")), 101310212);
    EXPECT_EQ(CityNumber(Ansi(u8"台东")), 101340204);
}

TEST(WeatherCities, AnUnknownNameHasTheNumberOfTheDefaultCity) {
    EXPECT_EQ(CityNumber(DefaultCity()), kDefaultCityNumber);
    EXPECT_EQ(CityNumber(""), kDefaultCityNumber);
    EXPECT_EQ(CityNumber(Ansi(u8"杭州市")), kDefaultCityNumber);
}

TEST(WeatherCities, AreKnownByTheirNames) {
    EXPECT_TRUE(IsWeatherCity(Ansi(u8"杭州")));
    EXPECT_TRUE(IsWeatherCity(Ansi(u8"抚州")));
    EXPECT_FALSE(IsWeatherCity(Ansi(u8"杭州市")));
    EXPECT_FALSE(IsWeatherCity(""));
}

TEST(WeatherCities, OneIsOfferedUnderASlipAndFoundUnderItsName) {
    const auto& provinces = WeatherProvinces();
    const auto jiangxi =
        std::find_if(provinces.begin(), provinces.end(),
                     [](const Province& province) { return province.name == Ansi(u8"江西"); });
    ASSERT_NE(jiangxi, provinces.end());
    EXPECT_EQ(std::count(jiangxi->cities.begin(), jiangxi->cities.end(), Ansi(u8"厦抚州")), 1);
    EXPECT_EQ(std::count(jiangxi->cities.begin(), jiangxi->cities.end(), Ansi(u8"抚州")), 0);
    EXPECT_EQ(CityNumber(Ansi(u8"厦抚州")), kDefaultCityNumber);
    EXPECT_EQ(CityNumber(Ansi(u8"抚州")), 101240401);
}

}  // namespace
}  // namespace quorvi

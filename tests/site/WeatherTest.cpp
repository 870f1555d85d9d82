#include <gtest/gtest.h>

#include "base/Text.h"
#include "online/Weather.h"
#include "online/WeatherCities.h"
#include "site/Weather.h"

namespace quorvi::site {
namespace {

TEST(SampleWeather, EveryCityOfTheListsHasSixWholeDays) {
    for (const Province& province : WeatherProvinces()) {
        for (const std::string& city : province.cities) {
            const auto document = WeatherDocument(CityNumber(city));
            ASSERT_TRUE(document) << ToUtf8(city);
            const auto report = ParseWeather(*document);
            ASSERT_TRUE(report) << ToUtf8(city);
            EXPECT_EQ(report->updated, "08:00");
            for (const WeatherDay& day : report->days) {
                EXPECT_NE(day.weather, "") << ToUtf8(city);
                EXPECT_NE(day.temperature, "") << ToUtf8(city);
                EXPECT_NE(day.wind, "") << ToUtf8(city);
            }
            for (const std::string& index : report->indexes) {
                EXPECT_NE(index, "") << ToUtf8(city);
            }
        }
    }
}

TEST(SampleWeather, ACityIsToldByItsName) {
    const auto report = ParseWeather(WeatherDocument(101210101).value_or(""));
    ASSERT_TRUE(report);
    EXPECT_EQ(ToUtf8(report->city), "杭州");
}

TEST(SampleWeather, IsTheSameEachTime) {
    EXPECT_EQ(WeatherDocument(101010100), WeatherDocument(101010100));
}

TEST(SampleWeather, ANumberThatNoCityHasHasNone) {
    EXPECT_FALSE(WeatherDocument(0));
    EXPECT_FALSE(WeatherDocument(999));
}

}  // namespace
}  // namespace quorvi::site

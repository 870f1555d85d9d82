#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <set>

#include "base/ByteText.h"
#include "base/Text.h"
#include "online/Weather.h"
#include "online/WeatherCities.h"
#include "tests/online/SiteFaults.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/MemorySettings.h"
#include "tests/support/SiteServer.h"

namespace quorvi {
namespace {

// What the service says of a city.
std::string SampleReply() {
    std::string info = "\"city\":\"杭州\",\"fchh\":\"18\"";
    for (int day = 1; day <= 6; ++day) {
        info += fmt::format(
            ",\"temp{0}\":\"{0}℃~1{0}℃\",\"weather{0}\":\"晴{0}\",\"wind{0}\":\"东风{0}级\"", day);
    }
    info +=
        ",\"img1\":\"0\",\"img2\":\"7\",\"img3\":\"1\",\"img5\":\"3\",\"img7\":\"99\",\"img9\":"
        "\"18\","
        "\"img11\":\"100\"";
    info +=
        ",\"index\":\"炎热\",\"index_co\":\"较差\",\"index_uv\":\"强\",\"index48_uv\":\"很强\","
        "\"index_ls\":\"极适宜\",\"index_xc\":\"适宜\",\"index_tr\":\"较适宜\",\"index_cl\":"
        "\"不宜\"";
    return "{\"weatherinfo\":{" + info + "}}";
}

TEST(WeatherTest, ReadsTodayTheDaysBehindItAndTheIndexes) {
    const WeatherReport report = ParseWeather(SampleReply()).value();
    EXPECT_EQ(report.city, Ansi(u8"杭州"));
    EXPECT_EQ(report.updated, "18:00");
    EXPECT_EQ(report.days[0].temperature, Ansi(u8"1℃~11℃"));
    EXPECT_EQ(report.days[0].weather, Ansi(u8"晴1"));
    EXPECT_EQ(report.days[5].wind, Ansi(u8"东风6级"));
    EXPECT_EQ(report.Index(WeatherIndex::clothing), Ansi(u8"炎热"));
    EXPECT_EQ(report.Index(WeatherIndex::comfort), Ansi(u8"较差"));
    EXPECT_EQ(report.Index(WeatherIndex::ultraviolet), Ansi(u8"强"));
    EXPECT_EQ(report.Index(WeatherIndex::ultravioletTomorrow), Ansi(u8"很强"));
    EXPECT_EQ(report.Index(WeatherIndex::drying), Ansi(u8"极适宜"));
    EXPECT_EQ(report.Index(WeatherIndex::carWash), Ansi(u8"适宜"));
    EXPECT_EQ(report.Index(WeatherIndex::travel), Ansi(u8"较适宜"));
    EXPECT_EQ(report.Index(WeatherIndex::exercise), Ansi(u8"不宜"));
}

TEST(WeatherTest, TheIconOfADayIsThatOfItsFirstPicture) {
    const WeatherReport report = ParseWeather(SampleReply()).value();
    std::vector<int> icons;
    for (const WeatherDay& day : report.days) {
        icons.push_back(day.icon);
    }
    EXPECT_EQ(icons, (std::vector<int>{0, 1, 4, 2, 9, 11}));
}

TEST(WeatherTest, MissingMembersAndThoseOfOtherTypesAreEmpty) {
    const WeatherReport report =
        ParseWeather(R"({"weatherinfo":{"city":["a"],"temp1":25,"weather1":{},"img1":"x"}})")
            .value();
    EXPECT_EQ(report.city, "");
    EXPECT_EQ(report.updated, "");
    EXPECT_EQ(report.days[0].temperature, "25");
    EXPECT_EQ(report.days[0].weather, "");
    EXPECT_EQ(report.days[0].icon, 0);
    EXPECT_EQ(report.Index(WeatherIndex::exercise), "");
}

TEST(WeatherTest, AReplyOfAnotherFormIsNone) {
    for (const char* reply : {"", "{}", "[]", "null", "{\"weatherinfo\":\"sunny\"}",
                              "{\"weatherinfo\":[]}", "<html></html>", "{\"weatherinfo\":{"}) {
        EXPECT_FALSE(ParseWeather(reply).has_value()) << reply;
    }
}

TEST(WeatherIconTest, FollowsTheTable) {
    const std::vector<int> expected{0, 1, 2, 4, 3,  3, 6, 4, 4, 5, 5, 5, 5, 7,  7,  7,
                                    8, 8, 9, 4, 10, 4, 5, 5, 5, 5, 7, 8, 8, 10, 10, 10};
    for (std::size_t image = 0; image < expected.size(); ++image) {
        EXPECT_EQ(WeatherIcon(static_cast<int>(image)), expected[image]) << image;
    }
    EXPECT_EQ(WeatherIcon(32), 11);
    EXPECT_EQ(WeatherIcon(98), 11);
}

TEST(WeatherIconTest, OfNinetyNineIsTwoAndBeyondItEleven) {
    EXPECT_EQ(WeatherIcon(99), 2);
    EXPECT_EQ(WeatherIcon(100), 11);
    EXPECT_EQ(WeatherIcon(-1), 11);
}

TEST(WeatherUrlTest, NamesTheCityAndAFreshNumber) {
    EXPECT_EQ(WeatherUrl({.weatherHost = "w.example"}, 101210101, 7),
              "http://w.example/data/101210101.html?7");
}

// A service that nginx plays; its host holds the port.
Deployment ServiceAt(const SiteServer& site) {
    const std::string root = site.Root();
    const std::string host = root.substr(sizeof("http://") - 1);
    return {.weatherHost = host.substr(0, host.size() - 1)};
}

TEST(FetchWeatherTest, AsksForTheCityByItsNumber) {
    const SiteServer site;
    site.Serve("data/101210101.html", SampleReply());
    EXPECT_EQ(FetchWeather(ServiceAt(site), Ansi(u8"杭州")).value().city, Ansi(u8"杭州"));
}

TEST(FetchWeatherTest, EachRequestHasAFreshNumber) {
    const SiteServer site;
    site.Serve("data/101010100.html", SampleReply());
    for (int i = 0; i < 3; ++i) {
        static_cast<void>(FetchWeather(ServiceAt(site), DefaultCity()));
    }
    std::set<std::string> lines;
    for (const SiteRequest& request : site.Requests(3)) {
        EXPECT_TRUE(request.line.starts_with("GET /data/101010100.html?")) << request.line;
        lines.insert(request.line);
    }
    EXPECT_EQ(lines.size(), 3U);
}

TEST(FetchWeatherTest, AnUnknownNameAsksForTheDefaultCity) {
    const SiteServer site;
    site.Serve("data/101010100.html", SampleReply());
    EXPECT_TRUE(FetchWeather(ServiceAt(site), Ansi(u8"不在表中")).has_value());
}

class WeatherFaults : public testing::TestWithParam<SiteFault> {};

TEST_P(WeatherFaults, GiveNoReport) {
    const SiteFault& fault = GetParam();
    LoopbackAgent site({.bytes = ToBytes(fault.answer), .end = fault.end});
    EXPECT_FALSE(FetchWeather({.weatherHost = fmt::format("127.0.0.1:{}", site.Port())},
                              DefaultCity(), fault.limits)
                     .has_value());
}

INSTANTIATE_TEST_SUITE_P(Site, WeatherFaults, testing::ValuesIn(SiteFaults(SampleReply())),
                         NameOfFault);

TEST(FetchWeatherTest, AServiceThatIsNotThereGivesNoReport) {
    const SiteServer site;
    EXPECT_FALSE(FetchWeather(ServiceAt(site), DefaultCity()).has_value());
    EXPECT_FALSE(FetchWeather({.weatherHost = "host.invalid"}, DefaultCity()).has_value());
}

// In China's time, whatever the machine's.
class ForecastDatesTest : public testing::Test {
  protected:
    ForecastDatesTest() { tzset(); }
    ~ForecastDatesTest() override { tzset(); }

    EnvironmentVariable zone_{"TZ", "Asia/Shanghai"};
};

TEST_F(ForecastDatesTest, AreTodayAndTheWeekdaysBehindIt) {
    // 2011-12-29 23:30 in Shanghai, a Thursday.
    const auto dates = ForecastDates(std::chrono::system_clock::from_time_t(1325172600));
    EXPECT_EQ(dates[0].date, "2011-12-29");
    EXPECT_EQ(dates[0].day, Ansi(u8"今天"));
    EXPECT_EQ(dates[1].date, "2011-12-30");
    EXPECT_EQ(dates[1].day, Ansi(u8"星期五"));
    EXPECT_EQ(dates[2].day, Ansi(u8"星期六"));
    EXPECT_EQ(dates[3].date, "2012-01-01");
    EXPECT_EQ(dates[3].day, Ansi(u8"星期日"));
    EXPECT_EQ(dates[5].date, "2012-01-03");
    EXPECT_EQ(dates[5].day, Ansi(u8"星期二"));
}

TEST(WeatherCityTest, WithoutSettingsItIsTheDefaultCity) {
    const WeatherCity city = ReadWeatherCity(MemorySettings());
    EXPECT_EQ(city.province, Ansi(u8"北京"));
    EXPECT_EQ(city.city, Ansi(u8"北京"));
    EXPECT_EQ(city.provinceIndex, 0U);
    EXPECT_EQ(city.cityIndex, 0U);
}

TEST(WeatherCityTest, IsReadBackAsItWasWritten) {
    MemorySettings settings;
    WriteWeatherCity(settings, {Ansi(u8"浙江"), Ansi(u8"杭州"), 23, 0});
    EXPECT_EQ(settings.texts.at({std::string(kSettingsKey), "province"}), Ansi(u8"浙江"));
    EXPECT_EQ(settings.texts.at({std::string(kSettingsKey), "city"}), Ansi(u8"杭州"));
    EXPECT_EQ(settings.numbers.at({std::string(kSettingsKey), "provinceIndex"}), 23U);
    EXPECT_EQ(settings.numbers.at({std::string(kSettingsKey), "cityIndex"}), 0U);
    EXPECT_EQ(ReadWeatherCity(settings).city, Ansi(u8"杭州"));
}

TEST(WeatherStateTest, IsTodaysWeatherAndTemperature) {
    MemorySettings settings;
    WriteWeatherState(settings, ParseWeather(SampleReply()).value());
    EXPECT_EQ(settings.texts.at({std::string(kSettingsKey), "weather_state"}),
              Ansi(u8"晴1 1℃~11℃"));
    EXPECT_EQ(settings.numbers.at({std::string(kSettingsKey), "weather_icon"}), 0U);
}

}  // namespace
}  // namespace quorvi

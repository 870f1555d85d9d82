// The page of dialog 530 and its dialog 569, driven by control number, with a real server as the
// service.
#include <fmt/format.h>

#include <QAbstractButton>
#include <QLabel>
#include <optional>

#include "online/WeatherCities.h"
#include "pages/weather/WeatherCityDlg.h"
#include "pages/weather/WeatherPage.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/LoopbackPort.h"
#include "tests/support/PageTest.h"
#include "tests/support/SiteServer.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinPanels.h"
#include "ui/list/SkinListCtrl.h"

namespace quorvi {
namespace {

std::string Reply(std::string_view city) {
    return fmt::format(
        R"({{"weatherinfo":{{"city":"{}","fchh":"08","temp1":"29℃~21℃","temp6":"<b>32</b>",)"
        R"("weather1":"多云","wind1":"东南风","wind6":"南风","img1":"1","img11":"99",)"
        R"("index":"热","index_co":"1","index_uv":"2","index48_uv":"3","index_ls":"4",)"
        R"("index_xc":"5","index_tr":"6","index_cl":"7"}}}})",
        city);
}

class WeatherPageTest : public PageTest {
  protected:
    // The service has these two cities.
    WeatherPageTest() {
        site_.Serve("data/101010100.html", Reply("北京"));
        site_.Serve("data/101210101.html", Reply("杭州"));
        const std::string root = site_.Root();
        services_.deployment.weatherHost = root.substr(7, root.size() - 8);
    }
    void Open() {
        page_ = std::make_unique<WeatherPage>(host_, services_.At(UnusedPort()));
        page_->resize(760, 462);
        page_->show();
    }
    void Update() {
        page_->StartWeatherUpdate();
        Settle();
    }
    [[nodiscard]] QString City() { return FindControl<QAbstractButton>(page_.get(), 1127)->text(); }
    [[nodiscard]] QString Text(int number) {
        return FindControl<QLabel>(page_.get(), number)->text();
    }
    [[nodiscard]] CSkinListCtrl& List() {
        return *page_->findChild<CSkinListCtrl*>(QStringLiteral("forecastList"));
    }
    [[nodiscard]] static CSkinCombo& Box(const char* name) {
        return *OpenDialog(569)->findChild<CSkinCombo*>(QString::fromLatin1(name));
    }

    SiteServer site_;
    std::unique_ptr<WeatherPage> page_;
};

TEST_F(WeatherPageTest, WithoutSettingsItShowsTheDefaultCityAndAsksNobody) {
    Open();
    Settle();
    EXPECT_EQ(page_->objectName(), QStringLiteral("dialog 530"));
    EXPECT_EQ(City(), ToQString(u8"北京"));
    EXPECT_EQ(List().RowCount(), 0);
}

TEST_F(WeatherPageTest, AnUpdateFillsAllIn) {
    Open();
    Update();
    EXPECT_EQ(City(), ToQString(u8"北京"));
    EXPECT_EQ(Text(1305), QStringLiteral("08:00"));
    EXPECT_EQ(Text(1122), ToQString(u8"29℃~21℃"));
    EXPECT_EQ(Text(1306), ToQString(u8"多云"));
    EXPECT_EQ(Text(1124), ToQString(u8"东南风"));
    EXPECT_EQ(FindControl<IconLabel>(page_.get(), 1308)->Icon(), QStringLiteral("weather-1"));
    EXPECT_EQ(Text(1311), ToQString(u8"热"));
    for (int index = 1; index < 8; ++index) {
        EXPECT_EQ(Text(1311 + index), QString::number(index));
    }
}

TEST_F(WeatherPageTest, TheListHasSixDays) {
    Open();
    Update();
    ASSERT_EQ(List().RowCount(), 6);
    EXPECT_EQ(List().CellAt(0, 0).text, ToQString(u8"今天"));
    EXPECT_EQ(List().CellAt(0, 0).icon, QStringLiteral("weather-1"));
    EXPECT_EQ(List().CellAt(0, 2).text, ToQString(u8"多云"));
    EXPECT_EQ(List().CellAt(5, 0).icon, QStringLiteral("weather-2"));
    EXPECT_EQ(List().CellAt(5, 4).text, ToQString(u8"南风"));
    EXPECT_EQ(List().CellAt(5, 3).text, QStringLiteral("<b>32</b>"));
    const auto dates = ForecastDates(std::chrono::system_clock::now());
    EXPECT_EQ(List().CellAt(5, 1).text, ToQString(dates[5].date));
    EXPECT_EQ(List().CellAt(5, 0).text, ToQString(dates[5].day));
}

TEST_F(WeatherPageTest, KeepsTodaysWeatherForOtherDisplays) {
    Open();
    Update();
    EXPECT_EQ(host_.settings.ReadText(kSettingsKey, "weather_state"), Ansi(u8"多云 29℃~21℃"));
    EXPECT_EQ(host_.settings.ReadNumber(kSettingsKey, "weather_icon"), 1U);
}

TEST_F(WeatherPageTest, ANameThatNobodyKnowsStaysUntilTheReply) {
    host_.settings.WriteText(kSettingsKey, "city", Ansi(u8"不在表中"));
    Open();
    EXPECT_EQ(City(), ToQString(u8"不在表中"));
    Update();
    EXPECT_EQ(City(), ToQString(u8"北京"));
    EXPECT_TRUE(site_.Requests(1).at(0).line.starts_with("GET /data/101010100.html?"));
}

TEST_F(WeatherPageTest, AServiceThatDoesNotAnswerLeavesAllAsItWasAndTheStatusSaysSo) {
    Open();
    Update();
    site_.Serve("data/101010100.html", "<html>");
    Update();
    EXPECT_EQ(List().RowCount(), 6);
    EXPECT_EQ(Text(1305), QStringLiteral("08:00"));
    EXPECT_EQ(host_.status, ToQString(u8"【X】天气服务没有回答，请稍后再试"));
    site_.Serve("data/101010100.html", Reply("北京"));
    Update();
    EXPECT_EQ(host_.status, kReady);
}

TEST_F(WeatherPageTest, OneUpdateGoesOnAtATime) {
    Open();
    page_->StartWeatherUpdate();
    page_->StartWeatherUpdate();
    Settle();
    EXPECT_EQ(site_.Requests(1).size(), 1U);
}

TEST_F(WeatherPageTest, AChosenCityIsKeptAndItsWeatherFetched) {
    Open();
    FindControl<QAbstractButton>(page_.get(), 1127)->click();
    ASSERT_NE(OpenDialog(569), nullptr);
    Box("province").setCurrentText(ToQString(u8"浙江"));
    EXPECT_EQ(Box("city").count(), 11);
    Box("city").setCurrentText(ToQString(u8"杭州"));
    PressIn(569, 1);
    Settle();
    EXPECT_EQ(City(), ToQString(u8"杭州"));
    EXPECT_EQ(host_.settings.ReadText(kSettingsKey, "province"), Ansi(u8"浙江"));
    EXPECT_EQ(host_.settings.ReadText(kSettingsKey, "city"), Ansi(u8"杭州"));
    EXPECT_EQ(WeatherProvinces().at(*host_.settings.ReadNumber(kSettingsKey, "provinceIndex")).name,
              Ansi(u8"浙江"));
    EXPECT_EQ(host_.settings.ReadNumber(kSettingsKey, "cityIndex"), 0U);
}

TEST_F(WeatherPageTest, ACancelledChoiceChangesNothing) {
    Open();
    FindControl<QAbstractButton>(page_.get(), 1127)->click();
    Box("province").setCurrentIndex(5);
    PressIn(569, 2);
    Settle();
    EXPECT_EQ(City(), ToQString(u8"北京"));
    EXPECT_TRUE(host_.settings.texts.empty());
    EXPECT_TRUE(host_.settings.numbers.empty());
}

TEST_F(WeatherPageTest, MayGoWhileTheServiceDoesNotAnswer) {
    std::optional<TcpSocket> silent = ListenOn(0);  // where nobody takes the connection up
    services_.deployment.weatherHost = fmt::format("127.0.0.1:{}", PortOf(*silent));
    Open();
    page_->StartWeatherUpdate();
    page_.reset();
    silent.reset();
    Settle();
}

class WeatherCityDlgTest : public PageTest {
  protected:
    void Open(const WeatherCity& before) {
        dialog_ = std::make_unique<WeatherCityDlg>(before);
        dialog_->show();
    }
    [[nodiscard]] CSkinCombo& Box(const char* name) {
        return *dialog_->findChild<CSkinCombo*>(QString::fromLatin1(name));
    }
    std::unique_ptr<WeatherCityDlg> dialog_;
};

TEST_F(WeatherCityDlgTest, OffersTheProvincesInTheirOrder) {
    Open({});
    EXPECT_EQ(dialog_->objectName(), QStringLiteral("dialog 569"));
    ASSERT_EQ(Box("province").count(), 34);
    EXPECT_EQ(Box("province").itemText(33), ToQString(u8"海南"));
    EXPECT_EQ(Box("city").count(), 15);
}

TEST_F(WeatherCityDlgTest, OpensOnTheChoiceBefore) {
    Open({.provinceIndex = 1, .cityIndex = 3});
    EXPECT_EQ(Box("province").currentText(), ToQString(u8"上海"));
    EXPECT_EQ(Box("city").currentText(), ToQString(u8"嘉定"));
    EXPECT_EQ(dialog_->Choice().city, Ansi(u8"嘉定"));
}

TEST_F(WeatherCityDlgTest, AnotherProvinceStartsAtItsFirstCity) {
    Open({.provinceIndex = 1, .cityIndex = 3});
    Box("province").setCurrentIndex(2);
    EXPECT_EQ(Box("city").currentText(), ToQString(u8"天津"));
    EXPECT_EQ(Box("city").count(), 13);
}

TEST_F(WeatherCityDlgTest, PlacesThatThereAreNotAreTheFirst) {
    Open({.provinceIndex = 4'000'000'000, .cityIndex = 99});
    EXPECT_EQ(Box("province").currentIndex(), 0);
    EXPECT_EQ(Box("city").currentIndex(), 0);
}

}  // namespace
}  // namespace quorvi

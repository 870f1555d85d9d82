// Today's weather in the user's city, and that of the days behind it.
#pragma once

#include <array>

#include "base/Deployment.h"
#include "online/Weather.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "ui/page/Page.h"
#include "ui/page/PageLoad.h"

class QLabel;

namespace quorvi {

class ForecastListCtrl;
class IconLabel;
class SkinLink;

// Dialog 530. It has no row in the navigator's table, so that nothing shows it and nothing asks for
// the weather; it is whole, and ready for one.
class WeatherPage : public Page {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kWeatherPage;
    static constexpr int kCity = 1127;
    static constexpr int kUpdated = 1305;
    static constexpr int kTemperature = 1122;
    static constexpr int kWeather = 1306;
    static constexpr int kWind = 1124;
    static constexpr int kIcon = 1308;
    static constexpr int kFirstIndex = 1311;  // the others behind it, in the order of WeatherIndex

    WeatherPage(PageHost& host, const Services& services, QWidget* parent = nullptr);

    void Load() override { StartWeatherUpdate(); }
    // Asks for the weather of the chosen city, unless that goes on already. A service that does not
    // answer leaves all as it was, and the status says so.
    void StartWeatherUpdate();

  private:
    [[nodiscard]] QWidget* MakeToday();
    [[nodiscard]] QWidget* MakeIndexes();
    void ShowCity(const QString& name);
    void Show(const WeatherReport& report);
    void ChooseCity();

    Deployment service_;
    PageLoad load_{*this};
    bool again_ = false;  // the city was changed while a fetch went on

    SkinLink* city_;
    QLabel* updated_;
    IconLabel* icon_;
    QLabel* temperature_;
    QLabel* weather_;
    QLabel* wind_;
    std::array<QLabel*, kWeatherIndexes> indexes_{};
    ForecastListCtrl* list_;
};

}  // namespace quorvi

#include "pages/weather/WeatherPage.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>
#include <optional>
#include <utility>
#include <vector>

#include "pages/weather/WeatherCityDlg.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinLabels.h"
#include "ui/kit/SkinPanels.h"
#include "ui/list/RecordListCtrl.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;
using look::Size;

constexpr std::array<std::u8string_view, kWeatherIndexes> kIndexCaptions{
    u8"穿衣指数：", u8"当前舒适度：", u8"当前紫外线：", u8"明天紫外线：",
    u8"晾晒：",     u8"洗车：",       u8"旅游：",       u8"晨练：",
};
constexpr int kIndexColumns = 2;

enum Column : int { columnDay, columnDate, columnWeather, columnTemperature, columnWind };

constexpr std::array<ListColumn, 5> kColumns{{
    {.caption = u8"星期",
     .width = Metric::forecastDay,
     .kind = CellKind::iconText,
     .cells = CellAlign::left},
    {u8"日期", Metric::forecastDate},
    {.caption = u8"天气", .width = Metric::forecastWeather, .name = true},
    {u8"气温", Metric::forecastTemperature},
    {u8"风向", Metric::forecastWind},
}};

constexpr std::u8string_view kUnreachable = u8"【X】天气服务没有回答，请稍后再试";

struct ForecastRow {
    ForecastDate date;
    WeatherDay day;
};

QString IconOf(const WeatherDay& day) {
    return QStringLiteral("weather-%1").arg(day.icon);
}

// The ground of today's weather, which grows light from its top to its foot.
class TodayPanel : public QWidget {
  protected:
    void paintEvent(QPaintEvent*) override {
        constexpr qreal kLightFrom = 0.56;  // of the height
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF area = look::snapped(painter, rect());
        QLinearGradient ground(area.topLeft(), area.bottomLeft());
        ground.setColorAt(0, look::color(Color::rowHover));
        ground.setColorAt(kLightFrom, look::color(Color::rowLight));
        ground.setColorAt(1, look::color(Color::surface));
        QPainterPath shape;
        shape.addRoundedRect(area, Metric::radiusPanel, Metric::radiusPanel);
        painter.fillPath(shape, ground);
        look::plate(painter, rect(), Metric::radiusPanel, Qt::transparent,
                    look::color(Color::rowBorder));
    }
};

QLabel* Value(Size size = Size::s13) {
    return new PlainLabel({}, size, Color::ink);
}

}  // namespace

class ForecastListCtrl : public RecordListCtrl<ForecastRow> {
  public:
    using RecordListCtrl::RecordListCtrl;

  protected:
    [[nodiscard]] Cell CellOf(const ForecastRow& record, int column) const override {
        switch (column) {
            case columnDay:
                return {.text = ToQString(record.date.day),
                        .icon = IconOf(record.day),
                        .iconInk = Color::ink2};
            case columnDate:
                return {.text = ToQString(record.date.date)};
            case columnWeather:
                return {.text = ToQString(record.day.weather)};
            case columnTemperature:
                return {.text = ToQString(record.day.temperature)};
            default:
                return {.text = ToQString(record.day.wind)};
        }
    }
};

WeatherPage::WeatherPage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      service_(services.deployment),
      city_(SetControlNumber(new SkinLink({}), kCity)),
      updated_(SetControlNumber(new RemarkLabel, kUpdated)),
      icon_(new IconLabel({}, Metric::weatherIcon)),
      temperature_(SetControlNumber(Value(Size::s20), kTemperature)),
      weather_(SetControlNumber(Value(), kWeather)),
      wind_(SetControlNumber(Value(), kWind)),
      list_(new ForecastListCtrl(kColumns, Metric::rowCompact)) {
    icon_->setObjectName(QString::number(kIcon));
    list_->setObjectName(QStringLiteral("forecastList"));
    list_->setAccessibleName(ToQString(u8"天气预报"));
    list_->setFixedHeight(Metric::forecastHeight);
    list_->SetEmptyText(ToQString(u8"还没有天气预报"), ToQString(u8"点城市的名称，选择所在的城市"));
    auto* cards = new QHBoxLayout;
    cards->setSpacing(Metric::gap3);
    cards->addWidget(MakeToday());
    cards->addWidget(MakeIndexes(), 1);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(Metric::gap3);
    rows->addLayout(cards, 1);
    rows->addWidget(list_);
    connect(city_, &QAbstractButton::clicked, this, &WeatherPage::ChooseCity);
    ShowCity(ToQString(ReadWeatherCity(host.Settings()).city));
}

QWidget* WeatherPage::MakeToday() {
    city_->setFont(look::font(Size::s16, true));
    auto* head = new QHBoxLayout;
    head->setSpacing(Metric::gap1);
    head->addWidget(city_);
    head->addWidget(new IconLabel(QStringLiteral("chevron-down"), Metric::iconButton));
    head->addStretch();
    head->addWidget(new RemarkLabel(ToQString(u8"更新：")));
    head->addWidget(updated_);

    auto* degrees = new QVBoxLayout;
    degrees->setSpacing(0);
    degrees->addStretch();
    degrees->addWidget(new RemarkLabel(ToQString(u8"气温：")));
    degrees->addWidget(temperature_);
    degrees->addStretch();
    auto* now = new QHBoxLayout;
    now->setSpacing(Metric::gap4);
    now->addWidget(icon_);
    now->addLayout(degrees, 1);

    auto* words = new QGridLayout;
    words->setHorizontalSpacing(Metric::gap1);
    words->setVerticalSpacing(Metric::gap2);
    words->setColumnStretch(1, 1);
    words->addWidget(new RemarkLabel(ToQString(u8"天气：")), 0, 0);
    words->addWidget(weather_, 0, 1);
    words->addWidget(new RemarkLabel(ToQString(u8"风向：")), 1, 0);
    words->addWidget(wind_, 1, 1);

    auto* panel = new TodayPanel;
    panel->setFixedWidth(Metric::weatherToday);
    auto* rows = new QVBoxLayout(panel);
    rows->setContentsMargins(Metric::gap4, Metric::gap4, Metric::gap4, Metric::gap4);
    rows->setSpacing(Metric::gap3);
    rows->addLayout(head);
    rows->addLayout(now, 1);
    rows->addWidget(new PanelRule(Qt::Horizontal));
    rows->addLayout(words);
    return panel;
}

QWidget* WeatherPage::MakeIndexes() {
    auto* group = new CSkinGroupBox(ToQString(u8"生活指数"));
    auto* grid = new QGridLayout(group);
    grid->setContentsMargins({});
    grid->setHorizontalSpacing(Metric::gap2);
    for (int i = 0; i < static_cast<int>(kWeatherIndexes); ++i) {
        const auto place = static_cast<std::size_t>(i);
        const int row = i / kIndexColumns;
        const int column = i % kIndexColumns * 2;
        auto* caption = new RemarkLabel(ToQString(kIndexCaptions.at(place)));
        caption->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        indexes_.at(place) = SetControlNumber(Value(), kFirstIndex + i);
        grid->addWidget(caption, row, column);
        grid->addWidget(indexes_.at(place), row, column + 1);
        grid->setRowStretch(row, 1);
        grid->setColumnStretch(column + 1, 1);
    }
    return group;
}

void WeatherPage::ShowCity(const QString& name) {
    city_->setText(name);
    city_->setAccessibleName(name);
    city_->updateGeometry();
}

void WeatherPage::StartWeatherUpdate() {
    load_.Start(
        [&settings = Host().Settings(), service = service_,
         this](const LoadProgress& progress) -> std::optional<WeatherReport> {
            const std::string city = ReadWeatherCity(settings).city;
            progress([this, city] { ShowCity(ToQString(city)); });
            std::optional<WeatherReport> report = FetchWeather(service, city);
            if (report) {
                WriteWeatherState(settings, *report);
            }
            return report;
        },
        [this](const std::optional<WeatherReport>& report) {
            const QString unreachable = ToQString(kUnreachable);
            if (report) {
                Show(*report);
                Host().TakeBackStatus(unreachable);
            } else {
                Host().SetStatus(unreachable);
            }
            if (std::exchange(again_, false)) {
                PostToWindow(this, [this] { StartWeatherUpdate(); });
            }
        });
}

void WeatherPage::Show(const WeatherReport& report) {
    const WeatherDay& today = report.days.front();
    ShowCity(ToQString(report.city));
    updated_->setText(ToQString(report.updated));
    temperature_->setText(ToQString(today.temperature));
    weather_->setText(ToQString(today.weather));
    wind_->setText(ToQString(today.wind));
    icon_->SetIcon(IconOf(today));
    for (std::size_t i = 0; i < indexes_.size(); ++i) {
        indexes_.at(i)->setText(ToQString(report.indexes.at(i)));
    }
    std::vector<ForecastRow> rows;
    const auto dates = ForecastDates(std::chrono::system_clock::now());
    for (std::size_t i = 0; i < dates.size(); ++i) {
        rows.push_back({dates.at(i), report.days.at(i)});
    }
    list_->SetRecords(std::move(rows));
}

void WeatherPage::ChooseCity() {
    auto* dialog = new WeatherCityDlg(ReadWeatherCity(Host().Settings()), window());
    dialog->Open([this, dialog](int result) {
        if (result != QDialog::Accepted) {
            return;
        }
        RunJob(
            this,
            [&settings = Host().Settings(), city = dialog->Choice()] {
                WriteWeatherCity(settings, city);
                return true;
            },
            [this](bool) {
                again_ = load_.Running();
                StartWeatherUpdate();
            });
    });
}

}  // namespace quorvi

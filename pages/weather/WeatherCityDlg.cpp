#include "pages/weather/WeatherCityDlg.h"

#include <QGridLayout>

#include "online/WeatherCities.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"

namespace quorvi {

using look::ButtonKind;
using look::Metric;

namespace {

// Numbers of the dialog and its controls.
constexpr int kDialog = 569;
constexpr int kOk = 1;
constexpr int kCancel = 2;

}  // namespace

WeatherCityDlg::WeatherCityDlg(const WeatherCity& before, QWidget* parent)
    : SkinDialog(kDialog, ToQString(u8"天气设置 - Quorvi"), parent),
      province_(new CSkinCombo(Body())),
      city_(new CSkinCombo(Body())) {
    auto* grid = new QGridLayout(Body());
    grid->setHorizontalSpacing(Metric::formGap);
    grid->setVerticalSpacing(Metric::formGap);
    grid->setColumnStretch(1, 1);
    const auto add = [&](std::u8string_view caption, CSkinCombo* box, const char16_t* name) {
        const int row = grid->rowCount();
        grid->addWidget(new FormCaption(ToQString(caption), Body()), row, 0);
        grid->addWidget(box, row, 1);
        box->setObjectName(QString::fromUtf16(name));
        box->setAccessibleName(ToQString(caption));
    };
    add(u8"省份", province_, u"province");
    add(u8"城市", city_, u"city");
    for (const Province& province : WeatherProvinces()) {
        province_->addItem(ToQString(province.name));
    }
    const auto index = static_cast<int>(before.provinceIndex);
    province_->setCurrentIndex(index >= 0 && index < province_->count() ? index : 0);
    FillCities(static_cast<int>(before.cityIndex));
    connect(province_, &QComboBox::currentIndexChanged, this, [this] { FillCities(0); });

    CSkinButton* ok =
        AddEndButton(kOk, ToQString(u8"确定"), QDialog::Accepted, ButtonKind::primary);
    AddEndButton(kCancel, ToQString(u8"取消"), QDialog::Rejected);
    ok->setDefault(true);
    province_->setFocus();
    SetInnerSize({Metric::cityWidth, Metric::cityHeight});
}

void WeatherCityDlg::FillCities(int chosen) {
    city_->clear();
    const Province& province =
        WeatherProvinces().at(static_cast<std::size_t>(province_->currentIndex()));
    for (const std::string& city : province.cities) {
        city_->addItem(ToQString(city));
    }
    city_->setCurrentIndex(chosen >= 0 && chosen < city_->count() ? chosen : 0);
}

WeatherCity WeatherCityDlg::Choice() const {
    return {.province = FromQString(province_->currentText()),
            .city = FromQString(city_->currentText()),
            .provinceIndex = static_cast<std::uint32_t>(province_->currentIndex()),
            .cityIndex = static_cast<std::uint32_t>(city_->currentIndex())};
}

}  // namespace quorvi

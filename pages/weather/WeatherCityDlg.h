// The city whose weather is shown, chosen by its province.
#pragma once

#include "online/Weather.h"
#include "ui/kit/SkinDialog.h"

namespace quorvi {

class CSkinCombo;

// Dialog 569. It writes nothing itself: ends with Accepted for 确定, and Choice is what was chosen.
class WeatherCityDlg : public SkinDialog {
    Q_OBJECT
  public:
    // Opens on the places of the choice before; one that there is not is the first.
    explicit WeatherCityDlg(const WeatherCity& before, QWidget* parent = nullptr);

    [[nodiscard]] WeatherCity Choice() const;

  private:
    void FillCities(int chosen);

    CSkinCombo* province_;
    CSkinCombo* city_;
};

}  // namespace quorvi

// The technical data of phone models, by platform, maker and model.
#pragma once

#include <cstdint>
#include <filesystem>

#include "base/Places.h"
#include "pages/kit/PageNumbers.h"
#include "refdata/PhoneSpecs.h"
#include "ui/page/Page.h"

namespace quorvi {

class CSkinButton;
class CSkinCombo;
class CSkinEdit;
class SpecsListCtrl;

// Page 1, dialog 137. Each choice reads the file anew, off the window's thread, so that a file of
// the user's own shows at once; what a model does not tell keeps what the model before it told.
//
// Controls 1001 and 10600, which search the web for a model, are never shown.
class PhoneSpecsPage : public Page {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kPhoneParametersPage;
    static constexpr int kPlatform = 1004;
    static constexpr int kList = 1005;

    explicit PhoneSpecsPage(PageHost& host, QWidget* parent = nullptr,
                            std::filesystem::path file = ThePlaces().Delivered("Data/device.xml"));

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void LoadParameters();
    void Show(const SpecsLists& lists);
    void SearchTheWeb();

    std::filesystem::path file_;
    SpecsChoice choice_;
    std::uint64_t asked_ = 0;  // loads started; only the last one shows
    bool loaded_ = false;

    CSkinCombo* platform_;
    CSkinCombo* maker_;
    CSkinCombo* model_;
    CSkinEdit* searchText_;
    CSkinButton* search_;
    SpecsListCtrl* list_;
};

}  // namespace quorvi

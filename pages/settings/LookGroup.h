// The group 外观 of the settings page.
#pragma once

#include <QSize>
#include <array>
#include <optional>

#include "base/LookChoice.h"
#include "ui/kit/SkinLabels.h"
#include "ui/page/Page.h"

namespace quorvi {

class CSkinCombo;
class SkinRadio;

// Whether the window would fit on a screen of this size, in logical pixels by text of `from`
// percent, with text of `percent`.
[[nodiscard]] bool WindowFits(QSize screen, int from, int percent);

// The theme of the window, which changes at once, and the size of its text, which counts from the
// next start. Sizes with which the window would not fit on its screen are not offered.
class LookGroup : public CSkinGroupBox {
    Q_OBJECT
  public:
    explicit LookGroup(PageHost& host, QWidget* parent = nullptr);

    // Reads on a worker what is chosen.
    void Refresh();
    [[nodiscard]] bool IsAtWork() const { return atWork_ > 0; }

  private:
    void LayOut();
    void OnTheme(LookChoice look);
    void OnTextSize(int index);
    void Store();
    void ShowTheme(LookChoice look);
    void ShowSizes(int chosen);

    PageHost& host_;
    std::array<SkinRadio*, 4> themes_{};  // by LookChoice
    CSkinCombo* size_;
    struct Choice {
        std::optional<LookChoice> look;
        std::optional<int> percent;
    };
    Choice unstored_;
    bool storing_ = false;
    int started_ = 0;  // the size in percent with which the program runs; 0: not known yet
    int atWork_ = 0;   // workers
};

}  // namespace quorvi

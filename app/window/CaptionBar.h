// The window's caption: logo, title, search box, buttons.
#pragma once

#include <QWidget>

namespace quorvi {

class CSearchEdit;

// 50 pixels high. Presses that none of its controls takes go on to the window, which they drag.
class CaptionBar : public QWidget {
    Q_OBJECT
  public:
    // Control numbers.
    static constexpr int kDeviceManager = 1051;
    static constexpr int kDownloads = 1052;
    static constexpr int kClose = 10200;
    static constexpr int kMinimise = 10201;
    static constexpr int kMaximise = 10202;

    explicit CaptionBar(QWidget* parent);

    [[nodiscard]] CSearchEdit& Search() { return *search_; }

  Q_SIGNALS:
    // Command of a button, by its control number.
    void pressed(int control);
    // The search box asks.
    void searchAsked();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    CSearchEdit* search_;
};

}  // namespace quorvi

// The strip at the window's foot: what the pages say, and the link's state.
#pragma once

#include <QWidget>

#include "link/LinkFace.h"

namespace quorvi {

class CSkinStateLabel;

class StatusStrip : public QWidget {
    Q_OBJECT
  public:
    static constexpr int kStatusLabel = 1366;

    explicit StatusStrip(QWidget* parent);

    // The StatusLabel. A text that speaks of an error by its first sign is shown as one.
    void SetStatus(const QString& text);
    // Shows 就绪 where the StatusLabel shows this text.
    void TakeBackStatus(const QString& text);
    // The ConnectionBanner.
    void SetBanner(const QString& text, BannerState state);
    // What the pointer over the banner says beside its text; empty for nothing.
    void SetBannerTip(const QString& tip);
    [[nodiscard]] QString BannerText() const;
    [[nodiscard]] BannerState Banner() const { return state_; }

  private:
    CSkinStateLabel* status_;
    CSkinStateLabel* banner_;
    BannerState state_ = BannerState::working;
};

}  // namespace quorvi

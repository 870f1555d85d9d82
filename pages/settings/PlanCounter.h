// What a plan counts of one kind of result; pressed, it shows these alone.
#pragma once

#include <QPushButton>

#include "backup/RestorePlan.h"
#include "ui/kit/Pressable.h"

namespace quorvi {

// How a result is marked, in a counter and in a row.
struct ActionMark {
    RestoreAction action;
    QStringView icon;
    look::Color ink;
};
[[nodiscard]] const ActionMark& MarkOf(RestoreAction action);

class PlanCounter : public Pressable<QPushButton> {
    Q_OBJECT
  public:
    explicit PlanCounter(RestoreAction action, QWidget* parent = nullptr);

    void SetCount(std::size_t count);
    [[nodiscard]] RestoreAction Action() const { return mark_.action; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    [[nodiscard]] qreal RingRadius() const override { return look::Metric::radiusPanel; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const ActionMark& mark_;
    QString count_;
};

}  // namespace quorvi

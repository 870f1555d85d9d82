// On and off: switches, check boxes, radio buttons.
#pragma once

#include <QCheckBox>
#include <QRadioButton>
#include <QVariantAnimation>

#include "ui/kit/Pressable.h"

namespace quorvi {

// A check box, 16 by 16, its whole line 28 high to click on.
class CSkinCheck : public Pressable<QCheckBox> {
    Q_OBJECT
  public:
    explicit CSkinCheck(const QString& text = {}, QWidget* parent = nullptr);

    // The state: 0 or 1.
    [[nodiscard]] int GetCheck() const { return isChecked() ? 1 : 0; }
    // 1 means on, any other value off. The parent is not told.
    void SetCheck(int value) { setChecked(value == 1); }
    // Shows a state that nobody can change: disabled, with a caption that is read all the same.
    void ShowFact(int value);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    [[nodiscard]] QRectF RingRect() const override;
    [[nodiscard]] qreal RingRadius() const override { return look::Metric::radiusTick; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool fact_ = false;
};

class SkinRadio : public Pressable<QRadioButton> {
    Q_OBJECT
  public:
    explicit SkinRadio(const QString& text = {}, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    [[nodiscard]] QRectF RingRect() const override;
    [[nodiscard]] qreal RingRadius() const override { return look::Metric::tick / 2.0; }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

// A switch of 40 by 20 with "已启用" or "已禁用" beside it.
class CSkinToggle : public Pressable<QCheckBox> {
    Q_OBJECT
  public:
    explicit CSkinToggle(QWidget* parent = nullptr);

    // The state: 0 or 1.
    [[nodiscard]] int GetCheck() const { return isChecked() ? 1 : 0; }
    // 1 means on, any other value off. The parent is not told.
    void SetCheck(int value) { setChecked(value == 1); }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    [[nodiscard]] QRectF RingRect() const override;
    [[nodiscard]] qreal RingRadius() const override { return look::Metric::toggleHeight / 2.0; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void OnToggled(bool on);

    QVariantAnimation travel_;
    qreal position_ = 0;  // of the knob, from 0 (off) to 1 (on)
};

}  // namespace quorvi

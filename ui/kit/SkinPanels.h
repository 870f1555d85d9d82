// Grounds and pictures that stand beside words: a white panel, an icon, an icon on a plate.
#pragma once

#include <QWidget>

#include "ui/look/Look.h"

namespace quorvi {

// A white ground with round corners and a thin outline.
class SkinPanel : public QWidget {
    Q_OBJECT
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

// A thin line across a panel.
class PanelRule : public QWidget {
    Q_OBJECT
  public:
    // Upright lines are `length` high, level ones as wide as their place.
    explicit PanelRule(Qt::Orientation orientation, int length = 0, QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

// The head of a part of a group: its caption in bold, a remark at the right, and a thin line
// beneath.
class GroupHead : public QWidget {
    Q_OBJECT
  public:
    explicit GroupHead(const QString& caption, const QString& remark = {},
                       QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

// A named icon. It tells a screen reader nothing: the words stand beside it.
class IconLabel : public QWidget {
    Q_OBJECT
  public:
    explicit IconLabel(QString name, int side = look::Metric::iconTab,
                       look::Color ink = look::Color::plum6, QWidget* parent = nullptr);
    void SetIcon(const QString& name);
    [[nodiscard]] const QString& Icon() const { return name_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

    QString name_;
    look::Color ink_;
    int icon_;  // side of the icon
};

// The same on a rounded plate of 40.
class PlateLabel : public IconLabel {
    Q_OBJECT
  public:
    explicit PlateLabel(const QString& name, QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quorvi

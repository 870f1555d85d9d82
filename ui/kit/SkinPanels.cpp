#include "ui/kit/SkinPanels.h"

#include <QPainter>
#include <utility>

namespace quorvi {

using look::Color;
using look::Metric;

void SkinPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    look::plate(painter, rect(), Metric::radiusPanel, look::color(Color::surface),
                look::color(Color::line));
}

PanelRule::PanelRule(Qt::Orientation orientation, int length, QWidget* parent) : QWidget(parent) {
    if (orientation == Qt::Vertical) {
        setFixedSize(Metric::hairline, length);
    } else {
        setFixedHeight(Metric::hairline);
    }
}

void PanelRule::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    look::fill(painter, rect(), look::color(Color::line2));
}

IconLabel::IconLabel(QString name, int side, Color ink, QWidget* parent)
    : QWidget(parent), name_(std::move(name)), ink_(ink), icon_(side) {
    setFixedSize(side, side);
}

void IconLabel::SetIcon(const QString& name) {
    name_ = name;
    update();
}

void IconLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    look::drawIcon(painter, rect(), name_, icon_, look::color(ink_));
}

PlateLabel::PlateLabel(const QString& name, QWidget* parent)
    : IconLabel(name, Metric::iconNav, Color::plum6, parent) {
    setFixedSize(Metric::rowPlate, Metric::rowPlate);
}

void PlateLabel::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        look::plate(painter, rect(), Metric::radiusPanel, look::color(Color::rowHover),
                    Qt::transparent);
    }
    IconLabel::paintEvent(event);
}

}  // namespace quorvi

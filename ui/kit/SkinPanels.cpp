#include "ui/kit/SkinPanels.h"

#include <QHBoxLayout>
#include <QPainter>
#include <utility>

#include "ui/kit/SkinLabels.h"

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

GroupHead::GroupHead(const QString& caption, const QString& remark, QWidget* parent)
    : QWidget(parent) {
    setFixedHeight(Metric::groupHead);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, Metric::hairline);
    row->addWidget(new PlainLabel(caption, look::Size::s13, Color::ink, this, true));
    row->addStretch();
    if (!remark.isEmpty()) {
        row->addWidget(new RemarkLabel(remark, this));
    }
}

void GroupHead::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    look::bottomLine(painter, rect(), look::color(Color::line));
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

#include "app/window/TabStrip.h"

#include <QHoverEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QSignalBlocker>
#include <QWheelEvent>

#include "app/window/PageTable.h"
#include "ui/kit/QtText.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Look.h"

namespace quorvi {

using look::Color;
using look::Metric;
using look::Size;

TabStrip::TabStrip(QWidget* parent) : QTabBar(parent) {
    setObjectName(QStringLiteral("tabs"));
    setAccessibleName(ToQString(u8"页签"));
    setFixedHeight(Metric::tabsHeight);
    setExpanding(false);
    setDrawBase(false);
    setUsesScrollButtons(false);
    setElideMode(Qt::ElideNone);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setContentsMargins(0, 0, 0, 0);
    for (const TabRow& row : kTabs) {
        addTab(ToQString(row.tab.caption));
    }
    connect(this, &QTabBar::currentChanged, this, &TabStrip::chosen);
}

void TabStrip::Select(int tab) {
    const QSignalBlocker quiet(this);
    setCurrentIndex(tab);
    update();
}

QSize TabStrip::tabSizeHint(int) const {
    return {Metric::tabWidth, Metric::tabsHeight};
}

QSize TabStrip::minimumTabSizeHint(int index) const {
    return tabSizeHint(index);
}

void TabStrip::mousePressEvent(QMouseEvent* event) {
    const int tab = tabAt(event->position().toPoint());
    if (tab < 0 || event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const bool again = tab == currentIndex();
    QTabBar::mousePressEvent(event);
    if (again) {
        Q_EMIT chosen(tab);
    }
}

void TabStrip::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

bool TabStrip::event(QEvent* event) {
    int hovered = hovered_;
    if (event->type() == QEvent::HoverMove || event->type() == QEvent::HoverEnter) {
        hovered = tabAt(static_cast<QHoverEvent*>(event)->position().toPoint());
    } else if (event->type() == QEvent::HoverLeave) {
        hovered = -1;
    }
    if (hovered != hovered_) {
        hovered_ = hovered;
        update();
    }
    return QTabBar::event(event);
}

void TabStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int index = 0; index < count(); ++index) {
        PaintTab(painter, index);
    }
}

void TabStrip::PaintTab(QPainter& painter, int index) const {
    const bool selected = index == currentIndex();
    const QRectF area = tabRect(index);
    const CaptionedPicture& entry = kTabs[static_cast<std::size_t>(index)].tab;

    if (index == hovered_ && !selected) {
        constexpr int inset = Metric::tabPlateInset;
        look::plate(painter, area.adjusted(inset, inset, -inset, -inset), Metric::radius,
                    look::color(Color::tabPlate), Qt::transparent);
    }

    const QString caption = ToQString(entry.caption);
    const QFont font = look::font(Size::s14, selected);
    const int textWidth = QFontMetrics(font).horizontalAdvance(caption);
    const int width = Metric::iconTab + Metric::tabIconGap + textWidth;
    const QRectF contents(area.left() + (area.width() - width) / 2, area.top(), width,
                          area.height() - Metric::hairline);
    look::drawIcon(painter,
                   QRectF(contents.left(), contents.top(), Metric::iconTab, contents.height()),
                   ToQString(entry.image), Metric::iconTab,
                   look::color(selected ? Color::plum6 : Color::ink2));
    painter.setFont(font);
    painter.setPen(look::color(selected || index == hovered_ ? Color::plum7 : Color::ink2));
    painter.drawText(contents.adjusted(Metric::iconTab + Metric::tabIconGap, 0, Metric::gap1, 0),
                     Qt::AlignLeft | Qt::AlignVCenter, caption);

    if (selected) {
        const QRectF bar(area.left() + Metric::tabBarInset, area.bottom() - Metric::tabBar,
                         area.width() - 2 * Metric::tabBarInset, Metric::tabBar);
        QPainterPath path;
        path.addRoundedRect(bar.adjusted(0, 0, 0, Metric::tabBar), Metric::tabBar, Metric::tabBar);
        painter.save();
        painter.setClipRect(bar);
        painter.fillPath(path, look::color(Color::plum6));
        painter.restore();
    }
    if (selected && FocusRing::ShownOn(this)) {
        look::innerRing(painter, area, Metric::radius);
    }
}

}  // namespace quorvi

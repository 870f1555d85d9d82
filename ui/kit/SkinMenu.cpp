#include "ui/kit/SkinMenu.h"

#include <QIconEngine>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>

#include "ui/look/Look.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;
using look::Size;

// An icon that paints an icon of the suite in the colour of its state and at any scale.
class StripIcon : public QIconEngine {
  public:
    explicit StripIcon(QString name) : name_(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        look::drawIcon(*painter, rect, name_, Metric::menuImage,
                       look::color(mode == QIcon::Disabled ? Color::inkOff : Color::ink2));
    }
    QIconEngine* clone() const override { return new StripIcon(name_); }
    bool isNull() override { return name_.isEmpty(); }

  private:
    QString name_;
};

}  // namespace

CSkinMenu::CSkinMenu(QWidget* parent) : QMenu(parent) {
    setFont(look::font(Size::s13));
    connect(this, &QMenu::triggered, this,
            [this](QAction* action) { Q_EMIT commandChosen(CommandOf(action)); });
}

void CSkinMenu::SetStrip(QStringList icons) {
    strip_ = std::move(icons);
}

QAction* CSkinMenu::AddItem(std::uint32_t flags, int command, int imageIndex, const QString& text) {
    if ((flags & separator) != 0) {
        return addSeparator();
    }
    QAction* action = addAction(text);
    action->setData(command);
    action->setEnabled((flags & disabled) == 0);
    if (imageIndex >= 0 && imageIndex < strip_.size()) {
        action->setIcon(QIcon(new StripIcon(strip_[imageIndex])));
    }
    return action;
}

int CSkinMenu::CommandOf(const QAction* action) {
    return action == nullptr ? 0 : action->data().toInt();
}

void PaintMenuPanel(QPainter& painter, const QRect& rect) {
    look::plate(painter, rect, Metric::radius, look::color(Color::menu), look::color(Color::frame));
    const qreal line = look::hairline(painter);
    look::fill(painter,
               QRectF(rect.left() + line, rect.top() + Metric::radius / 2.0, Metric::menuGutter,
                      rect.height() - Metric::radius),
               look::color(Color::menuGutter));
}

void PaintMenuItem(QPainter& painter, const QStyleOptionMenuItem& item) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        QRectF rule = item.rect;
        rule.setLeft(rule.left() + Metric::menuTextX - Metric::menuPadding);
        rule.setTop(rule.center().y());
        look::topLine(painter, rule, look::color(Color::line2));
        return;
    }
    const bool enabled = (item.state & QStyle::State_Enabled) != 0;
    if (enabled && (item.state & QStyle::State_Selected) != 0) {
        look::plate(painter, item.rect, Metric::radiusSmall, look::color(Color::menuSel),
                    look::color(Color::menuSelLine));
    }
    const int left = item.rect.left() - Metric::menuPadding;
    const QRect image(left + Metric::menuImageX - (Metric::menuImageCell - Metric::menuImage) / 2,
                      item.rect.top(), Metric::menuImageCell, item.rect.height());
    if (!item.icon.isNull()) {
        item.icon.paint(&painter, image, Qt::AlignCenter,
                        enabled ? QIcon::Normal : QIcon::Disabled);
    } else if (item.checked) {
        look::paintTick(painter,
                        QRectF(image.center().x() - Metric::tick / 2.0,
                               image.center().y() - Metric::tick / 2.0, Metric::tick, Metric::tick),
                        look::Tick::on, {.enabled = enabled});
    }
    QRect text = item.rect;
    text.setLeft(left + Metric::menuTextX);
    text.setRight(text.right() - Metric::menuTextRight / 2);
    painter.setFont(item.font);
    painter.setPen(look::color(enabled ? Color::ink : Color::inkOff));
    const QStringList parts = item.text.split(QLatin1Char('\t'));
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic, parts.first());
    if (parts.size() > 1) {
        painter.drawText(text, Qt::AlignVCenter | Qt::AlignRight, parts.last());
    }
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        look::drawIcon(
            painter,
            QRectF(text.right() - Metric::chevron, text.top(), Metric::chevron, text.height()),
            u"chevron-right", Metric::chevron, look::color(Color::ink2));
    }
}

QSize MenuItemSize(const QStyleOptionMenuItem& item) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        return {Metric::menuMinWidth, Metric::menuSeparator};
    }
    QString text = item.text;
    text.replace(QLatin1Char('\t'), QStringLiteral("    "));
    const int width =
        Metric::menuTextX + item.fontMetrics.horizontalAdvance(text) + Metric::menuTextRight;
    return {std::max(width, Metric::menuMinWidth), Metric::menuItem};
}

}  // namespace quorvi

#include "app/platform/BalloonCard.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QVariantAnimation>
#include <algorithm>

#include "ui/kit/WindowFrame.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;
using look::Size;

constexpr int kStandsMs = 5000;
constexpr int kLogo = Metric::iconMessage;
constexpr int kPaddingY = Metric::balloonPaddingY;
constexpr int kLine = Metric::textLine;
// The part of the card's width that its text does not have.
constexpr int kBesideText = Metric::gap4 + kLogo + Metric::gap3 + Metric::gap4;

// The size that the text needs: one line where it fits, else as many as it takes.
QSize TextRoom(const QString& text) {
    constexpr int least = Metric::balloonWidth - kBesideText;
    constexpr int most = Metric::balloonMaxWidth - kBesideText;
    const QFontMetrics metrics(look::font(Size::s12));
    const int width = std::clamp(metrics.horizontalAdvance(text) + 1, least, most);
    const QRect bounds = metrics.boundingRect(QRect(0, 0, width, Metric::balloonMaxWidth),
                                              Qt::TextWrapAnywhere | Qt::TextWordWrap, text);
    return {width, bounds.height()};
}

}  // namespace

BalloonCard::BalloonCard(QWidget* parent)
    : QWidget(parent, parent == nullptr ? Qt::ToolTip | Qt::FramelessWindowHint : Qt::Widget),
      margin_(parent != nullptr || WindowFrame::HasCompositor() ? Metric::shadowMenuBlur : 0),
      fade_(new QVariantAnimation(this)) {
    setObjectName(QStringLiteral("balloon"));
    setAttribute(Qt::WA_TranslucentBackground, margin_ > 0);
    setAttribute(Qt::WA_ShowWithoutActivating);
    hide();
    goes_.setSingleShot(true);
    goes_.setInterval(kStandsMs);
    connect(&goes_, &QTimer::timeout, this, [this] { FadeTo(0); });
    fade_->setEasingCurve(QEasingCurve::OutQuad);
    connect(fade_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        opacity_ = value.toDouble();
        update();
    });
    connect(fade_, &QVariantAnimation::finished, this, [this] { setVisible(opacity_ > 0); });
    if (parent != nullptr) {
        parent->installEventFilter(this);
    }
}

void BalloonCard::Show(const QString& title, const QString& text) {
    title_ = title;
    text_ = text;
    setAccessibleName(title + QLatin1Char('\n') + text);
    Place();
    show();
    raise();
    FadeTo(1);
    goes_.start();
    update();
}

// The upper left corner of the card with its margin: at the lower right of the window; or on the
// screen beside the icon, on the side that has room.
QPoint BalloonCard::Corner(QSize size) const {
    const QPoint margin(margin_, margin_);
    if (const QWidget* window = parentWidget()) {
        return QPoint(window->width() - size.width() - Metric::pageInset,
                      window->height() - size.height() - Metric::statusHeight - Metric::gap2) +
               margin;
    }
    const QScreen* screen = QGuiApplication::screenAt(icon_.center());
    const QRect room = (screen != nullptr ? screen : QGuiApplication::primaryScreen())->geometry();
    const int x = std::clamp(icon_.center().x() - size.width() / 2, room.left() + Metric::gap2,
                             room.right() - size.width() - Metric::gap2);
    const bool above = icon_.center().y() > room.center().y();
    const int y =
        above ? icon_.top() - Metric::gap2 - size.height() : icon_.bottom() + Metric::gap2;
    return QPoint(x, y) + (above ? QPoint(0, margin_) : QPoint(0, -margin_));
}

void BalloonCard::Place() {
    const QSize text = TextRoom(text_);
    const int height = std::max(kLogo, kLine + text.height()) + 2 * kPaddingY;
    const QSize size(text.width() + kBesideText + 2 * margin_, height + 2 * margin_);
    setGeometry(QRect(Corner(size), size));
    if (margin_ == 0) {
        QPainterPath path;
        path.addRoundedRect(rect(), Metric::radiusPanel, Metric::radiusPanel);
        setMask(QRegion(path.toFillPolygon().toPolygon()));
    }
}

void BalloonCard::FadeTo(double opacity) {
    fade_->stop();
    fade_->setDuration(look::LessMotion() ? 0 : Metric::motionFade);
    fade_->setStartValue(opacity_);
    fade_->setEndValue(opacity);
    fade_->start();
}

bool BalloonCard::eventFilter(QObject* object, QEvent* event) {
    if (object == parentWidget() && event->type() == QEvent::Resize && isVisible()) {
        Place();
    }
    return QWidget::eventFilter(object, event);
}

void BalloonCard::mousePressEvent(QMouseEvent*) {
    FadeTo(0);
}

void BalloonCard::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(opacity_);
    const QRectF card = QRectF(rect()).adjusted(margin_, margin_, -margin_, -margin_);

    // A soft shadow: rings of falling strength around the card.
    QColor shade = look::color(Color::shadow);
    const float strength = shade.alphaF() / 5;
    painter.setPen(Qt::NoPen);
    for (int ring = margin_; ring > 0; --ring) {
        const double nearness = 1.0 - static_cast<double>(ring) / margin_;
        shade.setAlphaF(static_cast<float>(nearness * nearness) * strength);
        painter.setBrush(shade);
        const QRectF grown = card.adjusted(-ring, -ring, ring, ring)
                                 .translated(0, Metric::shadowMenuDrop)
                                 .intersected(rect());
        painter.drawRoundedRect(grown, Metric::radiusPanel + ring, Metric::radiusPanel + ring);
    }
    look::plate(painter, card, Metric::radiusPanel, look::color(Color::menu),
                look::color(Color::line));

    const QRectF inner = card.adjusted(Metric::gap4, kPaddingY, -Metric::gap4, -kPaddingY);
    look::drawCentred(painter, QRectF(inner.topLeft(), QSizeF(kLogo, kLogo)),
                      look::picture(u"logo", QSize(kLogo, kLogo), devicePixelRatioF()));
    QRectF line = inner.adjusted(kLogo + Metric::gap3, 0, 0, 0);
    painter.setFont(look::font(Size::s13, true));
    painter.setPen(look::color(Color::ink));
    painter.drawText(QRectF(line.topLeft(), QSizeF(line.width(), kLine)),
                     Qt::AlignLeft | Qt::AlignVCenter, title_);
    line.setTop(line.top() + kLine);
    painter.setFont(look::font(Size::s12));
    painter.setPen(look::color(Color::ink2));
    painter.drawText(line, Qt::TextWrapAnywhere | Qt::TextWordWrap, text_);
}

}  // namespace quorvi

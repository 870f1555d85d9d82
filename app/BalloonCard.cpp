#include "app/BalloonCard.h"

#include <QPainter>
#include <QTextLayout>
#include <QVariantAnimation>

#include "ui/Look.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;
using look::Size;

constexpr int kStandsMs = 5000;
constexpr int kLogo = Metric::iconMessage;
constexpr int kPaddingY = Metric::balloonPaddingY;
constexpr int kWidth = Metric::balloonWidth;
constexpr int kLine = Metric::textLine;
// Room around the card for its shadow.
constexpr int kMargin = Metric::shadowMenuBlur;
constexpr int kTextX = Metric::gap4 + kLogo + Metric::gap3;
constexpr int kTextWidth = kWidth - kTextX - Metric::gap4;

QRect TextBounds(const QString& text) {
    return QFontMetrics(look::font(Size::s12))
        .boundingRect(QRect(0, 0, kTextWidth, kWidth), Qt::TextWrapAnywhere | Qt::TextWordWrap,
                      text);
}

}  // namespace

BalloonCard::BalloonCard(QWidget* parent) : QWidget(parent), fade_(new QVariantAnimation(this)) {
    setObjectName(QStringLiteral("balloon"));
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
    parent->installEventFilter(this);
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

void BalloonCard::Place() {
    const int height = std::max(kLogo, kLine + TextBounds(text_).height()) + 2 * kPaddingY;
    const QSize size(kWidth + 2 * kMargin, height + 2 * kMargin);
    const QWidget& window = *parentWidget();
    setGeometry(QRect(
        QPoint(window.width() - size.width() + kMargin - Metric::pageInset,
               window.height() - size.height() + kMargin - Metric::statusHeight - Metric::gap2),
        size));
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
    const QRectF card = QRectF(rect()).adjusted(kMargin, kMargin, -kMargin, -kMargin);

    // A soft shadow: rings of falling strength around the card.
    QColor shade = look::color(Color::plum8);
    painter.setPen(Qt::NoPen);
    for (int ring = kMargin; ring > 0; --ring) {
        const double nearness = 1.0 - static_cast<double>(ring) / kMargin;
        shade.setAlphaF(
            static_cast<float>(nearness * nearness * Metric::shadowMenuPercent / 100 / 5));
        painter.setBrush(shade);
        const QRectF grown = card.adjusted(-ring, -ring, ring, ring)
                                 .translated(0, Metric::shadowMenuDrop)
                                 .intersected(rect());
        painter.drawRoundedRect(grown, Metric::radiusPanel + ring, Metric::radiusPanel + ring);
    }
    look::plate(painter, card, Metric::radiusPanel, look::color(Color::surface),
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

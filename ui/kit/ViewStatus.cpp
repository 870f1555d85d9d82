#include "ui/kit/ViewStatus.h"

#include <QPainter>
#include <QTimerEvent>
#include <QWidget>
#include <algorithm>

#include "base/Format.h"
#include "ui/kit/QtText.h"
#include "ui/look/Look.h"

namespace quorvi {

using look::Color;
using look::Metric;
using look::Size;

namespace {

constexpr int kFrameInterval = 30;  // of the running bar, in milliseconds

}  // namespace

ViewStatus::ViewStatus(QWidget* viewport)
    : QObject(viewport),
      viewport_(viewport),
      emptyHeadline_(ToQString(u8"列表是空的")),
      emptySentence_(ToQString(u8"手机上没有内容，或者还没有获取")),
      failedHeadline_(ToQString(u8"没有连上手机")),
      failedSentence_(ToQString(u8"请检查数据线，然后再次获取")) {}

void ViewStatus::Set(ListState state) {
    state_ = state;
    have_ = total_ = 0;
    phase_ = 0;
    if (state == ListState::loading && !look::LessMotion()) {
        motion_.start(kFrameInterval, this);
    } else {
        motion_.stop();
    }
    viewport_->update();
}

void ViewStatus::SetProgress(std::uint64_t have, std::uint64_t total) {
    have_ = have;
    total_ = total;
    viewport_->update();
}

void ViewStatus::SetEmptyText(const QString& headline, const QString& sentence) {
    emptyHeadline_ = headline;
    emptySentence_ = sentence;
    viewport_->update();
}

void ViewStatus::SetFailedText(const QString& headline, const QString& sentence) {
    failedHeadline_ = headline;
    failedSentence_ = sentence;
    viewport_->update();
}

void ViewStatus::timerEvent(QTimerEvent*) {
    phase_ = (phase_ + kFrameInterval) % Metric::motionLoadBar;
    viewport_->update(0, 0, viewport_->width(), Metric::loadBar + Metric::hairline);
}

void ViewStatus::PaintVoid(QPainter& painter) const {
    if (state_ == ListState::failed) {
        Paint(painter, u"load-failed", failedHeadline_, failedSentence_);
    } else {
        Paint(painter, u"empty-list", emptyHeadline_, emptySentence_);
    }
}

void ViewStatus::PaintNothingFound(QPainter& painter, const QString& headline) const {
    Paint(painter, u"empty-list", headline, ToQString(u8"按 Esc 显示全部"));
}

void ViewStatus::Paint(QPainter& painter, QStringView shown, const QString& headline,
                       const QString& sentence) const {
    constexpr int words = Metric::voidTitleLine + Metric::voidLine;
    constexpr int whole = Metric::voidPictureHeight + Metric::voidGap + words;
    const QRect area = viewport_->rect();
    const bool picture = area.height() >= whole + 2 * Metric::gap2;
    int top = area.center().y() - (picture ? whole : words) / 2;
    if (picture) {
        look::drawCentred(
            painter, QRect(area.left(), top, area.width(), Metric::voidPictureHeight),
            look::picture(shown, {Metric::voidPictureWidth, Metric::voidPictureHeight},
                          look::scaleOf(painter)));
        top += Metric::voidPictureHeight + Metric::voidGap;
    }
    painter.setFont(look::font(Size::s14, true));
    painter.setPen(look::color(Color::ink));
    painter.drawText(QRect(area.left(), top, area.width(), Metric::voidTitleLine), Qt::AlignCenter,
                     headline);
    painter.setFont(look::font(Size::s12));
    painter.setPen(look::color(Color::ink2));
    painter.drawText(
        QRect(area.left(), top + Metric::voidTitleLine, area.width(), Metric::voidLine),
        Qt::AlignCenter, sentence);
}

void ViewStatus::PaintBlock(QPainter& painter, const QRect& rect) {
    look::plate(painter, rect, Metric::skeletonRadius, look::color(Color::skeleton),
                Qt::transparent);
}

void ViewStatus::PaintProgress(QPainter& painter) const {
    if (total_ == 0) {
        return;
    }
    painter.setFont(look::font(Size::s12));
    painter.setPen(look::color(Color::ink2));
    painter.drawText(viewport_->rect().adjusted(0, 0, 0, -Metric::gap4),
                     Qt::AlignHCenter | Qt::AlignBottom,
                     QStringLiteral("%1 / %2").arg(ToQString(FormatByteSize(have_)),
                                                   ToQString(FormatByteSize(total_))));
}

void ViewStatus::PaintBar(QPainter& painter) const {
    const int width = viewport_->width();
    if (total_ > 0) {
        const double part =
            static_cast<double>(std::min(have_, total_)) / static_cast<double>(total_);
        look::fill(painter, QRectF(0, 0, width * part, Metric::loadBar), look::color(Color::plum6));
        return;
    }
    // A light that runs from left to right, or stands still in the middle where the desktop asks
    // for less motion.
    const qreal length = width * Metric::loadBarPercent / 100.0;
    const qreal phase = motion_.isActive() ? static_cast<qreal>(phase_) / Metric::motionLoadBar
                                           : Metric::loadBarRest / 100.0;
    const qreal left = -length + (width + length) * phase;
    QLinearGradient light(left, 0, left + length, 0);
    light.setColorAt(0, look::color(Color::plum6, 0));
    light.setColorAt(Metric::loadBarFrom / 100.0, look::color(Color::plum6));
    light.setColorAt(Metric::loadBarTo / 100.0, look::color(Color::plum6));
    light.setColorAt(1, look::color(Color::plum6, 0));
    painter.fillRect(QRectF(left, 0, length, Metric::loadBar), light);
}

}  // namespace quorvi

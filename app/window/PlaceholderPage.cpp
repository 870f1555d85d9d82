#include "app/window/PlaceholderPage.h"

#include <QPainter>

#include "ui/kit/QtText.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;
using look::Size;

constexpr QSize kPicture(Metric::placeholderWidth, Metric::placeholderHeight);
constexpr int kHeadlineLine = Metric::headlineLine;
constexpr int kTextLine = Metric::textLine;

}  // namespace

PlaceholderPage::PlaceholderPage(PageHost& host, int dialog, QString headline, QString line,
                                 QWidget* parent)
    : Page(host, dialog, parent), headline_(std::move(headline)), line_(std::move(line)) {
    setAccessibleName(headline_ + QLatin1Char('\n') + line_);
}

void PlaceholderPage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    look::plate(painter, rect(), Metric::radiusPanel, look::color(Color::surface),
                look::color(Color::line));
    if (FocusRing::ShownOn(this)) {
        look::innerRing(painter, rect(), Metric::radiusPanel);
    }
    const int height = kPicture.height() + Metric::gap4 + kHeadlineLine + Metric::gap1 + kTextLine;
    QRect line(0, (this->height() - height) / 2, width(), kPicture.height());
    look::drawCentred(painter, line, look::picture(u"placeholder", kPicture, devicePixelRatioF()));

    line = QRect(0, line.bottom() + 1 + Metric::gap4, width(), kHeadlineLine);
    painter.setFont(look::font(Size::s20, true));
    painter.setPen(look::color(Color::plum7));
    painter.drawText(line, Qt::AlignCenter, headline_);

    line = QRect(0, line.bottom() + 1 + Metric::gap1, width(), kTextLine);
    painter.setFont(look::font(Size::s13));
    painter.setPen(look::color(Color::ink2));
    painter.drawText(line, Qt::AlignCenter, line_);
}

Page* MakeAnnouncement(PageHost& host, int dialog, QWidget* parent) {
    return new PlaceholderPage(host, dialog, ToQString(u8"敬请期待"),
                               ToQString(u8"这项功能正在准备，会在以后的版本中与您见面"), parent);
}

}  // namespace quorvi

#include "pages/settings/PlanCounter.h"

#include <QPainter>
#include <algorithm>
#include <array>

#include "backup/BackupTexts.h"
#include "backup/PlanRows.h"
#include "ui/kit/QtText.h"

namespace quorvi {

using look::Color;
using look::Metric;
using look::Size;

namespace {

constexpr std::array<ActionMark, 4> kMarks{{
    {RestoreAction::add, u"row-added", Color::plum6},
    {RestoreAction::change, u"row-improved", Color::blue},
    {RestoreAction::there, u"success", Color::green},
    {RestoreAction::impossible, u"error", Color::red},
}};

}  // namespace

const ActionMark& MarkOf(RestoreAction action) {
    return *std::ranges::find(kMarks, action, &ActionMark::action);
}

PlanCounter::PlanCounter(RestoreAction action, QWidget* parent)
    : Pressable<QPushButton>(parent), mark_(MarkOf(action)) {
    setCheckable(true);
    setText(ToQString(ActionName(action)));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    SetCount(0);
}

void PlanCounter::SetCount(std::size_t count) {
    count_ = ToQString(GroupedDigits(count));
    setAccessibleName(text() + QLatin1Char(' ') + count_);
    update();
}

QSize PlanCounter::sizeHint() const {
    return {Metric::buttonMinWidth, Metric::planCounter};
}

void PlanCounter::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const look::ButtonState state = LookState();
    const bool hot = state.stage != look::ButtonState::Stage::normal;
    look::plate(painter, rect(), Metric::radiusPanel,
                look::color(isChecked() ? Color::rowHover
                            : hot       ? Color::rowLight
                                        : Color::surface),
                look::color(isChecked() || hot ? Color::rowBorder : Color::line));
    if (isChecked()) {
        look::fill(
            painter,
            QRectF(0, Metric::radiusPanel, Metric::rowBar, height() - 2 * Metric::radiusPanel),
            look::color(Color::plum6));
    }
    QRect area = rect().adjusted(Metric::planCounterInset, 0, -Metric::planCounterInset, 0);
    look::drawIcon(painter, QRect(area.left(), area.top(), Metric::iconTab, area.height()),
                   mark_.icon, Metric::iconTab, look::color(mark_.ink));
    painter.setFont(look::font(Size::s20, true));
    painter.setPen(look::color(Color::ink));
    painter.drawText(area, Qt::AlignVCenter | Qt::AlignRight, count_);
    area.setLeft(area.left() + Metric::iconTab + Metric::planCounterGap);
    painter.setFont(look::font(Size::s12));
    painter.setPen(look::color(Color::ink2));
    painter.drawText(area, Qt::AlignVCenter | Qt::AlignLeft, text());
}

}  // namespace quorvi

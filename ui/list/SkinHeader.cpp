#include "ui/list/SkinHeader.h"

#include <QPainter>

#include "ui/kit/QtText.h"

namespace quorvi {

using look::Color;
using look::Metric;

CSkinHeader::CSkinHeader(std::span<const ListColumn> columns, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), columns_(columns) {
    setSectionsClickable(false);
    setSectionsMovable(false);
    setHighlightSections(false);
    setMinimumSectionSize(0);
    setFont(look::font(look::Size::s12));
    setFocusPolicy(Qt::NoFocus);
}

QSize CSkinHeader::sizeHint() const {
    return {QHeaderView::sizeHint().width(), BarHeight() + Metric::header};
}

int CSkinHeader::BarHeight() const {
    return bar_ == nullptr ? 0 : bar_->height();
}

void CSkinHeader::SetBar(QWidget* bar) {
    bar_ = bar;
    updateGeometry();
    Q_EMIT geometriesChanged();  // the view makes room
    viewport()->update();
}

void CSkinHeader::resizeEvent(QResizeEvent* event) {
    QHeaderView::resizeEvent(event);
    if (bar_ != nullptr) {
        bar_->setGeometry(0, 0, width(), bar_->height());
    }
}

void CSkinHeader::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    const QRect all = viewport()->rect().adjusted(0, BarHeight(), 0, 0);
    look::fill(painter, all, look::color(Color::chrome2));
    look::bottomLine(painter, all, look::color(Color::line2));
    painter.setFont(font());
    bool first = true;
    for (int i = 0; i < static_cast<int>(columns_.size()); ++i) {
        if (isSectionHidden(i)) {
            continue;
        }
        const ListColumn& column = columns_[static_cast<std::size_t>(i)];
        const QRect cell(sectionViewportPosition(i), all.top(), sectionSize(i), all.height());
        if (!first) {
            look::leftLine(painter,
                           cell.adjusted(0, Metric::headerRuleInset, 0, -Metric::headerRuleInset),
                           look::color(Color::line2));
        }
        first = false;
        painter.setPen(look::color(isEnabled() ? Color::ink2 : Color::inkOff));
        const bool left = column.align == CellAlign::left;
        const int inset = left ? Metric::cellPadding : Metric::hairline;
        const QRect area = cell.adjusted(inset, 0, -Metric::hairline, 0);
        painter.drawText(
            area, static_cast<int>(Qt::AlignVCenter | (left ? Qt::AlignLeft : Qt::AlignHCenter)),
            fontMetrics().elidedText(ToQString(column.caption), Qt::ElideRight, area.width()));
    }
}

}  // namespace quorvi

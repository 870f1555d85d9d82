#include "ui/kit/StockControls.h"

#include <QAbstractItemView>
#include <QFileDialog>
#include <QMessageBox>
#include <QStringView>
#include <QStyleOption>
#include <QToolButton>
#include <array>

#include "ui/look/Look.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;
using Stage = look::ButtonState::Stage;

look::ButtonState StateOf(const QStyleOption& option) {
    const bool down = (option.state & (QStyle::State_Sunken | QStyle::State_On)) != 0;
    const bool hot = (option.state & QStyle::State_MouseOver) != 0;
    return {.stage = down  ? Stage::pressed
                     : hot ? Stage::hover
                           : Stage::normal,
            .enabled = (option.state & QStyle::State_Enabled) != 0,
            .focused = (option.state & QStyle::State_HasFocus) != 0};
}

struct Tool {
    QStyle::StandardPixmap picture;
    QStringView icon;
};

constexpr std::array kTools{
    Tool{QStyle::SP_ArrowBack, u"chevron-left"},
    Tool{QStyle::SP_ArrowForward, u"chevron-right"},
    Tool{QStyle::SP_FileDialogToParent, u"up"},
    Tool{QStyle::SP_FileDialogNewFolder, u"folder-new"},
    Tool{QStyle::SP_FileDialogListView, u"view-icons"},
    Tool{QStyle::SP_FileDialogDetailedView, u"view-rows"},
};

// Drawn for the finest screen there is.
constexpr qreal kFinest = 3;

}  // namespace

bool IsStockDialog(const QWidget* widget) {
    return qobject_cast<const QFileDialog*>(widget) != nullptr ||
           qobject_cast<const QMessageBox*>(widget) != nullptr;
}

bool IsInStockDialog(const QWidget* widget) {
    return widget != nullptr && IsStockDialog(widget->window());
}

void PaintStockButton(QPainter& painter, const QStyleOption& button) {
    const look::ButtonState state = StateOf(button);
    look::paintButton(painter, button.rect, look::ButtonKind::plain, state);
    if (state.focused) {
        look::innerRing(painter, button.rect, Metric::radius);
    }
}

void PaintStockTool(QPainter& painter, const QStyleOption& button) {
    const look::ButtonState state = StateOf(button);
    if (state.enabled && state.stage != Stage::normal) {
        look::plate(painter, button.rect, Metric::radius,
                    look::color(state.stage == Stage::hover ? Color::rowHover : Color::rowSelected),
                    look::color(Color::rowBorder));
    }
}

void PaintStockFocus(QPainter& painter, const QStyleOption& focused, const QWidget& widget) {
    if (qobject_cast<const QToolButton*>(&widget) != nullptr) {
        look::innerRing(painter, widget.rect(), Metric::radius);
    } else if (qobject_cast<const QAbstractItemView*>(&widget) != nullptr) {
        look::innerRing(painter, focused.rect);
    }
}

void PaintStockCombo(QPainter& painter, const QStyleOptionComboBox& combo) {
    const look::ButtonState state = StateOf(combo);
    look::paintField(painter, combo.rect, state);
    const QRect arrow(combo.rect.right() + 1 - Metric::comboArrowInset - Metric::iconField,
                      combo.rect.top(), Metric::iconField, combo.rect.height());
    look::drawIcon(painter, arrow, u"chevron-down", Metric::iconField,
                   look::color(state.enabled ? Color::ink2 : Color::inkOff));
}

void PaintStockHead(QPainter& painter, const QRect& section) {
    look::fill(painter, section, look::color(Color::chrome2));
    look::bottomLine(painter, section, look::color(Color::line2));
}

QIcon StockIcon(QStyle::StandardPixmap picture) {
    for (const Tool& tool : kTools) {
        if (tool.picture == picture) {
            QIcon icon(
                look::icon(tool.icon, Metric::iconField, look::color(Color::plum6), kFinest));
            icon.addPixmap(
                look::icon(tool.icon, Metric::iconField, look::color(Color::inkOff), kFinest),
                QIcon::Disabled);
            return icon;
        }
    }
    return {};
}

}  // namespace quorvi

#include "ui/kit/SkinStyle.h"

#include <QAbstractScrollArea>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QStyleOption>
#include <algorithm>

#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinMenu.h"
#include "ui/kit/SkinTree.h"
#include "ui/kit/StockControls.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;

QRegion RoundedMask(const QRect& rect, int radius) {
    QPainterPath path;
    path.addRoundedRect(QRectF(rect), radius, radius);
    return QRegion(path.toFillPolygon().toPolygon());
}

// The thumb's place along a scroll bar's groove.
QRect ThumbRect(const QStyleOptionSlider& bar) {
    const bool upright = bar.orientation == Qt::Vertical;
    const int length = upright ? bar.rect.height() : bar.rect.width();
    const int groove = length - 2 * Metric::scrollInset;
    const qint64 range = qint64{bar.maximum} - bar.minimum;
    int thumb = groove;
    if (range > 0) {
        thumb = static_cast<int>(qint64{groove} * bar.pageStep / (range + bar.pageStep));
        thumb = std::clamp(thumb, std::min(groove, Metric::scrollMinThumb), groove);
    }
    const int from = Metric::scrollInset +
                     QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                     groove - thumb, bar.upsideDown);
    return upright ? QRect(bar.rect.x(), bar.rect.y() + from, bar.rect.width(), thumb)
                   : QRect(bar.rect.x() + from, bar.rect.y(), thumb, bar.rect.height());
}

bool IsTree(const QWidget* widget) {
    return qobject_cast<const CSkinTree*>(widget) != nullptr ||
           qobject_cast<const SkinTreeView*>(widget) != nullptr;
}

void PaintLineEdit(QPainter& painter, const QStyleOptionFrame& panel, const QWidget* widget) {
    using Stage = look::ButtonState::Stage;
    const auto* edit = qobject_cast<const CSkinEdit*>(widget);
    look::paintField(
        painter, panel.rect,
        {(panel.state & QStyle::State_MouseOver) != 0 ? Stage::hover : Stage::normal,
         (panel.state & QStyle::State_Enabled) != 0, (panel.state & QStyle::State_HasFocus) != 0},
        edit != nullptr && edit->Bad());
}

void PaintScrollBar(QPainter& painter, const QStyleOptionSlider& bar) {
    if (bar.maximum <= bar.minimum) {
        return;
    }
    QRectF thumb = ThumbRect(bar);
    const qreal side = (Metric::scrollGutter - Metric::scrollThumb) / 2.0;
    if (bar.orientation == Qt::Vertical) {
        thumb.adjust(side, 0, -side, 0);
    } else {
        thumb.adjust(0, side, 0, -side);
    }
    const bool hot = (bar.activeSubControls & QStyle::SC_ScrollBarSlider) != 0 &&
                     (bar.state & (QStyle::State_MouseOver | QStyle::State_Sunken)) != 0;
    look::plate(painter, thumb, Metric::scrollThumb / 2.0,
                look::color(hot ? Color::scrollHot : Color::scroll), Qt::transparent);
}

}  // namespace

SkinStyle::SkinStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void SkinStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
    switch (element) {
        case PE_FrameFocusRect:  // elsewhere the focus ring says it
            if (IsInStockDialog(widget)) {
                PaintStockFocus(*painter, *option, *widget);
            }
            return;
        case PE_PanelItemViewRow:  // lists paint their own rows
        case PE_FrameMenu:         // with the panel
        case PE_PanelScrollAreaCorner:
            return;
        case PE_PanelMenu:
            PaintMenuPanel(*painter, option->rect);
            return;
        case PE_FrameLineEdit:
            return;
        case PE_PanelLineEdit: {
            const auto* panel = qstyleoption_cast<const QStyleOptionFrame*>(option);
            if (panel != nullptr && panel->lineWidth > 0) {
                PaintLineEdit(*painter, *panel, widget);
            }
            return;
        }
        case PE_Frame:
            look::plate(*painter, option->rect, 0, Qt::transparent, look::color(Color::frame));
            return;
        case PE_PanelTipLabel:
            look::plate(*painter, option->rect, Metric::radius, look::color(Color::tip),
                        Qt::transparent);
            return;
        case PE_PanelButtonCommand:
            PaintStockButton(*painter, *option);
            return;
        case PE_PanelButtonTool:
            PaintStockTool(*painter, *option);
            return;
        default:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void SkinStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    if (element == CE_MenuItem) {
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            PaintMenuItem(*painter, *item);
            return;
        }
    }
    if (element == CE_MenuEmptyArea) {
        return;
    }
    if (element == CE_HeaderSection || element == CE_HeaderEmptyArea) {
        PaintStockHead(*painter, option->rect);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void SkinStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
    if (control == CC_ScrollBar) {
        if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
            PaintScrollBar(*painter, *bar);
            return;
        }
    }
    if (control == CC_ComboBox) {
        if (const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option)) {
            PaintStockCombo(*painter, *combo);
            return;
        }
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect SkinStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                SubControl subControl, const QWidget* widget) const {
    if (control == CC_ScrollBar) {
        if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
            const QRect thumb = ThumbRect(*bar);
            const bool upright = bar->orientation == Qt::Vertical;
            switch (subControl) {
                case SC_ScrollBarSlider:
                    return thumb;
                case SC_ScrollBarGroove:
                    return bar->rect;
                case SC_ScrollBarSubPage:
                    return upright ? QRect(bar->rect.topLeft(), thumb.topRight())
                                   : QRect(bar->rect.topLeft(), thumb.bottomLeft());
                case SC_ScrollBarAddPage:
                    return upright ? QRect(thumb.bottomLeft(), bar->rect.bottomRight())
                                   : QRect(thumb.topRight(), bar->rect.bottomRight());
                default:
                    return {};
            }
        }
    }
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}

QRect SkinStyle::subElementRect(SubElement element, const QStyleOption* option,
                                const QWidget* widget) const {
    const QRect rect = QProxyStyle::subElementRect(element, option, widget);
    if (element == SE_ShapedFrameContents && IsTree(widget)) {
        constexpr int padding = Metric::treePadding;
        return rect.adjusted(padding, padding, -padding, -padding);
    }
    return rect;
}

QSize SkinStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
    if (type == CT_MenuItem) {
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            return MenuItemSize(*item);
        }
    }
    const QSize stock = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
        case CT_LineEdit:
        case CT_ComboBox:
        case CT_PushButton:
            return IsInStockDialog(widget) ? stock.expandedTo({0, Metric::fieldHeight}) : stock;
        default:
            return stock;
    }
}

int SkinStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
    switch (metric) {
        case PM_ScrollBarExtent:
            return Metric::scrollGutter;
        case PM_ScrollBarSliderMin:
            return Metric::scrollMinThumb;
        case PM_ScrollView_ScrollBarSpacing:
        case PM_MenuPanelWidth:
        case PM_SubMenuOverlap:
            return 0;
        case PM_MenuHMargin:
        case PM_MenuVMargin:
            return Metric::menuPadding;
        case PM_ToolTipLabelFrameWidth:
            return Metric::tipPaddingY;
        case PM_DefaultFrameWidth:
            return Metric::hairline;
        case PM_LayoutLeftMargin:
        case PM_LayoutTopMargin:
        case PM_LayoutRightMargin:
        case PM_LayoutBottomMargin:
            return IsStockDialog(widget) ? Metric::dialogPadding : 0;
        case PM_LayoutHorizontalSpacing:
        case PM_LayoutVerticalSpacing:
            return Metric::gap2;
        case PM_FocusFrameHMargin:
        case PM_FocusFrameVMargin:
            return Metric::ringGap + Metric::ringWidth;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int SkinStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returnData) const {
    switch (hint) {
        case SH_ComboBox_Popup:
        case SH_EtchDisabledText:
        case SH_DitherDisabledText:
        case SH_UnderlineShortcut:
        case SH_ScrollBar_Transient:
        case SH_ItemView_ShowDecorationSelected:
        case SH_DialogButtonBox_ButtonsHaveIcons:
            return 0;
        case SH_ScrollBar_LeftClickAbsolutePosition:
            return 0;
        case SH_ItemView_ActivateItemOnSingleClick:
            return 0;
        case SH_FocusFrame_AboveWidget:
            return 1;
        case SH_FocusFrame_Mask:
            return 0;
        case SH_ToolTipLabel_Opacity:
            return 255;
        case SH_Menu_MouseTracking:
        case SH_Menu_FillScreenWithScroll:
            return hint == SH_Menu_MouseTracking ? 1 : 0;
        case SH_Menu_Mask:
        case SH_ToolTip_Mask:
            if (auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(returnData)) {
                mask->region = RoundedMask(option->rect, Metric::radius);
                return 1;
            }
            return 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

QIcon SkinStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                              const QWidget* widget) const {
    const QIcon icon = StockIcon(picture);
    return icon.isNull() ? QProxyStyle::standardIcon(picture, option, widget) : icon;
}

void SkinStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QMenu*>(widget) != nullptr) {
        widget->setFont(look::font(look::Size::s13));
    } else if (widget->inherits("QTipLabel")) {
        widget->setFont(look::font(look::Size::s12));
        widget->setContentsMargins(Metric::tipPaddingX - Metric::tipPaddingY, 0,
                                   Metric::tipPaddingX - Metric::tipPaddingY, 0);
    } else if (qobject_cast<QScrollBar*>(widget) != nullptr) {
        widget->setAttribute(Qt::WA_Hover);
        widget->setAttribute(Qt::WA_OpaquePaintEvent, false);
    }
}

}  // namespace quorvi

// The application's style: what stock parts (scroll bars, menus, tool tips, item views) look like
// where no class of the kit paints them.
#pragma once

#include <QProxyStyle>

namespace quorvi {

class SkinStyle : public QProxyStyle {
    Q_OBJECT
  public:
    SkinStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget = nullptr) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                         SubControl subControl, const QWidget* widget = nullptr) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget = nullptr) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                    const QWidget* widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr,
                  const QWidget* widget = nullptr,
                  QStyleHintReturn* returnData = nullptr) const override;
    QIcon standardIcon(StandardPixmap picture, const QStyleOption* option = nullptr,
                       const QWidget* widget = nullptr) const override;
    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
};

}  // namespace quorvi

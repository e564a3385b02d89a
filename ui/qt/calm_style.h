#pragma once

#include <QProxyStyle>

namespace ui::qt {

/// Fusion with flat surfaces: rounded buttons and boxes with a thin border, a broader one of the accent
/// colour on the control with the focus, and a slim progress bar. Takes every colour from the palette.
class CalmStyle : public QProxyStyle {
 public:
  CalmStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override;
};

}  // namespace ui::qt

#include "ui/qt/calm_style.h"

#include <QAbstractScrollArea>
#include <QCheckBox>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

#include "ui/qt/qt_look.h"

namespace ui::qt {
namespace {

constexpr double kRadius = 4;  // pixels at 96 dots per inch, as all measures here

double Scale(const QPainter& painter) { return std::max(1.0, painter.device()->logicalDpiX() / 96.0); }

bool Has(const QStyleOption& option, QStyle::StateFlag flag) { return (option.state & flag) != 0; }

QColor BorderOf(const QStyleOption& option) {
  const QPalette& palette = option.palette;
  if (IsHighContrast()) return palette.color(QPalette::WindowText);
  const double share = Has(option, QStyle::State_Enabled) ? 0.55 : 0.8;
  return Mix(palette.color(QPalette::Active, QPalette::WindowText), palette.color(QPalette::Window), share);
}

/// A rounded surface with its border; the border of the control with the focus is broader and in the accent
/// colour.
void DrawSurface(QPainter* painter, const QStyleOption& option, const QBrush& fill, double radius = kRadius) {
  const double scale = Scale(*painter);
  const bool focused = Has(option, QStyle::State_HasFocus) && Has(option, QStyle::State_Enabled);
  const double width = focused ? 2 * scale : scale;
  const QColor colour = focused ? option.palette.color(QPalette::Highlight) : BorderOf(option);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(QPen(colour, width));
  painter->setBrush(fill);
  const double inset = width / 2;
  painter->drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), radius * scale,
                           radius * scale);
  painter->restore();
}

QColor ButtonFill(const QStyleOption& option) {
  const QColor button = option.palette.color(QPalette::Button);
  const QColor accent = option.palette.color(QPalette::Highlight);
  if (!Has(option, QStyle::State_Enabled)) return button;
  if (Has(option, QStyle::State_Sunken) || Has(option, QStyle::State_On)) return Mix(button, accent, 0.25);
  return Has(option, QStyle::State_MouseOver) ? Mix(button, accent, 0.1) : button;
}

void DrawLine(QPainter* painter, const QRectF& bounds, const QColor& colour) {
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(colour);
  painter->drawRoundedRect(bounds, bounds.height() / 2, bounds.height() / 2);
  painter->restore();
}

void DrawProgress(QPainter* painter, const QStyleOptionProgressBar& bar) {
  const double height = std::min(6 * Scale(*painter), static_cast<double>(bar.rect.height()));
  QRectF line(bar.rect.x(), bar.rect.center().y() + 0.5 - height / 2, bar.rect.width(), height);
  DrawLine(painter, line,
           Mix(bar.palette.color(QPalette::Window), bar.palette.color(QPalette::WindowText), 0.15));
  const int range = bar.maximum - bar.minimum;
  if (range <= 0 || bar.progress <= bar.minimum) return;
  const double share = static_cast<double>(bar.progress - bar.minimum) / range;
  line.setWidth(std::max(line.width() * share, height));
  DrawLine(painter, line, bar.palette.color(QPalette::Highlight));
}

}  // namespace

CalmStyle::CalmStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void CalmStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
  switch (element) {
    case PE_PanelButtonCommand:
      return DrawSurface(painter, *option, ButtonFill(*option));
    case PE_PanelLineEdit:
      return DrawSurface(painter, *option, option->palette.brush(QPalette::Base));
    case PE_FrameLineEdit:
      return DrawSurface(painter, *option, Qt::NoBrush);
    case PE_FrameGroupBox:
      return DrawSurface(painter, *option, Qt::NoBrush);
    case PE_Frame:
      if (qobject_cast<const QAbstractScrollArea*>(widget) == nullptr) break;
      return DrawSurface(painter, *option, option->palette.brush(QPalette::Base), 1);
    case PE_FrameFocusRect:
      if (qobject_cast<const QCheckBox*>(widget) == nullptr) return;  // the border shows it
      break;
    default:
      break;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void CalmStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
  const auto* bar =
      element == CE_ProgressBar ? qstyleoption_cast<const QStyleOptionProgressBar*>(option) : nullptr;
  if (bar != nullptr) return DrawProgress(painter, *bar);
  QProxyStyle::drawControl(element, option, painter, widget);
}

}  // namespace ui::qt

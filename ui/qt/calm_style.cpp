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
  const double share = Has(option, QStyle::State_Enabled) ? 0.42 : 0.8;
  return Mix(palette.color(QPalette::Active, QPalette::WindowText), palette.color(QPalette::Window), share);
}

/// The same with a weaker border, for what takes no input: groups, and boxes that can only be read.
QStyleOption Faint(QStyleOption option) {
  option.state &= ~QStyle::State_Enabled;
  return option;
}

QStyleOption BoxOf(const QStyleOption& line) {
  const bool faint = Has(line, QStyle::State_ReadOnly) && !Has(line, QStyle::State_HasFocus);
  return faint && !IsHighContrast() ? Faint(line) : line;
}

/// A rounded surface with its border; the border of the control with the focus is broader and in the accent
/// colour.
void DrawSurface(QPainter* painter, const QStyleOption& option, const QBrush& fill, double radius = kRadius) {
  const double scale = Scale(*painter);
  const bool focused = Has(option, QStyle::State_HasFocus) && Has(option, QStyle::State_Enabled);
  const double width = focused ? 2 * scale : scale;
  const QColor border = focused ? option.palette.color(QPalette::Highlight) : BorderOf(option);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(QPen(border, width));
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

/// A rectangle with half circles at its short sides.
void DrawRounded(QPainter* painter, const QRectF& bounds, const QColor& colour) {
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(colour);
  const double radius = std::min(bounds.width(), bounds.height()) / 2;
  painter->drawRoundedRect(bounds, radius, radius);
  painter->restore();
}

void DrawProgress(QPainter* painter, const QStyleOptionProgressBar& bar) {
  const double height = std::min(6 * Scale(*painter), static_cast<double>(bar.rect.height()));
  QRectF line(bar.rect.x(), bar.rect.center().y() + 0.5 - height / 2, bar.rect.width(), height);
  DrawRounded(painter, line,
              Mix(bar.palette.color(QPalette::Window), bar.palette.color(QPalette::WindowText), 0.15));
  const int range = bar.maximum - bar.minimum;
  if (range <= 0 || bar.progress <= bar.minimum) return;
  const double share = static_cast<double>(bar.progress - bar.minimum) / range;
  line.setWidth(std::max(line.width() * share, height));
  DrawRounded(painter, line, bar.palette.color(QPalette::Highlight));
}

void DrawTick(QPainter* painter, const QStyleOption& option) {
  const bool ticked = Has(option, QStyle::State_On);
  const bool enabled = Has(option, QStyle::State_Enabled);
  const QPalette& palette = option.palette;
  const QColor accent = enabled ? palette.color(QPalette::Highlight) : BorderOf(option);
  constexpr double kBoxRadius = 2.5;
  DrawSurface(painter, option, ticked ? QBrush(accent) : palette.brush(QPalette::Base), kBoxRadius);
  if (!ticked) return;
  const QRectF box = option.rect;
  const auto at = [&box](double x, double y) {
    return box.topLeft() + QPointF(box.width() * x, box.height() * y);
  };
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(QPen(palette.color(QPalette::HighlightedText), 1.8 * Scale(*painter), Qt::SolidLine,
                       Qt::RoundCap, Qt::RoundJoin));
  painter->drawPolyline(QPolygonF({at(0.25, 0.52), at(0.43, 0.7), at(0.75, 0.32)}));
  painter->restore();
}

/// Around the text of a check box: the border of a ticked box has the colour of its tick.
void DrawFocus(QPainter* painter, QStyleOption option) {
  option.rect.adjust(-1, 0, 3, 0);
  DrawSurface(painter, option, Qt::NoBrush);
}

QRect SliderOf(const QStyleOptionSlider& bar) {
  constexpr int kShortest = 24;
  const int range = bar.maximum - bar.minimum;
  const bool upright = bar.orientation == Qt::Vertical;
  const int room = upright ? bar.rect.height() : bar.rect.width();
  const int fitting =
      static_cast<int>(static_cast<double>(room) * bar.pageStep / std::max(range + bar.pageStep, 1));
  const int length = range > 0 ? std::clamp(fitting, std::min(kShortest, room), room) : room;
  const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                    room - length, bar.upsideDown);
  return upright ? QRect(bar.rect.x(), bar.rect.y() + start, bar.rect.width(), length)
                 : QRect(bar.rect.x() + start, bar.rect.y(), length, bar.rect.height());
}

void DrawScrollBar(QPainter* painter, const QStyleOptionSlider& bar) {
  const QColor window = bar.palette.color(QPalette::Window);
  const QColor text = bar.palette.color(QPalette::WindowText);
  painter->fillRect(bar.rect, Mix(window, text, 0.06));
  if (bar.maximum <= bar.minimum || !Has(bar, QStyle::State_Enabled)) return;
  const bool held =
      Has(bar, QStyle::State_Sunken) && (bar.activeSubControls & QStyle::SC_ScrollBarSlider) != 0;
  const bool strong = held || Has(bar, QStyle::State_MouseOver) || Has(bar, QStyle::State_HasFocus);
  const double inset = 3 * Scale(*painter);
  const QRectF slider = QRectF(SliderOf(bar)).adjusted(inset, inset, -inset, -inset);
  DrawRounded(painter, slider, Mix(window, text, strong ? 0.65 : 0.4));
}

}  // namespace

CalmStyle::CalmStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void CalmStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
  switch (element) {
    case PE_PanelButtonCommand:
      return DrawSurface(painter, *option, ButtonFill(*option));
    case PE_PanelLineEdit:
      return DrawSurface(painter, BoxOf(*option), option->palette.brush(QPalette::Base));
    case PE_FrameLineEdit:
      return DrawSurface(painter, BoxOf(*option), Qt::NoBrush);
    case PE_FrameGroupBox:
      return DrawSurface(painter, Faint(*option), Qt::NoBrush);
    case PE_IndicatorCheckBox:
      return DrawTick(painter, *option);
    case PE_Frame:
      if (qobject_cast<const QAbstractScrollArea*>(widget) == nullptr) break;
      return DrawSurface(painter, *option, option->palette.brush(QPalette::Base), 1);
    case PE_FrameFocusRect:
      if (qobject_cast<const QCheckBox*>(widget) != nullptr) DrawFocus(painter, *option);
      return;  // of all others the border shows it
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

void CalmStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
  const auto* bar = control == CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
  if (bar != nullptr) return DrawScrollBar(painter, *bar);
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

/// A scroll bar has no arrows: all of it is for the slider.
QRect CalmStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                const QWidget* widget) const {
  const auto* bar = control == CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
  if (bar == nullptr) return QProxyStyle::subControlRect(control, option, part, widget);
  const QRect slider = SliderOf(*bar);
  const bool upright = bar->orientation == Qt::Vertical;
  QRect rest = bar->rect;
  switch (part) {
    case SC_ScrollBarSlider:
      return slider;
    case SC_ScrollBarGroove:
      return bar->rect;
    case SC_ScrollBarSubPage:
      upright ? rest.setBottom(slider.top() - 1) : rest.setRight(slider.left() - 1);
      return rest;
    case SC_ScrollBarAddPage:
      upright ? rest.setTop(slider.bottom() + 1) : rest.setLeft(slider.right() + 1);
      return rest;
    default:
      return {};
  }
}

int CalmStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* more) const {
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  return QProxyStyle::styleHint(hint, option, widget, more);
}

}  // namespace ui::qt

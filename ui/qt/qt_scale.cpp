#include "ui/qt/qt_scale.h"

#include <QFont>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace ui::qt {
namespace {

constexpr double kTwipsPerInch = 1440;

double DotsPerInch() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return (screen != nullptr ? screen->logicalDotsPerInch() : 96) * TextScale();
}

}  // namespace

double TextScale() {
  constexpr double kUsualPoints = 11;  // the most that a desktop begins with
  constexpr double kLargest = 3;
  return std::clamp(QGuiApplication::font().pointSizeF() / kUsualPoints, 1.0, kLargest);
}

int ToPixels(Twips length) { return static_cast<int>(std::lround(length * DotsPerInch() / kTwipsPerInch)); }

Twips ToTwips(int pixels) { return static_cast<Twips>(std::lround(pixels * kTwipsPerInch / DotsPerInch())); }

QRect ToPixels(const Rect& bounds) {
  const QPoint corner(ToPixels(bounds.left), ToPixels(bounds.top));
  return {corner, QSize(ToPixels(bounds.right()) - corner.x(), ToPixels(bounds.bottom()) - corner.y())};
}

Rect ToTwips(const QRect& pixels) {
  return {ToTwips(pixels.x()), ToTwips(pixels.y()), ToTwips(pixels.width()), ToTwips(pixels.height())};
}

Size ToTwips(const QSize& pixels) { return {ToTwips(pixels.width()), ToTwips(pixels.height())}; }

}  // namespace ui::qt

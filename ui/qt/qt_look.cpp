#include "ui/qt/qt_look.h"

#include <QApplication>
#include <QStyle>
#include <cmath>

namespace ui::qt {
namespace {

QColor ToQColor(const Colour& colour) { return {colour.red, colour.green, colour.blue}; }

/// WCAG 2.1's relative luminance.
double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// A colour of the background's family that stands out from it: for the focus, selections and progress. Grey
/// and white have no family.
QColor AccentFor(const QColor& background, const QColor& accent_around) {
  if (background.hslSaturation() < 20) return accent_around;
  return QColor::fromHsl(background.hslHue(), 120, background.lightness() > 127 ? 85 : 170);
}

void SetDisabled(QPalette& palette, const QColor& background, const QColor& text) {
  const QColor faint = Mix(text, background, 0.55);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, faint);
  }
  for (const auto role : {QPalette::Base, QPalette::Button}) {
    palette.setColor(QPalette::Disabled, role, Mix(palette.color(QPalette::Active, role), background, 0.7));
  }
}

QPalette PaletteOf(const QColor& window, const QColor& field, const QColor& button, const QColor& text,
                   const QColor& accent_around) {
  QPalette palette(button, window);
  const QColor accent = AccentFor(window, accent_around);
  palette.setColor(QPalette::Window, window);
  palette.setColor(QPalette::Base, field);
  palette.setColor(QPalette::AlternateBase, Mix(field, window, 0.5));
  palette.setColor(QPalette::Button, button);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(role, text);
  palette.setColor(QPalette::Highlight, accent);
  palette.setColor(QPalette::HighlightedText, Luminance(accent) > 0.4 ? Qt::black : Qt::white);
  palette.setColor(QPalette::PlaceholderText, Mix(text, field, 0.5));
  SetDisabled(palette, window, text);
  return palette;
}

}  // namespace

double Contrast(const QColor& a, const QColor& b) {
  const double one = Luminance(a);
  const double other = Luminance(b);
  return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

QColor Mix(const QColor& from, const QColor& to, double share) {
  const auto part = [share](double a, double b) { return static_cast<float>(a + (b - a) * share); };
  return QColor::fromRgbF(part(from.redF(), to.redF()), part(from.greenF(), to.greenF()),
                          part(from.blueF(), to.blueF()), part(from.alphaF(), to.alphaF()));
}

bool IsHighContrast() {
  constexpr double kNearlyBlackAndWhite = 20.5;  // of at most 21
  const QPalette system = QApplication::palette();
  return Contrast(system.color(QPalette::WindowText), system.color(QPalette::Window)) > kNearlyBlackAndWhite;
}

QPalette WindowPalette(const Colours& colours, const QColor& accent_around) {
  const QColor window = ToQColor(colours.background);
  const bool pale = Luminance(window) > 0.4;
  const QColor lighter = pale ? QColor(Qt::white) : Mix(window, Qt::white, 0.08);
  return PaletteOf(window, lighter, Mix(window, lighter, 0.75), ToQColor(colours.text), accent_around);
}

QPalette ControlPalette(const Colours& colours, const QColor& accent_around) {
  const QColor background = ToQColor(colours.background);
  return PaletteOf(background, background, background, ToQColor(colours.text), accent_around);
}

}  // namespace ui::qt

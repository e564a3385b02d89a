#include "ui/win32/drawing/scale.h"

#include <algorithm>
#include <cstdlib>

namespace ui::win32 {
namespace {

constexpr int kTwipsPerInch = 1440;
constexpr int kWhole = 100;

/// By the size of its messages, and by what the user has set for all texts, in percent. Not every version of
/// the system lets the one follow the other.
int TextPercent() {
  constexpr int kUsualMessage = 12;  // pixels, at 96 dots per inch
  constexpr int kLargest = 300;
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, USER_DEFAULT_SCREEN_DPI);
  DWORD set = kWhole;
  DWORD size = sizeof set;
  RegGetValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Accessibility", L"TextScaleFactor", RRF_RT_REG_DWORD,
               nullptr, &set, &size);
  const int by_message = MulDiv(std::abs(metrics.lfMessageFont.lfHeight), kWhole, kUsualMessage);
  return std::clamp(std::max(by_message, static_cast<int>(set)), kWhole, kLargest);
}

UINT Enlarged(UINT dpi) {
  static const int percent = TextPercent();
  return static_cast<UINT>(MulDiv(static_cast<int>(dpi), percent, kWhole));
}

}  // namespace

UINT DotsPerInch(HWND window) { return Enlarged(GetDpiForWindow(window)); }
UINT DotsPerInch() { return Enlarged(GetDpiForSystem()); }

RECT WorkArea() {
  RECT area{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
  return area;
}

int ToPixels(Twips length, UINT dpi) { return MulDiv(length, static_cast<int>(dpi), kTwipsPerInch); }

RECT ToPixels(const Rect& bounds, UINT dpi) {
  return {ToPixels(bounds.left, dpi), ToPixels(bounds.top, dpi), ToPixels(bounds.right(), dpi),
          ToPixels(bounds.bottom(), dpi)};
}

Twips ToTwips(int pixels, UINT dpi) { return MulDiv(pixels, kTwipsPerInch, static_cast<int>(dpi)); }

Rect ToTwips(const RECT& pixels, UINT dpi) {
  return {ToTwips(pixels.left, dpi), ToTwips(pixels.top, dpi), ToTwips(Width(pixels), dpi),
          ToTwips(Height(pixels), dpi)};
}

}  // namespace ui::win32

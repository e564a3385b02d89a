#include "ui/win32/scale.h"

namespace ui::win32 {
namespace {

constexpr int kTwipsPerInch = 1440;

}  // namespace

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

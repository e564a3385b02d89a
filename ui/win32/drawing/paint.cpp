#include "ui/win32/drawing/paint.h"

namespace ui::win32 {

COLORREF ToColorRef(const Colour& colour) { return RGB(colour.red, colour.green, colour.blue); }

bool IsHighContrast() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

std::optional<Colours> OwnColours(const Control& control) {
  return IsHighContrast() ? std::nullopt : control.colours();
}

std::optional<Colours> ColoursAround(const Control& control) {
  const Control* around = &control;
  while (around != nullptr && !around->colours()) around = around->parent();
  return around != nullptr ? OwnColours(*around) : std::nullopt;
}

COLORREF LineColour(const Colours& around, Line line) {
  const int share = line == Line::kClear ? 11 : 4;  // of 20
  const auto mix = [share](int text, int background) {
    return static_cast<BYTE>((share * text + (20 - share) * background) / 20);
  };
  return RGB(mix(around.text.red, around.background.red), mix(around.text.green, around.background.green),
             mix(around.text.blue, around.background.blue));
}

void DrawBoxBorder(HDC context, const RECT& area, const Control& box, HWND handle, Line line) {
  const std::optional<Colours> around = ColoursAround(*box.parent());
  if (!around) return;
  const bool enabled = IsWindowEnabled(handle) != 0;
  const COLORREF colour = GetFocus() == handle ? GetSysColor(COLOR_HIGHLIGHT)
                                               : LineColour(*around, enabled ? line : Line::kFaint);
  FrameRect(context, &area, UseColours(context, colour, colour));
}

HBRUSH UseColours(HDC context, COLORREF background, COLORREF text) {
  SetTextColor(context, text);
  SetBkColor(context, background);
  SetDCBrushColor(context, background);
  return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

HBRUSH UseColours(HDC context, const Colours& colours) {
  return UseColours(context, ToColorRef(colours.background), ToColorRef(colours.text));
}

void FillBackground(HDC context, const RECT& area, const Control& container) {
  const std::optional<Colours> colours = ColoursAround(container);
  FillRect(context, &area, colours ? UseColours(context, *colours) : GetSysColorBrush(COLOR_BTNFACE));
}

}  // namespace ui::win32

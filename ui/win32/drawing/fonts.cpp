#include "ui/win32/drawing/fonts.h"

#include <algorithm>

#include "ui/win32/wide_text.h"

namespace ui::win32 {
namespace {

constexpr int kPointsPerInch = 72;

LOGFONTW MessageFont(UINT dpi) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi);
  return metrics.lfMessageFont;
}

/// A system without the font then takes another one whose characters are all equally wide.
bool IsFixedPitch(const Font& font) { return font.name.starts_with("Courier"); }

HFONT Make(const Font& font, UINT dpi) {
  LOGFONTW logical = MessageFont(dpi);
  if (!font.name.empty()) {
    std::wstring name = ToWide(font.name);
    name.resize(std::min<std::size_t>(name.size(), LF_FACESIZE - 1));
    std::fill(std::begin(logical.lfFaceName), std::end(logical.lfFaceName), L'\0');
    std::copy(name.begin(), name.end(), logical.lfFaceName);
    // What the font of messages says of itself here would outweigh the name.
    logical.lfCharSet = DEFAULT_CHARSET;
    logical.lfPitchAndFamily =
        static_cast<BYTE>(IsFixedPitch(font) ? FIXED_PITCH | FF_MODERN : DEFAULT_PITCH | FF_DONTCARE);
  }
  logical.lfHeight = -MulDiv(font.points, static_cast<int>(dpi), kPointsPerInch);
  logical.lfWidth = 0;
  logical.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  logical.lfQuality = CLEARTYPE_QUALITY;
  return CreateFontIndirectW(&logical);
}

}  // namespace

HFONT Fonts::Get(const Font& font, UINT dpi) {
  auto& kept = fonts_[{font.name, font.points, font.bold, dpi}];
  if (!kept) kept = base::Handle<base::ClosedBy<HFONT, &DeleteObject>>(Make(font, dpi));
  return kept.get();
}

SIZE MeasureText(const std::wstring& text, HFONT font) {
  const HDC screen = GetDC(nullptr);
  const HGDIOBJ before = SelectObject(screen, font);
  SIZE size{};
  GetTextExtentPoint32W(screen, text.c_str(), static_cast<int>(text.size()), &size);
  SelectObject(screen, before);
  ReleaseDC(nullptr, screen);
  return size;
}

}  // namespace ui::win32

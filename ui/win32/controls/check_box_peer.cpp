#include "ui/win32/controls/check_box_peer.h"

#include <commctrl.h>
#include <uxtheme.h>
#include <vssym32.h>

#include "ui/win32/drawing/paint.h"
#include "ui/win32/drawing/scale.h"

namespace ui::win32 {
namespace {

constexpr WindowKind kCheckBox{WC_BUTTONW, WS_CHILD | WS_TABSTOP | WS_CLIPSIBLINGS | BS_CHECKBOX};

/// Where the system's theme draws the square: at the left, half way up. Empty without a theme.
RECT Square(HWND handle, HDC context) {
  SIZE size{};
  if (const HTHEME theme = OpenThemeData(handle, WC_BUTTONW)) {
    GetThemePartSize(theme, context, BP_CHECKBOX, CBS_UNCHECKEDNORMAL, nullptr, TS_DRAW, &size);
    CloseThemeData(theme);
  }
  RECT inside{};
  GetClientRect(handle, &inside);
  const LONG top = (Height(inside) - size.cy) / 2;
  return {0, top, size.cx, top + size.cy};
}

}  // namespace

CheckBoxPeer::CheckBoxPeer(CheckBox& box, Toolkit& toolkit)
    : LateFocusPeer(box, toolkit, kCheckBox), box_(box) {
  window().OnNotice(WM_COMMAND, BN_CLICKED, [this](const Message&) -> Answer {
    ReportFocus();
    box_.UserTicked(box_.value() == 0 ? 1 : 0);
    return 0;
  });
  window().OnNotice(WM_NOTIFY, NM_CUSTOMDRAW, [this](const Message& message) -> Answer {
    const auto& drawn = *reinterpret_cast<const NMCUSTOMDRAW*>(message.lparam);
    if (drawn.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYPOSTPAINT;
    if (drawn.dwDrawStage == CDDS_POSTPAINT) StrengthenBorder(drawn.hdc);
    return CDRF_DODEFAULT;
  });
}

/// Where the theme's own border is too pale to be seen.
void CheckBoxPeer::StrengthenBorder(HDC context) const {
  const std::optional<Colours> around = ColoursAround(box_);
  const RECT square = Square(handle(), context);
  if (!around || Width(square) == 0 || IsWindowEnabled(handle()) == 0) return;
  const COLORREF clear = LineColour(*around, Line::kClear);
  const COLORREF drawn = GetPixel(context, square.left, square.top + Height(square) / 2);
  if (GetGValue(drawn) > GetGValue(clear)) FrameRect(context, &square, UseColours(context, clear, clear));
}

void CheckBoxPeer::MirrorValue() {
  window().Send(BM_SETCHECK, box_.value() != 0 ? BST_CHECKED : BST_UNCHECKED);
}

}  // namespace ui::win32

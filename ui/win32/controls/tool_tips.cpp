#include "ui/win32/controls/tool_tips.h"

#include <commctrl.h>

#include "ui/win32/drawing/scale.h"
#include "ui/win32/wide_text.h"

namespace ui::win32 {
namespace {

constexpr Twips kWidest = 6000;
constexpr int kLongestTime = 32'767;  // milliseconds; the control takes no more
constexpr WindowKind kTips{TOOLTIPS_CLASSW, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, WS_EX_TOPMOST};

}  // namespace

ToolTips::ToolTips(HWND window) : tips_(kTips, window, 0), window_(window) {
  tips_.Send(TTM_SETDELAYTIME, TTDT_AUTOPOP, kLongestTime);
}

void ToolTips::Set(HWND control, const std::string& text) {
  std::wstring wide = ToWide(text);
  TTTOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = window_;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = wide.data();
  const auto lparam = reinterpret_cast<LPARAM>(&tool);
  if (text.empty()) {
    if (controls_.erase(control) > 0) tips_.Send(TTM_DELTOOLW, 0, lparam);
    return;
  }
  // Without a width a tip is one line, whatever it holds.
  tips_.Send(TTM_SETMAXTIPWIDTH, 0, ToPixels(kWidest, GetDpiForWindow(window_)));
  const bool is_new = controls_.insert(control).second;
  tips_.Send(is_new ? TTM_ADDTOOLW : TTM_UPDATETIPTEXTW, 0, lparam);
}

}  // namespace ui::win32

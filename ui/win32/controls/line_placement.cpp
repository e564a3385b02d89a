#include "ui/win32/controls/line_placement.h"

#include <algorithm>

#include "ui/win32/drawing/scale.h"

namespace ui::win32 {
namespace {

/// The brush for what is behind the text, of the window around as the edit itself asks for it.
HBRUSH BackgroundBrush(HWND edit, HDC context) {
  const bool read_only = (GetWindowLongPtrW(edit, GWL_STYLE) & ES_READONLY) != 0;
  const UINT question = read_only || !IsWindowEnabled(edit) ? WM_CTLCOLORSTATIC : WM_CTLCOLOREDIT;
  return reinterpret_cast<HBRUSH>(SendMessageW(GetParent(edit), question, reinterpret_cast<WPARAM>(context),
                                               reinterpret_cast<LPARAM>(edit)));
}

}  // namespace

void FillAroundLine(HWND edit) {
  RECT outer{};
  RECT line{};
  GetWindowRect(edit, &outer);
  GetClientRect(edit, &line);
  MapWindowPoints(edit, nullptr, reinterpret_cast<POINT*>(&line), 2);
  OffsetRect(&line, -outer.left, -outer.top);
  OffsetRect(&outer, -outer.left, -outer.top);
  const UINT dpi = GetDpiForWindow(edit);
  InflateRect(&outer, -GetSystemMetricsForDpi(SM_CXEDGE, dpi), -GetSystemMetricsForDpi(SM_CYEDGE, dpi));
  const HDC context = GetWindowDC(edit);
  ExcludeClipRect(context, line.left, line.top, line.right, line.bottom);
  FillRect(context, &outer, BackgroundBrush(edit, context));
  ReleaseDC(edit, context);
}

void PlaceLineInTheMiddle(NativeWindow& edit, const std::function<int()>& line_height) {
  edit.On(WM_NCCALCSIZE, [&edit, line_height](const Message& message) -> Answer {
    const LRESULT result = edit.Default(message);
    RECT& inside = *reinterpret_cast<RECT*>(message.lparam);  // also where more follows it
    const int spare = std::max(Height(inside) - line_height(), 0);
    inside.top += spare / 2;
    inside.bottom -= spare - spare / 2;
    return result;
  });
  edit.On(WM_NCHITTEST, [&edit](const Message& message) -> Answer {
    return edit.Default(message) == HTNOWHERE ? HTNOWHERE : HTCLIENT;
  });
}

}  // namespace ui::win32

#include "ui/win32/label_peer.h"

#include <commctrl.h>

#include "ui/form.h"
#include "ui/win32/scale.h"
#include "ui/win32/wide_text.h"

namespace ui::win32 {
namespace {

// Without SS_NOTIFY a label is transparent to the mouse.
constexpr WindowKind kLabel{WC_STATICW, WS_CHILD | WS_CLIPSIBLINGS | SS_LEFT | SS_NOTIFY};
constexpr Twips kPopUpMargin = 90;

}  // namespace

LabelPeer::LabelPeer(Label& label, Toolkit& toolkit) : WindowPeer(label, toolkit, kLabel), label_(label) {
  window().On(WM_LBUTTONUP, [this](const Message& message) -> Answer {
    if (Contains(message)) label_.UserPressed();
    return 0;
  });
}

/// A label with no access key holds its text as it is, so that others read it as it is.
void LabelPeer::MirrorText() {
  const bool marked = label_.access_key() != 0;
  const LONG_PTR style = GetWindowLongPtrW(handle(), GWL_STYLE) & ~LONG_PTR{SS_NOPREFIX};
  SetWindowLongPtrW(handle(), GWL_STYLE, style | (marked ? 0 : SS_NOPREFIX));
  const std::wstring text = marked ? ToCaption(label_.text(), label_.access_key()) : ToWide(label_.text());
  SetWindowTextW(handle(), text.c_str());
}

void LabelPeer::MirrorBounds() {
  RECT place = ToPixels(label_.bounds(), dpi());
  const int margin = label_.form().style() == FormStyle::kPopUp ? ToPixels(kPopUpMargin, dpi()) : 0;
  InflateRect(&place, -margin, -margin);
  SetWindowPos(handle(), nullptr, place.left, place.top, Width(place), Height(place),
               SWP_NOZORDER | SWP_NOACTIVATE);
  InvalidateRect(handle(), nullptr, TRUE);
}

}  // namespace ui::win32

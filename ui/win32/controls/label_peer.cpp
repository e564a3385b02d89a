#include "ui/win32/controls/label_peer.h"

#include <commctrl.h>

#include "ui/form.h"
#include "ui/win32/drawing/scale.h"
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

void LabelPeer::MirrorText() {
  MirrorStyle();
  const bool marked = label_.access_key() != 0;
  const std::wstring text = marked ? ToCaption(label_.text(), label_.access_key()) : ToWide(label_.text());
  SetWindowTextW(handle(), text.c_str());
}

void LabelPeer::MirrorBounds() {
  RECT place = Place();
  const int margin = label_.form().style() == FormStyle::kPopUp ? ToPixels(kPopUpMargin, dpi()) : 0;
  InflateRect(&place, -margin, -margin);
  SetWindowPos(handle(), nullptr, place.left, place.top, Width(place), Height(place),
               SWP_NOZORDER | SWP_NOACTIVATE);
  MirrorStyle();
  InvalidateRect(handle(), nullptr, TRUE);
}

void LabelPeer::MirrorFont() {
  WindowPeer::MirrorFont();
  MirrorStyle();
}

/// A path keeps its last name.
LONG_PTR LabelPeer::Ellipsis() const {
  return label_.text().find('\\') != std::string::npos ? SS_PATHELLIPSIS : SS_ENDELLIPSIS;
}

/// A label with no access key holds its text as it is, so that others read it as it is. One that has no room
/// for a second line would show the upper half of it.
void LabelPeer::MirrorStyle() {
  RECT inside{};
  GetClientRect(handle(), &inside);
  const bool one_line = 2 * Height(inside) < 3 * MeasureText(L"M", font()).cy;
  const LONG_PTR style = GetWindowLongPtrW(handle(), GWL_STYLE) & ~LONG_PTR{SS_NOPREFIX | SS_ELLIPSISMASK};
  SetWindowLongPtrW(handle(), GWL_STYLE,
                    style | (label_.access_key() != 0 ? 0 : SS_NOPREFIX) | (one_line ? Ellipsis() : 0));
}

}  // namespace ui::win32

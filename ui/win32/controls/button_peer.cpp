#include "ui/win32/controls/button_peer.h"

#include <commctrl.h>

namespace ui::win32 {
namespace {

constexpr WindowKind kButton{WC_BUTTONW,
                             WS_CHILD | WS_TABSTOP | WS_CLIPSIBLINGS | BS_PUSHBUTTON | BS_MULTILINE};

}  // namespace

ButtonPeer::ButtonPeer(Button& button, Toolkit& toolkit) : LateFocusPeer(button, toolkit, kButton) {
  window().OnNotice(WM_COMMAND, BN_CLICKED, [this, &button](const Message&) -> Answer {
    ReportFocus();
    button.UserPressed();
    return 0;
  });
  window().On(WM_KILLFOCUS, [this](const Message& message) -> Answer {
    const LRESULT result = window().Default(message);
    Mark(BS_PUSHBUTTON);
    return result;
  });
}

/// The button that Enter presses has the system's mark of a default button: the one with the focus.
void ButtonPeer::FocusArrived() {
  Mark(BS_DEFPUSHBUTTON);
  LateFocusPeer::FocusArrived();
}

void ButtonPeer::Mark(DWORD style) { window().Send(BM_SETSTYLE, style | BS_MULTILINE, TRUE); }

}  // namespace ui::win32

#include "ui/win32/controls/check_box_peer.h"

#include <commctrl.h>

namespace ui::win32 {
namespace {

constexpr WindowKind kCheckBox{WC_BUTTONW, WS_CHILD | WS_TABSTOP | WS_CLIPSIBLINGS | BS_CHECKBOX};

}  // namespace

CheckBoxPeer::CheckBoxPeer(CheckBox& box, Toolkit& toolkit)
    : LateFocusPeer(box, toolkit, kCheckBox), box_(box) {
  window().OnNotice(WM_COMMAND, BN_CLICKED, [this](const Message&) -> Answer {
    ReportFocus();
    box_.UserTicked(box_.value() == 0 ? 1 : 0);
    return 0;
  });
}

void CheckBoxPeer::MirrorValue() {
  window().Send(BM_SETCHECK, box_.value() != 0 ? BST_CHECKED : BST_UNCHECKED);
}

}  // namespace ui::win32

#include "ui/win32/dialogs/modal_block.h"

#include "ui/win32/controls/form_peer.h"

namespace ui::win32 {

ModalBlock::ModalBlock(const Toolkit& toolkit, HWND except) {
  for (const FormPeer* form : toolkit.forms) {
    const HWND window = form->handle();
    if (window == except || !IsWindowEnabled(window)) continue;
    EnableWindow(window, FALSE);
    blocked_.push_back(window);
  }
}

ModalBlock::~ModalBlock() {
  for (const HWND window : blocked_) EnableWindow(window, TRUE);
}

}  // namespace ui::win32

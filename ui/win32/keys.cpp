#include "ui/win32/keys.h"

#include <algorithm>

#include "ui/win32/form_peer.h"

namespace ui::win32 {
namespace {

FormPeer* FormAround(HWND window, const Toolkit& toolkit) {
  const HWND root = GetAncestor(window, GA_ROOT);
  const auto found = std::find_if(toolkit.forms.begin(), toolkit.forms.end(),
                                  [root](const FormPeer* form) { return form->handle() == root; });
  return found == toolkit.forms.end() ? nullptr : *found;
}

bool IsDown(int key) { return GetKeyState(key) < 0; }

/// The order of the controls over one another is no tab order: a frame that is shown comes to the front.
bool MoveByTab(const MSG& message, Form& form) {
  if (message.message != WM_KEYDOWN || message.wParam != VK_TAB || IsDown(VK_CONTROL)) return false;
  Control* const from = form.focused();
  Control* const next = IsDown(VK_SHIFT) ? form.BeforeInTabOrder(from) : form.AfterInTabOrder(from);
  if (next == nullptr) return true;
  next->SetFocus();
  const HWND window = HandleOf(*next);
  const LRESULT wants = SendMessageW(window, WM_GETDLGCODE, 0, 0);
  if ((wants & DLGC_HASSETSEL) != 0) SendMessageW(window, EM_SETSEL, 0, -1);
  return true;
}

bool PressByAccessKey(const MSG& message, Form& form) {
  if (message.message != WM_SYSCHAR || message.wParam > 0x7F) return false;
  return form.UserPressedAccessKey(static_cast<char>(message.wParam));
}

}  // namespace

bool HandleKey(MSG& message, const Toolkit& toolkit) {
  if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
  if (message.message == WM_CHAR) return false;  // a letter alone is no access key in a window
  FormPeer* const peer = FormAround(message.hwnd, toolkit);
  if (peer == nullptr) return false;
  return MoveByTab(message, peer->form()) || PressByAccessKey(message, peer->form()) ||
         IsDialogMessageW(peer->handle(), &message);
}

}  // namespace ui::win32

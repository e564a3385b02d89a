#include "ui/win32/keys.h"

#include <algorithm>
#include <optional>

#include "ui/win32/controls/form_peer.h"
#include "ui/win32/wide_text.h"

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

/// The key as a window is offered it; empty for one that it is not. With Alt come other messages.
std::optional<KeyPress> PressOf(const MSG& message) {
  constexpr WPARAM kDelete = 0x7F;
  if (message.message == WM_CHAR && message.wParam > VK_SPACE && message.wParam != kDelete) {
    return KeyPress{Key::kCharacter, base::Narrow(std::wstring(1, static_cast<wchar_t>(message.wParam)))};
  }
  if (message.message == WM_KEYDOWN && message.wParam == 'F' && IsDown(VK_CONTROL) && !IsDown(VK_MENU)) {
    return KeyPress{Key::kFind};
  }
  if (message.message != WM_KEYDOWN || IsDown(VK_CONTROL)) return std::nullopt;
  switch (message.wParam) {
    case VK_SPACE:  // when its character comes the control has been pressed already
      return KeyPress{Key::kCharacter, " "};
    case VK_UP:
      return KeyPress{Key::kUp};
    case VK_DOWN:
      return KeyPress{Key::kDown};
    case VK_PRIOR:
      return KeyPress{Key::kPageUp};
    case VK_NEXT:
      return KeyPress{Key::kPageDown};
    case VK_HOME:
      return KeyPress{Key::kHome};
    case VK_END:
      return KeyPress{Key::kEnd};
    case VK_F3:
      return KeyPress{Key::kF3, {}, IsDown(VK_SHIFT)};
    case VK_F8:
      return KeyPress{Key::kF8, {}, IsDown(VK_SHIFT)};
    default:
      return std::nullopt;
  }
}

bool OfferToWindow(const MSG& message, Form& form) {
  const std::optional<KeyPress> press = PressOf(message);
  return press && form.UserPressedKey(*press);
}

}  // namespace

bool HandleKey(MSG& message, const Toolkit& toolkit) {
  if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
  FormPeer* const peer = FormAround(message.hwnd, toolkit);
  if (peer == nullptr) return false;
  if (OfferToWindow(message, peer->form())) return true;
  if (message.message == WM_CHAR) return false;  // a letter alone is no access key in a window
  return MoveByTab(message, peer->form()) || PressByAccessKey(message, peer->form()) ||
         IsDialogMessageW(peer->handle(), &message);
}

}  // namespace ui::win32

#include "ui/win32/desktop/notice.h"

#include <shellapi.h>

#include <algorithm>

#include "ui/win32/wide_text.h"

namespace ui::win32 {
namespace {

constexpr UINT kNumber = 1;

NOTIFYICONDATAW DataFor(HWND window) {
  NOTIFYICONDATAW data{};
  data.cbSize = sizeof data;
  data.hWnd = window;
  data.uID = kNumber;
  return data;
}

/// What does not fit is cut.
template <std::size_t kSize>
void Put(const std::string& text, wchar_t (&into)[kSize]) {
  const std::wstring wide = ToWide(text).substr(0, kSize - 1);
  *std::copy(wide.begin(), wide.end(), into) = L'\0';
}

}  // namespace

void Notice::Show(HWND window, const std::string& title, const std::string& text) {
  Remove();
  NOTIFYICONDATAW data = DataFor(window);
  data.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP | NIF_INFO;
  data.uCallbackMessage = kMessage;
  data.hIcon = reinterpret_cast<HICON>(GetClassLongPtrW(window, GCLP_HICON));
  data.dwInfoFlags = NIIF_USER;
  Put(title, data.szTip);
  Put(title, data.szInfoTitle);
  Put(text, data.szInfo);
  if (Shell_NotifyIconW(NIM_ADD, &data)) window_ = window;
}

bool Notice::Handle(LPARAM event) {
  const bool clicked = event == NIN_BALLOONUSERCLICK || event == WM_LBUTTONUP;
  if (clicked || event == NIN_BALLOONTIMEOUT || event == NIN_BALLOONHIDE) Remove();
  return clicked;
}

void Notice::Remove() {
  if (window_ == nullptr) return;
  NOTIFYICONDATAW data = DataFor(window_);
  Shell_NotifyIconW(NIM_DELETE, &data);
  window_ = nullptr;
}

}  // namespace ui::win32

#include "ui/win32/desktop/clipboard.h"

#include <cstring>

#include "base/handle.h"
#include "ui/win32/wide_text.h"

namespace ui::win32 {
namespace {

constexpr int kTries = 10;
constexpr DWORD kPause = 10;  // milliseconds

/// Holds the clipboard while it lives.
class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) {
    for (int i = 0; i < kTries && !open_; ++i) {
      if (i > 0) Sleep(kPause);
      open_ = OpenClipboard(owner) != 0;
    }
  }
  ~OpenedClipboard() {
    if (open_) CloseClipboard();
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;

  explicit operator bool() const { return open_; }

 private:
  bool open_ = false;
};

base::Handle<base::ClosedBy<HGLOBAL, &GlobalFree>> ToMemory(const std::wstring& text) {
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  base::Handle<base::ClosedBy<HGLOBAL, &GlobalFree>> memory(GlobalAlloc(GMEM_MOVEABLE, bytes));
  void* const place = memory ? GlobalLock(memory.get()) : nullptr;
  if (place == nullptr) return {};
  std::memcpy(place, text.c_str(), bytes);
  GlobalUnlock(memory.get());
  return memory;
}

}  // namespace

Win32Clipboard::Win32Clipboard() : owner_({PlainWindowClass()}, HWND_MESSAGE, 0) {}

void Win32Clipboard::Clear() {
  if (const OpenedClipboard opened(owner_.handle()); opened) EmptyClipboard();
}

void Win32Clipboard::SetText(const std::string& text) {
  const OpenedClipboard opened(owner_.handle());
  if (!opened) return;
  EmptyClipboard();
  auto memory = ToMemory(ToWide(text));
  if (memory && SetClipboardData(CF_UNICODETEXT, memory.get()) != nullptr)
    memory.Release();  // now the system's
}

std::string Win32Clipboard::Text() {
  const OpenedClipboard opened(owner_.handle());
  const HGLOBAL memory = opened ? GetClipboardData(CF_UNICODETEXT) : nullptr;
  const auto* place = memory != nullptr ? static_cast<const wchar_t*>(GlobalLock(memory)) : nullptr;
  if (place == nullptr) return {};
  // The program that put it there may have forgotten the zero.
  const std::wstring_view whole(place, GlobalSize(memory) / sizeof(wchar_t));
  const std::string text = base::Narrow(whole.substr(0, whole.find(L'\0')));
  GlobalUnlock(memory);
  return text;
}

}  // namespace ui::win32

#include "ui/win32/dialogs/folder_dialog.h"

#include <objbase.h>
#include <shlobj.h>

#include "base/handle.h"
#include "ui/win32/wide_text.h"

namespace ui::win32 {
namespace {

int CALLBACK WhenOpened(HWND dialog, UINT message, LPARAM, LPARAM start) {
  if (message == BFFM_INITIALIZED) SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, start);
  return 0;
}

bool IsFolder(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

}  // namespace

std::optional<std::string> AskForFolder(HWND owner, const std::string& title, const std::string& start,
                                        bool new_style) {
  const std::wstring wide_title = ToWide(title);
  const std::wstring wide_start = ToWide(start);
  BROWSEINFOW browse{};
  browse.hwndOwner = owner;
  browse.lpszTitle = wide_title.c_str();
  browse.ulFlags = BIF_RETURNONLYFSDIRS;
  if (new_style) browse.ulFlags |= BIF_NEWDIALOGSTYLE;
  if (IsFolder(wide_start)) {
    browse.lpfn = &WhenOpened;
    browse.lParam = reinterpret_cast<LPARAM>(wide_start.c_str());
  }
  const base::Handle<base::ClosedBy<PIDLIST_ABSOLUTE, &CoTaskMemFree>> chosen(SHBrowseForFolderW(&browse));
  std::wstring path(kLongestPath, L'\0');
  const auto size = static_cast<DWORD>(path.size());
  if (!chosen || !SHGetPathFromIDListEx(chosen.get(), path.data(), size, GPFIDL_DEFAULT)) return std::nullopt;
  return base::Narrow(path.c_str());
}

}  // namespace ui::win32

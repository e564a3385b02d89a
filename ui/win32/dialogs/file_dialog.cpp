#include "ui/win32/dialogs/file_dialog.h"

#include <commdlg.h>

#include "ui/win32/wide_text.h"

namespace ui::win32 {
namespace {

/// Both dialogs change the current folder; OFN_NOCHANGEDIR does not keep the one for opening from it
/// (OPENFILENAMEW, remarks on that flag).
class CurrentFolderKeeper {
 public:
  CurrentFolderKeeper() : folder_(kLongestPath, L'\0') {
    folder_.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder_.size()), folder_.data()));
  }
  ~CurrentFolderKeeper() { SetCurrentDirectoryW(folder_.c_str()); }
  CurrentFolderKeeper(const CurrentFolderKeeper&) = delete;
  CurrentFolderKeeper& operator=(const CurrentFolderKeeper&) = delete;

 private:
  std::wstring folder_;
};

using SystemDialog = BOOL(WINAPI*)(OPENFILENAMEW*);

/// No flags: the path is taken as it is typed, nothing is asked about it and no extension added.
std::optional<std::string> Ask(SystemDialog show, HWND owner, const FileDialog& dialog) {
  const CurrentFolderKeeper keeper;
  const std::wstring title = ToWide(dialog.title);
  std::wstring filter = ToWide(dialog.filter_name) + L'\0' + ToWide(dialog.filter_pattern) + L'\0';
  std::wstring path(kLongestPath, L'\0');
  OPENFILENAMEW settings{};
  settings.lStructSize = sizeof settings;
  settings.hwndOwner = owner;
  settings.lpstrTitle = title.c_str();
  settings.lpstrFilter = filter.c_str();
  settings.lpstrFile = path.data();
  settings.nMaxFile = static_cast<DWORD>(path.size());
  if (!show(&settings)) return std::nullopt;
  return base::Narrow(path.c_str());
}

}  // namespace

std::optional<std::string> AskForFileToOpen(HWND owner, const FileDialog& dialog) {
  return Ask(&GetOpenFileNameW, owner, dialog);
}

std::optional<std::string> AskForFileToSave(HWND owner, const FileDialog& dialog) {
  return Ask(&GetSaveFileNameW, owner, dialog);
}

}  // namespace ui::win32

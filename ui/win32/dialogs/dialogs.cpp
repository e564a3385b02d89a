#include "ui/win32/dialogs/dialogs.h"

#include "base/program_name.h"
#include "ui/form.h"
#include "ui/win32/controls/window_peer.h"
#include "ui/win32/dialogs/file_dialog.h"
#include "ui/win32/dialogs/folder_dialog.h"
#include "ui/win32/dialogs/input_window.h"
#include "ui/win32/dialogs/modal_block.h"
#include "ui/win32/wide_text.h"

namespace ui::win32 {
namespace {

/// A box without a title of its own has the name of the program.
std::string TitleOf(const std::string& title) { return title.empty() ? base::kProgramName : title; }

UINT StyleOf(Icon icon) {
  switch (icon) {
    case Icon::kNone:
      return 0;
    case Icon::kInformation:
      return MB_ICONINFORMATION;
    case Icon::kExclamation:
      return MB_ICONEXCLAMATION;
    case Icon::kQuestion:
      return MB_ICONQUESTION;
  }
  return 0;
}

}  // namespace

/// The system's dialogs keep the user from their owner, but from no other window.
template <typename Dialog>
auto Win32Dialogs::Run(const Form& owner, Dialog show) {
  const ModalScope nothing_else_reacts(front_end_, nullptr);
  const HWND window = owner.visible() ? HandleOf(owner) : nullptr;
  const ModalBlock block(toolkit_, window);
  return show(window);
}

int Win32Dialogs::ShowBox(Form& owner, const MessageBox& box, UINT buttons) {
  const std::wstring text = ToWide(box.text);
  const std::wstring title = ToWide(TitleOf(box.title));
  return Run(owner, [&](HWND window) {
    return MessageBoxW(window, text.c_str(), title.c_str(), buttons | StyleOf(box.icon));
  });
}

void Win32Dialogs::Show(Form& owner, const MessageBox& box) { ShowBox(owner, box, MB_OK); }

bool Win32Dialogs::AskYesNo(Form& owner, const MessageBox& box) {
  return ShowBox(owner, box, box.no_by_default ? MB_YESNO | MB_DEFBUTTON2 : MB_YESNO) == IDYES;
}

std::optional<std::string> Win32Dialogs::BrowseForFolder(Form& owner, const std::string& title,
                                                         const std::string& start, bool new_style) {
  return Run(owner, [&](HWND window) { return AskForFolder(window, title, start, new_style); });
}

std::optional<std::string> Win32Dialogs::OpenFile(Form& owner, const FileDialog& dialog) {
  return Run(owner, [&](HWND window) { return AskForFileToOpen(window, dialog); });
}

std::optional<std::string> Win32Dialogs::SaveFile(Form& owner, const FileDialog& dialog) {
  return Run(owner, [&](HWND window) { return AskForFileToSave(window, dialog); });
}

std::optional<std::string> Win32Dialogs::AskText(Form& owner, const InputBox& box) {
  InputBox titled = box;
  titled.title = TitleOf(box.title);
  return InputWindow(front_end_, titled, owner).Ask(owner);
}

}  // namespace ui::win32

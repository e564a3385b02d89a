#pragma once

#include "ui/dialogs.h"
#include "ui/front_end.h"
#include "ui/win32/toolkit.h"

namespace ui::win32 {

/// The system's own dialogs.
class Win32Dialogs : public Dialogs {
 public:
  Win32Dialogs(FrontEnd& front_end, Toolkit& toolkit) : front_end_(front_end), toolkit_(toolkit) {}

  void Show(Form& owner, const MessageBox& box) override;
  bool AskYesNo(Form& owner, const MessageBox& box) override;
  std::optional<std::string> BrowseForFolder(Form& owner, const std::string& title, const std::string& start,
                                             bool new_style) override;
  std::optional<std::string> OpenFile(Form& owner, const FileDialog& dialog) override;
  std::optional<std::string> SaveFile(Form& owner, const FileDialog& dialog) override;
  std::optional<std::string> AskText(Form& owner, const InputBox& box) override;

 private:
  /// Calls `show` with the owner's window while all windows are kept from the user.
  template <typename Dialog>
  auto Run(const Form& owner, Dialog show);
  int ShowBox(Form& owner, const MessageBox& box, UINT buttons);

  FrontEnd& front_end_;
  Toolkit& toolkit_;
};

}  // namespace ui::win32

#pragma once

#include <QFileDialog>
#include <vector>

#include "ui/dialogs.h"
#include "ui/front_end.h"

class QDialog;
class QMessageBox;

namespace ui::qt {

class QtDialogs : public Dialogs {
 public:
  explicit QtDialogs(FrontEnd& front_end) : front_end_(front_end) {}

  void Show(Form& owner, const MessageBox& box) override;
  bool AskYesNo(Form& owner, const MessageBox& box) override;
  /// `new_style` changes nothing: the desktop has one dialog.
  std::optional<std::string> BrowseForFolder(Form& owner, const std::string& title, const std::string& start,
                                             bool new_style) override;
  std::optional<std::string> OpenFile(Form& owner, const FileDialog& dialog) override;
  std::optional<std::string> SaveFile(Form& owner, const FileDialog& dialog) override;
  std::optional<std::string> AskText(Form& owner, const InputBox& box) override;

  /// Cancels every dialog that is open.
  void CloseAll();

 private:
  /// Runs the dialog; returns its result code.
  int Run(QDialog& dialog);
  std::optional<std::string> PickPath(QFileDialog& dialog);
  std::optional<std::string> PickFile(Form& owner, const FileDialog& dialog, QFileDialog::AcceptMode mode);

  FrontEnd& front_end_;
  std::vector<QDialog*> open_;
};

}  // namespace ui::qt

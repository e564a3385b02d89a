#pragma once

#include <optional>
#include <string>

#include "ui/geometry.h"

namespace ui {

class Form;

enum class Icon { kNone, kInformation, kExclamation, kQuestion };

struct MessageBox {
  std::string text;   ///< lines end in CR LF
  std::string title;  ///< empty: the program's name
  Icon icon = Icon::kNone;
  bool no_by_default = false;  ///< of a question: Enter answers No, since Yes takes something away
};

struct FileDialog {
  std::string title;
  std::string filter_name;     ///< such as "Setup files (*.qvr)"
  std::string filter_pattern;  ///< such as "*.qvr"
};

struct InputBox {
  std::string prompt;
  std::string title;
  Twips left = 0;  ///< on the screen
  Twips top = 0;
};

/// The dialogs that wait for the user. Each is above `owner` and blocks it; timers go on meanwhile. The
/// program's current folder stays what it was. An empty optional: the user cancelled.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  virtual void Show(Form& owner, const MessageBox& box) = 0;

  /// Yes and No. Everything but Yes is No; Enter is Yes unless the box says otherwise.
  virtual bool AskYesNo(Form& owner, const MessageBox& box) = 0;

  /// One existing folder of the file system. `start` is shown first where it exists; `new_style` asks for the
  /// system's larger dialog.
  virtual std::optional<std::string> BrowseForFolder(Form& owner, const std::string& title,
                                                     const std::string& start, bool new_style) = 0;

  /// A path as the user typed or picked it: it need not exist, no extension is added, nothing is asked about
  /// overwriting.
  virtual std::optional<std::string> OpenFile(Form& owner, const FileDialog& dialog) = 0;
  virtual std::optional<std::string> SaveFile(Form& owner, const FileDialog& dialog) = 0;

  /// One line of text.
  virtual std::optional<std::string> AskText(Form& owner, const InputBox& box) = 0;
};

}  // namespace ui

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "app/context.h"
#include "report/text_search.h"
#include "ui/controls.h"
#include "ui/form.h"
#include "ui/text_box.h"

namespace app {

/// Shows a text file to be read and searched, such as the program's help.
class frmView : public ui::Form {
 public:
  explicit frmView(Context& context);

  /// Shows a UTF-8 text file; `otherwise`, when there is none; or why it cannot be read. A file of more than
  /// 4 MiB is not read. Returns whether a text is shown.
  bool ShowFile(const std::string& title, const std::string& path, std::string_view otherwise,
                const ui::Form& over);

  void Form_Load();
  void Form_Resize();
  void txbFind_Change();
  void cmdFindNext_Click() { FindOn(Direction::kForward); }
  /// Ctrl and F goes to the box for what is looked for, F3 to its next place, back with Shift.
  bool KeyPressed(const ui::KeyPress& press);
  void cmdClose_Click();

  // --- Controls, in tab order
  ui::TextBox txbText{this, "txbText", ui::TextBox::Lines::kMany};
  ui::Label lblFind{this, "lblFind"};
  ui::TextBox txbFind{this, "txbFind"};
  ui::Button cmdFindNext{this, "cmdFindNext"};
  ui::Label lblFound{this, "lblFound"};
  ui::Button cmdClose{this, "cmdClose"};

 private:
  using Direction = report::Direction;

  void FindOn(Direction direction);
  /// Selects the first place from a character on, else from the other end, that reads as the find box says.
  void FindFrom(std::size_t character, Direction direction);

  Context& context_;
  std::string searched_;  ///< the text in lower case
};

}  // namespace app

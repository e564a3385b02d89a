#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/context.h"
#include "app/select_subfolders/subfolder_list.h"
#include "ui/controls.h"
#include "ui/form.h"

namespace app {

/// Lets the user tick the first-level subfolders of the source that take part in the backup. Opens at once
/// and reads the disk meanwhile, in slices: first the names, then what each subfolder holds, those in view
/// first. However many subfolders there are, it has only as many row controls as fit into it: they show other
/// subfolders when the list is scrolled.
class frmSelectSubfolders : public ui::Form {
 public:
  /// `included` are the names that start ticked; `away` those of included subfolders that are not there for
  /// now.
  frmSelectSubfolders(Context& context, std::string source, std::vector<std::string> included,
                      std::vector<std::string> away = {});

  /// Shows the window above `owner`. Returns the names ticked, sorted, when the user accepts them, else
  /// nothing. Called once.
  std::optional<std::vector<std::string>> Choose(ui::Form& owner);

  /// Whether those that are away are to stay included. They do unless the user says otherwise.
  bool KeepsAway() const { return chkKeepAway.value() == 1; }

  void Form_Load();
  /// Begins to fill the list.
  void Form_Activate();
  void Form_Resize();
  /// The window is left by its own close: changes nothing, like Cancel.
  void Form_Unload();
  void vsbScrollBar_Change();
  void chkSubfolder_Click(std::size_t row);
  void cmdSelectDeselectAllSubfolders_Click();
  void cmdAccept_Click();
  void cmdCancel_Click();
  void tmrRead_Timer();
  void ShowSelectionSummary();

  /// One line of the list.
  struct Row {
    Row(ui::Container& area, std::size_t index);
    ui::CheckBox chkSubfolder;
    ui::Label lblContent;
  };

  // --- Controls, in tab order
  ui::Label lblTitle{this, "lblTitle"};
  ui::Frame picSubfolders{this, "picSubfolders"};
  ui::Label lblNothingListed{&picSubfolders, "lblNothingListed"};
  std::vector<std::unique_ptr<Row>> rows;  ///< from top to bottom; those below the last subfolder are hidden
  ui::ScrollBar vsbScrollBar{this, "vsbScrollBar"};
  ui::CheckBox chkKeepAway{this, "chkKeepAway"};  ///< only where subfolders are away
  ui::Label lblSelectionSummary{this, "lblSelectionSummary"};
  ui::Button cmdSelectDeselectAllSubfolders{this, "cmdSelectDeselectAllSubfolders"};
  ui::Button cmdAccept{this, "cmdAccept"};
  ui::Button cmdCancel{this, "cmdCancel"};
  ui::Timer tmrRead{this, "tmrRead"};

 private:
  void ConnectHandlers();

  // Reading
  void ReadNames();
  std::optional<std::size_t> NextToLookInto();
  bool LookIntoNext();
  void EndReading();

  // The rows in view
  std::size_t RowsInView() const;
  std::size_t FirstInView() const { return static_cast<std::size_t>(vsbScrollBar.value()); }
  void MakeRows(std::size_t count);
  void PlaceRows();
  void SetScrollRange();
  void ShowRows();
  void ShowRow(std::size_t row);
  std::string Shortened(const std::string& name, ui::Twips width, const ui::Font& font) const;

  // The keyboard
  bool KeyPressed(const ui::KeyPress& press);
  /// The subfolder whose row has the focus.
  std::optional<std::size_t> Current();
  /// Scrolls a subfolder into view and gives its row the focus.
  void GoTo(std::size_t index);
  bool IsTypingName() const;
  std::optional<std::size_t> FindTyped(const std::string& character);

  Context& context_;
  SubfolderList list_;
  std::vector<std::string> included_;
  std::vector<std::string> away_;
  bool names_read_ = false;
  std::size_t next_ = 0;                   ///< every subfolder before it has been looked into
  std::string typed_;                      ///< the beginning of a name, lower-cased, as typed so far
  std::chrono::milliseconds typed_at_{0};  ///< when its last character was typed
  bool accepted_ = false;
};

}  // namespace app

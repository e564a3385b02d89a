#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/confirmation/confirmation_input.h"
#include "app/confirmation/operation_preview.h"
#include "app/context.h"
#include "engine/run/run_request.h"
#include "ui/controls.h"
#include "ui/form.h"

namespace app {

/// Shows what a copying operation is about to do, and what in it is worth a second look, before it does it.
/// What the setup says is there at once; what has to be read from the disks is filled in while the window
/// is open.
class frmConfirmOperation : public ui::Form {
 public:
  /// `warnings` are sentences about the setup from before the run; they come first among the doubts.
  /// `paces` are those of earlier runs.
  frmConfirmOperation(Context& context, engine::RunRequest request, std::vector<std::string> warnings = {},
                      KnownPaces paces = {});

  /// Shows the window above `owner`. Returns whether the user wants the operation. Called once.
  bool Confirm(ui::Form& owner);
  /// Whether the user does not want to be asked again. Counts only for an operation that is started.
  bool NotAgain() const { return chkDontShowAgain.value() == 1; }

  /// Whether the user wants contents to be compared, by this operation and by those to come.
  bool ComparesContents() const { return chkCompareContents.value() == 1; }
  /// Whether he wants copies to be read back, likewise.
  bool ReadsBack() const { return chkReadBack.value() == 1; }

  /// What was found out while the window was open.
  const PreviewFindings& findings() const { return preview_.findings(); }

  void Form_Load();
  void Form_Activate();
  void Form_Resize();
  void vsbFacts_Change();
  void tmrRead_Timer();
  void chkCompareContents_Click();
  void chkReadBack_Click();
  void cmdStart_Click();
  void cmdCancel_Click();

  /// One fact: what it is about, and what it says.
  struct FactRow {
    FactRow(ui::Container& area, std::size_t index);
    ui::Label lblHeading;
    ui::Label lblText;
  };

  // --- Controls, in tab order
  ui::Label lblOperation{this, "lblOperation"};
  ui::Label lblExplanation{this, "lblExplanation"};
  ui::Frame picFacts{this, "picFacts"};
  std::vector<std::unique_ptr<FactRow>> fact_rows;
  ui::ScrollBar vsbFacts{this, "vsbFacts"};
  ui::Frame fraDoubts{this, "fraDoubts"};
  ui::Label lblDoubtsHeading{&fraDoubts, "lblDoubtsHeading"};
  ui::Label lblDoubts{&fraDoubts, "lblDoubts"};
  ui::ScrollBar vsbDoubts{this, "vsbDoubts"};
  ui::CheckBox chkCompareContents{this, "chkCompareContents"};
  ui::Label lblToBeCompared{this, "lblToBeCompared"};
  ui::CheckBox chkReadBack{this, "chkReadBack"};
  ui::Label lblToBeReadBack{this, "lblToBeReadBack"};
  ui::CheckBox chkDontShowAgain{this, "chkDontShowAgain"};
  ui::Button cmdStart{this, "cmdStart"};
  ui::Button cmdCancel{this, "cmdCancel"};
  ui::Timer tmrRead{this, "tmrRead"};

 private:
  void ConnectHandlers();
  /// Words what is known by now.
  void Refresh();
  ConfirmationInput WhatToTell() const;
  bool ShareADisk(const std::string& source, const std::string& target) const;
  void MakeFactRows(std::size_t count);
  ui::Twips PlaceChoice(ui::CheckBox& choice, ui::Label& amount, ui::Twips bottom, ui::Twips width);
  ui::Twips PlaceDoubts(ui::Twips highest, ui::Twips bottom, ui::Twips width);
  ui::Twips PlaceDoubtsText(ui::Twips width);
  void PlaceFacts();
  std::string Wrapped(const std::string& text, ui::Twips width, const ui::Font& font) const;
  bool KeyPressed(const ui::KeyPress& press);

  Context& context_;
  engine::RunRequest request_;
  OperationPreview preview_;
  TargetVolume volume_;
  std::vector<std::string> warnings_;
  const KnownPaces paces_;
  std::vector<Fact> facts_;
  std::vector<std::string> doubts_;
  bool activated_ = false;
  bool confirmed_ = false;
};

}  // namespace app

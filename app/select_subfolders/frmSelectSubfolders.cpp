#include "app/select_subfolders/frmSelectSubfolders.h"

#include <algorithm>
#include <utility>

#include "app/reading_slice.h"
#include "ui/placing.h"
#include "ui/window_look.h"

namespace app {
namespace {

using ui::Twips;

constexpr ui::Size kOuterSize{9'300, 9'600};
constexpr ui::Size kSmallest{5'700, 4'500};  ///< inside
constexpr Twips kMargin = 240;
constexpr Twips kGap = 120;
constexpr Twips kTitleHeight = 540;
constexpr Twips kSummaryHeight = 540;
constexpr Twips kRowOfOne = 390;  ///< of a check box that is alone
constexpr Twips kButtonHeight = 420;
constexpr Twips kButtonWidth = 1'500;
constexpr Twips kScrollBarWidth = 270;

}  // namespace

frmSelectSubfolders::frmSelectSubfolders(Context& context, std::string source,
                                         std::vector<std::string> included, std::vector<std::string> away)
    : Form(context.front_end, "frmSelectSubfolders", ui::FormStyle::kDialog),
      context_(context),
      list_(context.files, std::move(source)),
      included_(std::move(included)),
      away_(std::move(away)) {
  ConnectHandlers();
}

void frmSelectSubfolders::ConnectHandlers() {
  on_close = [this] { Form_Unload(); };
  on_activate = [this] { Form_Activate(); };
  on_resize = [this] { Form_Resize(); };
  on_key = [this](const ui::KeyPress& press) { return KeyPressed(press); };
  vsbScrollBar.on_change = [this] { vsbScrollBar_Change(); };
  cmdSelectDeselectAllSubfolders.on_mouse_up = [this] { cmdSelectDeselectAllSubfolders_Click(); };
  cmdAccept.on_mouse_up = [this] { cmdAccept_Click(); };
  cmdCancel.on_mouse_up = [this] { cmdCancel_Click(); };
  tmrRead.on_timer = [this] { tmrRead_Timer(); };
}

std::optional<std::vector<std::string>> frmSelectSubfolders::Choose(ui::Form& owner) {
  Form_Load();
  SetBounds(ui::CentredOver(owner, kOuterSize, context_.front_end.screen()));
  ShowModal(owner);
  tmrRead.Stop();
  if (!accepted_) return std::nullopt;
  return list_.Selected();
}

void frmSelectSubfolders::Form_Load() {
  SetSmallest(kSmallest);
  SetText("Reading disk . . .");
  lblTitle.SetText("Select subfolders of the source folder \r\nto be INCLUDED in the backup");
  picSubfolders.SetSpokenName("Subfolders of the source folder");
  picSubfolders.SetScrollBar(&vsbScrollBar);
  vsbScrollBar.SetSpokenName("Scroll the subfolders");
  const std::string kept = AwayText(away_);
  chkKeepAway.SetText(kept);
  chkKeepAway.SetToolTip(kept);
  chkKeepAway.SetAccessKey('K');
  chkKeepAway.SetValue(1);
  chkKeepAway.SetVisible(!away_.empty());
  cmdSelectDeselectAllSubfolders.SetText("Select all");
  cmdSelectDeselectAllSubfolders.SetAccessKey('S');
  cmdAccept.SetText("Accept");
  cmdAccept.SetAccessKey('A');
  cmdAccept.SetEnabled(false);  // until there is a list that could be accepted
  cmdCancel.SetText("Cancel");
  SetDefaultButton(&cmdAccept);
  SetCancelButton(&cmdCancel);
  ui::SetControlsFontName(*this, ui::kWindowFont);
  ui::SetControlsBackColor(*this, ui::kWindowColours);
  lblTitle.SetFont({ui::kWindowFont, 10, true});
  for (ui::Control* paper :
       {static_cast<ui::Control*>(&picSubfolders), static_cast<ui::Control*>(&lblNothingListed)}) {
    paper->SetColours(ui::kPaperColours);
  }
  vsbScrollBar.SetColours(std::nullopt);
  ShowSelectionSummary();
}

void frmSelectSubfolders::Form_Activate() {
  Form_Resize();
  if (!names_read_) tmrRead.Start(kBetweenSlices);
}

void frmSelectSubfolders::Form_Resize() {
  const Twips width = std::max(inner().width, kSmallest.width) - 2 * kMargin;
  const Twips height = std::max(inner().height, kSmallest.height);
  const Twips right = kMargin + width;
  const Twips buttons = height - kMargin - kButtonHeight;
  const Twips summary = buttons - kGap - kSummaryHeight;
  const Twips list = kMargin + kTitleHeight + kGap;
  const Twips kept = summary - (away_.empty() ? 0 : kRowOfOne);

  lblTitle.SetBounds({kMargin, kMargin, width, kTitleHeight});
  picSubfolders.SetBounds({kMargin, list, width, kept - kGap - list});
  vsbScrollBar.SetBounds({right - kScrollBarWidth, list, kScrollBarWidth, picSubfolders.height()});
  chkKeepAway.SetBounds({kMargin, kept, width, kRowOfOne});
  lblSelectionSummary.SetBounds({kMargin, summary, width, kSummaryHeight});
  cmdSelectDeselectAllSubfolders.SetBounds({kMargin, buttons, kButtonWidth, kButtonHeight});
  cmdCancel.SetBounds({right - kButtonWidth, buttons, kButtonWidth, kButtonHeight});
  cmdAccept.SetBounds({cmdCancel.left() - kGap - kButtonWidth, buttons, kButtonWidth, kButtonHeight});
  PlaceRows();
}

void frmSelectSubfolders::tmrRead_Timer() {
  if (!names_read_) {
    ReadNames();
  } else {
    ReadForASlice(context_.clock, [this] { return LookIntoNext(); });
    ShowRows();
  }
  if (!NextToLookInto()) EndReading();
  ShowSelectionSummary();
}

void frmSelectSubfolders::ReadNames() {
  names_read_ = true;
  const platform::Status listed = list_.ReadNames(included_);
  if (!listed) {
    lblNothingListed.SetText("The source folder cannot be read.\r\n" + listed.error().text);
  } else if (list_.size() == 0) {
    lblNothingListed.SetText("There are no subfolders");
  }
  cmdAccept.SetEnabled(listed.ok());
  PlaceRows();
  if (list_.size() > 0) GoTo(0);
}

bool frmSelectSubfolders::LookIntoNext() {
  const auto index = NextToLookInto();
  if (index) list_.LookInto(*index);
  return index.has_value();
}

/// One in view first, else the next one in the list.
std::optional<std::size_t> frmSelectSubfolders::NextToLookInto() {
  const auto waits = [this](std::size_t index) {
    return list_[index].state == Subfolder::State::kNotLookedInto;
  };
  const std::size_t end = std::min(FirstInView() + RowsInView(), list_.size());
  for (std::size_t index = FirstInView(); index < end; ++index) {
    if (waits(index)) return index;
  }
  while (next_ < list_.size() && !waits(next_)) ++next_;
  if (next_ == list_.size()) return std::nullopt;
  return next_;
}

void frmSelectSubfolders::EndReading() {
  tmrRead.Stop();
  SetText("Select subfolders");
}

void frmSelectSubfolders::ShowSelectionSummary() {
  lblSelectionSummary.SetText(list_.SelectionSummary(context_.marks));
  cmdSelectDeselectAllSubfolders.SetEnabled(list_.size() > 0);
  cmdSelectDeselectAllSubfolders.SetText(list_.AllSelected() ? "Deselect all" : "Select all");
}

void frmSelectSubfolders::chkSubfolder_Click(std::size_t row) {
  list_.Select(FirstInView() + row, rows[row]->chkSubfolder.value() == 1);
  ShowSelectionSummary();
}

void frmSelectSubfolders::cmdSelectDeselectAllSubfolders_Click() {
  list_.SelectAll(!list_.AllSelected());
  ShowRows();
  ShowSelectionSummary();
}

void frmSelectSubfolders::cmdAccept_Click() {
  accepted_ = true;
  Hide();
}

void frmSelectSubfolders::cmdCancel_Click() { Hide(); }

void frmSelectSubfolders::Form_Unload() { Hide(); }

}  // namespace app

#include "app/confirmation/frmConfirmOperation.h"

#include <algorithm>
#include <utility>

#include "app/reading_slice.h"
#include "ui/line_break.h"
#include "ui/placing.h"
#include "ui/window_look.h"

namespace app {
namespace {

using ui::Twips;

constexpr ui::Size kOuterSize{9'600, 9'300};
constexpr ui::Size kSmallest{8'400, 6'000};  ///< inside
constexpr Twips kMargin = 240;
constexpr Twips kGap = 120;
constexpr Twips kTitleHeight = 390;
constexpr Twips kButtonHeight = 420;
constexpr Twips kButtonWidth = 1'650;
constexpr Twips kScrollBarWidth = 270;
constexpr Twips kInset = 180;           ///< from the sides of a frame to what is in it
constexpr Twips kLineHeight = 225;      ///< of a line of text in the window's font
constexpr Twips kFactGap = 120;         ///< between two facts
constexpr Twips kHeadingWidth = 1'440;  ///< of the column of headings
constexpr Twips kChoiceHeight = 300;
constexpr Twips kChoiceGap = 45;                              ///< below what a choice costs
constexpr Twips kIndent = 285;                                ///< of what is below a check box
constexpr Twips kLeastFacts = 6 * kLineHeight + 2 * kInset;   ///< however much there is to doubt
constexpr Twips kLeastDoubts = 3 * kLineHeight + 2 * kInset;  ///< on a window lower than the smallest
constexpr Twips kSlack = 90;  ///< by which a label is wider than the text it is to hold

ui::Font HeadingFont(int points) { return {ui::kWindowFont, points, true}; }

}  // namespace

frmConfirmOperation::FactRow::FactRow(ui::Container& area, std::size_t index)
    : lblHeading(&area, "lblHeading " + std::to_string(index)),
      lblText(&area, "lblText " + std::to_string(index)) {
  lblHeading.SetFont(HeadingFont(9));
  lblText.SetFont({ui::kWindowFont});
  lblHeading.SetColours(ui::kPaperColours);
  lblText.SetColours(ui::kPaperColours);
}

frmConfirmOperation::frmConfirmOperation(Context& context, engine::RunRequest request,
                                         std::vector<std::string> warnings, KnownPaces paces)
    : Form(context.front_end, "frmConfirmOperation", ui::FormStyle::kDialog),
      context_(context),
      request_(std::move(request)),
      preview_(context.files, context.clock, request_),
      warnings_(std::move(warnings)),
      paces_(paces) {
  ConnectHandlers();
}

void frmConfirmOperation::ConnectHandlers() {
  on_activate = [this] { Form_Activate(); };
  on_resize = [this] { Form_Resize(); };
  on_key = [this](const ui::KeyPress& press) { return KeyPressed(press); };
  vsbFacts.on_change = [this] { vsbFacts_Change(); };
  vsbDoubts.on_change = [this] { Form_Resize(); };
  chkCompareContents.on_click = [this] { chkCompareContents_Click(); };
  chkReadBack.on_click = [this] { chkReadBack_Click(); };
  cmdStart.on_mouse_up = [this] { cmdStart_Click(); };
  cmdCancel.on_mouse_up = [this] { cmdCancel_Click(); };
  tmrRead.on_timer = [this] { tmrRead_Timer(); };
}

bool frmConfirmOperation::Confirm(ui::Form& owner) {
  Form_Load();
  SetBounds(ui::CentredOver(owner, kOuterSize, context_.front_end.screen()));
  ShowModal(owner);
  tmrRead.Stop();
  return confirmed_;
}

void frmConfirmOperation::Form_Load() {
  SetSmallest(kSmallest);
  SetText("Confirm operation");
  lblOperation.SetText(OperationName(request_.operation));
  picFacts.SetSpokenName("What will be done");
  picFacts.SetScrollBar(&vsbFacts);
  vsbFacts.SetSpokenName("Scroll what will be done");
  lblDoubtsHeading.SetText("Worth a second look");
  fraDoubts.SetSpokenName("Worth a second look");
  fraDoubts.SetScrollBar(&vsbDoubts);
  vsbDoubts.SetSpokenName("Scroll what is worth a second look");
  chkCompareContents.SetText("Compare contents, too (reads every file on both sides)");
  chkCompareContents.SetAccessKey('C');
  chkCompareContents.SetVisible(request_.operation == Operation::kBackupModifiedFiles);
  chkCompareContents.SetValue(request_.compare_contents ? 1 : 0);
  lblToBeCompared.SetVisible(chkCompareContents.visible());
  chkReadBack.SetText("Read every copy back and compare it");
  chkReadBack.SetAccessKey('R');
  chkReadBack.SetValue(request_.read_back ? 1 : 0);
  chkDontShowAgain.SetText("Do not show this again while the program runs");
  chkDontShowAgain.SetAccessKey('D');
  cmdStart.SetText("Start backup");
  cmdStart.SetAccessKey('S');
  cmdCancel.SetText("Cancel");
  SetDefaultButton(&cmdStart);
  SetCancelButton(&cmdCancel);

  ui::SetControlsFontName(*this, ui::kWindowFont);
  ui::SetControlsBackColor(*this, ui::kWindowColours);
  lblOperation.SetFont(HeadingFont(13));
  picFacts.SetColours(ui::kPaperColours);
  lblDoubtsHeading.SetFont(HeadingFont(9));
  for (ui::Control* note : std::initializer_list<ui::Control*>{&fraDoubts, &lblDoubtsHeading, &lblDoubts}) {
    note->SetColours(ui::kNoteColours);
  }
  vsbFacts.SetColours(std::nullopt);
  vsbDoubts.SetColours(std::nullopt);

  volume_.drive = context_.files.DriveOf(request_.setup.TargetFolder);
  volume_.holds_source = ShareADisk(request_.setup.SourceFolder, request_.setup.TargetFolder);
  if (const auto space = context_.files.GetDiskSpace(request_.setup.TargetFolder)) volume_.space = *space;
  volume_.largest_file = context_.files.LargestFile(request_.setup.TargetFolder);
  Refresh();
}

/// Where the disks behind the volumes are not known, the volumes are compared.
bool frmConfirmOperation::ShareADisk(const std::string& source, const std::string& target) const {
  const std::string drive = context_.files.DriveOf(target);
  if (!drive.empty() && context_.files.DriveOf(source) == drive) return true;
  const std::vector<std::string> disks = context_.files.DisksOf(source);
  return std::ranges::any_of(context_.files.DisksOf(target), [&](const std::string& disk) {
    return std::ranges::find(disks, disk) != disks.end();
  });
}

void frmConfirmOperation::Form_Activate() {
  Form_Resize();
  if (activated_) return;
  activated_ = true;
  cmdStart.SetFocus();
  tmrRead.Start(kBetweenSlices);
}

void frmConfirmOperation::tmrRead_Timer() {
  if (!ReadForASlice(context_.clock, [this] { return preview_.Step(); })) tmrRead.Stop();
  Refresh();
}

ConfirmationInput frmConfirmOperation::WhatToTell() const {
  return {request_, volume_, preview_.findings(), context_.texts, context_.marks};
}

void frmConfirmOperation::chkCompareContents_Click() {
  const std::string text = ComparisonText(WhatToTell(), paces_.comparing, ComparesContents());
  lblToBeCompared.SetText(text);
  chkCompareContents.SetDescription(text);
}

void frmConfirmOperation::chkReadBack_Click() {
  const std::string text = ReadBackText(WhatToTell(), paces_.reading_back, ReadsBack());
  lblToBeReadBack.SetText(text);
  chkReadBack.SetDescription(text);
}

void frmConfirmOperation::Refresh() {
  const ConfirmationInput tell = WhatToTell();
  facts_ = FactsOf(tell);
  doubts_ = warnings_;
  const std::vector<std::string> found = FindConcerns(tell);
  doubts_.insert(doubts_.end(), found.begin(), found.end());
  std::string spoken = OperationExplained(request_.operation);
  for (const std::string& doubt : doubts_) spoken += " " + doubt;
  for (const Fact& fact : facts_) spoken += " " + fact.heading + " " + fact.text;
  cmdStart.SetDescription(spoken);
  chkCompareContents_Click();
  chkReadBack_Click();
  Form_Resize();
}

void frmConfirmOperation::Form_Resize() {
  const Twips width = std::max(inner().width, kSmallest.width) - 2 * kMargin;
  const Twips height = std::max(inner().height, kSmallest.height);
  const Twips right = kMargin + width;
  const Twips buttons = height - kMargin - kButtonHeight;

  lblOperation.SetBounds({kMargin, kMargin, width, kTitleHeight});
  lblExplanation.SetText(Wrapped(OperationExplained(request_.operation), width, lblExplanation.font()));
  lblExplanation.SetBounds(
      {kMargin, lblOperation.bounds().bottom(), width, ui::CountLines(lblExplanation.text()) * kLineHeight});
  cmdCancel.SetBounds({right - kButtonWidth, buttons, kButtonWidth, kButtonHeight});
  cmdStart.SetBounds({cmdCancel.left() - kGap - kButtonWidth, buttons, kButtonWidth, kButtonHeight});
  chkDontShowAgain.SetBounds({kMargin, buttons, cmdStart.left() - kGap - kMargin, kButtonHeight});

  const Twips facts = lblExplanation.bounds().bottom() + kInset;
  Twips choices = PlaceChoice(chkReadBack, lblToBeReadBack, buttons, width);
  choices = PlaceChoice(chkCompareContents, lblToBeCompared, choices, width);
  const Twips facts_end = PlaceDoubts(facts + kLeastFacts + kGap, choices - kGap, width) - kGap;
  const auto beside_bar = [&] { return width - (vsbFacts.visible() ? kScrollBarWidth : 0); };
  picFacts.SetBounds({kMargin, facts, beside_bar(), facts_end - facts});  // wider, it would cover the bar
  vsbFacts.SetBounds({right - kScrollBarWidth, facts, kScrollBarWidth, picFacts.height()});
  PlaceFacts();
  picFacts.SetWidth(beside_bar());
}

/// The choices are right above the buttons, each with what it costs below it. Returns its upper edge.
Twips frmConfirmOperation::PlaceChoice(ui::CheckBox& choice, ui::Label& amount, Twips bottom, Twips width) {
  if (!choice.visible()) return bottom;
  amount.SetBounds({kMargin + kIndent, bottom - kChoiceGap - kLineHeight, width - kIndent, kLineHeight});
  choice.SetBounds({kMargin, amount.top() - kChoiceHeight, width, kChoiceHeight});
  return choice.top();
}

/// The doubts are above them, as high as they are or, beginning at `highest`, scrolled. Returns their upper
/// edge.
Twips frmConfirmOperation::PlaceDoubts(Twips highest, Twips bottom, Twips width) {
  const Twips room = std::max(bottom - highest, kLeastDoubts);
  Twips whole = PlaceDoubtsText(width);
  const bool scrolls = whole > room;
  fraDoubts.SetVisible(!doubts_.empty());
  vsbDoubts.SetVisible(scrolls);
  if (doubts_.empty()) return bottom;
  if (scrolls) {
    width -= kScrollBarWidth;
    whole = PlaceDoubtsText(width);
    vsbDoubts.SetRange((whole - room + kLineHeight - 1) / kLineHeight, room / kLineHeight);
    whole = PlaceDoubtsText(width);  // the range may have brought the bar elsewhere
    vsbDoubts.SetBounds({kMargin + width, bottom - room, kScrollBarWidth, room});
  }
  const Twips height = std::min(whole, room);
  fraDoubts.SetBounds({kMargin, bottom - height, width, height});
  return fraDoubts.top();
}

/// Returns how high a frame of this width would have to be for it.
Twips frmConfirmOperation::PlaceDoubtsText(Twips width) {
  const Twips text_width = width - 2 * kInset;
  const Twips top = kInset - vsbDoubts.value() * kLineHeight;
  std::string text;
  for (const std::string& doubt : doubts_) text += (text.empty() ? "" : "\r\n") + doubt;
  lblDoubts.SetText(Wrapped(text, text_width, lblDoubts.font()));
  lblDoubtsHeading.SetBounds({kInset, top, text_width, kLineHeight});
  lblDoubts.SetBounds(
      {kInset, top + kLineHeight + kGap / 2, text_width, ui::CountLines(lblDoubts.text()) * kLineHeight});
  return lblDoubts.bounds().bottom() - top + 2 * kInset;
}

void frmConfirmOperation::MakeFactRows(std::size_t count) {
  while (fact_rows.size() < count) fact_rows.push_back(std::make_unique<FactRow>(picFacts, fact_rows.size()));
}

void frmConfirmOperation::PlaceFacts() {
  MakeFactRows(facts_.size());
  const Twips text_left = kInset + kHeadingWidth;
  const Twips text_width = vsbFacts.left() - picFacts.left() - text_left - kInset;
  Twips top = kInset - vsbFacts.value() * kLineHeight;
  const Twips begin = top;
  for (std::size_t i = 0; i < facts_.size(); ++i) {
    auto& [heading, text] = *fact_rows[i];
    heading.SetText(facts_[i].heading);
    text.SetText(Wrapped(facts_[i].text, text_width, text.font()));
    const Twips height = ui::CountLines(text.text()) * kLineHeight;
    heading.SetBounds({kInset, top, kHeadingWidth - kGap, kLineHeight});
    text.SetBounds({text_left, top, text_width, height});
    top += height + kFactGap;
  }
  const Twips hidden = std::max(top - begin + kInset - picFacts.height(), 0);
  const int value = vsbFacts.value();
  vsbFacts.SetRange((hidden + kLineHeight - 1) / kLineHeight, picFacts.height() / kLineHeight);
  vsbFacts.SetVisible(hidden > 0);
  if (vsbFacts.value() != value) PlaceFacts();
}

std::string frmConfirmOperation::Wrapped(const std::string& text, Twips width, const ui::Font& font) const {
  return ui::BreakLines(text, width - kSlack,
                        [&](const std::string& line) { return context_.front_end.TextWidth(line, font); });
}

void frmConfirmOperation::vsbFacts_Change() { PlaceFacts(); }

bool frmConfirmOperation::KeyPressed(const ui::KeyPress& press) {
  ui::ScrollBar& bar = vsbFacts.visible() ? vsbFacts : vsbDoubts;
  const int value = bar.value();
  switch (press.key) {
    case ui::Key::kUp:
      bar.SetValue(value - 1);
      break;
    case ui::Key::kDown:
      bar.SetValue(value + 1);
      break;
    case ui::Key::kPageUp:
      bar.SetValue(value - bar.page());
      break;
    case ui::Key::kPageDown:
      bar.SetValue(value + bar.page());
      break;
    case ui::Key::kHome:
      bar.SetValue(0);
      break;
    case ui::Key::kEnd:
      bar.SetValue(bar.maximum());
      break;
    default:
      return false;
  }
  Form_Resize();
  return true;
}

void frmConfirmOperation::cmdStart_Click() {
  confirmed_ = true;
  Hide();
}

void frmConfirmOperation::cmdCancel_Click() { Hide(); }

}  // namespace app

#include <algorithm>

#include "base/utf8.h"
#include "report/frmReport.h"

/// The ways through a long report: from one problem to the next, and to a text that is looked for.
namespace report {

bool frmReport::KeyPressed(const ui::KeyPress& press) {
  if (!txbText.reachable() || phase_ == Phase::kRunning || phase_ == Phase::kFull) return false;
  const Direction direction = press.shift ? Direction::kBack : Direction::kForward;
  switch (press.key) {
    case ui::Key::kF8:
      GoToProblem(direction);
      return true;
    case ui::Key::kFind:
      OpenFind();
      return true;
    case ui::Key::kF3:
      txbFind.text().empty() ? OpenFind() : FindOn(direction);
      return true;
    default:
      return false;
  }
}

/// Only while the report rests: a running one scrolls back to its end with the next line.
void frmReport::ShowProblemButton() {
  const bool still = phase_ == Phase::kPaused || phase_ == Phase::kEnded;
  cmdNextProblem.SetVisible(still && !problems_.empty() && txbText.visible());
  PlaceHeader();  // the line above the bar ends before it
}

void frmReport::GoToProblem(Direction direction) {
  if (problems_.empty()) return;
  const ui::Selection selected = txbText.selection();
  const auto begins_before = [](const ui::Selection& problem, std::size_t place) {
    return problem.start < place;
  };
  // With nothing selected the problem at the caret itself comes first.
  const std::size_t from = selected.start + (direction == Direction::kForward && selected.length > 0 ? 1 : 0);
  const std::vector<ui::Selection>& places = problems_.places();
  auto found = std::lower_bound(places.begin(), places.end(), from, begins_before);
  if (direction == Direction::kForward) {
    if (found == places.end()) found = places.begin();
  } else {
    found = std::prev(found == places.begin() ? places.end() : found);
  }
  txbText.Select(*found);
  txbText_MouseUp();
}

void frmReport::OpenFind() {
  for (ui::Control* part : std::initializer_list<ui::Control*>{&lblFind, &txbFind, &cmdFindNext, &lblFound}) {
    part->SetVisible(true);
  }
  SetDefaultButton(&cmdFindNext);
  SetCancelButton(nullptr);  // Escape closes the box first
  Form_Resize();
  txbFind.SetFocus();
}

void frmReport::CloseFind() {
  const bool had_focus = focused() == &txbFind || focused() == &cmdFindNext;
  for (ui::Control* part : std::initializer_list<ui::Control*>{&lblFind, &txbFind, &cmdFindNext, &lblFound}) {
    part->SetVisible(false);
  }
  SetDefaultButton(nullptr);
  SetCancelCaption(cmdCancelClose.text());
  lblFound.SetText("");
  Form_Resize();
  if (had_focus) txbText.SetFocus();
}

/// While it is typed the same place stays found as long as it still fits.
void frmReport::txbFind_Change() { FindFrom(txbText.selection().start, Direction::kForward); }

void frmReport::FindOn(Direction direction) {
  const ui::Selection selected = txbText.selection();
  const bool beyond = direction == Direction::kForward && selected.length > 0;
  FindFrom(selected.start + (beyond ? 1 : 0), direction);
}

void frmReport::FindFrom(std::size_t character, Direction direction) {
  lblFound.SetText("");
  if (txbFind.text().empty()) return;
  const auto found = FindText(base::utf8::ToLower(txbText.text()), base::utf8::ToLower(txbFind.text()),
                              character, direction);
  if (!found) return lblFound.SetText("Nothing found.");
  const bool forward = direction == Direction::kForward;
  if (found->went_round) {
    lblFound.SetText(forward ? "Found from the beginning again." : "Found from the end again.");
  }
  txbText.Select(found->place);
  txbText_MouseUp();
}

}  // namespace report

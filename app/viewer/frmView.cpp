#include "app/viewer/frmView.h"

#include <algorithm>

#include "base/utf8.h"
#include "ui/placing.h"
#include "ui/window_look.h"

namespace app {
namespace {

using ui::Twips;

constexpr std::int64_t kLargestFile = 4 * 1024 * 1024;

constexpr ui::Size kOuterSize{11'400, 10'200};
constexpr ui::Size kSmallest{9'000, 3'600};  ///< inside
constexpr Twips kMargin = 240;
constexpr Twips kGap = 120;
constexpr Twips kRow = 420;
constexpr Twips kTextDrop = 90;  ///< by which a label is lower than the box beside it
constexpr Twips kFindLabel = 540;
constexpr Twips kFindBox = 2'400;
constexpr Twips kButton = 1'200;
constexpr int kTextPoints = 10;

}  // namespace

frmView::frmView(Context& context)
    : Form(context.front_end, "frmView", ui::FormStyle::kReport), context_(context) {
  on_resize = [this] { Form_Resize(); };
  on_activate = [this] { Form_Resize(); };
  on_key = [this](const ui::KeyPress& press) { return KeyPressed(press); };
  txbFind.on_change = [this] { txbFind_Change(); };
  cmdFindNext.on_mouse_up = [this] { cmdFindNext_Click(); };
  cmdClose.on_mouse_up = [this] { cmdClose_Click(); };
  Form_Load();
}

void frmView::Form_Load() {
  SetSmallest(kSmallest);
  txbText.SetReadOnly(true);
  lblFind.SetText("Find:");
  lblFind.SetAccessKey('F');
  txbFind.SetSpokenName("Find");
  cmdFindNext.SetText("Find next");
  cmdFindNext.SetAccessKey('n');
  cmdClose.SetText("Close");
  SetDefaultButton(&cmdFindNext);
  SetCancelButton(&cmdClose);
  ui::SetControlsFontName(*this, ui::kWindowFont);
  ui::SetControlsBackColor(*this, ui::kWindowColours);
  txbText.SetFont({ui::kWindowFont, kTextPoints});
  txbText.SetColours(ui::kPaperColours);
  txbFind.SetColours(ui::kPaperColours);
}

bool frmView::ShowFile(const std::string& title, const std::string& path, std::string_view otherwise,
                       const ui::Form& over) {
  SetText(title);
  txbText.SetSpokenName(title);
  auto content = context_.files.ReadFile(path, kLargestFile);
  if (!content && content.error().kind == platform::ErrorKind::kNotFound) content = std::string(otherwise);
  if (content) {
    txbText.SetText(std::string(base::utf8::WithoutByteOrderMark(*content)));
  } else {
    txbText.SetText("This file cannot be read:\r\n" + base::utf8::Printable(path) + "\r\n\r\n" +
                    content.error().text);
  }
  searched_ = base::utf8::ToLower(txbText.text());
  lblFound.SetText({});
  if (!visible()) SetBounds(ui::CentredOver(over, kOuterSize, context_.front_end.screen()));
  Show();
  Form_Resize();
  return content.ok();
}

void frmView::Form_Resize() {
  const Twips width = std::max(inner().width, kSmallest.width);
  const Twips height = std::max(inner().height, kSmallest.height);
  const Twips row = height - kMargin - kRow;
  txbText.SetBounds({kMargin, kMargin, width - 2 * kMargin, row - kGap - kMargin});
  lblFind.SetBounds({kMargin, row + kTextDrop, kFindLabel, kRow - kTextDrop});
  txbFind.SetBounds({kMargin + kFindLabel, row, kFindBox, kRow});
  cmdFindNext.SetBounds({txbFind.bounds().right() + kGap, row, kButton, kRow});
  cmdClose.SetBounds({width - kMargin - kButton, row, kButton, kRow});
  const Twips found = cmdFindNext.bounds().right() + kGap;
  lblFound.SetBounds({found, row + kTextDrop, cmdClose.left() - kGap - found, kRow - kTextDrop});
}

/// While it is typed the same place stays found as long as it still fits.
void frmView::txbFind_Change() { FindFrom(txbText.selection().start, Direction::kForward); }

void frmView::FindOn(Direction direction) {
  const ui::Selection selected = txbText.selection();
  const bool beyond = direction == Direction::kForward && selected.length > 0;
  FindFrom(selected.start + (beyond ? 1 : 0), direction);
}

bool frmView::KeyPressed(const ui::KeyPress& press) {
  if (press.key == ui::Key::kFind) return txbFind.SetFocus();
  if (press.key != ui::Key::kF3) return false;
  FindOn(press.shift ? Direction::kBack : Direction::kForward);
  return true;
}

void frmView::FindFrom(std::size_t character, Direction direction) {
  lblFound.SetText({});
  if (txbFind.text().empty()) return;
  const auto found = report::FindText(searched_, base::utf8::ToLower(txbFind.text()), character, direction);
  if (!found) return lblFound.SetText("Nothing found.");
  const bool forward = direction == Direction::kForward;
  if (found->went_round) {
    lblFound.SetText(forward ? "Search continued from the beginning." : "Search continued from the end.");
  }
  txbText.Select(found->place);
}

void frmView::cmdClose_Click() { Hide(); }

}  // namespace app

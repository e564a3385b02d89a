#include <algorithm>
#include <cstdlib>

#include "report/frmReport.h"
#include "ui/front_end.h"
#include "ui/placing.h"

namespace report {
namespace {

// All in twips.
constexpr ui::Twips kMargin = 240;
constexpr ui::Twips kRightReserve = 220;     ///< of the text box, beyond the two margins
constexpr ui::Twips kBottomReserve = 1'400;  ///< below the text box
constexpr ui::Twips kGap = 100;
constexpr ui::Twips kLine = 255;
constexpr ui::Twips kLineStep = 285;
constexpr ui::Twips kStatusHeight = 330;
constexpr ui::Twips kHeaderTop = 150;
constexpr ui::Twips kStateHeight = 330;
constexpr ui::Twips kStateStep = 435;
constexpr ui::Twips kColumn = 2'200;  ///< of what belongs to a caption
constexpr ui::Twips kBarHeight = 90;
constexpr ui::Twips kSmallestText = 300;
constexpr ui::Twips kWorkingHeight = 8'500;
constexpr ui::Size kPauseButton{1'300, 420};
constexpr ui::Size kProblemButton{1'600, 390};
constexpr ui::Twips kOpenWidth = 2'000;
constexpr ui::Twips kCheckBoxWidth = 2'700;
constexpr ui::Twips kFindLabel = 540;
constexpr ui::Twips kFindBox = 2'400;
/// How far a size may come back from the one asked for without the user: rounded to pixels, and before its
/// first show without the true height of its title.
constexpr ui::Twips kFromSystem = 600;

}  // namespace

void frmReport::ResizeForm(std::int16_t Height, std::int16_t Width) {
  const ui::Size wanted{Width, std::max<ui::Twips>(Height, kWorkingHeight)};
  if (size_set_ == wanted && !SizedByUser()) return;
  size_set_ = wanted;
  SetBounds(ui::KeptOnItsScreen({left(), top(), wanted.width, wanted.height}, front_end().screen()));
  Form_Resize();
}

bool frmReport::SizedByUser() const {
  return std::abs(width() - size_set_.width) > kFromSystem ||
         std::abs(height() - size_set_.height) > kFromSystem;
}

/// On a screen with less room than its smallest size the window scrolls.
ui::Size frmReport::Room() const {
  return {std::max(inner().width, smallest().width), std::max(inner().height, smallest().height)};
}

void frmReport::Form_Activate() { txbText.SetWidth(Room().width - 2 * kMargin - kRightReserve); }

void frmReport::Form_Resize() {
  Form_Activate();
  PlaceBody(PlaceHeader());
  PositionReportButtons();
}

/// The state of the run comes first, with what it works at while it does. Returns where the text box begins.
ui::Twips frmReport::PlaceHeader() {
  const ui::Twips right = kMargin + txbText.width();
  const bool runs = barProgress.visible();
  lblDetails.SetVisible(runs);
  cmdNextProblem.SetBounds(
      {right - kProblemButton.width, kHeaderTop, kProblemButton.width, kProblemButton.height});
  const ui::Twips state_top = kHeaderTop + 60;
  const ui::Twips state_end = (cmdNextProblem.visible() ? cmdNextProblem.left() : right) - kGap;
  lblState.SetBounds(
      {kMargin, state_top, (runs ? kMargin + kColumn - kGap : state_end) - kMargin, kStateHeight});
  lblDetails.SetBounds({kMargin + kColumn, state_top, state_end - kMargin - kColumn, kStateHeight});
  ui::Twips top = kHeaderTop + kStateStep;
  const auto place = [&](ui::Label& caption, ui::Label& content) {
    caption.SetBounds({kMargin, top, kColumn, kLine});
    content.SetBounds({kMargin + kColumn, top, right - kMargin - kColumn, kLine});
    top += kLineStep;
  };
  barProgress.SetBounds({kMargin, top, txbText.width(), kBarHeight});
  if (runs) {
    top += kBarHeight + kGap;
    place(Label1, lblFileName);
  }
  place(lblSourceCaption, lblSourceDirpath);
  lblTargetDirpath.SetVisible(lblTargetCaption.visible());
  if (lblTargetCaption.visible()) place(lblTargetCaption, lblTargetDirpath);
  return top + kGap / 2;
}

void frmReport::PlaceBody(ui::Twips top) {
  const ui::Twips bottom = PlaceFindRow(Room().height - kBottomReserve);
  txbText.SetBounds({kMargin, top, txbText.width(), std::max(bottom - top, kSmallestText)});
  const ui::Twips row = std::max(Room().height - kBottomReserve, txbText.bounds().bottom()) + kGap;
  lblBytesCopied.SetBounds({kMargin, row, txbText.width() * 3 / 5 - kGap, kStatusHeight});
  PlaceFreeSpace();
}

/// At the right end of its row, below the end of the text.
void frmReport::PlaceFreeSpace() {
  constexpr ui::Twips kSlack = 30;  // for lengths rounded to pixels
  const ui::Twips wanted = front_end().TextWidth(lblFreeSpace.text(), lblFreeSpace.font()) + kSlack;
  const ui::Twips width = std::min(wanted, txbText.width() * 2 / 5);
  lblFreeSpace.SetBounds({txbText.bounds().right() - width, lblBytesCopied.top(), width, kStatusHeight});
}

/// Above `bottom` when it is open. Returns where the text box ends.
ui::Twips frmReport::PlaceFindRow(ui::Twips bottom) {
  const ui::Twips height = kPauseButton.height;
  const ui::Twips row = bottom - height;
  const ui::Twips level = row + 90;
  lblFind.SetBounds({kMargin, level, kFindLabel, height - 90});
  txbFind.SetBounds({kMargin + kFindLabel, row, kFindBox, height});
  cmdFindNext.SetBounds({txbFind.bounds().right() + kGap, row, kPauseButton.width, height});
  const ui::Twips found = cmdFindNext.bounds().right() + kGap;
  lblFound.SetBounds({found, level, kMargin + txbText.width() - found, height - 90});
  return txbFind.visible() ? row - kGap : bottom;
}

void frmReport::PositionReportButtons() {
  const ui::Twips top = lblBytesCopied.bounds().bottom() + kGap;
  const ui::Twips height = kPauseButton.height;
  cmdPauseContinue.SetBounds({kMargin, top, kPauseButton.width, height});
  cmdOpenTarget.SetBounds({kMargin, top, kOpenWidth, height});
  const ui::Twips beside_pause = cmdPauseContinue.bounds().right() + 2 * kGap;
  chkSuppressDisplayOfReport.SetBounds({beside_pause, top, kCheckBoxWidth, height});
  const ui::Twips cancel_left = txbText.bounds().right() - cmdCancelClose.width();
  cmdCancelClose.SetBounds({cancel_left, top, cmdCancelClose.width(), height});
  const ui::Twips copy_left = cancel_left - kGap - cmdCopyToClipboard.width();
  cmdCopyToClipboard.SetBounds({copy_left, top, cmdCopyToClipboard.width(), height});
}

}  // namespace report

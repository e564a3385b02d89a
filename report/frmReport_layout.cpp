#include <algorithm>
#include <cstdlib>

#include "report/frmReport.h"
#include "ui/front_end.h"

namespace report {
namespace {

// All in twips.
constexpr ui::Twips kMargin = 240;
constexpr ui::Twips kRightReserve = 220;     ///< of the text box, beyond the two margins
constexpr ui::Twips kBottomReserve = 1'400;  ///< below the text box
constexpr ui::Twips kGap = 100;
constexpr ui::Twips kLine = 255;
constexpr ui::Twips kLineStep = 285;
constexpr ui::Twips kStatusHeight = 540;  ///< two lines: a volume may have a long name
constexpr ui::Twips kHeaderTop = 150;
constexpr ui::Twips kFolderColumn = 800;
constexpr ui::Twips kFileColumn = 2'100;
constexpr ui::Twips kBarHeight = 90;
constexpr ui::Twips kTextTop = kHeaderTop + 3 * kLineStep + kBarHeight + 2 * kGap;
constexpr ui::Twips kSmallestText = 300;
constexpr ui::Twips kWorkingHeight = 8'500;
constexpr ui::Size kPauseButton{1'300, 420};
constexpr ui::Twips kCheckBoxWidth = 2'700;
/// How far a size may come back from the one asked for without the user: rounded to pixels, and before its
/// first show without the true height of its title.
constexpr ui::Twips kFromSystem = 600;

}  // namespace

void frmReport::ResizeForm(std::int16_t Height, std::int16_t Width) {
  const ui::Size wanted{Width, std::max<ui::Twips>(Height, kWorkingHeight)};
  if (size_set_ == wanted && !SizedByUser()) return;
  size_set_ = wanted;
  SetBounds(OnItsScreen({left(), top(), wanted.width, wanted.height}));
  Form_Resize();
}

/// Moved so far that all of it shows. Only the first screen's size is known: on another one it stays.
ui::Rect frmReport::OnItsScreen(ui::Rect bounds) {
  const ui::Size screen = front_end().screen();
  const bool on_first =
      bounds.left >= 0 && bounds.left < screen.width && bounds.top >= 0 && bounds.top < screen.height;
  if (!on_first) return bounds;
  bounds.left = std::max(0, std::min(bounds.left, screen.width - bounds.width));
  bounds.top = std::max(0, std::min(bounds.top, screen.height - bounds.height));
  return bounds;
}

bool frmReport::SizedByUser() const {
  return std::abs(width() - size_set_.width) > kFromSystem ||
         std::abs(height() - size_set_.height) > kFromSystem;
}

void frmReport::Form_Activate() { txbText.SetWidth(inner().width - 2 * kMargin - kRightReserve); }

void frmReport::Form_Resize() {
  Form_Activate();
  PlaceHeader();
  PlaceBody();
  PositionReportButtons();
}

void frmReport::PlaceHeader() {
  const ui::Twips right = kMargin + txbText.width();
  const auto place = [&](ui::Label& caption, ui::Label& content, int row, ui::Twips column) {
    const ui::Twips top = kHeaderTop + row * kLineStep;
    caption.SetBounds({kMargin, top, column, kLine});
    content.SetBounds({kMargin + column, top, right - kMargin - column, kLine});
  };
  place(lblSourceCaption, lblSourceDirpath, 0, kFolderColumn);
  place(lblTargetCaption, lblTargetDirpath, 1, kFolderColumn);
  place(Label1, lblFileName, 2, kFileColumn);
  barProgress.SetBounds({kMargin, kTextTop - kGap - kBarHeight, txbText.width(), kBarHeight});
}

void frmReport::PlaceBody() {
  const ui::Twips height = std::max(inner().height - kTextTop - kBottomReserve, kSmallestText);
  txbText.SetBounds({kMargin, kTextTop, txbText.width(), height});
  const ui::Twips row = txbText.bounds().bottom() + kGap;
  const ui::Twips left_part = txbText.width() * 3 / 5;
  lblBytesCopied.SetBounds({kMargin, row, left_part - kGap, kStatusHeight});
  lblFreeSpace.SetBounds({kMargin + left_part, row, txbText.width() - left_part, kStatusHeight});
}

void frmReport::PositionReportButtons() {
  const ui::Twips top = lblBytesCopied.bounds().bottom() + kGap;
  const ui::Twips height = kPauseButton.height;
  cmdPauseContinue.SetBounds({kMargin, top, kPauseButton.width, height});
  const ui::Twips beside_pause = cmdPauseContinue.bounds().right() + 2 * kGap;
  chkSuppressDisplayOfReport.SetBounds({beside_pause, top, kCheckBoxWidth, height});
  const ui::Twips cancel_left = txbText.bounds().right() - cmdCancelClose.width();
  cmdCancelClose.SetBounds({cancel_left, top, cmdCancelClose.width(), height});
  const ui::Twips copy_left = cancel_left - kGap - cmdCopyToClipboard.width();
  cmdCopyToClipboard.SetBounds({copy_left, top, cmdCopyToClipboard.width(), height});
}

}  // namespace report

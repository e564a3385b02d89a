#include <span>

#include "app/frmMain.h"

/// Where everything stands in the main window. Two columns: on the left the choices in the order in which the
/// user thinks of them, on the right the commands.
namespace app {
namespace {

using ui::Rect;
using ui::Twips;

constexpr Twips kMargin = 240;
constexpr Twips kGap = 120;
constexpr Twips kWideGap = 150;
constexpr Twips kRow = 390;          ///< height of a control
constexpr Twips kStep = kRow + 105;  ///< from one row of a frame to the next
constexpr Twips kFirstRow = 330;     ///< of a frame, below its heading
constexpr Twips kInset = 180;        ///< from a frame's side to its controls
constexpr Twips kLeftColumn = 9750;
constexpr Twips kRightColumn = 3000;
constexpr Twips kMenuLeft = 2 * kMargin + kLeftColumn;
constexpr Twips kInnerWidth = kMenuLeft + kRightColumn + kMargin;
constexpr Twips kButton = 2640;
constexpr Twips kSmallButton = 960;
constexpr Twips kField = kInset + kButton + kGap;  ///< left side of what stands beside a button
constexpr Twips kRightEdge = kLeftColumn - kInset;

Twips RowTop(int row) { return kFirstRow + row * kStep; }
Twips FrameHeight(int rows) { return kFirstRow + rows * kStep + 60; }

/// A label stands a little lower than the control it belongs to, so that their texts are level.
Rect Level(Rect row) { return {row.left, row.top + 75, row.width, row.height - 75}; }

}  // namespace

void frmMain::ArrangeMainWindow() {
  lblIntro.SetBounds({kMargin, 180, kLeftColumn, 420});

  fraSource.SetBounds({kMargin, 660, kLeftColumn, FrameHeight(3)});
  cmdSpecifyDirectory[0].SetBounds({kInset, RowTop(0), kButton, kRow});
  txbDirectory[0].SetBounds({kField, RowTop(0), kRightEdge - kSmallButton - kGap - kField, kRow});
  cmdClearFolder[0].SetBounds({kRightEdge - kSmallButton, RowTop(0), kSmallButton, kRow});
  cmdSelectSubfolders.SetBounds({kInset, RowTop(1), kButton, kRow});
  lblNumSubfolders.SetBounds(Level({kField, RowTop(1), 3240, kRow}));
  cboIncludedFolders.SetBounds(
      {kField + 3300, RowTop(1), kRightEdge - kSmallButton - kGap - kField - 3300, kRow});
  cmdRemoveSubfolder.SetBounds({kRightEdge - kSmallButton, RowTop(1), kSmallButton, kRow});
  chkExcludeFilesInSourceFolder.SetBounds({kInset, RowTop(2), 2940, kRow});
  chkIncludeSubfolders.SetBounds({kField + 360, RowTop(2), kRightEdge - kField - 360, kRow});

  fraTarget.SetBounds({kMargin, fraSource.bounds().bottom() + kGap, kLeftColumn, FrameHeight(3)});
  cmdSpecifyDirectory[1].SetBounds({kInset, RowTop(0), kButton, kRow});
  txbDirectory[1].SetBounds({kField, RowTop(0), kRightEdge - kSmallButton - kGap - kField, kRow});
  cmdClearFolder[1].SetBounds({kRightEdge - kSmallButton, RowTop(0), kSmallButton, kRow});
  cmdCreateSubFolder.SetBounds({kInset, RowTop(1), kButton, kRow});
  lblFreeSpace.SetBounds(Level({kField, RowTop(1), kRightEdge - kField, kRow}));
  lblTargetFolderIsEmpty.SetBounds(Level({kField, RowTop(2), kRightEdge - kField, kRow}));

  const Twips filter = kInset + 3000;
  fraFiles.SetBounds({kMargin, fraTarget.bounds().bottom() + kGap, kLeftColumn, FrameHeight(3)});
  lblBackupOnlyExtension.SetBounds(Level({kInset, RowTop(0), 2940, kRow}));
  txbFileExtension.SetBounds({filter, RowTop(0), 1080, kRow});
  lblSkipFilepaths.SetBounds(Level({kInset, RowTop(1), 2940, kRow}));
  txbExcludedFilepaths.SetBounds({filter, RowTop(1), kRightEdge - kSmallButton - kGap - filter, kRow});
  cmdClearFolder[2].SetBounds({kRightEdge - kSmallButton, RowTop(1), kSmallButton, kRow});
  lblModifiedSince.SetBounds(Level({kInset, RowTop(2), 2940, kRow}));
  cboModifiedSince.SetBounds({filter, RowTop(2), 2700, kRow});

  fraOptions.SetBounds({kMargin, fraFiles.bounds().bottom() + kGap, kLeftColumn, FrameHeight(1)});
  chkPauseAfterFirstCopy.SetBounds({kInset, RowTop(0), 4380, kRow});
  chkSuppressDetailedReports.SetBounds({kInset + 4560, RowTop(0), kRightEdge - kInset - 4560, kRow});

  lblWarningReFilesInUse.SetBounds({kMargin, fraOptions.bounds().bottom() + kGap, kLeftColumn, 450});
  const Twips bottom_row = lblWarningReFilesInUse.bounds().bottom() + 2 * kGap;
  chkSaveSetupOnQuit.SetBounds({kMargin, bottom_row, 3240, kRow});
  lblPreviousRun.SetBounds(Level({kMargin + 3360, bottom_row, 3960, kRow}));
  cmdQuit.SetBounds({kMargin + kLeftColumn - 1080, bottom_row, 1080, kRow});
  cmdHelp.SetBounds({cmdQuit.left() - kGap - 1080, bottom_row, 1080, kRow});

  fraMenu.SetText("Operations");
  fraMenu.SetBounds({kMenuLeft, 660, kRightColumn, cmdQuit.bounds().bottom() - 660});
  const Twips wide = kRightColumn - 2 * kInset;
  Twips top = kFirstRow;
  const auto stack = [&](ui::Control& control, Twips height, Twips gap_below) {
    control.SetBounds({kInset, top, wide, height});
    top += height + gap_below;
  };
  stack(cmdListSubFolders, 720, kWideGap);
  stack(cmdCheckBackupState, 720, kWideGap);
  stack(cmdBackupAllFiles, 720, kWideGap);
  stack(cmdBackupModifiedFiles, 720, 2 * kWideGap);
  stack(cmdReportScreen, 480, kGap);
  stack(cmdSetup, 480, kGap);
  stack(txbSetupFile, kRow, 0);
  cmdBackupModifiedFiles.SetFont(
      {cmdBackupModifiedFiles.font().name, cmdBackupModifiedFiles.font().points, true});
  ArrangeSetupFrames();
  SetWidth(kInnerWidth);
}

/// The frames of the setup commands take the place of the filters and options while they are open.
void frmMain::ArrangeSetupFrames() {
  ui::Button* const setup[] = {&cmdLoadSetup, &cmdSaveSetup, &cmdClearSetup, &cmdRestoreSetup, &cmdKeepSetup};
  ui::Button* const save[] = {&cmdSaveSetupForNextRun, &cmdSaveSetupAsOperationFile, &cmdSaveSetupInBothWays,
                              &cmdDontSaveSetup};
  const auto arrange = [this](ui::Frame& frame, Twips width, std::span<ui::Button* const> buttons,
                              std::span<ui::Label> hints) {
    int row = 0;
    for (ui::Button* button : buttons) {
      ui::Label& hint = hints[static_cast<std::size_t>(row)];
      hint.SetBounds({kField, 0, width - kInset - kField, kRow});
      button->SetBounds({kInset, RowTop(row++), kButton, kRow});
      SetTextBeside(*button, hint, button->description());
    }
    frame.SetBounds({kMargin, 0, width, FrameHeight(row)});
    frame.SetVisible(false);
  };
  const Twips shift = cmdSetup.width() + 100;
  arrange(fraSetup, kLeftColumn, setup, lblSetupHint);
  arrange(fraSaveSetup, kLeftColumn - shift, save, lblSaveSetupHint);
  fraSaveSetup.SetLeft(fraSetup.left() + shift);
  fraSetup.SetText("Setup");
  fraSaveSetup.SetText("Setup");
}

/// A text of one line is level with the control's, one of two lines goes on into the space below the row.
void frmMain::SetTextBeside(const ui::Control& control, ui::Label& label, std::string text) {
  const bool one_line = context_.front_end.TextWidth(text, label.font()) < label.width();
  const Rect row{label.left(), control.top(), label.width(), kRow};
  label.SetText(std::move(text));
  label.SetBounds(one_line ? Level(row) : Rect{row.left, row.top + 45, row.width, kStep - 45});
}

/// Gives the window the inner width that its columns need, whatever borders the system has put around it.
void frmMain::FitWidth() {
  const Twips missing = kInnerWidth - inner().width;
  SetBounds({left() - missing / 2, top(), width() + missing, height()});
}

/// 300 twips below the top of the screen, in its middle; as high as the commands need.
void frmMain::PlaceOnScreen() {
  const ui::Size screen = context_.front_end.screen();
  SetBounds({(screen.width - width()) / 2, 300, width(), fraMenu.bounds().bottom() + 900});
}

}  // namespace app

#include <algorithm>
#include <span>

#include "app/main_window/frmMain.h"

/// Where everything is in the main window. Two columns: on the left the choices in the order in which the
/// user thinks of them, on the right the commands.
namespace app {

/// The heights of everything, and how many rows of a frame are saved.
struct LayoutMeasures {
  ui::Twips row;        ///< height of a control
  ui::Twips step;       ///< from one row of a frame to the next
  ui::Twips first_row;  ///< of a frame, below its heading
  ui::Twips frame_end;  ///< below a frame's last row
  ui::Twips intro;      ///< top of the introduction
  ui::Twips frames;     ///< top of the first frame
  ui::Twips gap;        ///< between frames
  ui::Twips command;    ///< height of an operation's button
  ui::Twips small;      ///< height of the other buttons beside
  ui::Twips between;    ///< between two of these buttons
  ui::Twips margin;     ///< below everything
  bool side_by_side;    ///< what can be beside something has no row of its own
};

namespace {

using ui::Rect;
using ui::Twips;

constexpr Twips kMargin = 240;
constexpr Twips kGap = 120;
constexpr Twips kInset = 180;  ///< from a frame's side to its controls
constexpr Twips kLeftColumn = 9750;
constexpr Twips kRightColumn = 2880;
constexpr Twips kMenuLeft = 2 * kMargin + kLeftColumn;
constexpr Twips kInnerWidth = kMenuLeft + kRightColumn + kMargin;
constexpr Twips kButton = 2640;
constexpr Twips kSmallButton = 960;
constexpr Twips kField = kInset + kButton + kGap;  ///< left side of what is beside a button
constexpr Twips kRightEdge = kLeftColumn - kInset;
constexpr Twips kFromTop = 300;         ///< of the screen to the window
constexpr Twips kBelowMenu = 900;       ///< what the window is higher than the end of the commands
constexpr Twips kLine = 225;            ///< of text
constexpr Twips kWarning = 450;         ///< two lines
constexpr Twips kHalf = kField + 3300;  ///< left side of the right half of what is beside a button

constexpr LayoutMeasures kUsual{390, 495, 330, 60, 180, 660, 120, 720, 480, 150, kMargin, false};
constexpr LayoutMeasures kTight{345, 435, 275, 30, 60, 600, 75, 435, 420, 75, 120, true};

/// A label is a little lower than the control it belongs to, so that their texts are level.
Rect Level(Rect row) {
  const Twips drop = (row.height - 240) / 2;
  return {row.left, row.top + drop, row.width, row.height - drop};
}

}  // namespace

Twips frmMain::RowTop(int row) const { return measures_->first_row + row * measures_->step; }
Twips frmMain::FrameHeight(int rows) const { return RowTop(rows) + measures_->frame_end; }

/// Where the usual layout does not fit the screen, a tighter one does.
void frmMain::ArrangeMainWindow() {
  measures_ = &kUsual;
  PlaceFrames();
  if (fraMenu.bounds().bottom() + kBelowMenu > context_.front_end.screen().height) {
    measures_ = &kTight;
    PlaceFrames();
  }
  cmdBackupModifiedFiles.SetFont(
      {cmdBackupModifiedFiles.font().name, cmdBackupModifiedFiles.font().points, true});
  ArrangeSetupFrames();
  SetSmallest({kInnerWidth, fraMenu.bounds().bottom() + measures_->margin});
  SetWidth(kInnerWidth);
}

void frmMain::PlaceFrames() {
  lblIntro.SetBounds({kMargin, measures_->intro, kLeftColumn, measures_->frames - measures_->intro - 60});
  fraSource.SetBounds({kMargin, measures_->frames, kLeftColumn, FrameHeight(3)});
  PlaceSource();
  fraTarget.SetBounds({kMargin, fraSource.bounds().bottom() + measures_->gap, kLeftColumn,
                       FrameHeight(measures_->side_by_side ? 2 : 3)});
  PlaceTarget();
  fraFiles.SetBounds({kMargin, fraTarget.bounds().bottom() + measures_->gap, kLeftColumn,
                      FrameHeight(measures_->side_by_side ? 2 : 3)});
  PlaceFilters();
  fraOptions.SetBounds({kMargin, fraFiles.bounds().bottom() + measures_->gap, kLeftColumn, FrameHeight(1)});
  const Twips row = measures_->row;
  chkPauseAfterFirstCopy.SetBounds({kInset, RowTop(0), 4380, row});
  chkSuppressDetailedReports.SetBounds({kInset + 4560, RowTop(0), kRightEdge - kInset - 4560, row});

  lblWarningReFilesInUse.SetBounds(
      {kMargin, fraOptions.bounds().bottom() + measures_->gap, kLeftColumn, kWarning});
  const Twips bottom_row = lblWarningReFilesInUse.bounds().bottom() + 2 * measures_->gap;
  chkSaveSetupOnQuit.SetBounds({kMargin, bottom_row, 3240, row});
  lblPreviousRun.SetBounds(Level({kMargin + 3360, bottom_row, 3960, row}));
  cmdQuit.SetBounds({kMargin + kLeftColumn - 1080, bottom_row, 1080, row});
  cmdHelp.SetBounds({cmdQuit.left() - kGap - 1080, bottom_row, 1080, row});
  PlaceMenu();
}

void frmMain::PlaceSource() {
  const Twips row = measures_->row;
  const Twips before_button = kRightEdge - kSmallButton - kGap;
  cmdSpecifyDirectory[0].SetBounds({kInset, RowTop(0), kButton, row});
  txbDirectory[0].SetBounds({kField, RowTop(0), before_button - kField, row});
  cmdClearFolder[0].SetBounds({kRightEdge - kSmallButton, RowTop(0), kSmallButton, row});
  cmdSelectSubfolders.SetBounds({kInset, RowTop(1), kButton, row});
  lblNumSubfolders.SetBounds(Level({kField, RowTop(1), 3240, row}));
  cboIncludedFolders.SetBounds({kHalf, RowTop(1), before_button - kHalf, row});
  cmdRemoveSubfolder.SetBounds({kRightEdge - kSmallButton, RowTop(1), kSmallButton, row});
  chkExcludeFilesInSourceFolder.SetBounds({kInset, RowTop(2), 2940, row});
  chkIncludeSubfolders.SetBounds({kField + 360, RowTop(2), kRightEdge - kField - 360, row});
}

void frmMain::PlaceTarget() {
  const Twips row = measures_->row;
  cmdSpecifyDirectory[1].SetBounds({kInset, RowTop(0), kButton, row});
  txbDirectory[1].SetBounds({kField, RowTop(0), kRightEdge - kSmallButton - kGap - kField, row});
  cmdClearFolder[1].SetBounds({kRightEdge - kSmallButton, RowTop(0), kSmallButton, row});
  cmdCreateSubFolder.SetBounds({kInset, RowTop(1), kButton, row});
  const Twips width = kRightEdge - kField;
  lblFreeSpace.SetBounds(Level({kField, RowTop(1), width, row}));
  lblTargetFolderIsEmpty.SetBounds(Level({kField, RowTop(2), width, row}));
  if (!measures_->side_by_side) return;
  // One below the other beside the button.
  lblFreeSpace.SetBounds({kField, RowTop(1) - 45, width, kLine});
  lblTargetFolderIsEmpty.SetBounds({kField, RowTop(1) - 45 + kLine, width, kLine});
}

void frmMain::PlaceFilters() {
  const Twips row = measures_->row;
  const Twips filter = kInset + 3000;
  lblBackupOnlyExtension.SetBounds(Level({kInset, RowTop(0), 2940, row}));
  txbFileExtension.SetBounds({filter, RowTop(0), 1080, row});
  lblSkipFilepaths.SetBounds(Level({kInset, RowTop(1), 2940, row}));
  txbExcludedFilepaths.SetBounds({filter, RowTop(1), kRightEdge - kSmallButton - kGap - filter, row});
  cmdClearFolder[2].SetBounds({kRightEdge - kSmallButton, RowTop(1), kSmallButton, row});
  const bool beside = measures_->side_by_side;
  constexpr Twips kChoice = 2700;
  const Twips since = beside ? kRightEdge - kChoice : filter;
  const Twips since_label = beside ? txbFileExtension.bounds().right() + 2 * kGap : kInset;
  lblModifiedSince.SetBounds(Level({since_label, RowTop(beside ? 0 : 2), since - since_label - 60, row}));
  cboModifiedSince.SetBounds({since, RowTop(beside ? 0 : 2), kChoice, row});
}

void frmMain::PlaceMenu() {
  fraMenu.SetText("Operations");
  fraMenu.SetBounds(
      {kMenuLeft, measures_->frames, kRightColumn, cmdQuit.bounds().bottom() - measures_->frames});
  Twips top = measures_->first_row;
  const auto stack = [&](ui::Control& control, Twips height, Twips gap_below) {
    control.SetBounds({kInset, top, kRightColumn - 2 * kInset, height});
    top += height + gap_below;
  };
  stack(cmdListSubFolders, measures_->command, measures_->between);
  stack(cmdCheckBackupState, measures_->command, measures_->between);
  stack(cmdBackupAllFiles, measures_->command, measures_->between);
  stack(cmdBackupModifiedFiles, measures_->command, 2 * measures_->between);
  stack(cmdReportScreen, measures_->small, measures_->gap);
  stack(cmdSetup, measures_->small, measures_->gap);
  stack(txbSetupFile, measures_->row, 0);
}

/// The frames of the setup commands take the place of the filters and options while they are open.
void frmMain::ArrangeSetupFrames() {
  SetupCommands& its = setup_commands;
  ui::Button* const setup[] = {&its.cmdLoadSetup, &its.cmdSaveSetup, &its.cmdClearSetup, &its.cmdRestoreSetup,
                               &its.cmdKeepSetup};
  ui::Button* const save[] = {&its.cmdSaveSetupForNextRun, &its.cmdSaveSetupAsOperationFile,
                              &its.cmdSaveSetupInBothWays, &its.cmdDontSaveSetup};
  const auto arrange = [this](ui::Frame& frame, Twips width, std::span<ui::Button* const> buttons,
                              std::span<ui::Label> hints) {
    int row = 0;
    for (ui::Button* button : buttons) {
      ui::Label& hint = hints[static_cast<std::size_t>(row)];
      hint.SetBounds({kField, 0, width - kInset - kField, measures_->row});
      button->SetBounds({kInset, RowTop(row++), kButton, measures_->row});
      SetTextBeside(*button, hint, button->description());
    }
    frame.SetBounds({kMargin, 0, width, FrameHeight(row)});
    frame.SetVisible(false);
  };
  const Twips shift = cmdSetup.width() + 100;
  arrange(its.fraSetup, kLeftColumn, setup, its.lblSetupHint);
  arrange(its.fraSaveSetup, kLeftColumn - shift, save, its.lblSaveSetupHint);
  its.fraSaveSetup.SetLeft(its.fraSetup.left() + shift);
}

/// A text of one line is level with the control's, one of two lines goes on into the space below the row.
void frmMain::SetTextBeside(const ui::Control& control, ui::Label& label, std::string text) {
  const bool one_line = context_.front_end.TextWidth(text, label.font()) < label.width();
  const Rect row{label.left(), control.top(), label.width(), measures_->row};
  label.SetText(std::move(text));
  label.SetBounds(one_line ? Level(row) : Rect{row.left, row.top + 45, row.width, measures_->step - 45});
}

/// Gives the window the inner width that its columns need, whatever borders the system has put around it. A
/// screen with less room has all of it.
void frmMain::FitWidth() {
  const Twips screen = context_.front_end.screen().width;
  const Twips fitting = std::min(width() + kInnerWidth - inner().width, screen);
  SetBounds(
      {std::clamp(left() - (fitting - width()) / 2, Twips{0}, screen - fitting), top(), fitting, height()});
}

/// 300 twips below the top of the screen, in its middle; as high as the commands need. A screen with less
/// room has all of it.
void frmMain::PlaceOnScreen() {
  const ui::Size screen = context_.front_end.screen();
  const Twips height = std::min(fraMenu.bounds().bottom() + kBelowMenu, screen.height);
  const Twips top = std::clamp(screen.height - height, Twips{0}, kFromTop);
  SetBounds({(screen.width - width()) / 2, top, width(), height});
}

}  // namespace app

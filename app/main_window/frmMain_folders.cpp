#include <algorithm>

#include "app/main_window/frmMain.h"
#include "app/select_subfolders/folder_facts.h"
#include "platform/path.h"
#include "services/disk_proc.h"
#include "text/str_proc.h"

/// What the main window shows of the source and the target folder.
namespace app {

void frmMain::RefreshTargetFolderDisplay() {
  const bool specified = platform::IsSpecified(txbDirectory[1].text());
  cmdClearFolder[1].SetVisible(!txbDirectory[1].text().empty());
  RefreshEnabledStates();
  lblTargetFolderIsEmpty.SetVisible(specified);
  lblFreeSpace.SetVisible(specified);
  RefreshFreeSpaceLabel();
  RefreshTargetEmptyLabel();
}

void frmMain::RefreshFreeSpaceLabel() {
  const std::string& target = txbDirectory[1].text();
  double free_bytes = 0;
  double total_bytes = 0;
  std::string text;
  if (platform::IsSpecified(target) &&
      DiskProc::GetDiskSpace(context_.files, target, free_bytes, total_bytes) == 0) {
    text = "Free space on " + context_.files.DriveOf(target) + " " +
           StrProc::FormatByteCountWithMb(free_bytes, false, context_.marks);
  }
  lblFreeSpace.SetText(text);
  lblFreeSpace.SetToolTip(text);  // a long mount point may not fit
}

void frmMain::RefreshFolderDisplays() {
  RefreshSourceFolderDisplay();
  RefreshTargetFolderDisplay();
}

void frmMain::RefreshTargetEmptyLabel() {
  const std::string& target = txbDirectory[1].text();
  if (!platform::IsSpecified(target)) {
    lblTargetFolderIsEmpty.SetText({});
    return;
  }
  const std::string word = IsDisk(context_.files, target) ? "disk" : "folder";
  lblTargetFolderIsEmpty.SetText("The target " + word +
                                 (IsFolderEmpty(context_.files, target) ? " is empty." : " is not empty."));
  lblTargetFolderIsEmpty.SetVisible(true);
}

void frmMain::cmdClearFolder_Click(int index) {
  // The button goes, and with it its focus.
  if (index != 2) {
    TakeFolder(static_cast<std::size_t>(index), {});
    return SetInitialFocus();
  }
  SetupEdited();
  txbExcludedFilepaths.SetText({});
  txbExcludedFilepaths.SetToolTip({});
  txbExcludedFilepaths.SetFocus();
  cmdClearFolder[2].SetVisible(false);
}

}  // namespace app

#include "app/main_window/frmMain.h"
#include "app/select_subfolders/folder_facts.h"
#include "base/utf8.h"
#include "platform/path.h"
#include "services/disk_proc.h"
#include "services/setup_text.h"
#include "text/text_numbers.h"

/// Choosing the source and the target folder, and making a subfolder of the target.
namespace app {
namespace {

void ReplaceSample(std::string& text, const std::string& sample, const std::string& with) {
  const std::size_t at = text.find(sample);
  if (at != std::string::npos) text.replace(at, sample.size(), with);
}

}  // namespace

bool frmMain::IsInRecycleBin(const std::string& path) const {
  const std::string after_disk = base::utf8::ToUpper(AfterDisk(context_.files, path));
  for (std::size_t i = 1; i < RecycleBinNames.size(); ++i) {
    if (after_disk.starts_with(RecycleBinNames[i])) return true;
  }
  return false;
}

void frmMain::cmdSpecifyDirectory_MouseUp(std::size_t index) {
  if (IgnoreMouseUp) return;
  ChooseFolder(index);
}

void frmMain::ChooseFolder(std::size_t index) {
  auto chosen = context_.front_end.dialogs().BrowseForFolder(
      *this, Text(index == 0 ? text::kBrowseSource : text::kBrowseTarget), txbDirectory[index].text(), true);
  if (!chosen) return;
  const std::string path = chosen->substr(0, chosen->find('\0'));
  if (path.empty() || !MayBeChosen(index, path)) return;
  const std::string before = txbDirectory[index].text();
  TakeFolder(index, path);
  WarnAboutUnsavablePath(path);
  if (path == txbDirectory[1 - index].text()) {
    context_.front_end.dialogs().Show(
        *this, {Text(text::kSameFolder), Text(text::kTitleSameFolder), ui::Icon::kInformation});
  }
  if (!before.empty() && before != path) OfferOtherFolder(index);
  SetInitialFocus();
}

bool frmMain::MayBeChosen(std::size_t index, const std::string& path) {
  ui::Dialogs& dialogs = context_.front_end.dialogs();
  if (IsInRecycleBin(path)) {
    dialogs.Show(*this, {"A recycle bin cannot be a backup source or target.", {}, ui::Icon::kInformation});
    return false;
  }
  std::string reason;
  if (index == 1 && !platform::IsDiskRoot(path) && DiskProc::IsWriteProtected(context_.files, path, reason)) {
    const std::string why = reason.empty() ? reason : "\r\n(" + reason + ")";  // it may be full instead
    dialogs.Show(*this, {"The target folder is on a write-protected disk." + why, "Disk is write-protected",
                         ui::Icon::kInformation});
    return false;
  }
  return true;
}

void frmMain::WarnAboutUnsavablePath(const std::string& path) {
  if (services::SurvivesSaving(path)) return;
  context_.front_end.dialogs().Show(*this, {Text(text::kPathNotSaved) + "\r\n" + base::utf8::Printable(path) +
                                                "\r\n\r\n" + Text(text::kPathNotSavedAdvice),
                                            Text(text::kTitlePathNotSaved), ui::Icon::kExclamation});
}

void frmMain::TakeFolder(std::size_t index, const std::string& path) {
  const bool changed = txbDirectory[index].text() != path;
  txbDirectory[index].SetText(path);
  txbDirectory[index].SetToolTip(path);
  if (changed) SetupEdited();
  services::AwayParts& away = setup_commands.away();
  if (index == 1) {
    away.target.clear();
    ShowNote({});
    return RefreshTargetFolderDisplay();
  }
  const bool is_back = changed && !path.empty() && path == away.source;
  if (is_back) {
    away.source.clear();
    setup_commands.TakeBackWhatIsThere();
  } else if (changed) {
    away.ForgetSource();
    cboIncludedFolders.Clear();
    chkIncludeSubfolders.SetValue(0);
    chkExcludeFilesInSourceFolder.SetValue(0);
  }
  ShowNote({});
  RefreshSourceFolderDisplay();
}

/// Somebody who replaces one folder often wants another pair. Asks once for each use of a button, and only
/// while the other folder holds a path that may have to change with it.
void frmMain::OfferOtherFolder(std::size_t index) {
  const std::size_t other = 1 - index;
  if (offering_other_folder_ || txbDirectory[other].text().empty() || operation_.OperationRunning()) return;
  const std::string question = index == 0 ? "Do you wish to specify a new target disk or folder"
                                          : "Do you wish to specify a new source disk or folder";
  if (!context_.front_end.dialogs().AskYesNo(*this, {question, {}, ui::Icon::kQuestion})) return;
  offering_other_folder_ = true;
  ChooseFolder(other);
  offering_other_folder_ = false;
}

void frmMain::cmdCreateSubFolder_MouseUp() {
  ui::Dialogs& dialogs = context_.front_end.dialogs();
  const std::string target = txbDirectory[1].text();
  if (!platform::IsSpecified(target)) {
    dialogs.Show(*this, {"A target folder must first be specified.", {}, ui::Icon::kInformation});
    return;
  }
  const auto there = context_.files.Stat(target);
  if (!there && there.error().kind != platform::ErrorKind::kNotFound) {
    const std::string what = Text(text::kTargetNotReadable) + " " + base::utf8::Printable(target);
    dialogs.Show(*this, {what + " (" + there.error().text + ")", {}, ui::Icon::kExclamation});
    return;
  }
  if (!there) {
    if (!dialogs.AskYesNo(
            *this, {Text(text::kCreateTarget), Text(text::kTitleMissingTarget), ui::Icon::kQuestion})) {
      return;
    }
    if (const auto made = context_.files.CreateFolder(target); !made)
      ReportFolderNotCreated(target, made.error());
    return RefreshTargetFolderDisplay();
  }
  std::string prompt = Text(text::kNewSubfolderName);
  ReplaceSample(prompt, "C:\\", base::utf8::Printable(target));
  const ui::Twips below = top() + fraTarget.top() + cmdCreateSubFolder.bounds().bottom() + 500;
  const auto answer =
      dialogs.AskText(*this, {prompt, {}, left() + fraTarget.left() + cmdCreateSubFolder.left(), below});
  const std::string name = platform::TypedFolderName(answer.value_or(std::string()));
  // Of "..", Windows leaves nothing behind.
  const bool blank = answer.value_or(std::string()).find_first_not_of(' ') == std::string::npos;
  if (blank || ReportNameFault(name.empty() ? *answer : name)) return;
  CreateSubfolder(platform::JoinPath(target, name));
}

/// True when no folder can have this name.
bool frmMain::ReportNameFault(const std::string& name) {
  std::string message;
  switch (platform::FaultOf(name)) {
    case platform::NameFault::kNone:
      return false;
    case platform::NameFault::kPath:
      message = Text(text::kNameIsPath);
      break;
    case platform::NameFault::kReserved:
      message = Text(text::kNameIsReserved);
      break;
    case platform::NameFault::kCharacter:
      message = Text(text::kNameHasCharacter);
      break;
  }
  context_.front_end.dialogs().Show(
      *this, {message + " " + base::utf8::Printable(name), {}, ui::Icon::kInformation});
  return true;
}

void frmMain::CreateSubfolder(const std::string& path) {
  ui::Dialogs& dialogs = context_.front_end.dialogs();
  if (context_.files.Stat(path)) {
    dialogs.Show(*this,
                 {Text(text::kFolderThere) + " " + base::utf8::Printable(path), {}, ui::Icon::kInformation});
    return;
  }
  if (const auto made = context_.files.CreateFolder(path); !made)
    return ReportFolderNotCreated(path, made.error());
  dialogs.Show(*this,
               {Text(text::kFolderCreated) + " " + base::utf8::Printable(path), {}, ui::Icon::kInformation});
  std::string question = Text(text::kMakeItTheTarget);
  ReplaceSample(question, "E:\\", base::utf8::Printable(path));
  if (dialogs.AskYesNo(*this, {question, {}, ui::Icon::kQuestion})) {
    TakeFolder(1, path);
    WarnAboutUnsavablePath(path);
  } else {
    RefreshTargetFolderDisplay();
  }
}

void frmMain::ReportFolderNotCreated(const std::string& path, const platform::Error& error) {
  std::string message = Text(text::kFolderNotCreated);
  const std::string drive = context_.files.DriveOf(path);
  if (!drive.empty()) message += " " + Text(text::kOnDrive) + " " + drive + " " + Text(text::kUnderPath);
  message += "\r\n" + base::utf8::Printable(path);
  if (!error.text.empty()) message += "\r\n(" + error.text + ")";
  context_.front_end.dialogs().Show(*this, {message, {}, ui::Icon::kExclamation});
}

}  // namespace app

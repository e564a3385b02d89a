#include <algorithm>
#include <set>

#include "app/main_window/frmMain.h"
#include "app/select_subfolders/folder_facts.h"
#include "app/select_subfolders/frmSelectSubfolders.h"
#include "platform/path.h"

/// What the main window shows of the source's subfolders.
namespace app {
namespace {

std::string CauseOf(int error) {
  if (error == 70) return "Permission denied";
  if (error == 76) return "Path not found";
  return "Error";
}

}  // namespace

void frmMain::RefreshSourceFolderDisplay() {
  const std::string& source = txbDirectory[0].text();
  const bool specified = platform::IsSpecified(source);
  cmdClearFolder[0].SetVisible(!source.empty());
  chkExcludeFilesInSourceFolder.SetVisible(specified);
  FolderContent content;
  if (specified) {
    content = ContentOf(context_.files, source);
    chkExcludeFilesInSourceFolder.SetEnabled(content.files > 0);
    SetTextBeside(cmdSelectSubfolders, lblNumSubfolders, SummaryOfSubfolders(content));
  } else {
    lblNumSubfolders.SetText({});
  }
  cmdListSubFolders.SetEnabled(content.subfolders > 0);
  ShowIncludedFolders(content.subfolders > 0);
  RefreshEnabledStates();
  SetInitialFocus();
}

/// An included name that has become a link, or is there in two spellings, is no subfolder of its own.
std::string frmMain::SummaryOfSubfolders(const FolderContent& content) const {
  if (content.error != 0) return CauseOf(content.error);
  if (content.subfolders == 0) return "There are no subfolders";
  const std::string text = content.subfolders == 1
                               ? std::string("There is one subfolder")
                               : "There are " + std::to_string(content.subfolders) + " subfolders";
  if (cboIncludedFolders.count() == 0) return text + ", none selected";
  std::set<std::string> keys;
  for (const std::string& name : cboIncludedFolders.items()) keys.insert(context_.files.NameKey(name));
  const auto included = std::ranges::count_if(
      keys, [&](const std::string& key) { return content.subfolder_keys.contains(key); });
  return text + ", " + std::to_string(included) + " selected";
}

void frmMain::ShowIncludedFolders(bool source_has_subfolders) {
  const int included = cboIncludedFolders.count();
  cboIncludedFolders.SetVisible(included > 0);
  cmdRemoveSubfolder.SetVisible(included > 0);
  AnyIncludedFolderHasSubfolders = std::any_of(
      cboIncludedFolders.items().begin(), cboIncludedFolders.items().end(), [this](const auto& name) {
        return ContentOf(context_.files, platform::JoinPath(txbDirectory[0].text(), name)).subfolders > 0;
      });
  chkIncludeSubfolders.SetVisible(source_has_subfolders && AnyIncludedFolderHasSubfolders);
  chkIncludeSubfolders.SetText(included == 1 ? std::string("Include all subfolders of this subfolder")
                                             : "Include all subfolders of these " + std::to_string(included) +
                                                   " subfolders");
}

void frmMain::cmdSelectSubfolders_MouseUp() {
  if (!platform::IsSpecified(txbDirectory[0].text())) {
    context_.front_end.dialogs().Show(
        *this, {"The source disk or folder must first be specified.", {}, ui::Icon::kInformation});
    return;
  }
  setup_commands.TakeBackWhatIsThere();
  const std::string source = txbDirectory[0].text();
  frmSelectSubfolders window(context_, source, cboIncludedFolders.items(),
                             setup_commands.away().FoldersOf(source));
  const auto chosen = window.Choose(*this);
  if (!chosen) return;
  SetupEdited();
  if (!window.KeepsAway()) setup_commands.away().ForgetSource();
  ShowNote({});
  cboIncludedFolders.SetItems(*chosen);
  cboIncludedFolders.SetListIndex(chosen->empty() ? -1 : 0);
  RefreshSourceFolderDisplay();
}

void frmMain::cmdRemoveSubfolder_Click() {
  const int selected = cboIncludedFolders.list_index();
  if (selected < 0) return;
  SetupEdited();
  cboIncludedFolders.RemoveItem(selected);
  cboIncludedFolders.SetListIndex(std::min(selected, cboIncludedFolders.count() - 1));
  RefreshSourceFolderDisplay();
  SetFocusIfPossible(cmdRemoveSubfolder);  // for the next one
}

void frmMain::RefreshEnabledStates() {
  const bool has_source = platform::IsSpecified(txbDirectory[0].text());
  cmdSelectSubfolders.SetEnabled(has_source);
  cmdCreateSubFolder.SetEnabled(!txbDirectory[1].text().empty());
}

}  // namespace app

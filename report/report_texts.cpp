#include "report/report_texts.h"

#include "base/utf8.h"
#include "platform/path.h"
#include "report/frmReport.h"
#include "text/str_proc.h"

namespace report {
namespace {

using StrProc::PluralSuffix;
using StrProc::Str;
using StrProc::Trim;

constexpr const char* kIndent = "    ";

/// Why files of a folder are due: "  2 modified files and 1 file" and what the second count says of them.
std::string TwoCounts(const FolderResult& folder, const char* second) {
  return "  " + Trim(folder.modified) + " modified file" + PluralSuffix(folder.modified) + " and " +
         Trim(folder.not_backed_up) + " file" + PluralSuffix(folder.not_backed_up) + second;
}

std::string OneBothAll(std::int64_t count, const char* one, const char* both, const char* all) {
  if (count == 1) return one;
  return count == 2 ? both : all;
}

std::vector<Phrase> CopyAllResult(const FolderResult& folder) {
  if (folder.copied == folder.files_in_folder) {
    return {{OneBothAll(folder.copied, "  Copied.", "  Both copied.", "  All copied.")}};
  }
  if (folder.copied == 0) return {{"  None copied.", true, false}};
  if (folder.copied == 1) return {{"  Only one file copied.", true, false}};
  return {{"  Only" + Str(folder.copied) + " files copied.", true, false}};
}

/// Empty when no reason is to be given.
std::string ReasonToCopy(const FolderResult& folder) {
  if (folder.not_backed_up == folder.files_in_folder) {
    if (folder.not_backed_up <= 1) return "";
    return folder.not_backed_up == 2 ? "  Neither previously backed up.  " : "  None previously backed up.  ";
  }
  if (folder.modified == folder.files_in_folder) return folder.modified > 1 ? "  All are modified.  " : "";
  if (folder.modified + folder.not_backed_up == 0) return "";
  return TwoCounts(folder, " not previously backed up.  ");
}

Phrase CountCopied(const FolderResult& folder) {
  if (folder.modified + folder.not_backed_up == folder.copied) {
    return {OneBothAll(folder.copied, "Copied.", "Both copied.", "All Copied.")};
  }
  if (folder.copied == 1) return {"One file copied."};
  return {Trim(folder.copied) + " files copied.", false, true, true};
}

std::vector<Phrase> CopyModifiedResult(const FolderResult& folder) {
  std::vector<Phrase> phrases;
  const std::string reason = ReasonToCopy(folder);
  if (!reason.empty()) phrases.push_back({reason, false});
  if (folder.copied != 0) phrases.push_back(CountCopied(folder));
  return phrases;
}

std::string WhatIsNotBackedUp(const FolderResult& folder) {
  if (folder.not_backed_up == folder.files_in_folder) {
    if (folder.not_backed_up <= 1) return "";
    return folder.not_backed_up == 2 ? "  Neither are backed up." : "  None are backed up.";
  }
  if (folder.modified == folder.files_in_folder) {
    if (folder.modified <= 1) return "";
    return folder.modified == 2 ? "  Both are modified." : "  All are modified.";
  }
  if (folder.modified + folder.not_backed_up == 0) return "";
  return TwoCounts(folder, " not backed up.  ");
}

std::string NoneDeleted(std::int64_t files_in_folder) {
  return OneBothAll(files_in_folder, "  Not deleted.", "  Neither deleted.", "  None deleted.");
}

void Write(frmReport& window, const std::vector<Phrase>& phrases) {
  for (const Phrase& phrase : phrases) {
    const bool indent = phrase.indent && window.line().state() == ReportLine::State::kClosed;
    window.Output(indent ? kIndent + phrase.text : phrase.text, phrase.new_line);
    if (phrase.left_open) window.LeaveLineOpen();
  }
}

}  // namespace

std::string HeadLine(std::int64_t files_in_folder, const std::string& shown_folder) {
  if (files_in_folder == -1) return "    ? files  in " + shown_folder;
  if (files_in_folder == 1) return "    1 file  in " + shown_folder;
  const std::string field = "     " + Trim(files_in_folder);
  return field.substr(field.size() - 5) + " files in " + shown_folder;
}

std::string WithPlaceholder(const std::string& path, const std::string& root,
                            const std::string& placeholder) {
  if (root.empty() || root.size() > path.size()) return path;
  if (root == "/" || root == "\\") return path.starts_with(root) ? placeholder + path.substr(1) : path;
  std::string shown = path;
  for (auto at = shown.find(root); at != std::string::npos; at = shown.find(root, at + placeholder.size())) {
    shown.replace(at, root.size(), placeholder);
  }
  return shown;
}

std::vector<Phrase> CopyResult(app::Operation operation, const FolderResult& folder) {
  return operation == app::Operation::kBackupAllFiles ? CopyAllResult(folder) : CopyModifiedResult(folder);
}

std::vector<Phrase> CheckResult(const FolderResult& folder) {
  const std::string text = WhatIsNotBackedUp(folder);
  if (text.empty()) return {};
  return {{text}};
}

std::vector<Phrase> DeletionResult(std::int64_t files_in_folder, std::int64_t deleted) {
  std::string text;
  if (deleted == files_in_folder) {
    text = OneBothAll(deleted, "  One file deleted.", "  Both deleted.", "  All deleted.");
  } else if (deleted == 0) {
    text = NoneDeleted(files_in_folder);
  } else {
    text = deleted == 1 ? "  One file deleted." : "  " + Str(deleted) + " files deleted.";
  }
  return {{text, true, false}};
}

void DisplayNumFilesInFolder(frmReport& window, bool source_side, const std::string& path,
                             const std::string& root, std::int64_t files_in_folder) {
  const char* const placeholder = source_side ? "{source folder}" : "{target folder}";
  // The setup may have the root with a separator at its end, the path of a folder has none.
  const std::string shown = WithPlaceholder(path, platform::WithoutTrailingSeparators(root), placeholder);
  window.Output(HeadLine(files_in_folder, base::utf8::Printable(shown)), false);
}

void DisplayFilesCopied(frmReport& window, app::Operation operation, const FolderResult& folder) {
  Write(window, CopyResult(operation, folder));
}

void DisplayNewAndModifiedFiles(frmReport& window, const FolderResult& folder) {
  Write(window, CheckResult(folder));
}

void DisplayFilesDeleted(frmReport& window, std::int64_t files_in_folder, std::int64_t deleted) {
  Write(window, DeletionResult(files_in_folder, deleted));
}

}  // namespace report

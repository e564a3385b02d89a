#include "app/confirmation/confirmation_input.h"

#include <algorithm>
#include <cmath>

#include "base/utf8.h"
#include "engine/selection/wildcard_match.h"
#include "platform/path.h"
#include "services/date_pr2.h"
#include "text/str_proc.h"

namespace app {
namespace {

constexpr std::size_t kMostNames = 6;
/// Patterns so short that they are in many a path by chance.
constexpr std::size_t kShortPattern = 2;

std::string NameList(const std::vector<std::string>& names) {
  std::string list;
  for (std::size_t i = 0; i < std::min(names.size(), kMostNames); ++i) {
    if (i > 0) list += ", ";
    list += base::utf8::Printable(names[i]);
  }
  if (names.size() > kMostNames) list += " and " + std::to_string(names.size() - kMostNames) + " more";
  return list;
}

std::string Quoted(const std::string& pattern) {
  std::string shown = pattern;
  std::ranges::replace(shown, '/', platform::Separator());  // as the user knows paths
  return "\"" + shown + "\"";
}

std::string Size(std::int64_t bytes, const ConfirmationInput& input) {
  return StrProc::FormatSizeKbMbGb(static_cast<double>(bytes), StrProc::kDecimals, input.marks);
}

std::string Count(std::int64_t count, const std::string& noun, const ConfirmationInput& input) {
  return text::GroupedNumber(count, input.marks) + " " + noun + StrProc::PluralSuffix(count);
}

std::string TargetText(const ConfirmationInput& input) {
  std::string text = base::utf8::Printable(input.request.setup.TargetFolder);
  const TargetVolume& volume = input.volume;
  if (!volume.drive.empty()) text += "\r\non " + base::utf8::Printable(volume.drive);
  if (!volume.space) return text;
  return text + (volume.drive.empty() ? "\r\n" : ", ") + Size(volume.space->free, input) + " free of " +
         Size(volume.space->total, input);
}

std::string IncludedText(const Setup& setup) {
  std::string text = setup.ExcludeFilesInSourceFolder
                         ? "The files directly in the source folder are not included."
                         : "The files directly in the source folder.";
  const std::vector<std::string>& folders = setup.IncludedFolders;
  if (folders.empty()) return text + "\r\nNo subfolders.";
  const bool one = folders.size() == 1;
  text += one ? std::string("\r\nOne subfolder") : "\r\n" + std::to_string(folders.size()) + " subfolders";
  text += setup.IncludeSubfolders ? " with everything below" : " without the subfolders of";
  return text + (one ? " it: " : " them: ") + NameList(folders);
}

std::string FilesText(const ConfirmationInput& input) {
  const Setup& setup = input.request.setup;
  std::string text;
  if (setup.FileExtension.find_first_of("*?") != std::string::npos) {
    text = "Only files whose extension matches \"" + setup.FileExtension + "\".";
  } else if (!setup.FileExtension.empty()) {
    text = "Only files with the extension \"" + setup.FileExtension + "\".";
  } else {
    text = "All files, whatever their extension.";
  }
  if (!input.request.modified_since) return text;
  return text + "\r\nOnly files changed " + DatePr2::ModifiedSinceText(setup.ModifiedSince, input.texts) +
         ".";
}

/// What the skip patterns hit among the names on the first level.
std::string LeftOutText(const ConfirmationInput& input) {
  const PreviewFindings& findings = input.findings;
  std::string text = "Files whose path contains any of these:";
  for (const PreviewFindings::Hits& hits : findings.hits) {
    text += "\r\n" + Quoted(hits.typed);
    if (!findings.first_level_known) continue;
    text += ": ";
    if (hits.names.empty()) {
      text += "none of the " + Count(findings.first_level_names, "name", input) + " on the first level";
    } else {
      text += text::GroupedNumber(static_cast<std::int64_t>(hits.names.size()), input.marks) + " of " +
              Count(findings.first_level_names, "name", input) +
              " on the first level: " + NameList(hits.names);
    }
  }
  return text;
}

std::string DueText(const ConfirmationInput& input) {
  const PreviewFindings& findings = input.findings;
  if (findings.complete && findings.files_due == 0 && findings.folders_not_read == 0) {
    return findings.files_met == 0 ? "Nothing to copy: no file takes part."
                                   : "Nothing to copy: everything that takes part is backed up.";
  }
  std::string text = Count(findings.files_due, "file", input) + ", " + Size(findings.bytes_due, input);
  text += findings.complete ? "" : " so far . . .";
  if (findings.folders_not_read > 0) {
    text += "\r\n" + Count(findings.folders_not_read, "folder", input) + " cannot be read.";
  }
  return text;
}

std::string OptionsText(const Setup& setup) {
  std::string text;
  if (setup.PauseAfterFirstCopy) text = "Pauses after the first folder from which files are copied.";
  if (setup.SuppressDetailedReports) {
    text += std::string(text.empty() ? "" : "\r\n") + "Reports problems and the summary only.";
  }
  return text;
}

/// By what earlier runs took; too short a time tells nothing.
std::string TimeText(std::int64_t its_files, std::int64_t its_bytes, const Pace& pace) {
  constexpr double kCostOfAFile = 64 * 1024;  // beyond its bytes, in bytes
  constexpr double kLeastSeconds = 3;
  constexpr double kMinute = 60;
  const auto cost = [](std::int64_t files, std::int64_t bytes) {
    return static_cast<double>(bytes) + kCostOfAFile * static_cast<double>(files);
  };
  if (pace.files == 0 || pace.seconds < kLeastSeconds || its_files == 0) return {};
  const double seconds = pace.seconds * cost(its_files, its_bytes) / cost(pace.files, pace.bytes);
  if (seconds < kMinute) return ", less than a minute";
  const auto minutes = static_cast<std::int64_t>(std::ceil(seconds / kMinute));
  return ", about " + std::to_string(minutes) + " minute" + StrProc::PluralSuffix(minutes);
}

/// What stays out although somebody who uses the program for the first time would expect it to be in.
void DoubtWhatStaysOut(const ConfirmationInput& input, std::vector<std::string>& doubts) {
  const PreviewFindings& findings = input.findings;
  const bool none_included = input.request.setup.IncludedFolders.empty();
  std::string text;
  if (none_included && findings.first_level_folders > 0) {
    text = findings.first_level_folders == 1
               ? std::string("The one subfolder of the source is not included.")
               : "None of the " + Count(findings.first_level_folders, "subfolder", input) +
                     " of the source is included.";
    text += " Only the files directly in it will be backed up.";
    if (findings.outside_counted && findings.files_outside > 0)
      text += " " + Count(findings.files_outside, "file", input) + " will not.";
  } else if (findings.outside_counted && findings.files_outside > 0) {
    text = "\"Include all subfolders\" is not ticked: " + Count(findings.folders_outside, "folder", input) +
           " inside the included ones, with " + Count(findings.files_outside, "file", input) +
           ", will not be backed up.";
  }
  if (!text.empty()) doubts.push_back(text);
}

void DoubtTheTarget(const ConfirmationInput& input, std::vector<std::string>& doubts) {
  const std::vector<std::string>& strangers = input.findings.strangers;
  if (!strangers.empty()) {
    doubts.push_back("Nothing in the target comes from this source. It holds " + NameList(strangers) +
                     ". Is it meant for the backup of another folder?");
  }
  if (input.volume.holds_source) {
    doubts.push_back("The target is on the same disk as the source. When that disk fails, both are lost.");
  }
}

/// What to write in the place of a pattern with wildcards: its longest part without.
std::string WithoutWildcards(const std::string& pattern) {
  std::string longest;
  for (std::size_t at = 0; at <= pattern.size();) {
    const std::size_t end = std::min(pattern.find_first_of("*?", at), pattern.size());
    if (end - at > longest.size()) longest = pattern.substr(at, end - at);
    at = end + 1;
  }
  return longest;
}

bool HasWildcard(const std::string& pattern) { return pattern.find_first_of("*?") != std::string::npos; }

void DoubtTheWildcards(const std::string& pattern, std::vector<std::string>& doubts) {
  if (!HasWildcard(pattern)) return;
  const std::string instead = WithoutWildcards(pattern);
  doubts.push_back("\"*\" and \"?\" stand for nothing else in a pattern, so " + Quoted(pattern) +
                   " will hardly leave out a file. " +
                   (instead.empty() ? std::string("Remove it.") : "Write " + Quoted(instead) + " instead."));
}

void DoubtTheFolders(const PreviewFindings& findings, std::vector<std::string>& doubts) {
  if (findings.target_in_source) {
    doubts.push_back("The target folder is inside the source folder. It is not backed up itself.");
  } else if (findings.source_in_target) {
    doubts.push_back(
        "The source folder is inside the target folder. Make sure that the copies do not end up among the "
        "originals.");
  }
}

void DoubtTheLinks(const PreviewFindings& findings, std::vector<std::string>& doubts) {
  if (findings.links.empty()) return;
  doubts.push_back("Links to folders are not followed, so what is in these is not backed up: " +
                   NameList(findings.links) + ". Back up the folders themselves that they lead to.");
}

void DoubtThePatterns(const ConfirmationInput& input, std::vector<std::string>& doubts) {
  const std::string source =
      engine::NormaliseForMatch(platform::FolderForm(input.request.setup.SourceFolder));
  std::vector<std::string> short_ones;
  for (const PreviewFindings::Hits& hits : input.findings.hits) {
    DoubtTheWildcards(hits.typed, doubts);
    if (source.find(hits.pattern) != std::string::npos) {
      doubts.push_back("The path of the source folder itself contains " + Quoted(hits.typed) +
                       ", so every file is left out.");
    } else if (base::utf8::Length(hits.pattern) <= kShortPattern && !HasWildcard(hits.pattern)) {
      short_ones.push_back(Quoted(hits.typed));
    }
  }
  if (short_ones.empty()) return;
  doubts.push_back("Very short patterns may leave out more than you intend: " + NameList(short_ones));
}

void DoubtWhatWasFound(const ConfirmationInput& input, std::vector<std::string>& doubts) {
  const PreviewFindings& findings = input.findings;
  const std::size_t gone = findings.folders_gone.size();
  if (gone == 1)
    doubts.push_back("This included subfolder is no longer there: " + NameList(findings.folders_gone));
  if (gone > 1) {
    doubts.push_back(std::to_string(gone) +
                     " included subfolders are no longer there: " + NameList(findings.folders_gone));
  }
  if (findings.kept_out_by_period > 0) {
    const bool one = findings.kept_out_by_period == 1;
    doubts.push_back("The chosen period keeps out " +
                     (one ? std::string("one file that has")
                          : Count(findings.kept_out_by_period, "file", input) + " that have") +
                     " no copy in the target yet.");
  }
  if (findings.complete && findings.files_met == 0) doubts.push_back("No file passes the filters.");
  const std::int64_t largest = input.volume.largest_file;
  if (largest > 0 && findings.largest_due_bytes > largest) {
    doubts.push_back("The format of the target disk does not allow files larger than " +
                     Size(largest, input) +
                     ", so this one cannot be copied: " + base::utf8::Printable(findings.largest_due));
  }
  const auto& space = input.volume.space;
  if (space && findings.room_needed > 0 && findings.room_needed >= space->free) {
    doubts.push_back("The copies need " + Size(findings.room_needed, input) + ", but only " +
                     Size(space->free, input) + " are free on the target.");
  }
}

}  // namespace

std::string OperationExplained(Operation operation) {
  return std::string(operation == Operation::kBackupAllFiles
                         ? "Copies every file, whether or not the target already has it."
                         : "Copies the files that are new or were modified since they were last copied.") +
         " Nothing is deleted from the target.";
}

std::vector<Fact> FactsOf(const ConfirmationInput& input) {
  const Setup& setup = input.request.setup;
  std::vector<Fact> facts{{"Source", base::utf8::Printable(setup.SourceFolder)},
                          {"Target", TargetText(input)},
                          {"Included", IncludedText(setup)},
                          {"Files", FilesText(input)}};
  if (!input.findings.hits.empty()) facts.push_back({"Left out", LeftOutText(input)});
  if (const std::string options = OptionsText(setup); !options.empty()) facts.push_back({"Options", options});
  facts.push_back({"To be copied", DueText(input)});
  return facts;
}

std::string ComparisonText(const ConfirmationInput& input, const Pace& pace, bool is_chosen) {
  const PreviewFindings& findings = input.findings;
  std::string text = "To be read: " + Count(findings.files_same, "file", input) + ", " +
                     Size(findings.bytes_same, input) + " on each side" +
                     TimeText(findings.files_same, findings.bytes_same, pace) +
                     (findings.complete ? "." : " so far . . .");
  if (is_chosen) text += " Holds for \"Check backup state\", too, until the program ends.";
  return text;
}

std::string ReadBackText(const ConfirmationInput& input, const Pace& pace, bool is_chosen) {
  const PreviewFindings& findings = input.findings;
  const std::string time = TimeText(findings.files_due, findings.bytes_due, pace);
  std::string text = "To be read once more: " + Count(findings.files_due, "file", input) + ", " +
                     Size(findings.bytes_due, input) + (time.empty() ? "" : time + " with the copying") +
                     (findings.complete ? "." : " so far . . .");
  if (is_chosen) text += " Holds until the program ends.";
  return text;
}

std::vector<std::string> FindConcerns(const ConfirmationInput& input) {
  std::vector<std::string> doubts;
  DoubtWhatStaysOut(input, doubts);
  DoubtTheFolders(input.findings, doubts);
  DoubtTheLinks(input.findings, doubts);
  DoubtTheTarget(input, doubts);
  DoubtThePatterns(input, doubts);
  DoubtWhatWasFound(input, doubts);
  return doubts;
}

}  // namespace app

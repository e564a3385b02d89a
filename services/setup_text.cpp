#include "services/setup_text.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "services/input_text.h"

namespace services {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kMostNames = std::numeric_limits<std::int16_t>::max();

void AddLine(std::string& content, std::string_view text) {
  content += text;
  content += kLineEnd;
}

void AddNumber(std::string& content, int number) {
  if (number >= 0) content += ' ';
  content += std::to_string(number);
  AddLine(content, " ");
}

bool IsOneLine(const std::string& text) {
  return text.find_first_of(std::string_view("\r\n\0", 3)) == std::string::npos;
}

/// The lines before the first with a zero byte, such as a failing power leaves where a file was being
/// written.
std::string_view UndamagedLines(std::string_view content) {
  const std::size_t zero = content.find('\0');
  return zero == std::string_view::npos ? content : content.substr(0, content.rfind('\n', zero) + 1);
}

/// Stores what was read; whether anything was.
template <typename Read, typename Field>
bool Take(std::optional<Read> read, Field& field) {
  if (read) field = static_cast<Field>(std::move(*read));
  return read.has_value();
}

bool ReadNames(InputText& input, std::vector<std::string>& names) {
  const auto count = input.Number();
  if (!count) return false;
  std::string name;
  for (int i = 0; i < *count; ++i) {
    if (!Take(input.Line(), name)) return false;
    names.push_back(name);
  }
  return true;
}

}  // namespace

std::string InputErrorText(std::int16_t error) {
  switch (error) {
    case kInputOverflow:
      return "A number is too large.";
    case kInputNotANumber:
      return "A number is missing.";
    case kInputFileNotFound:
      return "The file does not exist.";
    case kInputPastEnd:
      return "The file is incomplete.";
    case kInputNoPermission:
      return "The file may not be read.";
    case kInputDamaged:
      return "The file is damaged.";
    case kInputBadValue:
      return "A number is outside its range.";
    default:
      return "The file cannot be read.";
  }
}

std::string SetupText(const app::Setup& setup) {
  std::string content;
  AddLine(content, setup.SourceFolder);
  AddLine(content, setup.TargetFolder);
  AddNumber(content, setup.SuppressDetailedReports);
  AddNumber(content, setup.SaveSetupOnQuit);
  AddNumber(content, setup.ExcludeFilesInSourceFolder);
  AddNumber(content, setup.IncludeSubfolders);
  AddNumber(content, setup.ModifiedSince);
  AddNumber(content, setup.PauseAfterFirstCopy);
  AddLine(content, setup.SkipFilepaths);
  AddNumber(content, static_cast<int>(setup.IncludedFolders.size()));
  for (const std::string& name : setup.IncludedFolders) AddLine(content, name);
  AddLine(content, setup.FileExtension);
  return content;
}

bool CanBeWritten(const app::Setup& setup) {
  return IsOneLine(setup.SourceFolder) && IsOneLine(setup.TargetFolder) && IsOneLine(setup.SkipFilepaths) &&
         IsOneLine(setup.FileExtension) && setup.IncludedFolders.size() <= kMostNames &&
         std::ranges::all_of(setup.IncludedFolders, IsOneLine);
}

std::string ProblemText(const ParsedSetup& parsed) {
  std::string text = InputErrorText(parsed.error);
  if (parsed.line > 0) text = "Line " + std::to_string(parsed.line) + ": " + text;
  if (parsed.comma_line == 0) return text;
  return text + " Line " + std::to_string(parsed.comma_line) +
         " has a comma in it, and a saved path ends at its first comma. Rename that folder, choose it anew "
         "and "
         "save the setup again.";
}

bool SurvivesSaving(const std::string& folder) {
  if (!IsOneLine(folder)) return false;
  InputText input(folder);
  return folder.empty() || (input.Item() == folder && input.line() == 1 && input.comma_line() == 0);
}

ParsedSetup ParseSetup(std::string_view content, int periods) {
  ParsedSetup parsed;
  const std::string_view lines = UndamagedLines(content);
  InputText input(lines);
  app::Setup& setup = parsed.setup;
  // Each step runs only when the one before it was read, so that an error leaves the rest at its defaults.
  const bool all_but_last =
      Take(input.Item(), setup.SourceFolder) && Take(input.Item(), setup.TargetFolder) &&
      Take(input.Number(0, 1), setup.SuppressDetailedReports) &&
      Take(input.Number(0, 1), setup.SaveSetupOnQuit) &&
      Take(input.Number(0, 1), setup.ExcludeFilesInSourceFolder) &&
      Take(input.Number(0, 1), setup.IncludeSubfolders) &&
      Take(input.Number(-1, periods - 1), setup.ModifiedSince) &&
      Take(input.Number(0, 1), setup.PauseAfterFirstCopy) && Take(input.Line(), setup.SkipFilepaths) &&
      ReadNames(input, setup.IncludedFolders);
  if (all_but_last) Take(input.Line(), setup.FileExtension);
  parsed.error = input.error();
  if (parsed.error == 0) return parsed;
  parsed.line = input.line();
  parsed.comma_line = input.comma_line();
  if (parsed.error == kInputPastEnd && lines.size() < content.size()) parsed.error = kInputDamaged;
  // Without its line end the line before may have been cut off itself.
  const bool line_before_ended = content.ends_with('\n') || !input.is_through();
  parsed.extension_missing = all_but_last && parsed.error == kInputPastEnd && line_before_ended;
  return parsed;
}

}  // namespace services

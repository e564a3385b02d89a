#include "engine/selection/selection.h"

#include "base/utf8.h"
#include "engine/own_names.h"
#include "engine/selection/file_proc.h"
#include "engine/selection/wildcard_match.h"
#include "platform/path.h"
#include "text/text_numbers.h"

namespace engine {
namespace {

Finding FindingOf(const SelectionRules& rules, const Candidate& file) {
  if (IsTheProgramsOwn(file.source.name)) return Finding::kFilteredOut;
  if (!PassesFilters(rules.filters, file.folder, file.source)) return Finding::kFilteredOut;
  if (rules.skip_picture_caches && IsPictureCache(file.source.name)) return Finding::kFilteredOut;
  if (IsListOperation(rules.operation)) return Finding::kListed;
  if (rules.operation == app::Operation::kBackupAllFiles) return Finding::kUnconditional;
  if (!file.TargetFileExists()) return Finding::kNew;
  return file.is_doubted || FileTimesDiffer(file.source, *file.target) ? Finding::kModified
                                                                       : Finding::kUpToDate;
}

bool IsDue(Finding finding) {
  return finding == Finding::kUnconditional || finding == Finding::kNew || finding == Finding::kModified;
}

bool IsEmptyOr(const std::string& extension, std::string_view name) {
  return extension.empty() || extension == name;
}

/// The number of the text for a large system or swap file; 0 for any other file. The whole path counts, so a
/// folder name with ".sys" in it also makes its large files system files.
int LargeSystemFileText(const std::string& extension, const Candidate& file) {
  if (FileSizeOf(file.source) <= LargeFileLimit) return 0;
  const std::string path = NormaliseForMatch(file.SourcePath());
  const auto holds = [&](std::string_view part) { return path.find(part) != std::string::npos; };
  if (holds(".sys") && IsEmptyOr(extension, "sys")) return text::kLargeSystemFileSkipped;
  if (holds("/win") && holds(".swp") && IsEmptyOr(extension, "swp")) return text::kLargeSwapFileSkipped;
  return 0;
}

}  // namespace

std::string Candidate::SourcePath() const { return platform::JoinPath(folder, source.name); }

bool IsPictureCache(std::string_view path) {
  const std::size_t end = path.find_last_not_of(' ');
  if (end == std::string_view::npos) return false;
  return base::utf8::ToLower(path.substr(0, end + 1)).ends_with("thumbs.db");
}

Selection SelectFile(const SelectionRules& rules, const Candidate& file) {
  Selection result{FindingOf(rules, file), false, 0, file.target};
  if (!IsCopyOperation(rules.operation) || !IsDue(result.finding)) return result;
  result.skip_text = LargeSystemFileText(rules.filters.extension, file);
  result.selected = result.skip_text == 0;
  return result;
}

}  // namespace engine

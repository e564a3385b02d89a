#include "services/away_parts.h"

#include <algorithm>
#include <utility>

#include "base/utf8.h"
#include "platform/path.h"
#include "text/text_numbers.h"

namespace services {
namespace {

bool Holds(const std::vector<std::string>& names, const std::string& name) {
  return std::ranges::find(names, name) != names.end();
}

bool IsAway(platform::FileSystem& files, const std::string& folder) {
  const auto entry = files.Stat(folder);
  if (entry) return !platform::IsFolder(entry->kind);
  return IsGone(entry.error());
}

/// Both lists in the setup's own order, what is new to it behind.
std::vector<std::string> Merged(std::vector<std::string> shown, const AwayParts& away,
                                const std::vector<std::string>& added) {
  std::vector<std::string> names;
  for (const std::string& name : away.order) {
    const bool wanted = Holds(shown, name) || Holds(added, name);
    if (wanted && !Holds(names, name)) names.push_back(name);
  }
  std::erase_if(shown, [&](const std::string& name) { return Holds(names, name); });
  names.insert(names.end(), shown.begin(), shown.end());
  return names;
}

bool TakeBackFolder(platform::FileSystem& files, std::string& shown, std::string& away) {
  if (away.empty() || !shown.empty() || IsAway(files, away)) return false;
  shown = std::exchange(away, {});
  return true;
}

/// A file from elsewhere could otherwise lead out of the source folder by a name.
bool TakeBackIncluded(platform::FileSystem& files, app::Setup& setup, AwayParts& away) {
  if (setup.SourceFolder.empty() || setup.SourceFolder != away.folders_of) return false;
  std::vector<std::string> back;
  std::erase_if(away.folders, [&](const std::string& name) {
    if (!platform::IsPlainName(name) || IsAway(files, platform::JoinPath(setup.SourceFolder, name)))
      return false;
    back.push_back(name);
    return true;
  });
  if (back.empty()) return false;
  setup.IncludedFolders = Merged(std::move(setup.IncludedFolders), away, back);
  return true;
}

}  // namespace

void AwayParts::ForgetSource() {
  source.clear();
  folders_of.clear();
  folders.clear();
  order.clear();
}

std::vector<std::string> AwayParts::FoldersOf(const std::string& shown_source) const {
  return shown_source == folders_of ? folders : std::vector<std::string>();
}

AwayParts TakeApart(app::Setup& setup) {
  AwayParts away;
  away.source = away.folders_of = std::exchange(setup.SourceFolder, {});
  away.target = std::exchange(setup.TargetFolder, {});
  away.folders = away.order = std::exchange(setup.IncludedFolders, {});
  if (away.source.empty()) away.ForgetSource();
  return away;
}

bool TakeBackWhatIsThere(platform::FileSystem& files, app::Setup& setup, AwayParts& away) {
  const bool source = TakeBackFolder(files, setup.SourceFolder, away.source);
  const bool target = TakeBackFolder(files, setup.TargetFolder, away.target);
  return TakeBackIncluded(files, setup, away) || source || target;
}

app::Setup WithAwayParts(app::Setup shown, const AwayParts& away) {
  if (shown.SourceFolder.empty()) shown.SourceFolder = away.source;
  if (shown.TargetFolder.empty()) shown.TargetFolder = away.target;
  const std::vector<std::string> folders = away.FoldersOf(shown.SourceFolder);
  if (!folders.empty()) shown.IncludedFolders = Merged(std::move(shown.IncludedFolders), away, folders);
  return shown;
}

std::string DoesNotExist(const std::string& which, const std::string& folder) {
  return which + " folder " + base::utf8::Printable(folder) + " does not exist.";
}

std::string WhyMissing(const AwayParts& away, bool target) {
  if (target) return away.target.empty() ? std::string() : DoesNotExist("Target", away.target);
  if (!away.source.empty()) return DoesNotExist("Source", away.source);
  std::string why;
  for (const std::string& name : away.folders)
    why += (why.empty() ? "" : " ") + DoesNotExist("Included", name);
  return why;
}

std::vector<std::string> AwayLines(const AwayParts& away, const text::ProgramTexts& texts) {
  const std::string stays = " " + texts.GetProgramText(text::kStaysInSetup);
  std::vector<std::string> lines;
  if (!away.source.empty()) lines.push_back(DoesNotExist("Source", away.source) + stays);
  if (away.source.empty()) {
    for (const std::string& name : away.folders) {
      lines.push_back(platform::IsPlainName(name)
                          ? DoesNotExist("Included", name) + stays
                          : texts.GetProgramText(text::kNotAPlainName) + " " + base::utf8::Printable(name));
    }
  }
  if (!away.target.empty()) {
    lines.push_back(DoesNotExist("Target", away.target) + " " +
                    texts.GetProgramText(text::kTargetStaysInSetup));
  }
  return lines;
}

std::string AwaySummary(const AwayParts& away, const text::ProgramTexts& texts) {
  std::string list;
  const auto add = [&list](const std::string& part) { list += (list.empty() ? " " : "; ") + part; };
  if (!away.source.empty()) {
    add("source folder " + base::utf8::Printable(away.source));
  } else if (!away.folders.empty()) {
    std::string names;
    for (const std::string& name : away.folders)
      names += (names.empty() ? "" : ", ") + base::utf8::Printable(name);
    add((away.folders.size() == 1 ? "included folder " : "included folders ") + names);
  }
  if (!away.target.empty()) add("target folder " + base::utf8::Printable(away.target));
  return list.empty() ? list : texts.GetProgramText(text::kAwayForNow) + list + ".";
}

}  // namespace services

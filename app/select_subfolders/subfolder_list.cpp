#include "app/select_subfolders/subfolder_list.h"

#include <algorithm>
#include <set>
#include <utility>

#include "app/select_subfolders/folder_facts.h"
#include "app/select_subfolders/natural_order.h"
#include "base/utf8.h"
#include "platform/path.h"
#include "text/str_proc.h"

namespace app {
namespace {

using State = Subfolder::State;

std::string CountText(std::int64_t count, const std::string& noun) {
  const std::string number =
      count > kMostCounted ? "over " + StrProc::Trim(kMostCounted) : StrProc::Trim(count);
  return number + " " + noun + StrProc::PluralSuffix(count);
}

std::string CountOfSelected(std::size_t selected, std::size_t all, const text::NumberMarks& marks) {
  if (selected == 0) return "No subfolders selected.";
  if (selected == 1) return "One subfolder selected.";
  const std::string count = std::to_string(selected);
  if (selected == all) return "All " + count + " subfolders selected.";
  return count + " selected (of " + text::GroupedNumber(static_cast<std::int64_t>(all), marks) + ").";
}

}  // namespace

std::string ContentText(const Subfolder& subfolder) {
  if (subfolder.state == State::kNotLookedInto) return {};
  if (subfolder.state == State::kDenied) return "permission denied";
  if (subfolder.files == 0 && subfolder.subfolders == 0) return "no files and no subfolders";
  const std::string below =
      subfolder.subfolders == 0 ? "no subfolders" : CountText(subfolder.subfolders, "subfolder");
  return CountText(subfolder.files, "file") + " and " + below;
}

std::string AwayText(const std::vector<std::string>& names) {
  std::string text = names.size() == 1 ? std::string("Keep one included subfolder that is not there now: ")
                                       : "Keep " + std::to_string(names.size()) +
                                             " included subfolders that are not there now: ";
  for (const std::string& name : names)
    text += (&name == &names.front() ? "" : ", ") + base::utf8::Printable(name);
  return text;
}

platform::Status SubfolderList::ReadNames(const std::vector<std::string>& selected) {
  subfolders_.clear();
  const auto listing = files_.OpenFolder(source_);
  if (!listing) return listing.error();
  std::set<std::string> selected_keys;
  for (const std::string& name : selected) selected_keys.insert(files_.NameKey(name));
  for (const platform::Entry& entry : (*listing)->entries()) {
    if (entry.kind != platform::EntryKind::kFolder || IsRecycleBin(entry.name)) continue;
    Subfolder subfolder;
    subfolder.name = entry.name;
    subfolder.selected = selected_keys.count(files_.NameKey(entry.name)) != 0;
    subfolders_.push_back(std::move(subfolder));
  }
  std::ranges::sort(subfolders_, ComesBefore, &Subfolder::name);
  return platform::Done{};
}

void SubfolderList::LookInto(std::size_t index) {
  Subfolder& subfolder = subfolders_[index];
  const auto listing = files_.OpenFolder(platform::JoinPath(source_, subfolder.name));
  subfolder.state = listing ? State::kRead : State::kDenied;
  if (!listing) return;
  for (const platform::Entry& entry : (*listing)->entries()) {
    if (entry.kind == platform::EntryKind::kFolder) ++subfolder.subfolders;
    if (entry.kind != platform::EntryKind::kFile) continue;
    ++subfolder.files;
    subfolder.bytes += std::max<std::int64_t>(entry.size, 0);
  }
}

void SubfolderList::SelectAll(bool selected) {
  for (Subfolder& subfolder : subfolders_) subfolder.selected = selected;
}

bool SubfolderList::AllSelected() const {
  return !subfolders_.empty() && std::ranges::all_of(subfolders_, &Subfolder::selected);
}

std::vector<std::string> SubfolderList::Selected() const {
  std::vector<std::string> names;
  for (const Subfolder& subfolder : subfolders_) {
    if (subfolder.selected) names.push_back(subfolder.name);
  }
  return names;
}

std::string SubfolderList::SelectionSummary(const text::NumberMarks& marks) const {
  std::size_t selected = 0;
  Subfolder total;
  bool all_known = true;
  for (const Subfolder& subfolder : subfolders_) {
    if (!subfolder.selected) continue;
    ++selected;
    total.files += subfolder.files;
    total.subfolders += subfolder.subfolders;
    total.bytes += subfolder.bytes;
    all_known = all_known && subfolder.state != State::kNotLookedInto;
  }
  std::string summary = CountOfSelected(selected, subfolders_.size(), marks);
  if (selected == 0) return summary;
  const auto counted = [&](std::int64_t count, const char* noun) {
    return text::GroupedNumber(count, marks) + noun + StrProc::PluralSuffix(count);
  };
  return summary + "\r\nA total of " + counted(total.files, " file") + " and " +
         counted(total.subfolders, " subfolder") +
         (selected == 1 ? " directly in it, " : " directly in them, ") +
         StrProc::FormatSizeKbMbGb(static_cast<double>(total.bytes), StrProc::kDecimals, marks) +
         (all_known ? "." : " so far.");
}

}  // namespace app

#include "engine/other_spellings.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

#include "base/utf8.h"
#include "engine/unfinished_run.h"
#include "platform/path.h"

namespace engine {

using platform::Entry;

OtherSpellings::OtherSpellings(platform::FileSystem& files, const platform::Folder& source,
                               const platform::Folder& target)
    : files_(files), target_(target) {
  std::unordered_set<std::string_view> names;
  for (const Entry& entry : source.entries()) names.insert(entry.name);
  for (const Entry& entry : target.entries()) {
    if (!names.contains(entry.name) && !IsTheProgramsOwn(entry.name)) free_.push_back(&entry);
  }
}

const Entry* OtherSpellings::Find(const Entry& source) {
  if (free_.empty()) return nullptr;
  const auto known = files_.Look(platform::JoinPath(target_.path(), source.name));
  if (!known || IsFolder(known->kind) != IsFolder(source.kind)) return nullptr;
  const Entry* const found = Match(source, *known);
  std::erase(free_, found);
  return found;
}

const Entry* OtherSpellings::Match(const Entry& source, const Entry& known) {
  for (const Entry* entry : free_) {
    if (entry->kind == known.kind && known.number != 0 && NumberOf(*entry) == known.number) return entry;
  }
  return MatchWithoutNumbers(source, known);
}

/// Servers may give a file another number under each spelling. There the same name but for case is taken, or
/// what alone is of that kind, size and time.
const Entry* OtherSpellings::MatchWithoutNumbers(const Entry& source, const Entry& known) {
  const std::string lower = base::utf8::ToLower(source.name);
  const Entry* found = nullptr;
  int others = 0;
  for (const Entry* entry : free_) {
    if (entry->kind != known.kind) continue;
    if (base::utf8::ToLower(entry->name) == lower) return IsListedNow(source.name) ? nullptr : entry;
    if (entry->size != known.size || entry->modified != known.modified) continue;
    found = entry;
    ++others;
  }
  return others == 1 && !IsListedNow(source.name) ? found : nullptr;
}

/// Listings may tell no numbers of folders.
std::uint64_t OtherSpellings::NumberOf(const Entry& target) {
  if (target.number != 0 || !IsFolder(target.kind)) return target.number;
  const auto known = files_.Look(platform::JoinPath(target_.path(), target.name));
  return known ? known->number : 0;
}

/// Somebody may have made it since the folder was listed; then it is nobody's other spelling.
bool OtherSpellings::IsListedNow(const std::string& name) {
  const auto now = files_.OpenFolder(target_.path());
  return !now || std::any_of((*now)->entries().begin(), (*now)->entries().end(),
                             [&](const Entry& entry) { return entry.name == name; });
}

}  // namespace engine

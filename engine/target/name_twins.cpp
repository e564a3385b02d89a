#include "engine/target/name_twins.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

#include "base/utf8.h"
#include "engine/own_names.h"
#include "platform/path.h"

namespace engine {

using platform::Entry;

NameTwins::NameTwins(platform::FileSystem& files, const platform::Folder& source,
                     const platform::Folder& target)
    : files_(files), target_(target) {
  std::unordered_set<std::string_view> of_source, of_target;
  for (const Entry& entry : source.entries()) of_source.insert(entry.name);
  for (const Entry& entry : target.entries()) {
    of_target.insert(entry.name);
    const bool is_free = !of_source.contains(entry.name) && !IsTheProgramsOwn(entry.name);
    (is_free ? free_ : taken_).push_back(&entry);
  }
  for (const Entry& entry : source.entries()) {
    if (!of_target.contains(entry.name)) wanted_.push_back(&entry);
  }
}

const Entry* NameTwins::Find(const Entry& source) {
  if (free_.empty()) return nullptr;
  const auto known = files_.Stat(platform::JoinPath(target_.path(), source.name));
  if (!known || IsFolder(known->kind) != IsFolder(source.kind)) return nullptr;
  const Entry* const found = Match(source, *known);
  std::erase(free_, found);
  return found;
}

/// What has a number in the listing is that very entry: where that is another's copy, it is nobody else's.
const Entry* NameTwins::Match(const Entry& source, const Entry& known) {
  const auto is_it = [&](const Entry* entry) { return IsKnownAs(*entry, known); };
  const auto found = std::find_if(free_.begin(), free_.end(), is_it);
  if (found != free_.end()) return *found;
  return std::any_of(taken_.begin(), taken_.end(), is_it) ? nullptr : MatchWithoutNumbers(source, known);
}

bool NameTwins::IsKnownAs(const Entry& target, const Entry& known) {
  return target.kind == known.kind && known.number != 0 && NumberOf(target) == known.number;
}

/// Servers may give a file another number under each spelling. There the same name but for case is taken, or
/// what alone is of that kind, size and time, for what alone is so in the source.
const Entry* NameTwins::MatchWithoutNumbers(const Entry& source, const Entry& known) {
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
  return others == 1 && IsAlone(source) && !IsListedNow(source.name) ? found : nullptr;
}

bool NameTwins::IsAlone(const Entry& source) const {
  return std::count_if(wanted_.begin(), wanted_.end(), [&](const Entry* entry) {
           return entry->kind == source.kind && entry->size == source.size &&
                  entry->modified == source.modified;
         }) == 1;
}

/// Listings may tell no numbers of folders.
std::uint64_t NameTwins::NumberOf(const Entry& target) {
  if (target.number != 0 || !IsFolder(target.kind)) return target.number;
  const auto [place, is_new] = numbers_.try_emplace(&target);
  if (!is_new) return place->second;
  const auto known = files_.Stat(platform::JoinPath(target_.path(), target.name));
  return place->second = known ? known->number : 0;
}

/// Somebody may have made it since the folder was listed; then it is nobody's other spelling.
bool NameTwins::IsListedNow(const std::string& name) {
  const auto now = files_.OpenFolder(target_.path());
  return !now || std::any_of((*now)->entries().begin(), (*now)->entries().end(),
                             [&](const Entry& entry) { return entry.name == name; });
}

}  // namespace engine

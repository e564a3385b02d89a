#include "engine/target/target_root.h"

#include <algorithm>

#include "base/utf8.h"

namespace engine {

void TargetRoot::TakeSpelling(const std::string& folder, const platform::Entry& copy,
                              const std::string& name) {
  if (copy.name == name || keeps_spelling_ == false) return;
  if (base::utf8::ToLower(copy.name) != base::utf8::ToLower(name)) return;
  // It is the copy, however its name is spelled.
  if (files_.Respell(folder, copy.name, name) && !keeps_spelling_)
    keeps_spelling_ = KeepsSpelling(folder, name);
}

bool TargetRoot::KeepsSpelling(const std::string& folder, const std::string& name) {
  const auto now = files_.OpenFolder(folder);
  return !now || std::any_of((*now)->entries().begin(), (*now)->entries().end(),
                             [&](const platform::Entry& entry) { return entry.name == name; });
}

}  // namespace engine

#pragma once

#include <string>
#include <unordered_map>

#include "base/utf8.h"

namespace engine {

/// Finds names that differ from one another only in case: a volume that does not heed case, such as a stick,
/// takes them for one.
class FirstSpellings {
 public:
  /// The first name asked about that is this one but for case; it may be this one.
  const std::string& Of(const std::string& name) {
    return first_.try_emplace(base::utf8::ToLower(name), name).first->second;
  }

 private:
  std::unordered_map<std::string, std::string> first_;
};

}  // namespace engine

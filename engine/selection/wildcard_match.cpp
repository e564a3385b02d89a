#include "engine/selection/wildcard_match.h"

#include <algorithm>

#include "base/utf8.h"

namespace engine {
namespace {

using base::utf8::First;

/// Walks both texts once; on a mismatch the last "*" takes one character more. Never worse than their
/// product.
bool Match(std::string_view text, std::string_view pattern) {
  std::string_view text_behind_star;
  std::string_view pattern_behind_star;
  bool seen_star = false;
  while (!text.empty()) {
    const std::string_view character = First(text);
    const std::string_view wanted = First(pattern);
    if (wanted == "*") {
      seen_star = true;
      pattern_behind_star = pattern = pattern.substr(1);
      text_behind_star = text;
    } else if (wanted == "?" || wanted == character) {
      text.remove_prefix(character.size());
      pattern.remove_prefix(wanted.size());
    } else if (seen_star) {
      text_behind_star.remove_prefix(First(text_behind_star).size());
      text = text_behind_star;
      pattern = pattern_behind_star;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*') == std::string_view::npos;
}

}  // namespace

std::string NormaliseForMatch(std::string_view text) {
  std::string result = base::utf8::ToLower(text);
  std::replace(result.begin(), result.end(), '\\', '/');
  // At the end of a word Greek has a small letter of its own for the same capital one.
  constexpr std::string_view kAtEnd = "\u03C2";
  for (std::size_t at = result.find(kAtEnd); at != std::string::npos; at = result.find(kAtEnd, at))
    result.replace(at, kAtEnd.size(), "\u03C3");
  return result;
}

bool WildcardMatch(std::string_view text, std::string_view pattern, bool case_sensitive) {
  if (text == pattern) return true;
  if (case_sensitive) return Match(text, pattern);
  return Match(NormaliseForMatch(text), NormaliseForMatch(pattern));
}

}  // namespace engine

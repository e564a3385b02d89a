#include "app/main_window/filter_text.h"

#include <algorithm>

#include "base/utf8.h"

namespace app {
namespace {

using base::utf8::First;

bool Holds(std::string_view set, std::string_view character) {
  while (!set.empty()) {
    const std::string_view next = First(set);
    if (next == character) return true;
    set.remove_prefix(next.size());
  }
  return false;
}

}  // namespace

const std::string_view kExtensionLetters = "abcdefghijklmnopqrstuvwxyzšœÿàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþß";

int FindFirstNotIn(std::string_view text, int start, std::string_view set) {
  if (text.empty()) return 0;
  if (set.empty()) return 1;
  const int first = std::max(start, 1);
  text.remove_prefix(base::utf8::OffsetOf(text, static_cast<std::size_t>(first - 1)));
  for (int position = first; !text.empty(); ++position) {
    const std::string_view character = First(text);
    if (!Holds(set, character)) return position;
    text.remove_prefix(character.size());
  }
  return 0;
}

std::string KeepOnlyCharacters(std::string_view text, bool allow_blank, std::string_view extra) {
  std::string allowed(kExtensionLetters);
  allowed += extra;
  if (allow_blank) allowed += ' ';
  std::string kept;
  while (const int at = FindFirstNotIn(text, 1, allowed)) {
    const std::size_t offset = base::utf8::OffsetOf(text, static_cast<std::size_t>(at - 1));
    kept += text.substr(0, offset);
    text.remove_prefix(offset);
    text.remove_prefix(First(text).size());
  }
  kept += text;
  return kept;
}

bool IsOnlyStars(std::string_view text) { return !text.empty() && FindFirstNotIn(text, 1, "*") == 0; }

}  // namespace app

#include "ui/win32/wide_text.h"

#include <algorithm>

#include "base/utf8.h"
#include "ui/caption.h"

namespace ui::win32 {

std::wstring ToWide(std::string_view text) {
  std::wstring result = base::Widen(text);
  std::replace(result.begin(), result.end(), L'\0', L'\xFFFD');  // else the system would see the text's end
  return result;
}

std::wstring ToCaption(std::string_view text, char access_key) {
  return ToWide(MarkAccessKey(text, access_key));
}

std::size_t UnitsOf(std::string_view text, std::size_t characters) {
  return ToWide(text.substr(0, base::utf8::OffsetOf(text, characters))).size();
}

std::size_t CharactersOf(std::string_view text, std::size_t units) {
  std::size_t characters = 0;
  for (std::size_t passed = 0; passed < units && !text.empty(); ++characters) {
    const std::string_view character = base::utf8::First(text);
    passed += ToWide(character).size();
    text.remove_prefix(character.size());
  }
  return characters;
}

}  // namespace ui::win32

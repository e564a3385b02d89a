#include "platform/windows/wide_text.h"

#include "base/utf16.h"

namespace platform::windows {

std::wstring Widen(std::string_view text) {
  const std::u16string units = base::utf16::FromUtf8(text);
  return {units.begin(), units.end()};
}

std::string Narrow(std::wstring_view text) {
  return base::utf16::ToUtf8(std::u16string(text.begin(), text.end()));
}

}  // namespace platform::windows

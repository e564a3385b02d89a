#include "base/letter_case.h"

#include <windows.h>

namespace base {

char32_t LowerOf(char32_t character) {
  const auto code = static_cast<unsigned>(character);
  const bool is_pair = code >= 0x10000;
  if (code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return character;
  const wchar_t units[2] = {static_cast<wchar_t>(is_pair ? 0xD7C0 + (code >> 10) : code),
                            static_cast<wchar_t>(0xDC00 + (code & 0x3FF))};
  wchar_t lower[2] = {};
  const int length = is_pair ? 2 : 1;
  if (::LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_LOWERCASE, units, length, lower, length, nullptr, nullptr,
                      0) != length)
    return character;
  if (!is_pair) return static_cast<char32_t>(lower[0]);
  return static_cast<char32_t>(0x10000 + ((static_cast<unsigned>(lower[0]) - 0xD800) << 10) +
                               (static_cast<unsigned>(lower[1]) - 0xDC00));
}

}  // namespace base

#include "base/letter_case.h"

#include <locale.h>
#include <clocale>
#include <cwctype>
#include <initializer_list>

namespace base {
namespace {

/// The C library's characters are Unicode's (ISO 10646), whatever the user's language; only the table of
/// their cases comes with a locale. Null where not even this one is there.
locale_t Table() {
  static const locale_t table = [] {
    for (const char* name : {"C.UTF-8", "en_US.UTF-8", ""}) {
      if (const locale_t found = newlocale(LC_CTYPE_MASK, name, nullptr)) return found;
    }
    return locale_t{};
  }();
  return table;
}

}  // namespace

char32_t LowerOf(char32_t character) {
  const locale_t table = Table();
  return table ? static_cast<char32_t>(towlower_l(static_cast<wint_t>(character), table)) : character;
}

}  // namespace base

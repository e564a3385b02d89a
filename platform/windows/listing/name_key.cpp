#include "platform/windows/listing/name_key.h"

#include <algorithm>

#include "base/utf8.h"
#include "base/wide_text.h"
#include "platform/windows/windows_api.h"

namespace platform::windows {

std::string NameKeyOf(const std::string& name) {
  // By far the most, and many at a time.
  if (std::ranges::all_of(name, [](char c) { return c >= 0; })) return base::utf8::ToUpper(name);
  // Without a linguistic flag each 16-bit unit is mapped by itself, as the file system's own table does.
  const std::wstring wide = base::Widen(name);
  std::wstring upper(wide.size(), L'\0');
  const int length =
      ::LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, wide.data(), static_cast<int>(wide.size()),
                      upper.data(), static_cast<int>(upper.size()), nullptr, nullptr, 0);
  if (length <= 0) return base::utf8::ToUpper(name);
  upper.resize(static_cast<std::size_t>(length));
  return base::Narrow(upper);
}

}  // namespace platform::windows

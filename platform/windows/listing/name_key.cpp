#include "platform/windows/listing/name_key.h"

#include "base/wide_text.h"
#include "platform/windows/windows_api.h"

namespace platform::windows {
namespace {

/// False for a name with other letters than those of ASCII.
bool UpperAscii(std::string& name) {
  unsigned seen = 0;
  for (char& c : name) {
    seen |= static_cast<unsigned char>(c);
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return seen < 0x80;
}

}  // namespace

std::string NameKeyOf(const std::string& name) {
  std::string key = name;
  if (UpperAscii(key)) return key;
  // Without a linguistic flag each 16-bit unit is mapped by itself, as the file system's own table does.
  const std::wstring wide = base::Widen(name);
  std::wstring upper(wide.size(), L'\0');
  const int length =
      ::LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, wide.data(), static_cast<int>(wide.size()),
                      upper.data(), static_cast<int>(upper.size()), nullptr, nullptr, 0);
  if (length <= 0) return key;
  upper.resize(static_cast<std::size_t>(length));
  return base::Narrow(upper);
}

}  // namespace platform::windows

#include "platform/windows/volume.h"

#include <string_view>

#include "platform/windows/handle.h"

namespace platform::windows {

bool IsOnFat(const std::wstring& folder) {
  wchar_t root[MAX_PATH + 1];
  wchar_t format[MAX_PATH + 1];
  return ::GetVolumePathNameW(folder.c_str(), root, ARRAYSIZE(root)) &&
         ::GetVolumeInformationW(root, nullptr, 0, nullptr, nullptr, nullptr, format, ARRAYSIZE(format)) &&
         std::wstring_view(format).starts_with(L"FAT");
}

}  // namespace platform::windows

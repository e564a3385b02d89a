#include "platform/windows/volume.h"

#include <string_view>

#include "platform/windows/open_file.h"

namespace platform::windows {
namespace {

bool IsRemote(const std::wstring& path) {
  wchar_t root[MAX_PATH + 1];
  return path.starts_with(L"\\\\?\\UNC\\") ||
         (::GetVolumePathNameW(path.c_str(), root, ARRAYSIZE(root)) && ::GetDriveTypeW(root) == DRIVE_REMOTE);
}

std::wstring DeviceOf(const FileHandle& folder) {
  const std::wstring path = FinalPath(folder, FILE_NAME_OPENED | VOLUME_NAME_GUID);
  const std::size_t end = path.find(L'}');
  return end == std::wstring::npos ? std::wstring() : path.substr(0, end + 1);
}

}  // namespace

Volume VolumeOf(const std::wstring& folder) {
  Volume volume;
  const FileHandle file = OpenForAttributes(folder);
  const std::wstring path = file ? FinalPath(file, FILE_NAME_OPENED | VOLUME_NAME_DOS) : std::wstring();
  volume.is_remote = IsRemote(path.empty() ? folder : path);
  if (!file) return volume;
  wchar_t format[MAX_PATH + 1];
  if (::GetVolumeInformationByHandleW(file.get(), nullptr, 0, nullptr, nullptr, nullptr, format,
                                      ARRAYSIZE(format))) {
    const std::wstring_view name(format);
    volume.is_journaled = name == L"NTFS" || name == L"ReFS";
    volume.is_fat = name.starts_with(L"FAT");
  }
  volume.number = VolumeNumberOf(file);
  volume.device = DeviceOf(file);
  return volume;
}

DWORD VolumeNumberOf(const FileHandle& file) {
  BY_HANDLE_FILE_INFORMATION info{};
  return ::GetFileInformationByHandle(file.get(), &info) ? info.dwVolumeSerialNumber : 0;
}

bool IsOnFat(const std::wstring& folder) {
  wchar_t root[MAX_PATH + 1];
  wchar_t format[MAX_PATH + 1];
  return ::GetVolumePathNameW(folder.c_str(), root, ARRAYSIZE(root)) &&
         ::GetVolumeInformationW(root, nullptr, 0, nullptr, nullptr, nullptr, format, ARRAYSIZE(format)) &&
         std::wstring_view(format).starts_with(L"FAT");
}

}  // namespace platform::windows

#include "platform/windows/volume/volume.h"

#include <string_view>

#include "platform/windows/open_file.h"
// After the others: it needs the types of windows_api.h.
#include <winioctl.h>

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

DWORD VolumeNumberOf(const FileHandle& file) { return InfoOf(file).dwVolumeSerialNumber; }

std::vector<std::string> DisksOfVolume(const std::wstring& folder) {
  constexpr std::size_t kMostExtents = 64;  // a volume in more parts is told by no part
  const std::wstring device = VolumeOf(folder).device;
  const FileHandle volume(::CreateFileW(device.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
  std::vector<std::string> disks;
  if (device.empty() || !volume) return disks;
  alignas(VOLUME_DISK_EXTENTS) char bytes[sizeof(VOLUME_DISK_EXTENTS) + kMostExtents * sizeof(DISK_EXTENT)];
  DWORD got = 0;
  if (!::DeviceIoControl(volume.get(), IOCTL_VOLUME_GET_VOLUME_DISK_EXTENTS, nullptr, 0, bytes, sizeof bytes,
                         &got, nullptr)) {
    return disks;
  }
  const auto& found = *reinterpret_cast<const VOLUME_DISK_EXTENTS*>(bytes);
  for (DWORD i = 0; i < found.NumberOfDiskExtents; ++i)
    disks.push_back(std::to_string(found.Extents[i].DiskNumber));
  return disks;
}

bool IsOnFat(const std::wstring& folder) {
  wchar_t root[MAX_PATH + 1];
  wchar_t format[MAX_PATH + 1];
  return ::GetVolumePathNameW(folder.c_str(), root, ARRAYSIZE(root)) &&
         ::GetVolumeInformationW(root, nullptr, 0, nullptr, nullptr, nullptr, format, ARRAYSIZE(format)) &&
         std::wstring_view(format).starts_with(L"FAT");
}

}  // namespace platform::windows

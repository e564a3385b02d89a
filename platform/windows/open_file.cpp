#include "platform/windows/open_file.h"

#include "platform/windows/system_error.h"

namespace platform::windows {

FileHandle OpenForAttributes(const std::wstring& long_path, DWORD access) {
  // Without the flag only files can be opened.
  return FileHandle(::CreateFileW(long_path.c_str(), access, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

FileHandle OpenLinkForAttributes(const std::wstring& long_path, DWORD access) {
  return FileHandle(::CreateFileW(long_path.c_str(), access, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
}

Result<std::size_t> ReadSome(const FileHandle& file, char* room, std::size_t size) {
  DWORD got = 0;
  if (!::ReadFile(file.get(), room, static_cast<DWORD>(size), &got, nullptr)) return LastError();
  return std::size_t{got};
}

Status WriteAll(const FileHandle& file, const char* data, std::size_t size) {
  DWORD written = 0;
  if (!::WriteFile(file.get(), data, static_cast<DWORD>(size), &written, nullptr)) return LastError();
  if (written != size) return SystemError(ERROR_DISK_FULL);
  return Done{};
}

std::wstring FinalPath(const FileHandle& file, DWORD flags) {
  std::wstring path(kLongestPath, L'\0');
  path.resize(::GetFinalPathNameByHandleW(file.get(), path.data(), kLongestPath, flags));
  return path;
}

BY_HANDLE_FILE_INFORMATION InfoOf(const FileHandle& file) {
  BY_HANDLE_FILE_INFORMATION info{};
  return ::GetFileInformationByHandle(file.get(), &info) ? info : BY_HANDLE_FILE_INFORMATION{};
}

std::uint64_t NumberOf(const BY_HANDLE_FILE_INFORMATION& info) {
  return (std::uint64_t{info.nFileIndexHigh} << 32) | info.nFileIndexLow;
}

std::optional<Identity> IdentityOf(const BY_HANDLE_FILE_INFORMATION& info) {
  if (NumberOf(info) == 0) return std::nullopt;
  return Identity{info.dwVolumeSerialNumber, NumberOf(info)};
}

Result<FILE_BASIC_INFO> BasicInfo(const FileHandle& file) {
  FILE_BASIC_INFO info{};
  if (!::GetFileInformationByHandleEx(file.get(), FileBasicInfo, &info, sizeof info)) return LastError();
  return info;
}

}  // namespace platform::windows

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

std::wstring FinalPath(const FileHandle& file, DWORD flags) {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        ::GetFinalPathNameByHandleW(file.get(), path.data(), static_cast<DWORD>(path.size()), flags);
    const bool fits = length < path.size();
    path.resize(length);
    if (fits) return path;
  }
}

std::uint64_t NumberOf(const BY_HANDLE_FILE_INFORMATION& info) {
  return (std::uint64_t{info.nFileIndexHigh} << 32) | info.nFileIndexLow;
}

std::optional<Identity> IdentityOf(const FileHandle& file) {
  BY_HANDLE_FILE_INFORMATION info{};
  if (!::GetFileInformationByHandle(file.get(), &info) || NumberOf(info) == 0) return std::nullopt;
  return Identity{info.dwVolumeSerialNumber, NumberOf(info)};
}

Result<FILE_BASIC_INFO> BasicInfo(const FileHandle& file) {
  FILE_BASIC_INFO info{};
  if (!::GetFileInformationByHandleEx(file.get(), FileBasicInfo, &info, sizeof info)) return LastError();
  return info;
}

}  // namespace platform::windows

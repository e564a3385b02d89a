#include "platform/windows/open_file.h"

#include "platform/windows/system_error.h"

namespace platform::windows {

FileHandle OpenForAttributes(const std::wstring& long_path, DWORD access) {
  // Without the flag only files can be opened.
  return FileHandle(::CreateFileW(long_path.c_str(), access, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

Result<FILE_BASIC_INFO> BasicInfo(const FileHandle& file) {
  FILE_BASIC_INFO info{};
  if (!::GetFileInformationByHandleEx(file.get(), FileBasicInfo, &info, sizeof info)) return LastError();
  return info;
}

}  // namespace platform::windows

#include "platform/windows/whole_file.h"

#include "platform/windows/open_file.h"
#include "platform/windows/system_error.h"

namespace platform::windows {

Result<std::string> ReadContent(const std::wstring& long_path, std::int64_t limit) {
  constexpr std::size_t kStep = 64 * 1024;
  const FileHandle file(::CreateFileW(long_path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!file) return FileError(long_path, ::GetLastError());
  std::string content;
  for (;;) {
    const std::size_t before = content.size();
    content.resize(before + kStep);
    DWORD got = 0;
    if (!::ReadFile(file.get(), content.data() + before, kStep, &got, nullptr)) return LastError();
    content.resize(before + got);
    if (static_cast<std::int64_t>(content.size()) > limit) return SystemError(ERROR_FILE_TOO_LARGE);
    if (got == 0) return content;
  }
}

namespace {

FileHandle OpenForWriting(const std::wstring& long_path, DWORD which, DWORD flags) {
  return FileHandle(::CreateFileW(long_path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, which,
                                  FILE_ATTRIBUTE_NORMAL | flags, nullptr));
}

Status WriteAll(const FileHandle& file, const std::string& content) {
  DWORD written = 0;
  if (!::WriteFile(file.get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr)) {
    return LastError();
  }
  if (written != content.size()) return SystemError(ERROR_DISK_FULL);
  return Done{};
}

}  // namespace

Status WriteNewContent(const std::wstring& long_path, const std::string& content) {
  // Without the flag a link that leads nowhere would be followed to where a file can be made.
  FileHandle file = OpenForWriting(long_path, CREATE_NEW, FILE_FLAG_OPEN_REPARSE_POINT);
  if (!file) return LastError();
  Status written = WriteAll(file, content);
  file.Reset();
  if (!written) ::DeleteFileW(long_path.c_str());
  return written;
}

Status WriteContent(const std::wstring& long_path, const std::string& content) {
  // CREATE_ALWAYS would refuse an existing file that is hidden or a system file.
  const FileHandle file = OpenForWriting(long_path, OPEN_ALWAYS, 0);
  if (!file) return FileError(long_path, ::GetLastError());
  if (!::SetEndOfFile(file.get())) return LastError();
  return WriteAll(file, content);
}

}  // namespace platform::windows

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
    const auto got = ReadSome(file, content.data() + before, kStep);
    if (!got) return got.error();
    content.resize(before + *got);
    if (static_cast<std::int64_t>(content.size()) > limit) return SystemError(ERROR_FILE_TOO_LARGE);
    if (*got == 0) return content;
  }
}

namespace {

FileHandle OpenForWriting(const std::wstring& long_path, DWORD which, DWORD flags) {
  return FileHandle(::CreateFileW(long_path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, which,
                                  FILE_ATTRIBUTE_NORMAL | flags, nullptr));
}

}  // namespace

Status WriteNewContent(const std::wstring& long_path, const std::string& content) {
  // Without the flag a link that leads nowhere would be followed to where a file can be made.
  FileHandle file = OpenForWriting(long_path, CREATE_NEW, FILE_FLAG_OPEN_REPARSE_POINT);
  if (!file) return LastError();
  Status written = WriteAll(file, content.data(), content.size());
  file.Reset();
  if (!written) ::DeleteFileW(long_path.c_str());
  return written;
}

Status WriteContent(const std::wstring& long_path, const std::string& content) {
  // CREATE_ALWAYS would refuse an existing file that is hidden or a system file.
  const FileHandle file = OpenForWriting(long_path, OPEN_ALWAYS, 0);
  if (!file) return FileError(long_path, ::GetLastError());
  if (!::SetEndOfFile(file.get())) return LastError();
  return WriteAll(file, content.data(), content.size());
}

}  // namespace platform::windows

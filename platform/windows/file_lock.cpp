#include "platform/windows/file_lock.h"

#include <utility>

#include "platform/windows/handle.h"
#include "platform/windows/system_error.h"
#include "platform/windows/whole_file.h"

namespace platform::windows {
namespace {

constexpr std::int64_t kLongestContent = 1024;

/// The system removes the file with the last handle, also when it is a dead program's.
class WindowsLock : public FileLock {
 public:
  explicit WindowsLock(FileHandle file) : file_(std::move(file)) {}

 private:
  FileHandle file_;
};

/// False also where others only read the file, such as a virus scanner.
bool IsOpenForWriting(const std::wstring& long_path) {
  const FileHandle file(
      ::CreateFileW(long_path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  return !file && ::GetLastError() == ERROR_SHARING_VIOLATION;
}

Error WhyNotMine(const std::wstring& long_path, DWORD code) {
  if (!IsOneOf(code, {ERROR_SHARING_VIOLATION, ERROR_FILE_EXISTS})) return SystemError(code);
  if (!IsOpenForWriting(long_path)) return SystemError(ERROR_ACCESS_DENIED);
  const auto content = ReadContent(long_path, kLongestContent);
  return {ErrorKind::kInUse, static_cast<int>(code), content ? *content : std::string()};
}

/// What was left by a program on another system, or by this computer when its power failed. The file of a
/// living program cannot be removed.
Status RemoveDead(const std::wstring& long_path) {
  const DWORD attributes = ::GetFileAttributesW(long_path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return Done{};
  if ((attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) != 0)
    return SystemError(ERROR_ALREADY_EXISTS);
  if (::DeleteFileW(long_path.c_str())) return Done{};
  const DWORD code = ::GetLastError();
  return code == ERROR_FILE_NOT_FOUND ? Status(Done{}) : WhyNotMine(long_path, code);
}

}  // namespace

Result<std::unique_ptr<FileLock>> LockAt(const std::wstring& long_path, const std::string& content) {
  if (const Status removed = RemoveDead(long_path); !removed) return removed.error();
  FileHandle file(::CreateFileW(long_path.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr,
                                CREATE_NEW, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
  if (!file) return WhyNotMine(long_path, ::GetLastError());
  DWORD written = 0;
  ::WriteFile(file.get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
  return std::unique_ptr<FileLock>(std::make_unique<WindowsLock>(std::move(file)));
}

}  // namespace platform::windows

#include "platform/windows/copy/temporary_file.h"

#include <cstring>
#include <utility>
#include <vector>

#include "base/wide_text.h"
#include "platform/file_system.h"
#include "platform/windows/copy/rename.h"
#include "platform/windows/open_file.h"
#include "platform/windows/system_error.h"
#include "platform/windows/windows_time.h"

namespace platform::windows {
namespace {

FileHandle OpenOrMake(const std::wstring& path, DWORD which) {
  return FileHandle(::CreateFileW(path.c_str(), GENERIC_WRITE | FILE_READ_ATTRIBUTES | DELETE,
                                  FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, which, FILE_ATTRIBUTE_ARCHIVE,
                                  nullptr));
}

}  // namespace

Result<TemporaryFile> TemporaryFile::Create(const std::wstring& folder) {
  TemporaryFile result = Reserve(folder);
  result.file_ = OpenOrMake(result.path_, CREATE_NEW);
  if (result.file_) return result;
  const DWORD code = ::GetLastError();
  result.path_.clear();
  return SystemError(code);
}

TemporaryFile TemporaryFile::Reserve(const std::wstring& folder) {
  return TemporaryFile(folder + base::Widen(MakeTemporaryName()));
}

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept
    : path_(std::exchange(other.path_, {})), file_(std::move(other.file_)) {}

TemporaryFile::~TemporaryFile() {
  file_.Reset();
  if (path_.empty()) return;
  if (::DeleteFileW(path_.c_str()) || ::GetLastError() != ERROR_ACCESS_DENIED) return;
  // The system's own copy may have carried the read-only bit over already.
  ::SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
  ::DeleteFileW(path_.c_str());
}

Status TemporaryFile::Open() {
  const DWORD attributes = ::GetFileAttributesW(path_.c_str());
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {  // also INVALID_FILE_ATTRIBUTES, when opening fails, too
    ::SetFileAttributesW(path_.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
  }
  file_ = OpenOrMake(path_, OPEN_EXISTING);
  if (!file_) return LastError();
  return Done{};
}

Status TemporaryFile::Write(const char* data, std::size_t size) { return WriteAll(file_, data, size); }

Result<std::int64_t> TemporaryFile::GoToEnd() {
  LARGE_INTEGER end{};
  if (!::SetFilePointerEx(file_.get(), LARGE_INTEGER{}, &end, FILE_END)) return LastError();
  return std::int64_t{end.QuadPart};
}

Status TemporaryFile::Publish(const std::wstring& final_path, TargetName listed) {
  const Status renamed = Rename(file_, path_, final_path, listed);
  if (renamed) path_.clear();
  return renamed;
}

Status TemporaryFile::Reopen(const std::wstring& final_path) {
  file_ = OpenOrMake(final_path, OPEN_EXISTING);
  if (!file_) return LastError();
  return Done{};
}

void TemporaryFile::DateBirth() const {
  const FILETIME now = SystemTime();
  if (file_) ::SetFileTime(file_.get(), &now, nullptr, nullptr);
}

}  // namespace platform::windows

#include "platform/windows/source_file.h"

#include <utility>

#include "platform/windows/open_file.h"
#include "platform/windows/system_error.h"

namespace platform::windows {

Result<SourceFile> SourceFile::Open(const std::wstring& long_path) {
  SourceFile result;
  result.file_ = FileHandle(::CreateFileW(long_path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                          FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!result.file_) return FileError(long_path, ::GetLastError());
  if (const Status known = result.Refresh(); !known) return known.error();
  return result;
}

Status SourceFile::Refresh() {
  const auto info = BasicInfo(file_);
  if (!info) return info.error();
  info_ = *info;
  return Done{};
}

bool SourceFile::IsMoreThanBytes() const {
  if ((info_.FileAttributes & (FILE_ATTRIBUTE_SPARSE_FILE | FILE_ATTRIBUTE_ENCRYPTED)) != 0) return true;
  // Room for the one unnamed stream that every file has; a file system without streams knows no answer.
  alignas(FILE_STREAM_INFO) char buffer[sizeof(FILE_STREAM_INFO) + 32];
  if (!::GetFileInformationByHandleEx(file_.get(), FileStreamInfo, buffer, sizeof buffer)) {
    return ::GetLastError() == ERROR_MORE_DATA;
  }
  return reinterpret_cast<const FILE_STREAM_INFO*>(buffer)->NextEntryOffset != 0;
}

Result<std::size_t> SourceFile::Read(char* buffer, std::size_t size) {
  DWORD got = 0;
  if (!::ReadFile(file_.get(), buffer, static_cast<DWORD>(size), &got, nullptr)) return LastError();
  return std::size_t{got};
}

}  // namespace platform::windows

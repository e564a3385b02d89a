#include "platform/windows/system_copy.h"

#include <algorithm>

#include "platform/windows/system_error.h"

namespace platform::windows {
namespace {

struct Progress {
  const CopyWatcher& watcher;
  bool was_told = false;
};

DWORD CALLBACK OnProgress(LARGE_INTEGER, LARGE_INTEGER transferred, LARGE_INTEGER, LARGE_INTEGER, DWORD,
                          DWORD, HANDLE, HANDLE, LPVOID data) {
  auto& progress = *static_cast<Progress*>(data);
  progress.was_told = true;
  const bool goes_on = !progress.watcher || progress.watcher(transferred.QuadPart);
  return goes_on ? PROGRESS_CONTINUE : PROGRESS_CANCEL;
}

std::int64_t SizeOf(const std::wstring& path) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (!::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) return 0;
  return (std::int64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow;
}

}  // namespace

Result<TemporaryFile> CopyBySystem(const std::wstring& source_path, const std::wstring& target_folder,
                                   const CopyWatcher& watcher, std::int64_t& bytes) {
  if (watcher && !watcher(0)) return SystemError(ERROR_CANCELLED);
  const std::int64_t size_before = SizeOf(source_path);
  TemporaryFile copy = TemporaryFile::Reserve(target_folder);
  Progress progress{watcher};
  if (!::CopyFileExW(source_path.c_str(), copy.path().c_str(), OnProgress, &progress, nullptr,
                     COPY_FILE_FAIL_IF_EXISTS)) {
    return FileError(source_path, ::GetLastError());
  }
  if (const Status opened = copy.Open(); !opened) return opened.error();
  bytes = SizeOf(copy.path());
  // A file that shrank or grew meanwhile has a copy of some length between.
  if (bytes < std::min(size_before, SizeOf(source_path))) return SystemError(ERROR_HANDLE_EOF);
  // Wine never tells about progress: then this is the first chance to stop.
  if (!progress.was_told && watcher && !watcher(bytes)) return SystemError(ERROR_CANCELLED);
  return copy;
}

}  // namespace platform::windows

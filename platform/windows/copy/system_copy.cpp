#include "platform/windows/copy/system_copy.h"

#include "platform/windows/native_api.h"
#include "platform/windows/system_error.h"

namespace platform::windows {
namespace {

DWORD CALLBACK OnProgress(LARGE_INTEGER, LARGE_INTEGER transferred, LARGE_INTEGER, LARGE_INTEGER, DWORD,
                          DWORD, HANDLE, HANDLE, LPVOID progress) {
  const bool goes_on = static_cast<Progress*>(progress)->MayGoOn(transferred.QuadPart);
  return goes_on ? PROGRESS_CONTINUE : PROGRESS_CANCEL;
}

}  // namespace

bool SystemCopyTellsProgress() {
  static const bool is_wine = FindNative<const char* (*)()>("wine_get_version") != nullptr;
  return !is_wine;
}

Result<TemporaryFile> CopyBySystem(const std::wstring& source_path, const std::wstring& target_folder,
                                   Progress& progress) {
  if (!progress.MayGoOn(0)) return SystemError(ERROR_CANCELLED);
  TemporaryFile copy = TemporaryFile::Reserve(target_folder);
  if (!::CopyFileExW(source_path.c_str(), copy.path().c_str(), OnProgress, &progress, nullptr,
                     COPY_FILE_FAIL_IF_EXISTS)) {
    const DWORD code = ::GetLastError();
    Error error = FileError(source_path, code);
    if (IsOneOf(code, {ERROR_CRC, ERROR_SECTOR_NOT_FOUND, ERROR_READ_FAULT})) error.kind = ErrorKind::kShort;
    return error;
  }
  if (const Status opened = copy.Open(); !opened) return opened.error();
  return copy;
}

}  // namespace platform::windows

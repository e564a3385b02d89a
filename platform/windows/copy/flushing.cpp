#include "platform/windows/copy/flushing.h"

#include "platform/windows/copy/temporary_file.h"
#include "platform/windows/native_api.h"
#include "platform/windows/system_error.h"
#include "platform/windows/volume/volume.h"

namespace platform::windows {
namespace {

/// ntifs.h: write the file out, but do not make the disk empty its cache for it.
constexpr ULONG kNoSync = 2;

/// In the system since Windows 8.
using FlushEx = LONG(WINAPI*)(HANDLE, ULONG flags, void* parameters, ULONG size, IO_STATUS_BLOCK*);

bool KnowsNoFlushing(DWORD code) {
  return IsOneOf(code, {ERROR_INVALID_FUNCTION, ERROR_NOT_SUPPORTED, ERROR_CALL_NOT_IMPLEMENTED});
}

/// A file that is made now comes to the disk after all that a journal has about others. On a full disk there
/// is no room for it; the data of the copies is on the disk all the same.
Status FlushNewFile(const std::wstring& folder) {
  const auto unless_full = [](const Status& status) {
    return !status && status.error().kind == ErrorKind::kDiskFull ? Status(Done{}) : status;
  };
  auto file = TemporaryFile::Create(folder);
  if (!file) return unless_full(file.error());
  if (Status written = file->Write("", 1); !written) return unless_full(written);
  return FlushFully(file->file());
}

}  // namespace

FileHandle OpenVolume(const std::wstring& device) {
  if (device.empty()) return FileHandle();
  return FileHandle(::CreateFileW(device.c_str(), GENERIC_READ | GENERIC_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
}

bool FlushVolume(const std::wstring& device) {
  const FileHandle volume = OpenVolume(device);
  return volume && ::FlushFileBuffers(volume.get());
}

Status FlushFully(const FileHandle& file) {
  if (::FlushFileBuffers(file.get())) return Done{};
  const DWORD code = ::GetLastError();
  if (KnowsNoFlushing(code)) return Done{};
  return SystemError(code);
}

Status WriteOut(const FileHandle& file) {
  static const auto flush = FindNative<FlushEx>("NtFlushBuffersFileEx");
  IO_STATUS_BLOCK status{};
  if (flush != nullptr && flush(file.get(), kNoSync, nullptr, 0, &status) >= 0) return Done{};
  return FlushFully(file);
}

Status FlushVolumeOf(const std::wstring& folder) {
  return FlushVolume(VolumeOf(folder).device) ? Status(Done{}) : FlushNewFile(folder);
}

}  // namespace platform::windows

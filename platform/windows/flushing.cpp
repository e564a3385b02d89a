#include "platform/windows/recent_copies.h"

#include "platform/windows/windows_api.h"

// After windows_api.h: it needs its types.
#include <winternl.h>

#include <utility>

#include "platform/windows/long_path.h"
#include "platform/windows/open_file.h"
#include "platform/windows/system_error.h"
#include "platform/windows/wide_text.h"

namespace platform::windows {
namespace {

// Milliseconds.
constexpr std::uint64_t kMemory = 15'000;
constexpr std::uint64_t kPatience = 1'000;

/// ntifs.h: write the file out, but do not make the disk empty its cache for it.
constexpr ULONG kNoSync = 2;

using FlushEx = LONG(WINAPI*)(HANDLE, ULONG flags, void* parameters, ULONG size, IO_STATUS_BLOCK*);

/// In the system since Windows 8, but in no import library.
FlushEx FindFlushEx() {
  const HMODULE ntdll = ::GetModuleHandleW(L"ntdll.dll");
  const FARPROC call = ntdll != nullptr ? ::GetProcAddress(ntdll, "NtFlushBuffersFileEx") : nullptr;
  return reinterpret_cast<FlushEx>(reinterpret_cast<void*>(call));
}

bool WriteOut(HANDLE file) {
  static const FlushEx flush = FindFlushEx();
  IO_STATUS_BLOCK status{};
  return flush != nullptr && flush(file, kNoSync, nullptr, 0, &status) >= 0;
}

}  // namespace

void RecentCopies::Add(std::wstring long_path) {
  const std::uint64_t now = ::GetTickCount64();
  ForgetOld(now);
  copies_.push_back({now, std::move(long_path)});
}

void RecentCopies::ForgetOld(std::uint64_t now) {
  while (!copies_.empty() && now - copies_.front().when > kMemory) copies_.pop_front();
}

Status RecentCopies::Flush() {
  const std::uint64_t begin = ::GetTickCount64();
  DWORD code = 0;
  FileHandle newest;
  for (; !copies_.empty() && ::GetTickCount64() - begin < kPatience; copies_.pop_back()) {
    FileHandle file(::CreateFileW(copies_.back().path.c_str(), GENERIC_WRITE, kShareAll, nullptr,
                                  OPEN_EXISTING, 0, nullptr));
    if (!file) continue;
    if (!newest) {
      newest = std::move(file);
    } else if (!WriteOut(file.get()) && !::FlushFileBuffers(file.get())) {
      code = ::GetLastError();
    }
  }
  Forget();
  if (newest && !::FlushFileBuffers(newest.get())) code = ::GetLastError();
  if (code != 0) return SystemError(code);
  return Done{};
}

bool FlushVolume(const std::string& path) {
  const std::string drive = DriveOfPath(path);
  if (drive.size() != 2) return false;
  const FileHandle volume(::CreateFileW((L"\\\\.\\" + Widen(drive)).c_str(), GENERIC_READ | GENERIC_WRITE,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                        nullptr));
  return volume && ::FlushFileBuffers(volume.get());
}

}  // namespace platform::windows

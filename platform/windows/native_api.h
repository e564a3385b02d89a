#pragma once

#include "platform/windows/windows_api.h"

// After windows_api.h: it needs its types.
#include <winternl.h>

namespace platform::windows {

/// A call of ntdll, which is in no import library or not in all of them. Null where this system lacks it.
/// `Call` is the type of a pointer to it.
template <typename Call>
Call FindNative(const char* name) {
  const HMODULE ntdll = ::GetModuleHandleW(L"ntdll.dll");
  const FARPROC call = ntdll != nullptr ? ::GetProcAddress(ntdll, name) : nullptr;
  return reinterpret_cast<Call>(reinterpret_cast<void*>(call));
}

/// The number in winerror.h for what such a call gave back; 0 for a success.
inline DWORD ErrorOfStatus(LONG status) {
  static const auto translate = FindNative<ULONG(WINAPI*)(LONG)>("RtlNtStatusToDosError");
  if (status >= 0) return ERROR_SUCCESS;
  return translate != nullptr ? translate(status) : ERROR_NOT_SUPPORTED;
}

}  // namespace platform::windows

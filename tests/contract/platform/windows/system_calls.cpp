#include "tests/contract/platform/windows/system_calls.h"

// After windows_api.h: they need its types.
#include <aclapi.h>
#include <shellapi.h>
#include <winternl.h>

#include <algorithm>
#include <cstring>
#include <filesystem>

#include "base/wide_text.h"
#include "platform/windows/open_file.h"
#include "platform/windows/windows_time.h"

extern "C" NTSTATUS NTAPI LdrGetProcedureAddress(HMODULE, const STRING*, ULONG, void**);

namespace platform::windows::test {
namespace {

FARPROC WINAPI Found(HMODULE library, LPCSTR name) {
  void* found = nullptr;
  STRING text{};
  ::RtlInitAnsiString(&text, name);
  ::LdrGetProcedureAddress(library, &text, 0, &found);
  return reinterpret_cast<FARPROC>(found);
}

/// The name of a call, as part of a type.
template <std::size_t size>
struct Name {
  constexpr Name(const char (&from)[size]) { std::copy_n(from, size, text); }  // NOLINT(*-explicit-*)
  char text[size];
};

/// The system's own call, of the form of the one in its place.
template <Name name, typename Call>
Call Real(Call, const wchar_t* library = L"kernelbase") {
  static void* const real = reinterpret_cast<void*>(Found(::GetModuleHandleW(library), name.text));
  return reinterpret_cast<Call>(real);
}

void Note(const char* call) { Calls()->made += std::string(call) + " "; }

/// Whether a test wants the call to fail; the last error then says how.
bool Fails(const std::string& call) {
  const auto calls = Calls();
  const auto found = calls->fails.find(call);
  if (found != calls->fails.end()) ::SetLastError(found->second);
  return found != calls->fails.end();
}

bool Refused(DWORD code) {
  ::SetLastError(code);
  return false;
}

template <Name name, typename Answer, typename... Arguments>
Answer WINAPI OrFail(Arguments... arguments) {
  return Fails(name.text) ? Answer{} : Real<name>(&OrFail<name, Answer, Arguments...>)(arguments...);
}

/// As a listing or a search shows it.
void Show(const std::wstring& path, DWORD& attributes, DWORD& tag) {
  const auto calls = Calls();
  const auto found = calls->links.find(path);
  if (found != calls->links.end()) attributes |= FILE_ATTRIBUTE_REPARSE_POINT;
  tag = found != calls->links.end() ? found->second.tag
                                    : IO_REPARSE_TAG_SYMLINK;  // without the bit it means nothing
}

DWORD WINAPI AttributesOf(LPCWSTR path) {
  DWORD attributes = Real<"GetFileAttributesW">(&AttributesOf)(path), tag = 0;
  if (attributes != INVALID_FILE_ATTRIBUTES) Show(path, attributes, tag);
  return attributes;
}

/// Nothing for a link that leads nowhere.
std::wstring Followed(std::wstring path) {
  const auto calls = Calls();
  for (int links = 0; links < 9; ++links) {
    const auto link = calls->links.find(path);
    if (link == calls->links.end()) return path;
    path = link->second.target;
  }
  return {};
}

bool IsReadOnly(LPCWSTR path) {
  const DWORD attributes = AttributesOf(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

/// A volume that may be opened is the null device.
HANDLE WINAPI Create(LPCWSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security, DWORD which,
                     DWORD flags, HANDLE like) {
  std::wstring at = (flags & FILE_FLAG_OPEN_REPARSE_POINT) != 0 ? path : Followed(path);
  const bool is_volume = at.starts_with(L"\\\\?\\Volume{") && at.ends_with(L'}');
  if (is_volume && !Calls()->opens_volumes) return INVALID_HANDLE_VALUE;
  if (at.empty() && !Refused(ERROR_CANT_ACCESS_FILE)) return INVALID_HANDLE_VALUE;
  if ((flags & FILE_FLAG_NO_BUFFERING) != 0 && Fails("unbuffered")) return INVALID_HANDLE_VALUE;
  if ((access & GENERIC_WRITE) != 0 && IsReadOnly(at.c_str()) && !Refused(ERROR_ACCESS_DENIED))
    return INVALID_HANDLE_VALUE;
  return Real<"CreateFileW">(&Create)(is_volume ? L"NUL" : at.c_str(), access, share, security, which, flags,
                                      like);
}

BOOL WINAPI Delete(LPCWSTR path) {
  return IsReadOnly(path) ? Refused(ERROR_ACCESS_DENIED) : Real<"DeleteFileW">(&Delete)(path);
}

HANDLE WINAPI FindFirst(LPCWSTR path, FINDEX_INFO_LEVELS level, LPVOID data, FINDEX_SEARCH_OPS operation,
                        LPVOID filter, DWORD flags) {
  auto& found = *static_cast<WIN32_FIND_DATAW*>(data);
  if (Fails("FindFirstFileExW")) return INVALID_HANDLE_VALUE;
  const HANDLE search = Real<"FindFirstFileExW">(&FindFirst)(path, level, data, operation, filter, flags);
  if (search != INVALID_HANDLE_VALUE) Show(path, found.dwFileAttributes, found.dwReserved0);
  return search;
}

std::wstring PathOf(HANDLE file) {
  wchar_t path[1024] = {};
  return {path, ::GetFinalPathNameByHandleW(file, path, ARRAYSIZE(path), 0)};
}

/// Wine tells no tag.
BOOL WINAPI InfoOf(HANDLE file, FILE_INFO_BY_HANDLE_CLASS kind, LPVOID info, DWORD size) {
  const auto real = Real<"GetFileInformationByHandleEx">(&InfoOf);
  if (Fails("info " + std::to_string(kind))) return FALSE;
  if (kind == FileAttributeTagInfo) {
    auto& told = *static_cast<FILE_ATTRIBUTE_TAG_INFO*>(info);
    Show(PathOf(file), told.FileAttributes = FILE_ATTRIBUTE_NORMAL, told.ReparseTag);
    return TRUE;
  }
  if (kind == FileStreamInfo) return std::memset(info, 0, size) != nullptr;  // one stream
  if (!real(file, kind, info, size)) return FALSE;
  if (kind != FileIdBothDirectoryInfo && kind != FileIdBothDirectoryRestartInfo) return TRUE;
  for (auto* at = static_cast<char*>(info);;) {
    auto& entry = *reinterpret_cast<FILE_ID_BOTH_DIR_INFO*>(at);
    const std::wstring name(entry.FileName, entry.FileNameLength / sizeof(wchar_t));
    Show(PathOf(file) + L'\\' + name, entry.FileAttributes, entry.EaSize);
    if (entry.NextEntryOffset == 0) return TRUE;
    at += entry.NextEntryOffset;
  }
}

BOOL WINAPI Move(LPCWSTR from, LPCWSTR to, DWORD flags) {
  Note("move");
  return !Fails("move") && Real<"MoveFileExW">(&Move)(from, to, flags) && Calls()->links.erase(to) < 2;
}

BOOL WINAPI SetInfo(HANDLE file, FILE_INFO_BY_HANDLE_CLASS kind, LPVOID info, DWORD size) {
  return !Fails("set") && Real<"SetFileInformationByHandle">(&SetInfo)(file, kind, info, size);
}

/// Renames. Wine has the plain way only, which stands for the other one here. What takes the place of a link
/// is none.
LONG WINAPI SetNative(HANDLE file, IO_STATUS_BLOCK* status, FILE_RENAME_INFO* info, ULONG size, int kind) {
  constexpr int kPlain = 10;
  const char* call = kind == kPlain ? "rename" : "rename-ex";
  Note(call);
  if (Fails(call)) return static_cast<LONG>(0xC0010000 | ::GetLastError());
  if (kind != kPlain) info->Flags = info->Flags == 0x43 ? 1 : 0;
  const LONG renamed = Real<"NtSetInformationFile">(&SetNative, L"ntdll")(file, status, info, size, kPlain);
  const std::wstring name(info->FileName, info->FileNameLength / sizeof(wchar_t));
  if (renamed >= 0) Calls()->links.erase(L"\\\\?" + name.substr(3));
  return renamed;
}

BOOL WINAPI Flush(HANDLE file) {
  const DWORD type = ::GetFileType(file);
  const char* call = type == FILE_TYPE_CHAR ? "volume" : type == FILE_TYPE_DISK ? "flush" : "flush-nothing";
  Note(call);
  return !Fails(call);
}

LONG WINAPI WriteOut(HANDLE, ULONG, void*, ULONG, IO_STATUS_BLOCK*) {
  Note("write-out");
  return Fails("write-out") ? -1 : 0;
}

template <typename Call>
FARPROC Address(Call* call) {
  return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(call));
}

FARPROC WINAPI Find(HMODULE library, LPCSTR name) {
  if (name == std::string_view("wine_get_version")) return nullptr;  // this is Windows
  if (name == std::string_view("NtFlushBuffersFileEx")) return Address(&WriteOut);
  return name == std::string_view("NtSetInformationFile") ? Address(&SetNative) : Found(library, name);
}

/// As Windows does it: asks on the way, at half of the file.
BOOL WINAPI Copy(LPCWSTR from, LPCWSTR to, LPPROGRESS_ROUTINE progress, LPVOID data, LPBOOL stop,
                 DWORD flags) {
  Note("copy");
  if (Fails("copy") || !Real<"CopyFileExW">(&Copy)(from, to, nullptr, nullptr, stop, flags) ||
      Fails("copy-end"))
    return FALSE;
  LARGE_INTEGER half{};
  half.QuadPart = static_cast<std::int64_t>(std::filesystem::file_size(from) / 2);
  const DWORD answer = progress(half, half, half, half, 0, 0, nullptr, nullptr, data);
  return answer == PROGRESS_CONTINUE || Refused(ERROR_REQUEST_ABORTED);
}

/// A clock that stands still but for sleeps, once it is set.
void WINAPI TimeNow(FILETIME* now) {
  Real<"GetSystemTimeAsFileTime"> (&TimeNow)(now);
  if (Calls()->now) *now = ToSystem(FromTicks(*Calls()->now));
}

void WINAPI SleepFor(DWORD milliseconds) {
  if (!Calls()->now || milliseconds < 2)  // threads wait for each other so
    return Real<"Sleep">(&SleepFor)(milliseconds);
  Note("sleep");
  *Calls()->now += std::int64_t{milliseconds} * 10'000;
}

BOOL WINAPI FileInfo(HANDLE file, BY_HANDLE_FILE_INFORMATION* info) {
  if (!Real<"GetFileInformationByHandle">(&FileInfo)(file, info)) return FALSE;
  if (PathOf(file).find(Calls()->elsewhere) != std::wstring::npos) ++info->dwVolumeSerialNumber;
  return TRUE;
}

template <typename Place>
BOOL WINAPI FormatOf(Place, LPWSTR, DWORD, DWORD*, DWORD*, DWORD*, LPWSTR format, DWORD size) {
  return ::lstrcpynW(format, Calls()->format.c_str(), static_cast<int>(size)) != nullptr;
}

UINT WINAPI DriveType(LPCWSTR) { return Calls()->is_remote ? DRIVE_REMOTE : DRIVE_FIXED; }

DWORD WINAPI SecurityOf(HANDLE file, SE_OBJECT_TYPE type, SECURITY_INFORMATION what, PSID* owner, PSID* group,
                        PACL* access, PACL* audit, PSECURITY_DESCRIPTOR* descriptor) {
  static char sid[SECURITY_MAX_SID_SIZE];
  DWORD size = sizeof sid;
  const DWORD code = Real<"GetSecurityInfo">(&SecurityOf, L"advapi32")(file, type, what, owner, group, access,
                                                                       audit, descriptor);
  if (Calls()->owner && ::CreateWellKnownSid(*Calls()->owner, nullptr, sid, &size)) *owner = sid;
  return code;
}

/// Nobody's computer is to be shut down.
HINSTANCE WINAPI Start(HWND, LPCWSTR, LPCWSTR program, LPCWSTR parameters, LPCWSTR, INT) {
  Calls()->started += base::Narrow(program) + "|" + base::Narrow(parameters) + "|";
  return reinterpret_cast<HINSTANCE>(Fails("ShellExecuteW") ? INT_PTR{32} : INT_PTR{33});
}

}  // namespace

platform::test::Locked<SystemCalls> Calls() {
  static SystemCalls calls;
  return platform::test::Locked(calls);
}

void MakeReparse(const std::wstring& path, const Reparse& reparse, bool is_folder) {
  if (is_folder) ::CreateDirectoryW(path.c_str(), nullptr);
  if (!is_folder) FileHandle(::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
  Calls()->links[path] = reparse;
}

}  // namespace platform::windows::test

// What every call of these goes by: the linker takes it instead of the system's.
// NOLINTBEGIN(bugprone-reserved-identifier)
namespace calls = platform::windows::test;
extern "C" {
decltype(&::GetFileAttributesW) __imp_GetFileAttributesW = &calls::AttributesOf;
decltype(&::CreateFileW) __imp_CreateFileW = &calls::Create;
decltype(&::DeleteFileW) __imp_DeleteFileW = &calls::Delete;
decltype(&::FindFirstFileExW) __imp_FindFirstFileExW = &calls::FindFirst;
decltype(&::GetFileInformationByHandleEx) __imp_GetFileInformationByHandleEx = &calls::InfoOf;
decltype(&::SetFileInformationByHandle) __imp_SetFileInformationByHandle = &calls::SetInfo;
decltype(&::MoveFileExW) __imp_MoveFileExW = &calls::Move;
decltype(&::FlushFileBuffers) __imp_FlushFileBuffers = &calls::Flush;
decltype(&::GetProcAddress) __imp_GetProcAddress = &calls::Find;
decltype(&::GetFileInformationByHandle) __imp_GetFileInformationByHandle = &calls::FileInfo;
decltype(&::GetVolumeInformationByHandleW) __imp_GetVolumeInformationByHandleW = &calls::FormatOf;
decltype(&::GetVolumeInformationW) __imp_GetVolumeInformationW = &calls::FormatOf;
decltype(&::GetDriveTypeW) __imp_GetDriveTypeW = &calls::DriveType;
decltype(&::GetSecurityInfo) __imp_GetSecurityInfo = &calls::SecurityOf;
decltype(&::CopyFileExW) __imp_CopyFileExW = &calls::Copy;
decltype(&::GetSystemTimeAsFileTime) __imp_GetSystemTimeAsFileTime = &calls::TimeNow;
decltype(&::Sleep) __imp_Sleep = &calls::SleepFor;
decltype(&::ShellExecuteW) __imp_ShellExecuteW = &calls::Start;
decltype(&::FindNextFileW) __imp_FindNextFileW = &calls::OrFail<"FindNextFileW">;
decltype(&::ReadFile) __imp_ReadFile = &calls::OrFail<"ReadFile">;
decltype(&::WriteFile) __imp_WriteFile = &calls::OrFail<"WriteFile">;
decltype(&::GetFileSizeEx) __imp_GetFileSizeEx = &calls::OrFail<"GetFileSizeEx">;
decltype(&::SetFilePointerEx) __imp_SetFilePointerEx = &calls::OrFail<"SetFilePointerEx">;
}
// NOLINTEND(bugprone-reserved-identifier)

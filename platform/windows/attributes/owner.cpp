#include "platform/windows/attributes/owner.h"

#include "platform/windows/handle.h"
#include "platform/windows/open_file.h"

// After windows.h.
#include <aclapi.h>

namespace platform::windows {
namespace {

bool IsUser(PSID owner) {
  HANDLE opened = nullptr;
  if (!::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &opened)) return false;
  const base::Handle<base::ClosedBy<HANDLE, &::CloseHandle>> token(opened);
  alignas(TOKEN_USER) char user[sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE];
  DWORD size = 0;
  return ::GetTokenInformation(token.get(), TokenUser, user, sizeof user, &size) &&
         ::EqualSid(reinterpret_cast<TOKEN_USER*>(user)->User.Sid, owner);
}

}  // namespace

bool IsTrusted(const std::wstring& long_path) {
  const FileHandle file = OpenLinkForAttributes(long_path, READ_CONTROL);
  if (!file) return false;
  PSID owner = nullptr;
  PSECURITY_DESCRIPTOR held = nullptr;
  if (::GetSecurityInfo(file.get(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, &owner, nullptr, nullptr,
                        nullptr, &held) != ERROR_SUCCESS)
    return false;
  const base::Handle<base::ClosedBy<PSECURITY_DESCRIPTOR, &::LocalFree>> descriptor(held);
  return owner != nullptr && (IsUser(owner) || ::IsWellKnownSid(owner, WinBuiltinAdministratorsSid) ||
                              ::IsWellKnownSid(owner, WinLocalSystemSid));
}

}  // namespace platform::windows

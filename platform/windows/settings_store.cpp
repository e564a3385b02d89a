#include "platform/windows/settings_store.h"

#include "base/utf8.h"
#include "base/wide_text.h"
#include "platform/windows/handle.h"
#include "platform/windows/system_error.h"

namespace platform::windows {
namespace {

constexpr std::size_t kLongestMessage = 100;

LSTATUS OpenForReading(const std::string& key, KeyHandle& opened) {
  HKEY handle = nullptr;
  const LSTATUS code =
      ::RegOpenKeyExW(HKEY_CURRENT_USER, base::Widen(key).c_str(), 0, KEY_QUERY_VALUE, &handle);
  if (code == ERROR_SUCCESS) opened = KeyHandle(handle);
  return code;
}

SettingsStore::Disposition ToDisposition(DWORD disposition) {
  if (disposition == REG_CREATED_NEW_KEY) return SettingsStore::Disposition::kCreated;
  if (disposition == REG_OPENED_EXISTING_KEY) return SettingsStore::Disposition::kOpened;
  return SettingsStore::Disposition::kUnknown;
}

}  // namespace

SettingsStore::WriteResult RegistryStore::Write(const std::string& key, const std::string& name,
                                                const std::string& value) {
  WriteResult result;
  HKEY handle = nullptr;
  DWORD disposition = 0;
  result.create_code =
      ::RegCreateKeyExW(HKEY_CURRENT_USER, base::Widen(key).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_ALL_ACCESS, nullptr, &handle, &disposition);
  if (result.create_code != ERROR_SUCCESS) return result;
  const KeyHandle opened(handle);
  result.disposition = ToDisposition(disposition);
  const std::wstring text = base::Widen(value);
  result.set_code = ::RegSetValueExW(opened.get(), base::Widen(name).c_str(), 0, REG_SZ,
                                     reinterpret_cast<const BYTE*>(text.data()),
                                     static_cast<DWORD>(text.size() * sizeof(wchar_t)));
  return result;
}

bool RegistryStore::HasKey(const std::string& key) {
  KeyHandle opened;
  return OpenForReading(key, opened) == ERROR_SUCCESS;
}

SettingsStore::ReadResult RegistryStore::Read(const std::string& key, const std::string& name) {
  ReadResult result;
  KeyHandle opened;
  result.code = OpenForReading(key, opened);
  if (result.code != ERROR_SUCCESS) return result;
  const std::wstring wide_name = base::Widen(name);
  DWORD bytes = 0;
  result.code = ::RegQueryValueExW(opened.get(), wide_name.c_str(), nullptr, nullptr, nullptr, &bytes);
  if (result.code != ERROR_SUCCESS) return result;
  std::wstring text((bytes + 1) / sizeof(wchar_t), L'\0');
  result.code = ::RegQueryValueExW(opened.get(), wide_name.c_str(), nullptr, nullptr,
                                   reinterpret_cast<BYTE*>(text.data()), &bytes);
  if (result.code != ERROR_SUCCESS) return result;
  // Other programs store the zero with the text, and the system may add one.
  text.resize(text.find(L'\0') == std::wstring::npos ? text.size() : text.find(L'\0'));
  result.has_value = true;
  result.value = base::Narrow(text);
  return result;
}

std::string RegistryStore::Message(int code) {
  std::string text = SystemText(static_cast<DWORD>(code));
  while (text.size() > kLongestMessage) text.resize(base::utf8::OffsetOf(text, base::utf8::Length(text) - 1));
  return text;
}

}  // namespace platform::windows

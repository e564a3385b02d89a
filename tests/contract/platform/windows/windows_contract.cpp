#include <filesystem>

#include "platform/windows/handle.h"
#include "platform/windows/long_path.h"
#include "platform/windows/open_file.h"
#include "platform/windows/registry_store.h"
#include "platform/windows/wide_text.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_locale.h"
#include "platform/windows/windows_time.h"
#include "tests/contract/platform/file_system_contract.h"
#include "tests/contract/platform/system_contract.h"
#include "tests/platform/windows/temporary_folder.h"

namespace platform::contract {
namespace {

using windows::LongPath;

class WindowsScene : public Scene {
 public:
  FileSystem& files() override { return files_; }
  std::string root() const override { return folder_.path(); }
  char separator() const override { return '\\'; }
  void SetModified(const std::string& path, FileTime modified) override {
    const auto file = windows::OpenForAttributes(LongPath(path), FILE_WRITE_ATTRIBUTES);
    const FILETIME time = windows::ToSystem(modified);
    ASSERT_TRUE(::SetFileTime(file.get(), nullptr, nullptr, &time)) << path;
  }
  /// Needs the developer mode of Windows; Wine says yes and does nothing.
  bool MakeLink(const std::string& path, const std::string& destination) override {
    const bool to_folder = std::filesystem::is_directory(LongPath(destination));
    const DWORD flags =
        (to_folder ? SYMBOLIC_LINK_FLAG_DIRECTORY : 0) | SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE;
    return ::CreateSymbolicLinkW(LongPath(path).c_str(), LongPath(destination).c_str(), flags) &&
           ::GetFileAttributesW(LongPath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
  }
  // Pipes have no place in a folder here. The rest needs an administrator's tools, or is no obstacle to the
  // user that Wine runs as.
  bool MakePipe(const std::string&) override { return false; }
  bool ForbidReading(const std::string&) override { return false; }
  bool ForbidChanges(const std::string&) override { return false; }
  bool MakeSmallDisk(const std::string&) override { return false; }

 private:
  TemporaryFolder folder_;
  windows::WindowsFileSystem files_;
};

/// A store in a key of its own, which plays the user's hive while it lives.
class ScratchRegistry : public windows::RegistryStore {
 public:
  ScratchRegistry() {
    HKEY key = nullptr;
    ::RegCreateKeyExW(HKEY_CURRENT_USER, name_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                      nullptr);
    key_ = windows::KeyHandle(key);
    ::RegOverridePredefKey(HKEY_CURRENT_USER, key);
  }
  ~ScratchRegistry() override {
    ::RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    ::RegDeleteTreeW(HKEY_CURRENT_USER, name_.c_str());
  }

 private:
  const std::wstring name_ = L"Software\\" + windows::Widen(MakeTemporaryName());
  windows::KeyHandle key_;
};

INSTANTIATE_TEST_SUITE_P(Windows, FileSystemContract,
                         testing::Values([] { return std::make_unique<WindowsScene>(); }));
INSTANTIATE_TEST_SUITE_P(Windows, SettingsStoreContract,
                         testing::Values([] { return std::make_shared<ScratchRegistry>(); }));
INSTANTIATE_TEST_SUITE_P(Windows, ClockContract,
                         testing::Values([] { return std::make_shared<windows::WindowsClock>(); }));
INSTANTIATE_TEST_SUITE_P(Windows, LocaleContract,
                         testing::Values([] { return std::make_shared<windows::WindowsLocale>(); }));

}  // namespace
}  // namespace platform::contract

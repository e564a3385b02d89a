#include "platform/windows/windows_api.h"

// After windows_api.h: it needs its types.
#include <shellapi.h>

#include <filesystem>

#include "base/wide_text.h"
#include "platform/windows/clock.h"
#include "platform/windows/file_system.h"
#include "platform/windows/handle.h"
#include "platform/windows/locale.h"
#include "platform/windows/long_path.h"
#include "platform/windows/open_file.h"
#include "platform/windows/settings_store.h"
#include "platform/windows/shell/shell.h"
#include "platform/windows/windows_time.h"
#include "tests/contract/platform/file_system_contract.h"
#include "tests/contract/platform/system_contract.h"
#include "tests/platform/windows/temporary_folder.h"

namespace {

bool disk_fails = false;

BOOL WINAPI FlushUnlessTheDiskFails(HANDLE file) {
  static const auto flush = reinterpret_cast<decltype(&::FlushFileBuffers)>(
      reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"kernel32"), "FlushFileBuffers")));
  if (!disk_fails) return flush(file);
  ::SetLastError(ERROR_IO_DEVICE);
  return FALSE;
}

/// Nobody's computer is to be shut down.
HINSTANCE WINAPI RunNothing(HWND, LPCWSTR, LPCWSTR, LPCWSTR, LPCWSTR, INT) {
  return reinterpret_cast<HINSTANCE>(INT_PTR{33});
}

}  // namespace

// What every call of these goes by: the linker takes it instead of the system's.
extern "C" {
extern decltype(&::FlushFileBuffers) __imp_FlushFileBuffers;  // NOLINT(bugprone-reserved-identifier)
extern decltype(&::ShellExecuteW) __imp_ShellExecuteW;        // NOLINT(bugprone-reserved-identifier)
decltype(&::FlushFileBuffers) __imp_FlushFileBuffers = &FlushUnlessTheDiskFails;
decltype(&::ShellExecuteW) __imp_ShellExecuteW = &RunNothing;
}

namespace platform::contract {
namespace {

/// What it does not offer needs an administrator's tools, or is no obstacle to the user that Wine runs as.
class WindowsScene : public Scene {
 public:
  FileSystem& files() override { return files_; }
  std::string root() const override { return folder_.path(); }
  void SetModified(const std::string& path, FileTime modified) override {
    const auto file = windows::OpenForAttributes(windows::LongPath(path), FILE_WRITE_ATTRIBUTES);
    const FILETIME time = windows::ToSystem(modified);
    ::SetFileTime(file.get(), nullptr, nullptr, &time);
  }
  /// Needs the developer mode of Windows; Wine says yes and does nothing.
  bool MakeLink(const std::string& path, const std::string& destination) override {
    const std::wstring link = windows::LongPath(path);
    const std::wstring aim = windows::LongPath(destination);
    const DWORD kind = std::filesystem::is_directory(aim) ? SYMBOLIC_LINK_FLAG_DIRECTORY : 0;
    ::CreateSymbolicLinkW(link.c_str(), aim.c_str(), kind | SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE);
    return ::GetFileAttributesW(link.c_str()) != INVALID_FILE_ATTRIBUTES;
  }
  bool MakeHardLink(const std::string& path, const std::string& file) override {
    return ::CreateHardLinkW(windows::LongPath(path).c_str(), windows::LongPath(file).c_str(), nullptr);
  }
  bool FailFlushes() override { return disk_fails = true; }

  WindowsScene() { disk_fails = false; }

 private:
  TemporaryFolder folder_;
  windows::WindowsFileSystem files_;
};

/// A store in a key of its own, which plays the user's hive while it lives.
class ScratchRegistry : public windows::RegistryStore {
 public:
  ScratchRegistry() {
    HKEY key = nullptr;
    ::RegCreateKeyW(HKEY_CURRENT_USER, name_.c_str(), &key);
    ::RegOverridePredefKey(HKEY_CURRENT_USER, key);
    ::RegCloseKey(key);
  }
  ~ScratchRegistry() override {
    ::RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    ::RegDeleteTreeW(HKEY_CURRENT_USER, name_.c_str());
  }

 private:
  const std::wstring name_ = L"Software\\" + base::Widen(MakeTemporaryName());
};

INSTANTIATE_TEST_SUITE_P(Windows, FileSystemContract, testing::Values(std::make_unique<WindowsScene>));
INSTANTIATE_TEST_SUITE_P(Windows, SettingsStoreContract, testing::Values(std::make_shared<ScratchRegistry>));
INSTANTIATE_TEST_SUITE_P(Windows, ClockContract, testing::Values(std::make_shared<windows::WindowsClock>));
INSTANTIATE_TEST_SUITE_P(Windows, LocaleContract, testing::Values(std::make_shared<windows::WindowsLocale>));
INSTANTIATE_TEST_SUITE_P(Windows, ShellContract, testing::Values(std::make_shared<windows::WindowsShell>));

/// What only this system can get wrong.
class WindowsFiles : public SceneTest {
 protected:
  WindowsFiles() : SceneTest(std::make_unique<WindowsScene>()) {}
};

TEST_F(WindowsFiles, TheListingTellsAllThreeAttributesAndOthersStay) {
  AddFile("from/file", "x");
  const std::wstring file = windows::LongPath(At("from/file"));
  ASSERT_TRUE(::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_ARCHIVE));
  for (const Attributes bits : {0U, 1U, 2U, 4U, 7U}) {
    ASSERT_TRUE(files().SetAttributes(At("from/file"), bits));
    EXPECT_EQ(Named(*Open("from"), "file").attributes, bits);
    EXPECT_EQ(::GetFileAttributesW(file.c_str()), FILE_ATTRIBUTE_ARCHIVE | bits);
  }
}

TEST_F(WindowsFiles, AFileThatAnotherProgramKeepsIsInUseAndStays) {
  AddFile("from/file", "new");
  AddFile("to/file", "old");
  for (const char* kept : {"from/file", "to/file"}) {
    windows::FileHandle held(::CreateFileW(windows::LongPath(At(kept)).c_str(), GENERIC_READ, 0, nullptr,
                                           OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(Copy("file").error().kind, ErrorKind::kInUse) << kept;
    held.Reset();
    EXPECT_EQ(ContentOf("to/file"), "old");
    EXPECT_EQ(NamesIn("to"), Names{"file"});
  }
}

TEST_F(WindowsFiles, SpaceIsUnknownForADriveThatIsNotThereAndForNoPath) {
  EXPECT_TRUE(files().GetDiskSpace("c:"));
  for (const char* path : {"Q:\\", "q:", "\\\\", "ab", ""}) EXPECT_FALSE(files().GetDiskSpace(path)) << path;
}

TEST(Registry, AZeroThatAnotherProgramStoredIsNoPartOfTheText) {
  ScratchRegistry store;
  ASSERT_EQ(::RegSetKeyValueW(HKEY_CURRENT_USER, L"Key", L"name", REG_SZ, L"ab", 6), 0);
  EXPECT_EQ(store.Read("Key", "name").value, "ab");
}

}  // namespace
}  // namespace platform::contract

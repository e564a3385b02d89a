#include "platform/windows/windows_shell.h"

#include <gtest/gtest.h>

#include "platform/windows/windows_api.h"
#include "tests/platform/windows/temporary_folder.h"

namespace platform::windows {
namespace {

namespace fs = std::filesystem;

fs::path ThisProgram() {
  wchar_t path[MAX_PATH];
  ::GetModuleFileNameW(nullptr, path, ARRAYSIZE(path));
  return path;
}

TEST(WindowsShell, NamesTheFoldersOfTheUserAndOfTheProgram) {
  EXPECT_TRUE(fs::is_directory(Widen(WindowsShell().ApplicationDataFolder())));
  EXPECT_EQ(fs::path(Widen(WindowsShell().ProgramFolder())), ThisProgram().parent_path());
}

TEST(WindowsShell, RunsNoCommandFromTheCurrentFolder) {
  const TemporaryFolder folder;
  fs::copy_file(ThisProgram(), Widen(folder.path() + "\\shutdown-by-a-stranger.exe"));
  const fs::path before = fs::current_path();
  fs::current_path(Widen(folder.path()));
  const Status run = WindowsShell().RunSystemCommand("shutdown-by-a-stranger", "--gtest_list_tests");
  WindowsShell().EnterRootOfCurrentDrive();
  EXPECT_TRUE(fs::current_path().relative_path().empty()) << "it holds no folder";
  fs::current_path(before);
  EXPECT_EQ(run.error().kind, ErrorKind::kNotFound);
}

TEST(WindowsShell, RunsASystemCommandByItsBareNameOnly) {
  EXPECT_TRUE(WindowsShell().RunSystemCommand("hostname", ""));
  for (const char* name : {"", "..\\explorer", "c:hostname", "hostname.exe"}) {
    EXPECT_FALSE(WindowsShell().RunSystemCommand(name, "")) << name;
  }
}

}  // namespace
}  // namespace platform::windows

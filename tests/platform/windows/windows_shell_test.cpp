#include "platform/windows/shell/shell.h"

#include <gtest/gtest.h>

#include "platform/windows/shell/system_command.h"
#include "platform/windows/system_error.h"
#include "tests/platform/windows/temporary_folder.h"

namespace platform::windows {

namespace fs = std::filesystem;

TEST(WindowsShell, NamesTheFoldersOfTheUserAndOfTheProgram) {
  EXPECT_TRUE(fs::is_directory(base::Widen(WindowsShell().ApplicationDataFolder())));
  EXPECT_TRUE(fs::exists(base::Widen(WindowsShell().ProgramFolder()) + L"\\test_platform_windows.exe"));
}

TEST(WindowsShell, RunsNoCommandFromTheCurrentFolder) {
  const TemporaryFolder folder;
  fs::copy_file("C:\\windows\\system32\\hostname.exe", base::Widen(folder.path() + "\\stranger.exe"));
  const fs::path before = fs::current_path();
  fs::current_path(base::Widen(folder.path()));
  const Status run = RunSystemCommand("stranger", "");
  WindowsShell().EnterRootOfCurrentDrive();
  EXPECT_TRUE(fs::current_path().relative_path().empty()) << "it holds no folder";
  fs::current_path(before);
  EXPECT_EQ(run.error().kind, ErrorKind::kNotFound);
}

TEST(WindowsShell, RunsASystemCommandByItsBareNameOnly) {
  EXPECT_TRUE(RunSystemCommand("hostname", ""));
  for (const char* name : {"", "..\\explorer", "c:hostname"})
    EXPECT_FALSE(RunSystemCommand(name, "")) << name;
}

TEST(SystemError, AServerThatIsAwayHasNotLostItsFiles) {
  using Codes = std::vector<DWORD>;
  for (const DWORD code : Codes{ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_INVALID_DRIVE})
    EXPECT_EQ(SystemError(code).kind, ErrorKind::kNotFound) << code;
  for (const DWORD code : Codes{ERROR_BAD_NETPATH, ERROR_BAD_NET_NAME, ERROR_NETNAME_DELETED})
    EXPECT_EQ(SystemError(code).kind, ErrorKind::kOther) << code;
}

}  // namespace platform::windows

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/windows/system_error.h"
#include "platform/windows/wide_text.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_shell.h"
#include "tests/platform/windows/temporary_folder.h"

using platform::ErrorKind;
using platform::windows::Widen;

namespace {

std::filesystem::path ThisProgram() {
  wchar_t path[MAX_PATH];
  ::GetModuleFileNameW(nullptr, path, ARRAYSIZE(path));
  return path;
}

TEST(WindowsShell, NamesTheFoldersOfTheUserAndOfTheProgram) {
  platform::windows::WindowsShell shell;
  EXPECT_TRUE(std::filesystem::is_directory(Widen(shell.ApplicationDataFolder())));
  EXPECT_EQ(std::filesystem::path(Widen(shell.ProgramFolder())), ThisProgram().parent_path());
}

TEST(WindowsShell, RunsNoCommandFromTheCurrentFolder) {
  platform::windows::WindowsShell shell;
  const TemporaryFolder folder;
  std::filesystem::copy_file(ThisProgram(), Widen(folder / "shutdown-by-a-stranger.exe"));
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(Widen(folder.path()));
  const platform::Status run = shell.RunSystemCommand("shutdown-by-a-stranger", "--gtest_list_tests");
  shell.EnterRootOfCurrentDrive();
  EXPECT_TRUE(std::filesystem::current_path().relative_path().empty());
  std::filesystem::current_path(before);
  ASSERT_FALSE(run);
  EXPECT_EQ(run.error().kind, ErrorKind::kNotFound);
}

TEST(WindowsShell, RunsASystemCommandByItsBareNameOnly) {
  platform::windows::WindowsShell shell;
  EXPECT_TRUE(shell.RunSystemCommand("hostname", ""));
  for (const char* name : {"", "..\\explorer", "c:hostname", "hostname.exe"}) {
    EXPECT_FALSE(shell.RunSystemCommand(name, "")) << name;
  }
}

TEST(WindowsClock, LocalTimesFollowTheSystemsZone) {
  platform::windows::WindowsClock clock;
  // Winter and summer, before 1970, and a last day of a leap year.
  for (const std::int64_t seconds : {1'768'478'400, 1'784'116'800, -86'400, 1'735'603'200}) {
    const FILETIME utc = {static_cast<DWORD>((seconds + 11'644'473'600) * 10'000'000 & 0xFFFFFFFF),
                          static_cast<DWORD>((seconds + 11'644'473'600) * 10'000'000 >> 32)};
    SYSTEMTIME from;
    SYSTEMTIME expected;
    ASSERT_TRUE(::FileTimeToSystemTime(&utc, &from));
    ASSERT_TRUE(::SystemTimeToTzSpecificLocalTime(nullptr, &from, &expected));
    const platform::CalendarTime local = clock.ToLocal({seconds, 0});
    EXPECT_EQ(local.year, expected.wYear);
    EXPECT_EQ(local.month, expected.wMonth);
    EXPECT_EQ(local.day, expected.wDay);
    EXPECT_EQ(local.hour, expected.wHour);
  }
}

TEST(SystemError, KindsFollowTheSystemsNumbers) {
  const std::pair<DWORD, ErrorKind> kinds[] = {
      {ERROR_FILE_NOT_FOUND, ErrorKind::kNotFound},   {ERROR_WRITE_PROTECT, ErrorKind::kReadOnlyMedium},
      {ERROR_DISK_FULL, ErrorKind::kDiskFull},        {ERROR_LOCK_VIOLATION, ErrorKind::kInUse},
      {ERROR_INVALID_NAME, ErrorKind::kBadName},      {ERROR_FILENAME_EXCED_RANGE, ErrorKind::kBadName},
      {ERROR_FILE_TOO_LARGE, ErrorKind::kTooLarge},   {ERROR_ALREADY_EXISTS, ErrorKind::kAlreadyExists},
      {ERROR_REQUEST_ABORTED, ErrorKind::kCancelled}, {ERROR_CRC, ErrorKind::kOther},
  };
  for (const auto& [code, kind] : kinds) EXPECT_EQ(platform::windows::SystemError(code).kind, kind) << code;
}

}  // namespace

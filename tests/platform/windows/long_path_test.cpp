#include "platform/windows/long_path.h"

#include <gtest/gtest.h>

namespace platform::windows {

TEST(LongPath, IsTheSystemsOwnFormOfAnAbsolutePath) {
  const std::pair<std::string, std::wstring> forms[] = {
      {"C:\\a\\b.txt", L"\\\\?\\C:\\a\\b.txt"},
      {"c:/a//b\\", L"\\\\?\\c:\\a\\b"},
      {"C:\\", L"\\\\?\\C:\\"},
      {"C:\\a\\.\\b\\..\\c", L"\\\\?\\C:\\a\\c"},
      {"C:\\ends in a dot.\\and a blank ", L"\\\\?\\C:\\ends in a dot.\\and a blank "},
      {"\\\\server\\share\\a", L"\\\\?\\UNC\\server\\share\\a"},
      {"//server/share/../../a", L"\\\\?\\UNC\\server\\share\\a"},
      {"\\\\.\\C:", L"\\\\.\\C:"},
      {"\\\\?\\", L"\\\\?\\"},
      {"\\\\?a\\b", L"\\\\?\\UNC\\?a\\b"},
      {"A:", L"\\\\?\\A:\\"},
      {"[:\\a", L"[:\\a"},
      {"C:a", L"C:a"},
      {std::string("C:\\a\0b", 6), L"\\\\?\\C:\\a|b"},
      {"\\\\\\a", L"\\\\\\a"},
      {"/a", L"/a"},
      {"", L""},
  };
  for (const auto& [plain, long_form] : forms) EXPECT_EQ(LongPath(plain), long_form) << plain;
  EXPECT_EQ(LongFolder("C:\\a"), L"\\\\?\\C:\\a\\");
  EXPECT_EQ(LongFolder("C:\\"), L"\\\\?\\C:\\");
  EXPECT_EQ(LongFolder(""), L"");
}

TEST(LongPath, ComesBackAsPeopleWriteItAndNamesTheDrive) {
  EXPECT_EQ(PlainPath(L"\\\\?\\C:\\a"), "C:\\a");
  EXPECT_EQ(PlainPath(L"\\\\?\\UNC\\server\\share\\a"), "\\\\server\\share\\a");
  // A volume without a letter has no other form.
  EXPECT_EQ(PlainPath(L"\\\\?\\Volume{1-2}\\a"), "\\\\?\\Volume{1-2}\\a");
  EXPECT_EQ(DriveOfPath("e:\\a"), "E:");
  EXPECT_EQ(DriveOfPath("\\\\?\\e:\\a"), "E:");
  EXPECT_EQ(DriveOfPath("\\\\?\\UNC\\server\\share\\a"), "\\\\server\\share");
  EXPECT_EQ(DriveOfPath("\\\\.\\C:"), "");
  EXPECT_EQ(DriveOfPath("//server"), "\\\\server");
}

}  // namespace platform::windows

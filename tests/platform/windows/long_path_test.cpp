#include "platform/windows/long_path.h"

#include <gtest/gtest.h>

using platform::windows::DriveOfPath;
using platform::windows::LongFolder;
using platform::windows::LongPath;
using platform::windows::PlainPath;

namespace {

struct Form {
  std::string plain;
  std::wstring long_form;
};

TEST(LongPath, IsTheSystemsOwnFormOfAnAbsolutePath) {
  const Form forms[] = {
      {"C:\\a\\b.txt", L"\\\\?\\C:\\a\\b.txt"},
      {"c:/a//b\\", L"\\\\?\\c:\\a\\b"},
      {"C:\\", L"\\\\?\\C:\\"},
      {"c:", L"\\\\?\\c:\\"},
      {"C:\\a\\.\\b\\..\\c", L"\\\\?\\C:\\a\\c"},
      {"C:\\..\\..\\a", L"\\\\?\\C:\\a"},
      {"C:\\ends in a dot.\\and a blank ", L"\\\\?\\C:\\ends in a dot.\\and a blank "},
      {"\\\\server\\share\\a", L"\\\\?\\UNC\\server\\share\\a"},
      {"//server/share/../../a", L"\\\\?\\UNC\\server\\share\\a"},
      {"\\\\?\\C:\\a", L"\\\\?\\C:\\a"},
      {"\\\\.\\C:", L"\\\\.\\C:"},
      {"relative\\a", L"relative\\a"},
      {"", L""},
  };
  for (const Form& form : forms) EXPECT_EQ(LongPath(form.plain), form.long_form) << form.plain;
}

TEST(LongPath, AFoldersFormTakesNamesBehindIt) {
  EXPECT_EQ(LongFolder("C:\\a"), L"\\\\?\\C:\\a\\");
  EXPECT_EQ(LongFolder("C:\\"), L"\\\\?\\C:\\");
  EXPECT_EQ(LongFolder(""), L"");
}

TEST(LongPath, ComesBackAsPeopleWriteIt) {
  EXPECT_EQ(PlainPath(L"\\\\?\\C:\\a"), "C:\\a");
  EXPECT_EQ(PlainPath(L"\\\\?\\UNC\\server\\share\\a"), "\\\\server\\share\\a");
  // A volume without a letter has no other form.
  EXPECT_EQ(PlainPath(L"\\\\?\\Volume{1-2}\\a"), "\\\\?\\Volume{1-2}\\a");
}

TEST(LongPath, NamesTheDrive) {
  EXPECT_EQ(DriveOfPath("e:\\a"), "E:");
  EXPECT_EQ(DriveOfPath("E:"), "E:");
  EXPECT_EQ(DriveOfPath("\\\\?\\e:\\a"), "E:");
  EXPECT_EQ(DriveOfPath("\\\\server\\share\\a\\b"), "\\\\server\\share");
  EXPECT_EQ(DriveOfPath("\\\\?\\UNC\\server\\share\\a"), "\\\\server\\share");
  EXPECT_EQ(DriveOfPath("relative"), "");
  EXPECT_EQ(DriveOfPath(""), "");
}

}  // namespace

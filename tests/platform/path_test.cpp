#include "platform/path.h"

#include <gtest/gtest.h>

namespace platform {

constexpr PathStyle kWin = PathStyle::kWindows;
constexpr PathStyle kLin = PathStyle::kPosix;

TEST(Path, JoinsWithExactlyOneSeparator) {
  EXPECT_EQ(JoinPath("C:\\", "a", kWin), "C:\\a");
  EXPECT_EQ(JoinPath("C:\\a\\\\", "\\b", kWin), "C:\\a\\b");
  EXPECT_EQ(JoinPath("C:\\a", "", kWin), "C:\\a");
  EXPECT_EQ(JoinPath("/", "a", kLin), "/a");
  EXPECT_EQ(JoinPath("/a/", "/b/c", kLin), "/a/b/c");
  EXPECT_EQ(JoinPath("/a", "\\b", kLin), "/a/\\b");
}

TEST(Path, TakesNameAndParentApart) {
  const std::tuple<PathStyle, const char*, const char*, const char*> cases[] = {
      {kWin, "C:\\a\\b.txt", "C:\\a", "b.txt"},
      {kWin, "C:\\a", "C:\\", "a"},
      {kLin, "/a", "/", "a"},
      {kLin, "/", "/", ""},
      {kLin, "/a\\b", "/", "a\\b"},
      {kLin, "a", "", "a"},
  };
  for (const auto& [style, path, parent, name] : cases) {
    EXPECT_EQ(ParentOf(path, style), parent) << path;
    EXPECT_EQ(NameOf(path, style), name) << path;
  }
}

TEST(Path, MakesANameThatEveryProgramCanUseOfATypedOne) {
  for (const char* typed : {"Photos", "\\Photos\\", "/Photos/ . \\", "Photos ...", "Photos. "}) {
    EXPECT_EQ(TypedFolderName(typed, kWin), "Photos") << typed;
  }
  EXPECT_EQ(TypedFolderName("//a. \\. //", kLin), "a. \\. ");
}

TEST(Path, ANewFoldersNameIsOneThatTheSystemAllows) {
  for (const char* name : {"CON", "nul", "com1.txt", "LPT9 .x"}) {
    EXPECT_EQ(FaultOf(name, kWin), NameFault::kReserved) << name;
    EXPECT_EQ(FaultOf(name, kLin), NameFault::kNone) << name;
  }
  for (const char* name : {"common", "com0", "a.nul"}) EXPECT_EQ(FaultOf(name, kWin), NameFault::kNone);
  for (const char* name : {"a:b", "why?", "a\tb"}) EXPECT_EQ(FaultOf(name, kWin), NameFault::kCharacter);
  for (const char* name : {"..", "", "a/b"}) EXPECT_EQ(FaultOf(name, kLin), NameFault::kPath);
}

TEST(Path, KnowsWhatLiesInsideWhat) {
  for (const auto& [path, folder] : {std::pair("/a/b", "/a"), {"/a", "/a"}, {"/a", "/"}})
    EXPECT_TRUE(IsInside(path, folder, kLin)) << path;
  for (const auto& [path, folder] : {std::pair("/ab", "/a"), {"/a", "/a/b"}, {"/a\\b", "/a"}})
    EXPECT_FALSE(IsInside(path, folder, kLin)) << path;
  EXPECT_TRUE(IsInside("C:\\a", "C:\\", kWin) && IsInside("C:\\a/b", "C:\\a", kWin));
}

TEST(Path, TellsRootsAndChosenFolders) {
  const std::tuple<PathStyle, const char*, const char*, bool, bool> cases[] = {
      {kWin, "", "\\", false, false},     {kWin, "E:", "E:\\", false, false},
      {kWin, "E:\\", "E:\\", true, true}, {kWin, "E:\\a\\", "E:\\a\\", true, false},
      {kLin, "", "/", false, false},      {kLin, "/", "/", true, true},
      {kLin, "/ab", "/ab/", true, false}, {kLin, "/a//", "/a/", true, false},
  };
  for (const auto& [style, path, folder_form, specified, root] : cases) {
    EXPECT_EQ(FolderForm(path, style), folder_form);
    EXPECT_EQ(FolderForm(WithoutTrailingSeparators(path, style), style), folder_form);
    EXPECT_EQ(IsSpecified(path, style), specified) << path;
    EXPECT_EQ(IsDiskRoot(path, style), root) << path;
  }
}

}  // namespace platform

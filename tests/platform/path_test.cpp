#include "platform/path.h"

#include <gtest/gtest.h>

namespace platform {

constexpr PathStyle kWin = PathStyle::kWindows;
constexpr PathStyle kLin = PathStyle::kPosix;

TEST(Path, JoinsWithExactlyOneSeparator) {
  EXPECT_EQ(JoinPath("C:\\", "a", kWin), "C:\\a");
  EXPECT_EQ(JoinPath("C:\\a", "b", kWin), "C:\\a\\b");
  EXPECT_EQ(JoinPath("C:\\a\\\\", "\\b", kWin), "C:\\a\\b");
  EXPECT_EQ(JoinPath("C:\\a", "", kWin), "C:\\a");
  EXPECT_EQ(JoinPath("/", "a", kLin), "/a");
  EXPECT_EQ(JoinPath("/a/", "/b/c", kLin), "/a/b/c");
  EXPECT_EQ(JoinPath("/a", "\\b", kLin), "/a/\\b");
  EXPECT_EQ(JoinPath("", "/a", kLin), "/a");
}

TEST(Path, TakesNameAndParentApart) {
  const struct {
    PathStyle style;
    const char *path, *parent, *name;
  } cases[] = {
      {kWin, "C:\\a\\b.txt", "C:\\a", "b.txt"},
      {kWin, "C:\\a", "C:\\", "a"},
      {kWin, "C:/a/b", "C:/a", "b"},
      {kLin, "/a/b", "/a", "b"},
      {kLin, "/a", "/", "a"},
      {kLin, "/", "/", ""},
      {kLin, "/a\\b", "/", "a\\b"},
      {kLin, "a", "", "a"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ParentOf(c.path, c.style), c.parent) << c.path;
    EXPECT_EQ(NameOf(c.path, c.style), c.name) << c.path;
  }
}

TEST(Path, KnowsWhatLiesInsideWhat) {
  const struct {
    PathStyle style;
    const char *path, *folder;
    bool inside;
  } cases[] = {
      {kLin, "/a/b", "/a", true},    {kLin, "/a", "/a", true},         {kLin, "/ab", "/a", false},
      {kLin, "/a", "/", true},       {kLin, "/a", "/a/b", false},      {kLin, "/a\\b", "/a", false},
      {kWin, "C:\\a", "C:\\", true}, {kWin, "C:\\a/b", "C:\\a", true}, {kWin, "C:\\ab", "C:\\a", false},
  };
  for (const auto& c : cases) EXPECT_EQ(IsInside(c.path, c.folder, c.style), c.inside) << c.path;
}

TEST(Path, TellsRootsAndChosenFolders) {
  const struct {
    PathStyle style;
    const char *path, *folder_form;
    bool specified, root;
  } cases[] = {
      {kWin, "", "\\", false, false},     {kWin, "E:", "E:\\", false, false},
      {kWin, "E:\\", "E:\\", true, true}, {kWin, "E:\\a\\", "E:\\a\\", true, false},
      {kLin, "", "/", false, false},      {kLin, "/", "/", true, true},
      {kLin, "/ab", "/ab/", true, false}, {kLin, "/a//", "/a/", true, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FolderForm(c.path, c.style), c.folder_form);
    EXPECT_EQ(FolderForm(WithoutTrailingSeparators(c.path, c.style), c.style), c.folder_form);
    EXPECT_EQ(IsSpecified(c.path, c.style), c.specified) << c.path;
    EXPECT_EQ(IsDiskRoot(c.path, c.style), c.root) << c.path;
  }
}

}  // namespace platform

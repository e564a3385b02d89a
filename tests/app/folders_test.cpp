#include "tests/app/program.h"

namespace app::test {

using namespace ui::headless;

struct Folders : testing::Test, Program {
  Folders() : Program({"/src/a/", "/src/b/below/", "/src/c/", "/a/$RECYCLE.BIN/", "/locked/"}) {
    setup.IncludedFolders = {"a", "b", "c"};
    setup.IncludeSubfolders = true;
    StartWithSetup();
  }

  void Press(const std::string& step, ui::Button& button,
             std::deque<std::optional<std::string>> answers = {}) {
    dialogs.texts = std::move(answers);
    Click(button);
    story.Note(step, *window, Heard());
  }
  void Source(const std::string& step, const std::string& path) {
    Press(step, window->cmdSpecifyDirectory[0], {path});
  }
  void Target(const std::string& step, const std::string& path) {
    Press(step, window->cmdSpecifyDirectory[1], {path});
  }

  Story story{"app/told/"};
};

TEST_F(Folders, AreChosenClearedCreatedCountedAndRemovedAsTheirNamesAndTheDiskAllow) {
  story.Note("As saved", *window);
  files.SetReadOnly("/locked");
  Source("A recycle bin is no source", "/$Recycle.Bin");
  Target("nor a target, nor is what lies in it", "/RECYCLED files/x");
  Target("Nor is what is write-protected", "/locked");
  Press("The choice is called off", window->cmdSpecifyDirectory[0], {std::nullopt});
  Target("The same as before, of which nothing is said", "/dst");
  Target("Another, and the other one stays", "/src/c");
  dialogs.yes_no = {true};
  Press("Both, after one question", window->cmdSpecifyDirectory[0], {"/src/a", "/src/b"});
  Press("Clear the source", window->cmdClearFolder[0]);
  Target("The source is empty, so nothing is asked", "/src");
  Source("There was none before", "/a/$RECYCLE.BIN");
  Source("What is write-protected can be read", "/locked");
  Target("An empty one", "/dst");
  Press("Clear the target", window->cmdClearFolder[1]);
  for (const char* path : {"/a, b", "/ \"q\"", "/line\nend"}) {
    files.AddFolder(path);
    Target("Names that a saved setup holds, or does not", path);
  }

  ui::Button& create = StartWithSetup().cmdCreateSubFolder;
  Press("No name", create, {""});
  Press("A name", create, {"/x/"});
  Press("It exists", create, {"x"});
  Press("A path", create, {"no/x"});
  Press("The folder around", create, {".."});
  files.Fail(platform::memory::Call::kCreateFolder, "/dst/no", {platform::ErrorKind::kOther, 5, "EIO"});
  Press("The disk refuses", create, {"no"});
  dialogs.yes_no = {true};
  Press("Taken as the target", create, {"y"});
  files.Remove("/dst/y");
  Press("A target that has vanished stays so", create, {"no"});
  EXPECT_FALSE(files.Exists("/dst/y"));
  dialogs.yes_no = {true, true};
  files.Fail(platform::memory::Call::kCreateFolder, "/dst/y", {platform::ErrorKind::kOther, 5, "EIO"}, 1);
  Press("It cannot be made again", create, {"yes"});
  Press("It can", create, {"yes"});
  EXPECT_TRUE(files.Exists("/dst/x") && files.Exists("/dst/y"));

  StartWithSetup();
  Select(window->cboIncludedFolders, 1);
  Press("Remove the one with subfolders", window->cmdRemoveSubfolder);
  PressSpace(*window);
  PressSpace(*window);
  story.Note("and the others", *window);
  tree::Add(files, {"/src/b/$Recycle.Bin/", "/src/link>/dst", "/dst/dead>/nowhere"});
  files.AddMountPoint("/dst");
  Source("One subfolder", "/src/b");
  Source("None", "/src/a");
  setup.IncludedFolders = {"a", "b", "link"};
  StartWithSetup();
  story.Note("A link is none", *window);
  setup.IncludedFolders = {"link"};
  for (const char* made : {"/dst/x", "/dst/y"}) files.Remove(made);
  StartWithSetup();
  story.Note("None left, and a target with nothing in it but a dead link", *window);
  Target("A recycle bin", "/dst/$RECYCLE.BIN");
  files.Fail(platform::memory::Call::kOpenFolder, "", {platform::ErrorKind::kAccessDenied, 5, ""}, 1);
  Source("A source that may not be read", "/src");
  files.Remove("/src");
  window->RefreshSourceFolderDisplay();
  story.Note("It has gone", *window);
}

}  // namespace app::test

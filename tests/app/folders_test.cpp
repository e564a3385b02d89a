#include "tests/app/program.h"

namespace app::test {

using namespace ui::headless;

struct Folders : testing::Test, Program {
  Folders() : Program({"/src/a/", "/src/b/below/", "/src/c/", "/a/$RECYCLE.BIN/", "/locked/"}) {
    setup.IncludedFolders = {"a", "b", "c"};
    setup.IncludeSubfolders = true;
    StartWithSetup();
  }

  /// Chooses a folder as source (0) or target (1); gives the last box that came of it.
  std::string Choose(std::size_t index, std::optional<std::string> path) {
    dialogs.asked.clear();
    dialogs.texts = {std::move(path)};
    Click(window->cmdSpecifyDirectory[index]);
    return dialogs.asked.back().kind == "folder" ? "" : Said();
  }
  std::string Folder(std::size_t index) { return window->txbDirectory[index].text(); }
  std::string Summary() { return window->lblNumSubfolders.text(); }
};

TEST_F(Folders, RecycleBinsOnTheFirstLevelAndWriteProtectedTargetsAreRefused) {
  files.SetReadOnly("/locked");
  for (const std::size_t index : {0U, 1U}) {
    EXPECT_EQ(Choose(index, "/$Recycle.Bin"), "A recycle bin cannot be a backup source or target.");
    EXPECT_EQ(Choose(index, "/RECYCLED files/x"), "A recycle bin cannot be a backup source or target.");
  }
  EXPECT_EQ(Choose(1, "/locked").find("The target folder is on a write-protected disk.\r\n("), 0U);
  EXPECT_EQ(window->CurrentSetup(), setup);
  EXPECT_EQ(window->focused(), &window->cmdSpecifyDirectory[1]);
  Choose(0, "/a/$RECYCLE.BIN");
  EXPECT_EQ(Folder(0), "/a/$RECYCLE.BIN");
  Choose(0, "/locked");
  EXPECT_EQ(Folder(0), "/locked");
}

TEST_F(Folders, ANewFolderOffersOnceToChangeTheOtherOne) {
  EXPECT_EQ(Choose(0, std::nullopt), "");
  EXPECT_EQ(Choose(1, "/dst"), "") << "as it was";
  EXPECT_EQ(Choose(1, "/src/c"), "Do you wish to specify a new source disk or folder");
  dialogs.yes_no = {true};
  dialogs.texts = {"/src/a", "/src/b"};
  Click(window->cmdSpecifyDirectory[0]);
  ASSERT_EQ(dialogs.asked.size(), 3U) << "two choices, one question";
  EXPECT_EQ(dialogs.asked[1].text, "Do you wish to specify a new target disk or folder");
  EXPECT_EQ(Folder(0) + window->txbDirectory[1].tool_tip(), "/src/a/src/b");
  Click(window->cmdClearFolder[0]);
  EXPECT_EQ(Choose(1, "/src"), "") << "the other one is empty";
  EXPECT_EQ(Choose(0, "/src/a"), "") << "there was none before";
}

TEST_F(Folders, ClearingTakesEverythingAboutTheFolderAway) {
  EXPECT_EQ(window->lblTargetFolderIsEmpty.text(), "The target folder is empty.");
  Click(window->cmdClearFolder[1]);
  EXPECT_EQ(window->lblTargetFolderIsEmpty.text() + window->lblFreeSpace.text(), "");
  EXPECT_FALSE(window->cmdClearFolder[1].visible() || window->cmdCreateSubFolder.enabled());
  Click(window->cmdClearFolder[0]);
  EXPECT_EQ(window->CurrentSetup(), app::Setup{});
  EXPECT_FALSE(window->cmdClearFolder[0].visible() || window->chkIncludeSubfolders.visible());
}

TEST_F(Folders, TheSummaryOfSubfoldersCountsThemOrTellsWhyItCannot) {
  tree::Add(files, {"/src/b/$Recycle.Bin/"});
  Choose(0, "/src/b");
  EXPECT_EQ(Summary(), "There is one subfolder, none selected");
  Choose(0, "/src/a");
  EXPECT_EQ(Summary(), "There are no subfolders");
  tree::Add(files, {"/src/link>/dst"});
  setup.IncludedFolders = {"a", "b", "link"};
  StartWithSetup();
  EXPECT_EQ(Summary(), "There are 3 subfolders, 2 selected") << "a link is none";
  setup.IncludedFolders = {"link"};
  StartWithSetup();
  EXPECT_EQ(Summary(), "There are 3 subfolders, 0 selected");
  files.AddMountPoint("/dst");
  tree::Add(files, {"/dst/dead>/nowhere"});
  EXPECT_EQ(Choose(1, "/dst/$RECYCLE.BIN"), "A recycle bin cannot be a backup source or target.");
  window->RefreshTargetEmptyLabel();
  EXPECT_EQ(window->lblTargetFolderIsEmpty.text(), "The target disk is empty.");
  files.Fail(platform::memory::Call::kOpenFolder, "", {platform::ErrorKind::kAccessDenied, 5, ""}, 1);
  Choose(0, "/src");
  EXPECT_EQ(Summary(), "Permission denied");
  EXPECT_FALSE(window->cmdListSubFolders.enabled());
  files.Remove("/src");
  window->RefreshSourceFolderDisplay();
  EXPECT_EQ(Summary(), "Path not found");
}

TEST_F(Folders, SubfoldersAreRemovedOneAfterTheOther) {
  EXPECT_EQ(Summary(), "There are 3 subfolders, 3 selected");
  Select(window->cboIncludedFolders, 1);
  Click(window->cmdRemoveSubfolder);
  EXPECT_EQ(window->cboIncludedFolders.list_index(), 1);
  EXPECT_FALSE(window->chkIncludeSubfolders.visible()) << "a and c have no subfolders";
  PressSpace(*window);
  PressSpace(*window);
  EXPECT_FALSE(window->cboIncludedFolders.visible() || window->cmdRemoveSubfolder.visible());
  EXPECT_EQ(Summary(), "There are 3 subfolders, none selected");
}

TEST_F(Folders, ASubfolderOfTheTargetIsCreatedAndOfferedAsTheTarget) {
  const auto create = [&](const char* name, bool yes) {
    dialogs.texts = {name};
    dialogs.yes_no = {yes};
    Click(window->cmdCreateSubFolder);
    return Said();
  };
  EXPECT_EQ(create("", false), "What should the new subfolder of /dst be called?");
  EXPECT_EQ(create("/x/", false), "Do you want to use the new folder /dst/x as the target folder?");
  EXPECT_EQ(create("x", true), "This folder already exists: /dst/x");
  EXPECT_EQ(create("no/x", true), "Type one name, not a path: no/x");
  EXPECT_EQ(create("..", true), "Type one name, not a path: ..");
  files.Fail(platform::memory::Call::kCreateFolder, "/dst/no", {platform::ErrorKind::kOther, 5, "EIO"});
  EXPECT_EQ(create("no", true), "The folder could not be created on drive / at the path\r\n/dst/no\r\n(EIO)");
  EXPECT_EQ(Folder(1), "/dst");
  create("y", true);
  EXPECT_EQ(Folder(1), "/dst/y");
  files.Remove("/dst/y");
  create("no", false);
  EXPECT_FALSE(files.Exists("/dst/y"));
  create("yes", true);
  EXPECT_TRUE(files.Exists("/dst/x") && files.Exists("/dst/y")) << "a target that has vanished is made again";
}

}  // namespace app::test

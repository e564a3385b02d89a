#include <gtest/gtest.h>

#include "tests/app/program.h"

namespace app::test {
namespace {

using platform::memory::Call;
using namespace ui::headless;

class Folders : public testing::Test, protected Program {
 protected:
  Folders() {
    for (const char* name : {"/src/a", "/src/b/below", "/src/c"}) files.AddFolder(name);
    setup = SourceAndTarget();
    setup.IncludedFolders = {"a", "b", "c"};
    setup.IncludeSubfolders = true;
  }

  void Begin() {
    SaveLastRun(setup);
    Start();
  }

  void Choose(std::size_t index, std::optional<std::string> path) {
    dialogs.asked.clear();
    dialogs.texts = {std::move(path)};
    Click(window->cmdSpecifyDirectory[index]);
  }

  std::string Summary() { return window->lblNumSubfolders.text(); }

  app::Setup setup;
  HeadlessDialogs& dialogs = front_end.dialogs();
};

TEST_F(Folders, RecycleBinsOnTheFirstLevelAndWriteProtectedTargetsAreRefused) {
  files.AddFolder("/locked");
  files.SetReadOnly("/locked");
  files.AddFolder("/a/$RECYCLE.BIN");
  const auto refusal = [&](std::size_t index, const char* path) {
    Begin();
    Choose(index, path);
    const bool refused = dialogs.asked.back().kind == "message";
    EXPECT_EQ(window->txbDirectory[index].text() == path, !refused) << path;
    EXPECT_EQ(window->focused() == &window->cmdSpecifyDirectory[index], refused) << path;
    return refused ? LastMessage() : "";
  };
  for (const std::size_t index : {0U, 1U}) {
    for (const char* path : {"/$Recycle.Bin", "/RECYCLED files/x"})
      EXPECT_EQ(refusal(index, path), "A recycle bin cannot be a backup source or target.");
    EXPECT_EQ(refusal(index, "/a/$RECYCLE.BIN"), "");
  }
  EXPECT_EQ(refusal(0, "/locked"), "");
  EXPECT_EQ(refusal(1, "/locked"), "The target folder is on a write-protected disk.");
}

TEST_F(Folders, ANewFolderOffersOnceToChangeTheOtherOne) {
  Begin();
  Choose(0, std::nullopt);
  EXPECT_EQ(dialogs.asked.size(), 1U) << "cancelled";
  dialogs.yes_no = {true};
  dialogs.texts = {"/src/a", "/src/b"};
  Click(window->cmdSpecifyDirectory[0]);
  EXPECT_EQ(dialogs.asked[2].text, "Do you wish to specify a new target disk or folder");
  EXPECT_EQ(dialogs.asked.size(), 4U) << "two choices, one question";
  EXPECT_EQ(window->txbDirectory[0].text() + window->txbDirectory[1].tool_tip(), "/src/a/src/b");
  Choose(1, "/dst");
  EXPECT_EQ(LastMessage(), "Do you wish to specify a new source disk or folder");
  Click(window->cmdClearFolder[0]);
  Choose(1, "/src");
  EXPECT_EQ(dialogs.asked.size(), 1U) << "the other one is empty";
  Choose(0, "/src/a");
  EXPECT_EQ(dialogs.asked.size(), 1U) << "there was none before";
}

TEST_F(Folders, OnlyAnotherSourceStartsWithoutIncludedSubfolders) {
  Begin();
  Choose(0, "/src");
  EXPECT_EQ(window->CurrentSetup(), setup);
  Choose(0, "/dst");
  EXPECT_TRUE(window->CurrentSetup().IncludedFolders.empty());
  EXPECT_FALSE(window->CurrentSetup().IncludeSubfolders || window->chkIncludeSubfolders.visible());
}

TEST_F(Folders, ClearingTakesEverythingAboutTheFolderAway) {
  setup.TargetFolder = "/src/a";
  Begin();
  EXPECT_EQ(window->lblTargetFolderIsEmpty.text(), "The target folder is empty.");
  Click(window->cmdClearFolder[1]);
  EXPECT_EQ(window->lblTargetFolderIsEmpty.text() + window->lblFreeSpace.text(), "");
  EXPECT_FALSE(window->cmdClearFolder[1].visible() || window->cmdCreateSubFolder.enabled());
  Click(window->cmdClearFolder[0]);
  EXPECT_EQ(window->CurrentSetup(), app::Setup{});
  EXPECT_FALSE(window->cmdClearFolder[0].visible() || window->chkExcludeFilesInSourceFolder.visible());
}

TEST_F(Folders, TheSummaryOfSubfoldersTellsTheCause) {
  using Kind = platform::ErrorKind;
  Begin();
  const auto summary_after = [&](Kind kind) {
    files.Heal();
    files.Fail(Call::kOpenFolder, "/src", {kind, 5, ""});
    window->RefreshSourceFolderDisplay();
    EXPECT_FALSE(window->cmdListSubFolders.enabled() || window->chkIncludeSubfolders.visible());
    return Summary();
  };
  EXPECT_EQ(summary_after(Kind::kAccessDenied), "Permission denied");
  EXPECT_EQ(summary_after(Kind::kNotFound), "Path not found");
  EXPECT_EQ(summary_after(Kind::kOther), "Error");
  Choose(0, "/src/b");
  EXPECT_EQ(Summary(), "There is one subfolder, none selected");
  Choose(0, "/src/a");
  EXPECT_EQ(Summary(), "There are no subfolders");
}

TEST_F(Folders, SubfoldersAreRemovedOneAfterTheOther) {
  Begin();
  EXPECT_EQ(Summary(), "There are 3 subfolders, 3 selected");
  Select(window->cboIncludedFolders, 1);
  Click(window->cmdRemoveSubfolder);
  EXPECT_EQ(window->cboIncludedFolders.list_index(), 1);
  EXPECT_FALSE(window->chkIncludeSubfolders.visible()) << "a and c have no subfolders";
  PressSpace(*window), PressSpace(*window);
  EXPECT_EQ(window->cboIncludedFolders.list_index(), -1);
  EXPECT_FALSE(window->cboIncludedFolders.visible() || window->cmdRemoveSubfolder.visible());
  EXPECT_EQ(Summary(), "There are 3 subfolders, none selected");
}

TEST_F(Folders, ASubfolderOfTheTargetIsCreatedAndOfferedAsTheTarget) {
  Begin();
  const std::string offer = "Do you want to use the new folder /dst/";
  const struct {
    std::optional<std::string> answer;
    bool yes;
    std::string message;
  } cases[] = {{std::nullopt, false, "What is the new subfolder of /dst to be called?"},
               {"/x/", false, offer + "x as the target folder?"},
               {"x", true, "This folder exists already: /dst/x"},
               {"no/x", true, "The folder could not be created on drive / under the path\r\n/dst/no/x"},
               {"y", true, offer + "y as the target folder?"}};
  for (const auto& c : cases) {
    EXPECT_EQ(window->txbDirectory[1].text(), "/dst");
    dialogs.texts = {c.answer};
    dialogs.yes_no = {c.yes};
    Click(window->cmdCreateSubFolder);
    EXPECT_EQ(LastMessage(), c.message);
  }
  EXPECT_EQ(window->txbDirectory[1].text(), "/dst/y");
  EXPECT_TRUE(files.Exists("/dst/x") && files.Exists("/dst/y"));
  files.Remove("/dst/y");
  for (const bool yes : {false, true}) {
    dialogs.yes_no = {yes};
    Click(window->cmdCreateSubFolder);
    EXPECT_EQ(files.Exists("/dst/y"), yes) << "the target had vanished";
  }
}

}  // namespace
}  // namespace app::test

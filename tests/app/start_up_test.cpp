#include <gtest/gtest.h>

#include "app/filter_text.h"
#include "tests/app/program.h"

namespace app {
namespace {

using test::Program;
using namespace ui::headless;

TEST(StartUp, WithoutALastRunShowsEveryDefaultAndWaitsForASource) {
  Program program;
  frmMain& window = program.Start();
  EXPECT_EQ(window.CurrentSetup(), app::Setup{});
  EXPECT_EQ(window.cboModifiedSince.list_index(), 0);
  EXPECT_FALSE(window.chkIncludeSubfolders.visible());
  EXPECT_FALSE(window.chkExcludeFilesInSourceFolder.visible());
  for (const ui::Button& button : window.cmdClearFolder) EXPECT_FALSE(button.visible()) << button.name();
  for (const ui::Button* button :
       {&window.cmdReportScreen, &window.cmdSelectSubfolders, &window.cmdListSubFolders}) {
    EXPECT_FALSE(button->enabled()) << button->name();
  }
  EXPECT_EQ(window.focused(), &window.cmdSpecifyDirectory[0]);
  EXPECT_TRUE(window.FormLoaded);
  EXPECT_EQ(window.lblPreviousRun.text(), "");
  EXPECT_TRUE(program.front_end.dialogs().asked.empty());
  EXPECT_TRUE(program.shell.entered_root);
}

TEST(StartUp, TheFocusGoesWhereTheNextStepIs) {
  struct Case {
    const char* source;
    const char* target;
    const char* focused;
  };
  for (const Case& c :
       std::vector<Case>{{"/src", "", "cmdSpecifyDirectory 1"}, {"/src", "/dst", "cmdBackupModifiedFiles"}}) {
    Program program;
    app::Setup setup;
    setup.SourceFolder = c.source;
    setup.TargetFolder = c.target;
    program.SaveLastRun(setup);
    EXPECT_EQ(program.Start().focused()->name(), c.focused);
  }
}

TEST(StartUp, FoldersThatHaveGoneAreClearedWithoutAWord) {
  Program program;
  program.SaveLastRun(program.SourceAndTarget());
  program.files.Remove("/src");
  program.files.Remove("/dst");
  frmMain& window = program.Start();
  EXPECT_EQ(window.CurrentSetup().SourceFolder, "");
  EXPECT_EQ(window.CurrentSetup().TargetFolder, "");
  EXPECT_TRUE(program.front_end.dialogs().asked.empty());
}

TEST(StartUp, ShowsThePreviousRunFromTheSecondStartOn) {
  Program program;
  program.Start();
  EXPECT_EQ(program.Start().lblPreviousRun.text().substr(0, 14), "Previous run: ");
}

TEST(Clock, ShowsClearOnlyWhileThereAreSkipPatternsAndForgetsASaveAfterTenTicks) {
  Program program;
  frmMain& window = program.Start();
  Type(window.txbExcludedFilepaths, "temp");
  program.front_end.PassTime(1000);
  program.front_end.RunPendingEvents();
  EXPECT_TRUE(window.cmdClearFolder[2].visible());
  Click(window.cmdClearFolder[2]);
  EXPECT_EQ(window.focused(), &window.txbExcludedFilepaths);
  window.MarkSetupSaved();
  for (int tick = 1; tick <= 11; ++tick) {
    EXPECT_TRUE(window.SetupJustSaved) << tick;
    program.front_end.PassTime(1000);
    program.front_end.RunPendingEvents();
  }
  EXPECT_FALSE(window.SetupJustSaved);
  EXPECT_FALSE(window.cmdClearFolder[2].visible());
}

TEST(Quit, SavesTheSetupOnlyWhenAskedToAndNotTwice) {
  for (const bool tick : {false, true}) {
    for (const bool just_saved : {false, true}) {
      Program program;
      frmMain& window = program.Start();
      if (tick) Tick(window.chkSaveSetupOnQuit, true);
      if (just_saved) window.MarkSetupSaved();
      EXPECT_TRUE(Click(window.cmdQuit));
      EXPECT_EQ(program.files.Exists(window.LastRunSetupPath), tick && !just_saved);
      EXPECT_TRUE(program.front_end.quitting());
    }
  }
}

TEST(Quit, TellsOfAFailedSaveAndStillEndsAndTheTitleBarSavesNothing) {
  Program program;
  frmMain& window = program.Start();
  Tick(window.chkSaveSetupOnQuit, true);
  program.files.Fail(platform::memory::Call::kReplaceFile, "", {platform::ErrorKind::kDiskFull, 28, ""});
  Click(window.cmdQuit);
  EXPECT_EQ(program.LastMessage(), program.texts.GetProgramText(116));
  EXPECT_TRUE(program.front_end.quitting());

  Program closed;
  frmMain& other = closed.Start();
  Tick(other.chkSaveSetupOnQuit, true);
  other.UserClosed();
  EXPECT_FALSE(closed.files.Exists(other.LastRunSetupPath));
  EXPECT_TRUE(closed.front_end.quitting());
}

struct ExtensionCase {
  const char* typed;
  const char* kept;
  bool message;
};

TEST(Filters, ExtensionsAreCleanedAndHeldAgainstTheirLength) {
  Program program;
  frmMain& window = program.Start();
  for (const ExtensionCase& c : std::vector<ExtensionCase>{{"", "", false},
                                                           {"JPG", "", true},
                                                           {".jpg", "jpg", false},
                                                           {"*", "", true},
                                                           {"**", "", true},
                                                           {"j?g", "j?g", false},
                                                           {"*peg", "*peg", false},
                                                           {"jpeg12", "jpeg", false},
                                                           {"abcdef", "abcdef", true},
                                                           {"x", "x", true},
                                                           {"ätß y", "ätßy", false}}) {
    program.front_end.dialogs().asked.clear();
    Type(window.txbFileExtension, c.typed);
    window.cmdQuit.SetFocus();
    EXPECT_EQ(window.txbFileExtension.text(), c.kept) << c.typed;
    EXPECT_EQ(!program.front_end.dialogs().asked.empty(), c.message) << c.typed;
  }
}

TEST(Filters, ALongSkipTextIsItsOwnToolTip) {
  Program program;
  frmMain& window = program.Start();
  for (const std::size_t length : {70U, 71U}) {
    std::string text;
    for (std::size_t i = 0; i < length; ++i) text += "ä";
    Type(window.txbExcludedFilepaths, text);
    window.cmdQuit.SetFocus();
    EXPECT_EQ(window.txbExcludedFilepaths.tool_tip(), length > 70 ? text : "");
  }
}

TEST(Filters, FindFirstNotInCountsCharactersFromOne) {
  EXPECT_EQ(FindFirstNotIn("", 1, "a"), 0);
  EXPECT_EQ(FindFirstNotIn("abc", 1, ""), 1);
  EXPECT_EQ(FindFirstNotIn("ääb", 0, "ä"), 3);
  EXPECT_EQ(FindFirstNotIn("xaaa", 2, "a"), 0);
}

}  // namespace
}  // namespace app

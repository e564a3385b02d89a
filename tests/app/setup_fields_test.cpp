#include "app/confirmation/frmConfirmOperation.h"

#include "tests/app/program.h"

/// Each choice of the user's, from its control to the setup, the run, the file and back.
namespace app::test {

using namespace ui::headless;

struct SetupFields : testing::Test, Program {
  SetupFields() : Program({"/src/a/below/x", "/src/b/y", "/src/file", "/other/a/", "/other/f", "/dst2/"}) {
    setup.IncludedFolders = {"a"};
  }

  void ChooseFolder(std::size_t index, const std::string& path) {
    dialogs.texts = {path};
    Click(window->cmdSpecifyDirectory[index]);
  }

  /// What the confirmation says of the run that it would start.
  std::string Confirmation() {
    std::string said;
    InOpenWindow<frmConfirmOperation>([&](frmConfirmOperation& confirm) {
      said = Seen(confirm);
      confirm.UserPressedEscape();
    });
    Click(window->cmdBackupAllFiles);
    front_end.when_idle = {};
    return said;
  }
};

TEST_F(SetupFields, GoFromTheWindowToTheRunAndTheFileAndBack) {
  frmMain* w = &StartWithSetup();
  const std::string unchanged = Confirmation();
  const auto follow = [&](const std::string& name, const std::function<void(app::Setup&)>& choose) {
    w = &StartWithSetup();
    w->MarkSetupSaved();
    app::Setup expected = setup;
    choose(expected);
    EXPECT_EQ(w->CurrentSetup(), expected) << name;
    EXPECT_FALSE(w->SetupJustSaved) << name;
    EXPECT_EQ(Confirmation() != unchanged, !expected.SaveSetupOnQuit) << name;
    SaveForNextRun();
    EXPECT_TRUE(w->SetupJustSaved) << name;
    EXPECT_EQ(Start().CurrentSetup(), expected) << name;
  };
  follow("target", [&](app::Setup& s) { ChooseFolder(1, s.TargetFolder = "/dst2"); });
  follow("no target", [&](app::Setup& s) { Click(w->cmdClearFolder[1]), s.TargetFolder.clear(); });
  follow("source",
         [&](app::Setup& s) { ChooseFolder(0, s.SourceFolder = "/other"), s.IncludedFolders.clear(); });
  follow("included", [&](app::Setup& s) { Click(w->cmdRemoveSubfolder), s.IncludedFolders.clear(); });
  follow("extension", [&](app::Setup& s) { Type(w->txbFileExtension, s.FileExtension = "txt"); });
  follow("patterns", [&](app::Setup& s) { Type(w->txbExcludedFilepaths, s.SkipFilepaths = "z, x"); });
  follow("period", [&](app::Setup& s) { Select(w->cboModifiedSince, s.ModifiedSince = 3); });
  using Box = ui::CheckBox frmMain::*;
  const std::pair<Box, bool app::Setup::*> boxes[] = {
      {&frmMain::chkIncludeSubfolders, &app::Setup::IncludeSubfolders},
      {&frmMain::chkExcludeFilesInSourceFolder, &app::Setup::ExcludeFilesInSourceFolder},
      {&frmMain::chkPauseAfterFirstCopy, &app::Setup::PauseAfterFirstCopy},
      {&frmMain::chkSuppressDetailedReports, &app::Setup::SuppressDetailedReports},
      {&frmMain::chkSaveSetupOnQuit, &app::Setup::SaveSetupOnQuit}};
  for (const auto& [box, field] : boxes)
    follow((window.get()->*box).name(),
           [&, box = box, field = field](app::Setup& s) { Tick(w->*box, s.*field = true); });
}

}  // namespace app::test

#include <tuple>
#include "app/frmConfirmOperation.h"

#include "tests/app/program.h"

/// Each choice of the user's, from its control to the setup, the run, the file and back.
namespace app::test {

using namespace ui::headless;

struct SetupFields : testing::Test, Program {
  SetupFields() : Program({"/src/a/below/x", "/src/b/y", "/src/file", "/other/a/", "/other/f", "/dst2/"}) {
    setup.IncludedFolders = {"a"};
  }

  void ChooseFolder(std::size_t index, const char* path) {
    dialogs.texts = {path};
    Click(window->cmdSpecifyDirectory[index]);
  }

  /// What the confirmation says of the run that it would start.
  std::string Confirmation() {
    std::string said;
    front_end.when_idle = [&] {
      auto& confirm = dynamic_cast<frmConfirmOperation&>(*front_end.modal);
      if (confirm.tmrRead.running()) return front_end.PassTime(1);
      for (const auto& row : confirm.fact_rows) said += row->lblHeading.text() + row->lblText.text() + "|";
      confirm.UserPressedEscape();
    };
    Click(window->cmdBackupAllFiles);
    front_end.when_idle = {};
    return said;
  }
};

TEST_F(SetupFields, GoFromTheWindowToTheRunAndTheFileAndBack) {
  frmMain* w = nullptr;
  const std::tuple<const char*, std::function<void()>, std::function<void(app::Setup&)>> fields[] = {
      {"target", [&] { ChooseFolder(1, "/dst2"); }, [](app::Setup& s) { s.TargetFolder = "/dst2"; }},
      {"included folders", [&] { w->cboIncludedFolders.SetListIndex(0), Click(w->cmdRemoveSubfolder); },
       [](app::Setup& s) { s.IncludedFolders.clear(); }},
      {"source", [&] { ChooseFolder(0, "/other"); },
       [](app::Setup& s) { s.SourceFolder = "/other", s.IncludedFolders.clear(); }},
      {"with subfolders", [&] { Tick(w->chkIncludeSubfolders, true); },
       [](app::Setup& s) { s.IncludeSubfolders = true; }},
      {"extension", [&] { Type(w->txbFileExtension, "txt"); },
       [](app::Setup& s) { s.FileExtension = "txt"; }},
      {"patterns", [&] { Type(w->txbExcludedFilepaths, "z, x"); },
       [](app::Setup& s) { s.SkipFilepaths = "z, x"; }},
      {"period", [&] { Select(w->cboModifiedSince, 3); }, [](app::Setup& s) { s.ModifiedSince = 3; }},
      {"without own files", [&] { Tick(w->chkExcludeFilesInSourceFolder, true); },
       [](app::Setup& s) { s.ExcludeFilesInSourceFolder = true; }},
      {"pause", [&] { Tick(w->chkPauseAfterFirstCopy, true); },
       [](app::Setup& s) { s.PauseAfterFirstCopy = true; }},
      {"short report", [&] { Tick(w->chkSuppressDetailedReports, true); },
       [](app::Setup& s) { s.SuppressDetailedReports = true; }},
      {"save on quit", [&] { Tick(w->chkSaveSetupOnQuit, true); },
       [](app::Setup& s) { s.SaveSetupOnQuit = true; }}};
  w = &StartWithSetup();
  const std::string unchanged = Confirmation();
  for (const auto& [name, choose, change] : fields) {
    w = &StartWithSetup();
    choose();
    app::Setup expected = setup;
    change(expected);
    EXPECT_EQ(w->CurrentSetup(), expected) << name;
    EXPECT_EQ(Confirmation() != unchanged, !expected.SaveSetupOnQuit) << name;
    Click(w->cmdSetup), Click(w->cmdSaveSetup), Click(w->cmdSaveSetupForNextRun);
    EXPECT_EQ(Start().CurrentSetup(), expected) << name;
  }
}

}  // namespace app::test

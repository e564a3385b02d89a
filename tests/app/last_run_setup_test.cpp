#include "app/select_subfolders/frmSelectSubfolders.h"
#include "services/setup_text.h"
#include "tests/app/program.h"

/// What becomes of the setup of the last run: it is the only one that a scheduled backup has.
namespace app::test {

using namespace ui::headless;

struct LastRunSetup : testing::Test, Program {
  LastRunSetup() : Program({"/src/a/x", "/src/b/y", "/src/c/z"}) {
    setup.IncludedFolders = {"c", "a", "b"};
    setup.SaveSetupOnQuit = true;
    StartWithSetup();
  }

  Story story{"app/told/"};
  std::string Saved() { return files.ContentOf(kLastRun); }
};

TEST_F(LastRunSetup, KeepsWhatIsAwayForANightAndRunsWithItWhenItIsBack) {
  for (const std::string gone : {"/src", "/dst", "/src/a"}) {
    for (const char* words : {"nightly", ""}) {
      Program night({"/src/a/x", "/src/b/y", "/src/c/z"});
      night.setup = setup;
      night.files.Remove(gone);
      night.StartWithSetup(words);
      story.Note(gone + " is away, " + words, *night.window, night.Heard());
      tree::Add(night.files, {"/src/a/x", "/src/a/Thumbs.db", "/src/b/y", "/src/c/z", "/dst/"});
      night.window->SkipConfirmation = true;
      Click(night.window->cmdBackupModifiedFiles);
      night.Heard();
      EXPECT_EQ(tree::Below(night.files, "/dst"), "a/Thumbs.db=1 a/x=1 b/y=1 c/z=1");
      Click(night.window->cmdQuit);
      EXPECT_EQ(night.files.ContentOf(kLastRun), services::SetupText(setup)) << gone << words;
      EXPECT_EQ(night.Heard(), "");
    }
  }
}

TEST_F(LastRunSetup, IsWhatTheUserChoosesInPlaceOfWhatIsAway) {
  const auto saved_after = [&](const std::function<void()>& choice) {
    files.Remove("/src/a");
    StartWithSetup();
    choice();
    SaveForNextRun();
    const auto names = services::ParseSetup(Saved(), 10).setup.IncludedFolders;
    tree::Add(files, {"/src/a/x"});
    return names;
  };
  using Names = std::vector<std::string>;
  const auto choose = [&](const char* path) {
    dialogs.texts = {path};
    Click(window->cmdSpecifyDirectory[0]);
  };
  const auto select = [&](bool keep) {
    InOpenWindow<frmSelectSubfolders>([&, keep](frmSelectSubfolders& form) {
      EXPECT_EQ(form.chkKeepAway.text(), "Keep one included subfolder that is not there now: a");
      Tick(form.chkKeepAway, keep);
      Click(form.cmdAccept);
    });
    Click(window->cmdSelectSubfolders);
    front_end.when_idle = {};
  };
  EXPECT_EQ(saved_after([] {}), (Names{"c", "a", "b"}));
  EXPECT_EQ(saved_after([&] { choose("/src"); }), (Names{"c", "a", "b"})) << "the same";
  EXPECT_EQ(saved_after([&] { choose("/dst"); }), Names());
  EXPECT_EQ(saved_after([&] { Click(window->cmdSetup), Click(window->setup_commands.cmdClearSetup); }),
            Names());
  EXPECT_EQ(saved_after([&] { select(true); }), (Names{"c", "a", "b"}));
  EXPECT_EQ(saved_after([&] { select(false); }), (Names{"b", "c"}));
}

TEST_F(LastRunSetup, IsNotOverwrittenUnaskedByAPartOfItOrByAWindowThatDoesNotKnowIt) {
  const std::string part = "/src\r\n/dst\r\n 0 \r\n 1 \r\n";
  const std::string newer = services::SetupText({});
  for (const std::string& content : {part, newer}) {
    for (const bool yes : {false, true}) {
      Program program({"/src/a/x", "/src/b/y", "/src/c/z"});
      program.files.AddFile(kLastRun, content == part ? part : services::SetupText(setup));
      program.Start("nightly");
      story.Note(content == part ? "A part of it" : "All of it", *program.window, program.Heard());
      if (content == newer) program.files.AddFile(kLastRun, newer);
      program.dialogs.yes_no = {yes};
      Tick(program.window->chkSaveSetupOnQuit, true);
      Click(program.window->cmdQuit);
      EXPECT_TRUE(program.front_end.quitting());
      story.told += program.Heard();
      EXPECT_EQ(program.files.ContentOf(kLastRun) == content, !yes);
    }
  }
}

TEST_F(LastRunSetup, OnlyASaveOrLoadThatWorkedSparesQuitTheSave) {
  auto& commands = window->setup_commands;
  for (ui::Button* command : {&commands.cmdClearSetup, &commands.cmdRestoreSetup}) {
    SaveForNextRun();
    Click(window->cmdSetup);
    Click(*command);
    EXPECT_FALSE(window->SetupJustSaved);
  }
  SaveForNextRun();
  dialogs.texts = {kLastRun};
  PressInSetup(commands.cmdLoadSetup, commands.cmdSaveSetupAsOperationFile);
  EXPECT_FALSE(window->SetupJustSaved);
  Type(window->txbFileExtension, "jpg");
  files.Fail(platform::memory::Call::kReplaceFile, "", {}, 1);
  SaveForNextRun();
  EXPECT_FALSE(window->SetupJustSaved);
  PressInSetup(commands.cmdLoadSetup, commands.cmdSaveSetupForNextRun);
  front_end.PassTime(10'000ms);
  EXPECT_TRUE(window->SetupJustSaved);
  front_end.PassTime(1'000ms);
  EXPECT_FALSE(window->SetupJustSaved) << "which is forgotten";
  files.Remove(kLastRun);
  PressInSetup(commands.cmdLoadSetup, commands.cmdSaveSetupForNextRun);
  EXPECT_FALSE(window->SetupJustSaved);
  Type(window->txbFileExtension, "jpg");
  Click(window->cmdQuit);
  EXPECT_TRUE(Saved().ends_with("jpg\r\n"));
}

TEST_F(LastRunSetup, RunsWithoutItsLastLineAndSaysWhyItDoesNotRunAtAll) {
  const std::string whole = services::SetupText(setup);
  const std::string path = kLastRun;
  using Files = platform::memory::MemoryFileSystem;
  const std::pair<const char*, std::function<void(Files&)>> cases[] = {
      {"Without the last line", [&](Files& f) { f.AddFile(path, whole.substr(0, whole.size() - 2)); }},
      {"Half of it", [&](Files& f) { f.AddFile(path, whole.substr(0, whole.size() - 4)); }},
      {"A comma", [&](Files& f) { f.AddFile(path, "/src\r\n/a,b\r\n 0 \r\n"); }},
      {"No file", [](Files&) {}},
      {"A pipe", [&](Files& f) { f.AddPipe(path); }},
      {"Not to be looked at", [&](Files& f) {
         f.Fail(platform::memory::Call::kLook, path, {platform::ErrorKind::kOther, 5, "EIO"});
       }}};
  for (const auto& [what, arrange] : cases) {
    Program program({"/src/a/x", "/src/b/y", "/src/c/z"});
    arrange(program.files);
    program.Start("nightly");
    story.Note(what, *program.window, program.Heard());
  }
}

}  // namespace app::test

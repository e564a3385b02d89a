#include "tests/engine/scene.h"

namespace engine::test {

using app::Operation;

TEST(RunOperation, FindsNewAndModifiedFilesAlikeAndCopiesOnlyWhenItCopies) {
  const std::pair<Operation, const char*> cases[] = {
      {Operation::kCheckBackupState, "new 1, modified 1, up to date 1, filtered 1, due 2"},
      {Operation::kBackupModifiedFiles, "new 1, modified 1, copied 2, up to date 1, filtered 1"},
      {Operation::kBackupAllFiles, "copied 3, filtered 1"},
      {Operation::kListIncludedSubfolders, "filtered 1, due 3"}};
  for (const auto& [operation, found] : cases) {
    Scene scene({"/src/same.txt", "/dst/same.txt", "/src/changed.txt=333", "/dst/changed.txt", "/src/a.doc"});
    scene.files.AddHugeFile("/src/new.txt", 6'000'000'001);
    scene.setup.FileExtension = "txt";
    EXPECT_EQ(scene.Run(operation), found);
    EXPECT_EQ(scene.outcome.totals.bytes_met, 6'000'000'005);
    EXPECT_EQ(scene.files.Exists("/dst/new.txt"), app::IsCopyOperation(operation));
  }
}

TEST(RunOperation, RefusesWhatCannotWorkBeforeTheReportOpens) {
  const struct {
    std::int16_t status;
    void (*arrange)(Scene&);
    std::string refusal, unattended;
  } cases[] = {
      {kNothingToDo, [](Scene& s) { s.setup.ExcludeFilesInSourceFolder = true; },
       "Setup implies nothing to do: Files in the source folder are excluded,\r\n"
       "and no subfolders are excluded,\r\nso there is nothing to do!",
       "Setup implies nothing to do"},
      {kNoFilesInSource, [](Scene& s) { s.setup.SourceFolder = ""; }, "Nothing: Empty.", "Empty."},
      {kNoFilesInSource, [](Scene& s) { s.files.Remove("/src/a"); }, "Nothing: Empty.", "Empty."},
      {kSourceNotReadable, [](Scene& s) { s.files.Remove("/src"); },
       "Nothing: Not read: /src (No such file or directory)", "Not read: /src (No such file or directory)"},
      {kNoFilesInSetup, [](Scene& s) { s.files.Remove("/src/a"), s.files.AddFolder("/src/x/y"); },
       "Nothing: No files.", "No files."},
      {kTargetNotSpecified, [](Scene& s) { s.setup.TargetFolder = ""; },
       "Target folder not specified: Which?", "Target folder not specified"},
      {kTargetMissing, [](Scene& s) { s.files.Remove("/dst"); },
       "Target folder does not exist: Target folder /dst does not exist.", "Target folder does not exist"},
      {kTargetMissing, [](Scene& s) { s.setup.TargetFolder = "/src/a"; },
       "Target folder does not exist: Target folder /src/a does not exist.", "Target folder does not exist"},
      {kTargetIsSource, [](Scene& s) { s.setup.TargetFolder = "/src/"; }, "Same: The same.", "The same."},
      {kTargetWriteProtected, [](Scene& s) { s.write_protected = true; },
       "Nothing: Protected.\r\n(Read-only file system)", "Protected."}};
  for (const auto& c : cases) {
    Scene scene({"/src/a"});
    c.arrange(scene);
    std::string unattended;
    scene.Run(Operation::kBackupModifiedFiles, &unattended);
    EXPECT_EQ(scene.outcome.status, c.status);
    EXPECT_EQ(unattended, c.unattended);
    scene.BackUp();
    EXPECT_EQ(scene.refusal, c.refusal);
    EXPECT_EQ(scene.steps, "prepare|prepare|refuse|");
  }
}

TEST(RunOperation, GoesThroughItsStepsInOrder) {
  Scene scene({"/src/a.jpg"});
  scene.setup.FileExtension = "jpg";
  scene.BackUp();
  EXPECT_EQ(scene.steps, "prepare|confirm|open|space|lock|summary|Close|unlock|refresh|");
  EXPECT_EQ(scene.lines,
            "Back up new and modified|Back up new and modified (/src) with file extension 'jpg'|"
            "{source folder} = /src||");
}

TEST(RunOperation, ListNeedsNoTargetAndNotesThatItCounts) {
  Scene scene({"/src/a"});
  scene.setup.TargetFolder.clear();
  EXPECT_EQ(scene.Run(Operation::kListIncludedSubfolders), "due 1");
  EXPECT_TRUE(scene.lines.starts_with("Counting files and folders|Now counting files and folders ...|"));
}

TEST(RunOperation, OnlyCopiesAreConfirmedAndOnlyWhereSomebodyIsThere) {
  Scene scene({"/src/a"});
  scene.confirm = false;
  EXPECT_EQ(scene.Check(), "new 1, due 1");
  scene.BackUp();
  EXPECT_EQ(scene.outcome.status, kNotConfirmed);
  EXPECT_EQ(scene.Copies(), "");
  std::string status_text;
  EXPECT_EQ(scene.Run(Operation::kBackupModifiedFiles, &status_text), "new 1, copied 1");
}

}  // namespace engine::test

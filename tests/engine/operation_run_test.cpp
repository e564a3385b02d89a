#include "tests/engine/scene.h"

namespace engine::test {

using app::Operation;
using platform::memory::Call;

TEST(RunOperation, FindsNewAndModifiedFilesAlikeAndCopiesOnlyWhenItCopies) {
  const struct {
    Operation operation;
    const char* found;
    std::int64_t bytes_copied;  ///< of the huge file as many as 31 bits hold
  } cases[] = {{Operation::kCheckBackupState, "new 1, modified 1, up to date 1, filtered 1, due 2", 0},
               {Operation::kBackupModifiedFiles, "new 1, modified 1, copied 2, up to date 1, filtered 1",
                2'147'483'650},
               {Operation::kBackupAllFiles, "copied 3, filtered 1", 2'147'483'651},
               {Operation::kListIncludedSubfolders, "filtered 1, due 3", 0}};
  for (const auto& c : cases) {
    Scene scene(
        {"/src/same.txt", "/dst/same.txt", "/src/changed.txt=333", "/dst/changed.txt", "/src/doctxt"});
    scene.files.AddHugeFile("/src/new.txt", 6'000'000'001);
    scene.setup.FileExtension = "txt";
    EXPECT_EQ(scene.Run(c.operation), c.found);
    EXPECT_EQ(scene.outcome.totals.bytes_met, 6'000'000'005);
    EXPECT_EQ(scene.outcome.totals.bytes_copied, c.bytes_copied);
  }
}

TEST(RunOperation, RefusesWhatCannotWorkBeforeTheReportOpens) {
  const std::tuple<std::int16_t, const char*, void (*)(Scene&)> cases[] = {
      {kNothingToDo,
       "Setup implies nothing to do: Files in the source folder are excluded,\r\nand no subfolders are "
       "excluded,\r\nso there is nothing to do!",
       [](Scene& s) { s.setup.ExcludeFilesInSourceFolder = true; }},
      {kNoFilesInSource, "Nothing: Empty.", [](Scene& s) { s.setup.SourceFolder = ""; }},
      {kNoFilesInSource, "Nothing: Empty.", [](Scene& s) { s.files.Remove("/src/a"); }},
      {kSourceNotReadable, "Nothing: Not read: /src (No such file or directory)",
       [](Scene& s) { s.files.Remove("/src"); }},
      {kNoFilesInSetup, "Nothing: No files.",
       [](Scene& s) { s.files.Remove("/src/a"), s.files.AddFolder("/src/x/y"); }},
      {kNoFilesInSetup, "Nothing: No files.",
       [](Scene& s) { s.setup.ExcludeFilesInSourceFolder = true, s.setup.IncludedFolders = {"gone"}; }},
      {kTargetNotSpecified, "Target folder not specified: Which?",
       [](Scene& s) { s.setup.TargetFolder = ""; }},
      {kTargetMissing, "Target folder does not exist: Target folder /dst does not exist.",
       [](Scene& s) { s.files.Remove("/dst"); }},
      {kTargetMissing, "Target folder does not exist: Target folder /src/a does not exist.",
       [](Scene& s) { s.setup.TargetFolder = "/src/a"; }},
      {kTargetNotReadable, "Nothing: Unreadable: /dst (EIO)",
       [](Scene& s) { s.files.Fail(Call::kLook, "/dst", {.code = 5, .text = "EIO"}); }},
      {kTargetIsSource, "Same: The same.", [](Scene& s) { s.setup.TargetFolder = "/src/"; }},
      {kTargetWriteProtected, "Nothing: Protected.\r\n(Read-only file system)",
       [](Scene& s) { s.write_protected = true; }}};
  for (const auto& [status, words, arrange] : cases) {
    Scene scene({"/src/a"});
    arrange(scene);
    EXPECT_EQ(scene.BackUp() + scene.lines, "") << "no report is opened";
    ASSERT_TRUE(scene.refusal) << words;
    EXPECT_EQ(scene.refusal->status, status) << words;
    EXPECT_EQ(scene.refusal->title + ": " + scene.refusal->text, words);
    const auto said = std::string(words).find(scene.refusal->UnattendedText());
    EXPECT_TRUE(scene.write_protected || said != std::string::npos) << words;
  }
}

TEST(RunOperation, TwoRunsAreKeptApartWhereOneTargetLiesInTheOther) {
  Scene scene({"/src/in/a", "/src/in/below/b", "/src/c", "/dst/in/"}, {"in"});
  auto other = std::move(*scene.files.Lock("/dst/in/.quorvane-lock", "another"));
  EXPECT_EQ(scene.Check(), "new 3, due 3");
  EXPECT_EQ(scene.BackUp(), "new 3, copied 1, failed 2, warnings 1");
  EXPECT_TRUE(scene.Wrote("Below: /dst/in, another|") && scene.Wrote("Not copied: /src/in/a. Other run.|"));
  other = std::move(*scene.files.Lock("/dst/.quorvane-lock", "another"));
  scene.setup.TargetFolder = "/dst/in";
  EXPECT_EQ(scene.BackUp(), "");
  EXPECT_EQ(scene.refusal->text, "Above: /dst, another. Wait.");
  other.reset();
  tree::Add(scene.files, {"/dst/in/in/.quorvane-lock"});
  scene.on_copy = [&] { EXPECT_FALSE(scene.files.Lock("/dst/in/.quorvane-lock", "another")); };
  EXPECT_EQ(scene.BackUp(), "new 3, copied 3") << "a dead one is nobody's";
}

TEST(RunOperation, WhereTheTargetCannotBeLockedTheRunsOfOneUserAreKeptApart) {
  Scene scene({"/src/a", "/src/b", "/dst/else/", "/locks/"});
  scene.tools.lock_folder = "/locks";
  EXPECT_EQ(scene.BackUp(), "new 2, copied 2");
  EXPECT_EQ(scene.files.CountOf(Call::kLock), 1U);
  scene.files.Fail(Call::kLock, "/dst/.quorvane-lock", {platform::ErrorKind::kAccessDenied, 13, {}});
  std::vector<std::string> locks;
  scene.on_copy = [&] { locks = scene.files.NamesIn("/locks"); };
  scene.BackUpAll();
  ASSERT_EQ(locks.size(), 1U);
  const auto other = std::move(*scene.files.Lock("/locks/" + locks[0], "another"));
  EXPECT_EQ(scene.BackUp(), "");
  EXPECT_EQ(scene.refusal->text, "Taken: another. Wait.");
  scene.files.Fail(Call::kLock, "/dst/else/.quorvane-lock", {platform::ErrorKind::kAccessDenied, 13, {}});
  scene.setup.TargetFolder = "/dst/else";
  EXPECT_EQ(scene.BackUp(), "new 2, copied 2");
}

}  // namespace engine::test

#include <map>

#include "engine/own_names.h"
#include "tests/engine/scene.h"

namespace engine::test {

using platform::memory::Call;

/// A target with copies of all but some files of the source, all of them outdated.
void Prepare(Scene& scene) {
  for (const std::string name : {"a", "b", "in/c", "in/d", "in/deep/e", "in/f", "tail/g"})
    scene.files.AddFile("/src/" + name, "new content of " + name);
  tree::Add(scene.files,
            {"/dst/a=older content of a", "/dst/in/c=older content of in/c", "/dst/in/deep/e=old"});
  scene.setup.IncludedFolders = {"in", "tail"};
  scene.files.SetGroupSize(3);
}

/// Runs a backup and cuts the power before its call number `step`. False: there is no such call.
bool RunUntil(Scene& scene, std::size_t step, unsigned random, app::Operation operation) {
  bool is_cut = false;
  scene.files.Before([&](Call call, const std::string&) {
    if (call == Call::kReadBlock || is_cut || scene.files.touched().size() < step) return;
    is_cut = true;
    scene.files.CutPower(random);
  });
  scene.Run(operation);
  scene.files.Before({});
  scene.files.PowerOn();
  return is_cut;
}

/// What the disk holds is the old file, the new one or, where there was none, nothing.
void ExpectWholeFiles(Scene& scene, const std::string& folder, const std::string& told) {
  for (const std::string& name : scene.files.NamesIn("/dst/" + folder)) {
    if (platform::IsTemporaryName(name) || name == kUnfinishedMark) continue;
    const std::string path = folder + name;
    if (scene.files.Stat("/dst/" + path)->kind == platform::EntryKind::kFolder) {
      ExpectWholeFiles(scene, path + "/", told);
      continue;
    }
    const std::string content = scene.files.ContentOf("/dst/" + path);
    const bool is_old = content == "older content of " + path || (content == "old" && path == "in/deep/e");
    EXPECT_TRUE(is_old || content == "new content of " + path) << path << ": " << content << told;
  }
  if (!folder.empty()) return;
  for (const char* had_copy : {"a", "in/c", "in/deep/e"})
    EXPECT_TRUE(scene.files.Exists(std::string("/dst/") + had_copy)) << had_copy << told;
}

void CutAtEveryStep(app::Operation operation, bool reads_back) {
  std::size_t step = 0;
  for (bool was_cut = true; was_cut; ++step) {
    for (unsigned random = 1; random <= Trees(8); ++random) {
      Scene scene;
      Prepare(scene);
      scene.reads_back = reads_back;
      was_cut = RunUntil(scene, step, random, operation);
      const std::string told =
          " (power cut before call " + std::to_string(step) + ", seed " + std::to_string(random) + ")";
      ExpectWholeFiles(scene, "", told);
      scene.BackUp();
      EXPECT_EQ(scene.Copies(),
                "a=new content of a b=new content of b in/c=new content of in/c in/d=new content of in/d "
                "in/deep/e=new content of in/deep/e in/f=new content of in/f tail/g=new content of tail/g")
          << told;
    }
  }
  EXPECT_GT(step, 40U);
}

TEST(PowerCut, AtAnyMomentLeavesWholeFilesAndTheNextRunCompletesThem) {
  CutAtEveryStep(app::Operation::kBackupModifiedFiles, false);
  CutAtEveryStep(app::Operation::kBackupModifiedFiles, true);
  CutAtEveryStep(app::Operation::kBackupAllFiles, false);
}

/// As a disk would have it that says it wrote what it did not: the name is there with its size and time.
void Spoil(Scene& scene, const std::string& path) {
  scene.files.AddFile(path, std::string(scene.files.ContentOf(path).size(), '#'),
                      scene.files.ModifiedOf(path));
}

TEST(UnfinishedRun, DoubtsWhatWasCopiedSinceItsBeginAndNothingElse) {
  Scene scene({"/src/a/early"}, {"a"});
  scene.BackUp();
  EXPECT_FALSE(scene.files.Exists(std::string("/dst/") + kUnfinishedMark));
  tree::Add(scene.files, {"/src/a/late", "/src/a/z"});
  scene.files.SetGroupSize(1);
  scene.files.Before([&](Call call, const std::string& path) {
    if (call == Call::kCopyFile && path == "/dst/a/z") scene.files.CutPower(0);
  });
  scene.BackUp();
  scene.files.Before({});
  scene.files.PowerOn();
  Spoil(scene, "/dst/a/early");
  Spoil(scene, "/dst/a/late");
  EXPECT_EQ(scene.Check(), "new 1, modified 1, up to date 1, due 2");
  {
    const auto other_run = scene.files.Lock(std::string("/dst/") + kRunLock, "other");
    scene.Check();
    EXPECT_TRUE(scene.Wrote("Goes on.") && !scene.Wrote("Interrupted."));
  }
  scene.files.Before([&](Call call, const std::string&) {
    EXPECT_FALSE(scene.stop && call == Call::kReplaceFile) << "who cancels waits for no disk";
    if (call == Call::kPublish) scene.stop = true;
  });
  scene.BackUp();
  EXPECT_TRUE(std::exchange(scene.stop, false) && scene.outcome.cancelled);
  scene.files.Before({});
  scene.setup.IncludedFolders.emplace_back("b");
  tree::Add(scene.files, {"/src/b/"});
  scene.files.Fail(Call::kOpenFolder, "/src/b", {platform::ErrorKind::kOther, 5, "I/O error"}, 1);
  EXPECT_EQ(scene.BackUp(), "new 1, modified 1, copied 2, up to date 1, unread 1");
  EXPECT_TRUE(scene.Wrote("Interrupted."));
  EXPECT_TRUE(scene.files.Exists(std::string("/dst/") + kUnfinishedMark)) << "there may be more in b";
  EXPECT_EQ(scene.BackUp(), "up to date 3") << "what has been copied since is not doubted";
  EXPECT_EQ(scene.Copies(), "a/early=# a/late=1 a/z=1");
  EXPECT_EQ(scene.Check(), "up to date 3");
}

TEST(UnfinishedRun, AMarkThatCannotBeSetOrReadIsAWarning) {
  Scene scene({"/src/a"});
  scene.files.Fail(Call::kReplaceFile, "", {platform::ErrorKind::kOther, 5, "I/O error"}, 1);
  EXPECT_EQ(scene.BackUp(), "new 1, copied 1, warnings 1");
  EXPECT_TRUE(scene.Wrote("Not marked: /dst/.quorvane-unfinished"));
  tree::Add(scene.files, {std::string("/dst/") + kUnfinishedMark});
  scene.files.Fail(Call::kReadFile, "", {platform::ErrorKind::kOther, 5, "I/O error"}, 1);
  EXPECT_EQ(scene.Check(), "modified 1, due 1, warnings 1");
  EXPECT_TRUE(scene.Wrote("Mark unread: /dst/.quorvane-unfinished") && !scene.Wrote("Interrupted."));
}

TEST(UnfinishedRun, IsOverOnceEachDoubtedCopyWasMadeAgainWhateverElseFails) {
  Scene scene({"/src/a", "/src/b"});
  const auto fail = [&](const char* copy) {
    scene.files.Fail(Call::kCopyFile, copy, {platform::ErrorKind::kAccessDenied, 13, "no"}, 1);
  };
  scene.BackUp();
  tree::Add(scene.files, {std::string("/dst/") + kUnfinishedMark, "/src/c"});
  fail("/dst/b");
  EXPECT_EQ(scene.BackUp(), "new 1, modified 2, copied 2, failed 1");
  EXPECT_EQ(scene.Check(), "modified 1, up to date 2, due 1");
  tree::Add(scene.files, {"/src/d"});
  fail("/dst/d");
  EXPECT_EQ(scene.BackUp(), "new 1, modified 1, copied 1, up to date 2, failed 1");
  EXPECT_FALSE(scene.files.Exists(std::string("/dst/") + kUnfinishedMark));
}

TEST(UnfinishedRun, DoubtsWhatAnyOfSeveralRunsLeftAndMovesOnlyOnceAllIsOnTheDisk) {
  Scene scene({"/src/a", "/src/b", "/src/c", "/src/d", "/src/e", "/src/f", "/src/g"});
  scene.files.SetGroupSize(2);
  std::string moved;
  const auto cut_at = [&](const std::string& last) {
    scene.files.Before([&scene, &moved, last](Call call, const std::string& path) {
      if (call == Call::kCopyFile && path == last) scene.files.CutPower(0);
      if (call == Call::kReplaceFile) moved += std::to_string(scene.files.CountOf(Call::kPublish));
    });
    scene.BackUp();
    scene.files.Before({});
    scene.files.PowerOn();
  };
  int minutes = 16;
  scene.on_copy = [&] { scene.clock.Advance(std::chrono::minutes{minutes /= 2}); };
  cut_at("/dst/g");
  EXPECT_EQ(moved, "03") << "the third was on its way";
  scene.on_copy = {};
  scene.files.SetGroupSize(1);
  cut_at("/dst/g");
  for (const char* name : {"/dst/c", "/dst/d", "/dst/e"}) Spoil(scene, name);
  cut_at("/dst/d");
  EXPECT_EQ(scene.Check(), "new 1, modified 3, up to date 3, due 4");
}

}  // namespace engine::test

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/engine/scene.h"

namespace engine {
namespace {

using app::Operation;
using platform::Error;
using platform::ErrorKind;
using platform::memory::Call;
using test::Balances;
using test::Scene;

std::vector<std::string> Paths(std::initializer_list<const char*> names) {
  return {names.begin(), names.end()};
}

TEST(FolderWalk, VisitsSourceFilesIncludedFoldersAndWithSubfoldersEverythingBelow) {
  for (const bool below : {false, true}) {
    Scene scene;
    scene.files.AddFile("/src/own", "1");
    scene.files.AddFile("/src/in/a", "2");
    scene.files.AddFile("/src/in/deep/deeper/b", "3");
    scene.files.AddFile("/src/out/c", "4");
    scene.setup.IncludedFolders = {"in"};
    scene.setup.IncludeSubfolders = below;
    const RunOutcome outcome = scene.BackUp();
    EXPECT_EQ(scene.listener.begun, below ? Paths({"/src", "/src/in", "/src/in/deep", "/src/in/deep/deeper"})
                                          : Paths({"/src", "/src/in"}));
    EXPECT_EQ(scene.files.Exists("/dst/in/deep/deeper/b"), below);
    EXPECT_FALSE(scene.files.Exists("/dst/out"));
    EXPECT_EQ(outcome.totals.non_empty_folders, below ? 3 : 2);
  }
}

TEST(FolderWalk, SourceFilesCanBeExcluded) {
  Scene scene;
  scene.files.AddFile("/src/own", "1");
  scene.files.AddFile("/src/in/a", "2");
  scene.setup.IncludedFolders = {"in"};
  scene.setup.ExcludeFilesInSourceFolder = true;
  scene.BackUp();
  EXPECT_FALSE(scene.files.Exists("/dst/own"));
  EXPECT_TRUE(scene.files.Exists("/dst/in/a"));
}

TEST(FolderWalk, ListsEachFolderOnceAndAsksAboutNoFile) {
  Scene scene;
  for (int i = 0; i < 50; ++i) {
    const std::string name = "/in/file" + std::to_string(i);
    scene.files.AddFile("/src" + name, "x", {1000, 0});
    scene.files.AddFile("/dst" + name, "x", {1000, 0});
  }
  scene.setup.IncludedFolders = {"in"};
  scene.setup.ExcludeFilesInSourceFolder = true;
  scene.Check();
  const auto& touched = scene.files.touched();
  const auto times = [&](const std::string& path) {
    return std::count_if(touched.begin(), touched.end(), [&](const auto& touch) {
      return touch.path.starts_with(path) && touch.path.size() > path.size();
    });
  };
  EXPECT_EQ(times("/src/in/"), 0);
  EXPECT_EQ(times("/dst/in/"), 0);
}

TEST(FolderWalk, LinksAreNotWalkedAndLeaveOneLineEach) {
  Scene scene;
  scene.files.AddFile("/src/in/real", "1");
  scene.files.AddLink("/src/in/loop", "/src/in");
  scene.files.AddLink("/src/in/file", "/src/in/real");
  scene.files.AddLink("/src/in/dead", "/nowhere");
  scene.files.AddPipe("/src/in/pipe");
  scene.setup.IncludedFolders = {"in"};
  const RunOutcome outcome = scene.BackUp();
  EXPECT_TRUE(scene.listener.HasLine("Link: /src/in/loop"));
  EXPECT_TRUE(scene.listener.HasLine("Dead: /src/in/dead"));
  EXPECT_TRUE(scene.listener.HasLine("Special: /src/in/pipe"));
  EXPECT_EQ(outcome.totals.warnings, 3);
  EXPECT_EQ(scene.files.ContentOf("/dst/in/file"), "1");
  EXPECT_TRUE(Balances(outcome.totals.counts));
}

TEST(FolderWalk, TheTargetInsideTheSourceIsLeftOut) {
  Scene scene;
  scene.files.AddFile("/src/in/a", "1");
  scene.files.AddFolder("/src/in/backup");
  scene.setup.TargetFolder = "/src/in/backup/";
  scene.setup.IncludedFolders = {"in"};
  for (int run = 0; run < 2; ++run) scene.BackUpAll();
  EXPECT_EQ(scene.files.NamesIn("/src/in/backup"), Paths({"in"}));
  EXPECT_EQ(scene.files.NamesIn("/src/in/backup/in"), Paths({"a"}));
  EXPECT_TRUE(scene.listener.HasLine("Target inside: /src/in/backup"));
}

TEST(FolderWalk, ASourceInsideTheTargetIsNeverOverwritten) {
  Scene scene;
  scene.files.AddFile("/dst/src/a", "original");
  scene.files.AddFile("/dst/src/src/a", "other");
  scene.setup.SourceFolder = "/dst/src";
  scene.setup.IncludedFolders = {"src"};
  scene.BackUpAll();
  EXPECT_EQ(scene.files.ContentOf("/dst/src/a"), "original");
  EXPECT_TRUE(scene.listener.HasLine("Would overwrite: /dst/src/src"));
}

TEST(FolderWalk, ALinkInTheTargetNeverLeadsCopiesIntoTheSource) {
  struct Case {
    const char* link;
    const char* destination;
    bool left_out;
  };
  for (const Case& c : std::vector<Case>{{"/dst/in", "/src/out", true},
                                         {"/dst/in", "/", true},
                                         {"/dst/in/below", "/src/out", true},
                                         {"/dst/in/below", "/other", false}}) {
    Scene scene;
    scene.files.AddFile("/src/in/below/a", "copied");
    scene.files.AddFile("/src/out/a", "original");
    scene.files.AddFolder("/other");
    scene.files.AddLink(c.link, c.destination);
    scene.setup.IncludedFolders = {"in"};
    const RunOutcome outcome = scene.BackUpAll();
    EXPECT_EQ(scene.files.ContentOf("/src/out/a"), "original") << c.link;
    EXPECT_EQ(scene.files.Exists("/other/a"), !c.left_out) << c.link;
    EXPECT_EQ(outcome.totals.warnings, c.left_out ? 1 : 0) << c.link;
  }
}

TEST(FolderWalk, SourceAndTargetAreToldApartAsTheDiskComparesNames) {
  Scene scene;
  scene.files.IgnoreCase(true);
  scene.files.AddFile("/src/Backup/a", "1");
  scene.setup.TargetFolder = "/SRC/backup";
  scene.setup.IncludedFolders = {"BACKUP"};
  scene.BackUpAll();
  EXPECT_TRUE(scene.listener.HasLine("Target inside: /src/Backup"));

  Scene inside_out;
  inside_out.files.IgnoreCase(true);
  inside_out.files.AddFile("/dst/Src/a", "original");
  inside_out.files.AddFile("/dst/Src/SRC/a", "other");
  inside_out.setup.SourceFolder = "/dst/Src";
  inside_out.setup.IncludedFolders = {"SRC"};
  inside_out.BackUpAll();
  EXPECT_EQ(inside_out.files.ContentOf("/dst/Src/a"), "original");
}

TEST(FolderWalk, AnIncludedNameStandsForOneFolderRightBelowTheSource) {
  Scene scene;
  scene.files.AddFile("/outside", "1");
  scene.files.AddFile("/src/in/deep/a", "2");
  scene.setup.IncludedFolders = {"..", "in", "", "in/deep", ".", "in", "../src"};
  const RunOutcome outcome = scene.BackUp();
  EXPECT_EQ(scene.listener.begun, Paths({"/src", "/src/in", "/src/in/deep"}));
  EXPECT_EQ(outcome.totals.warnings, 5);
  EXPECT_EQ(scene.files.NamesIn("/"), Paths({"dst", "outside", "src"}));
}

TEST(FolderWalk, AnUnreadableFolderLeavesALineAndTheOthersGoOn) {
  Scene scene;
  scene.files.AddFile("/src/in/bad/x", "1");
  scene.files.AddFile("/src/in/good/y", "2");
  scene.files.Fail(Call::kOpenFolder, "/src/in/bad", {ErrorKind::kAccessDenied, 13, "Permission denied"});
  scene.setup.IncludedFolders = {"in", "gone"};
  const RunOutcome outcome = scene.BackUp();
  EXPECT_TRUE(scene.listener.HasLine("Not read: /src/in/bad. No permission. (13: Permission denied)"));
  EXPECT_TRUE(scene.listener.HasLine("Gone: /src/gone"));
  EXPECT_EQ(outcome.totals.unread_folders, 1);
  EXPECT_EQ(scene.files.ContentOf("/dst/in/good/y"), "2");
}

TEST(FolderWalk, AFolderInTheWayOfAFileAndAFileInTheWayOfAFolderLoseNothing) {
  Scene scene;
  scene.files.AddFile("/src/in/thing", "file");
  scene.files.AddFile("/src/in/sub/x", "x");
  scene.files.AddFile("/dst/in/thing/kept", "kept");
  scene.files.AddFile("/dst/in/sub", "kept too");
  scene.setup.IncludedFolders = {"in"};
  const RunOutcome outcome = scene.BackUp();
  EXPECT_EQ(outcome.totals.counts.failed, 2);
  EXPECT_EQ(scene.files.ContentOf("/dst/in/thing/kept"), "kept");
  EXPECT_EQ(scene.files.ContentOf("/dst/in/sub"), "kept too");
}

TEST(FolderWalk, LeftoversOfAnInterruptedRunGoButOnlyFromTheTarget) {
  const std::string leftover = platform::MakeTemporaryName();
  const std::string of_the_user = platform::MakeTemporaryName();
  Scene scene;
  scene.files.AddFile("/src/a", "1");
  scene.files.AddFile("/src/" + of_the_user, "mine");
  scene.files.AddFile("/dst/" + leftover, "half");
  scene.Check();
  EXPECT_TRUE(scene.files.Exists("/dst/" + leftover));
  scene.BackUp();
  EXPECT_FALSE(scene.files.Exists("/dst/" + leftover));
  EXPECT_EQ(scene.files.ContentOf("/dst/" + of_the_user), "mine");
}

TEST(FolderWalk, ProgressOnlyMovesForwardAndEndsAtOneAlsoAmongFoldersWithoutFiles) {
  Scene scene;
  for (int i = 0; i < 6; ++i) {
    scene.files.AddFile("/src/x/" + std::to_string(i) + "/file", "1");
    scene.files.AddFolder("/src/y/" + std::to_string(i));
  }
  scene.setup.IncludedFolders = {"x", "y"};
  scene.files.Before([&](Call, const std::string&) { scene.clock.Advance(std::chrono::milliseconds{100}); });
  scene.BackUp();
  EXPECT_TRUE(std::is_sorted(scene.listener.progress.begin(), scene.listener.progress.end()));
  EXPECT_GE(scene.listener.breaths, 15);
  EXPECT_EQ(scene.listener.progress.back(), 1.0);
}

TEST(FolderWalk, LooksForNoTargetBelowATargetThatIsNotThereYet) {
  Scene scene;
  scene.files.AddFile("/src/in/a", "1");
  scene.files.AddFile("/src/in/below/deep/b", "2");
  scene.setup.IncludedFolders = {"in"};
  scene.BackUp();
  const auto& touched = scene.files.touched();
  EXPECT_EQ(std::count_if(touched.begin(), touched.end(),
                          [](const auto& touch) {
                            return touch.call == Call::kOpenFolder && touch.path.starts_with("/dst/in/below");
                          }),
            1);
}

TEST(FolderWalk, PausesOnceAfterTheFirstFolderInWhichAFileWasCopied) {
  Scene scene;
  scene.files.AddFile("/src/x/same", "1", {50, 0});
  scene.files.AddFile("/dst/x/same", "1", {50, 0});
  scene.files.AddFile("/src/y/a", "2");
  scene.files.AddFile("/src/z/b", "3");
  scene.setup.IncludedFolders = {"x", "y", "z"};
  scene.listener.pause_wished = true;
  scene.BackUp();
  EXPECT_EQ(scene.listener.paused_after, Paths({"/src/y/a"}));
}

TEST(Operations, FindNewAndModifiedFilesAlikeAndOnlyCopyWhenTheyCopy) {
  struct Case {
    Operation operation;
    std::int64_t copied, due, up_to_date;
  };
  for (const Case& c : std::vector<Case>{{Operation::kCheckBackupState, 0, 2, 1},
                                         {Operation::kBackupModifiedFiles, 2, 0, 1},
                                         {Operation::kBackupAllFiles, 3, 0, 0},
                                         {Operation::kListIncludedSubfolders, 0, 3, 0}}) {
    Scene scene;
    scene.files.AddFile("/src/same.txt", "1", {50, 0});
    scene.files.AddFile("/dst/same.txt", "1", {50, 0});
    scene.files.AddHugeFile("/src/new.txt", 6'000'000'001);
    scene.files.AddFile("/src/changed.txt", "333");
    scene.files.AddFile("/dst/changed.txt", "1");
    scene.files.AddFile("/src/other.doc", "4");
    scene.setup.FileExtension = "txt";
    const Totals totals = scene.Run(c.operation).totals;
    const FileCounts& counts = totals.counts;
    EXPECT_EQ(counts.copied, c.copied);
    EXPECT_EQ(counts.due, c.due);
    EXPECT_EQ(counts.up_to_date, c.up_to_date);
    EXPECT_EQ(counts.filtered_out, 1);
    EXPECT_EQ(totals.bytes_met, 6'000'000'005);
    EXPECT_TRUE(Balances(counts));
    EXPECT_EQ(scene.files.CountOf(Call::kCopyFile), static_cast<std::size_t>(c.copied));
  }
}

TEST(Operations, ASecondRunFindsEverythingUpToDate) {
  Scene scene;
  scene.files.AddFile("/src/in/a", "1", {1'234'567, 89});
  scene.setup.IncludedFolders = {"in"};
  scene.BackUp();
  const RunOutcome second = scene.BackUp();
  EXPECT_EQ(second.totals.counts.copied, 0);
  EXPECT_EQ(second.totals.counts.up_to_date, 1);
}

struct RefusalCase {
  const char* what;
  std::function<void(Scene&)> arrange;
  Operation operation;
  std::int16_t status;
  const char* status_text;
};

TEST(RunOperation, RefusesWhatCannotWorkBeforeTheReportOpens) {
  const auto backup = Operation::kBackupModifiedFiles;
  for (const RefusalCase& c : std::vector<RefusalCase>{
           {"nothing to do", [](Scene& s) { s.setup.ExcludeFilesInSourceFolder = true; }, backup,
            kNothingToDo, "Setup implies nothing to do"},
           {"no source", [](Scene& s) { s.setup.SourceFolder.clear(); }, backup, kNoFilesInSource, ""},
           {"source gone", [](Scene& s) { s.setup.SourceFolder = "/gone"; }, backup, kSourceNotReadable,
            nullptr},
           {"empty source", [](Scene& s) { s.files.Remove("/src/a"); }, backup, kNoFilesInSource, ""},
           {"no files anywhere", [](Scene& s) { s.files.Remove("/src/a"), s.files.AddFolder("/src/x/y"); },
            backup, kNoFilesInSetup, ""},
           {"no target", [](Scene& s) { s.setup.TargetFolder.clear(); }, Operation::kCheckBackupState,
            kTargetNotSpecified, "Target folder not specified"},
           {"target gone", [](Scene& s) { s.setup.TargetFolder = "/dst/none"; }, backup, kTargetMissing,
            "Target folder does not exist"},
           {"target is a file", [](Scene& s) { s.setup.TargetFolder = "/src/a"; }, backup, kTargetMissing,
            "Target folder does not exist"},
           {"target is the source", [](Scene& s) { s.setup.TargetFolder = "/src/"; }, backup, kTargetIsSource,
            ""},
           {"write-protected", [](Scene& s) { s.write_protected = true; }, backup, kTargetWriteProtected,
            "Protected."}}) {
    Scene scene;
    scene.files.AddFile("/src/a", "1");
    c.arrange(scene);
    std::string status_text;
    EXPECT_EQ(scene.Run(c.operation, &status_text).status, c.status) << c.what;
    if (c.status_text != nullptr) {
      EXPECT_EQ(status_text, c.status_text) << c.what;
    }
    EXPECT_EQ(scene.host.steps, Paths({"prepare"})) << c.what;
    scene.Run(c.operation);
    EXPECT_EQ(scene.host.steps.back(), "refuse") << c.what;
  }
}

TEST(RunOperation, AWriteProtectedTargetIsRefusedWithTheSystemsReason) {
  Scene scene;
  scene.files.AddFile("/src/a", "1");
  scene.write_protected = true;
  scene.BackUp();
  EXPECT_EQ(scene.host.refusal, "|Protected.\r\n(Read-only file system)");
}

TEST(RunOperation, NothingToDoIsSaidInThreeLines) {
  Scene scene;
  scene.setup.ExcludeFilesInSourceFolder = true;
  scene.BackUp();
  EXPECT_EQ(scene.host.refusal,
            "Setup implies nothing to do|Files in the source folder are excluded,\r\n"
            "and no subfolders are excluded,\r\nso there is nothing to do!");
}

TEST(RunOperation, ListNeedsNoTargetAndOnlyCopiesAreConfirmed) {
  Scene scene;
  scene.files.AddFile("/src/a", "1");
  scene.setup.TargetFolder.clear();
  EXPECT_EQ(scene.Run(Operation::kListIncludedSubfolders).status, 0);
  scene.setup.TargetFolder = "/dst";
  scene.Check();
  EXPECT_EQ(std::count(scene.host.steps.begin(), scene.host.steps.end(), "confirm"), 0);
  scene.host.confirm = false;
  EXPECT_EQ(scene.BackUp().status, kNotConfirmed);
  EXPECT_FALSE(scene.files.Exists("/dst/a"));
  std::string status_text;
  EXPECT_EQ(scene.Run(Operation::kBackupModifiedFiles, &status_text).totals.counts.copied, 1);
}

TEST(RunOperation, HeadingNamesOperationSourceExtensionAndLegend) {
  Scene scene;
  scene.files.AddFile("/src/a.jpg", "1");
  scene.setup.FileExtension = "jpg";
  scene.Run(Operation::kListIncludedSubfolders);
  EXPECT_EQ(scene.host.heading.caption, "Counting files and folders");
  EXPECT_EQ(scene.host.heading.lines, Paths({"Now counting files and folders ...",
                                             "List included subfolders (/src) with file extension 'jpg'",
                                             "{source folder} = /src", ""}));
}

TEST(RunOperation, DataThatDidNotReachTheDiskEndsTheRunAsTerminated) {
  Scene scene;
  scene.files.AddFile("/src/a", "1");
  scene.files.Fail(Call::kFlush, "", {ErrorKind::kOther, 5, "Input/output error"});
  EXPECT_TRUE(scene.BackUp().terminated);
}

}  // namespace
}  // namespace engine

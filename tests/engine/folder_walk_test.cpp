#include <utility>

#include "engine/target/overlap.h"

#include "tests/engine/scene.h"

namespace engine::test {

using platform::memory::Call;

TEST(FolderWalk, AnIncludedNameStandsForOneFolderRightBelowTheSource) {
  Scene scene({"/outside", "/src/in/deep/a", "/src/link>/src/in"},
              {"..", "in", "", "in/deep", ".", "in", "../src", "gone", "link"});
  EXPECT_EQ(scene.BackUp(), "new 1, copied 1, warnings 7");
  EXPECT_TRUE(scene.Wrote("|      Link: /src/link|"));
  EXPECT_EQ(scene.visited, "/src|/src/in|/src/in/deep|");
  EXPECT_TRUE(scene.Wrote("|      Gone: /src/gone|") && scene.Wrote("Not plain: in/deep|"));
  scene.files.Fail(Call::kLook, "/src/gone", {platform::ErrorKind::kOther, 5, "I/O error"});
  scene.files.Fail(Call::kOpenFolder, "/src/in/deep", {platform::ErrorKind::kNotFound, 0, {}});
  EXPECT_EQ(scene.BackUp(), "unread 2, warnings 6");
  EXPECT_TRUE(scene.Wrote("Not read: /src/in/deep. Folder gone.|"));
  EXPECT_EQ(scene.outcome.totals.left_out_folders, 6);
  EXPECT_TRUE(scene.Wrote("Not read: /src/gone. Unknown. (5: I/O error)|"));
}

TEST(FolderWalk, ListsEachFolderOnceAndAheadWhatIsNext) {
  struct Files : platform::memory::MemoryFileSystem {
    bool PrefetchFolder(const std::string& path, platform::FollowLinks) override {
      return !(ahead += path + " ").empty();
    }
    std::string ahead;
  } files;
  Scene scene({}, {"a", "b", "c"});
  tree::Add(files, {"/src/x", "/src/a/1/x", "/src/a/2/x", "/src/b/x", "/src/c/x", "/dst/b/x", "/dst/a/1/x"});
  const Tools tools{
      files, scene.clock, scene.texts, {}, scene.tools.GetDiskSpace, scene.tools.IsWriteProtected};
  scene.RunChecked(tools, {scene.setup, app::Operation::kCheckBackupState, {}});
  EXPECT_EQ(files.CountOf(Call::kOpenFolder), 10U);
  EXPECT_EQ(files.ahead,
            "/src /dst /src/a /src/b /src/c /src/a /dst/a /src/b /dst/b /src/c /src/a/1 /dst/a/1 /src/a/2 ");
}

TEST(FolderWalk, LinksAreNotWalkedAndLeaveOneLineEach) {
  Scene scene({"/src/in/real", "/src/in/loop>/src/in", "/src/in/file>/src/in/real", "/src/in/dead>/nowhere"},
              {"in"});
  scene.files.AddPipe("/src/in/pipe");
  scene.files.AddMountPoint("/src/in/disk");
  scene.files.AddFile("/src/in/disk/file", "1");
  EXPECT_EQ(scene.BackUp(), "new 2, copied 2, warnings 4");
  EXPECT_EQ(scene.outcome.totals.left_out_folders, 1);
  EXPECT_EQ(scene.Copies(), "in/file=1 in/real=1");
  for (const char* line :
       {"Link: /src/in/loop|", "Dead: /src/in/dead|", "Special: /src/in/pipe|", "Mount: /src/in/disk|"}) {
    EXPECT_TRUE(scene.Wrote(line)) << line;
  }
  scene.setup.SkipFilepaths = "/loop/,/dead , pipe , /disk/";
  EXPECT_EQ(scene.BackUp(), "up to date 2");
}

TEST(FolderWalk, TheTargetInsideTheSourceIsLeftOutAsTheDiskComparesNames) {
  for (const auto& [target, included] : {std::pair("/src/in/Backup/", "in"), {"/SRC/in/backup", "IN"}}) {
    Scene scene({"/src/in/a", "/src/in/Backup/"}, {included});
    scene.files.IgnoreCase(scene.setup.IncludedFolders[0] == "IN");
    scene.setup.TargetFolder = target;
    scene.BackUpAll();
    EXPECT_EQ(scene.BackUpAll(), "copied 1");
    EXPECT_EQ(tree::Below(scene.files, "/src"), "in/Backup/in/a=1 in/a=1");
    const std::string line = "Target inside: /src/in/Backup|";
    EXPECT_TRUE(scene.Wrote(line) && scene.lines.find(line) == scene.lines.rfind(line));
    scene.setup.TargetFolder = "/src";
    EXPECT_EQ(scene.Run(app::Operation::kListIncludedSubfolders), "due 2") << "whatever the target is";
  }
}

TEST(FolderWalk, ASourceInsideTheTargetIsNeverOverwritten) {
  for (const std::string name : {"Src", "SRC"}) {
    Scene scene({"/dst/Src/a=original", "/dst/Src/" + name + "/a=other"}, {name});
    scene.files.IgnoreCase(name == "SRC");
    scene.setup.SourceFolder = "/dst/Src";
    scene.BackUpAll();
    EXPECT_EQ(scene.files.ContentOf("/dst/Src/a"), "original");
    EXPECT_TRUE(scene.Wrote("Would overwrite: /dst/Src/" + name + "|"));
  }
}

TEST(FolderWalk, AFolderIsKnownByEveryPathThatMountsGiveIt) {
  Scene in_source({"/src/in/a", "/src/in/backup/"}, {"in"});
  in_source.files.MountAgain("/src/in/backup", "/mnt");
  in_source.setup.TargetFolder = "/mnt/backup";
  in_source.BackUp();
  EXPECT_EQ(in_source.BackUp(), "up to date 1");
  EXPECT_TRUE(in_source.Wrote("Target inside: /src/in/backup|"));
  in_source.files.MountAgain("/src/in", "/mnt");
  EXPECT_TRUE(Overlap(in_source.files, "/src/in", "/mnt/in/backup").TargetIsInSource());
  EXPECT_TRUE(Overlap(in_source.files, "/mnt/in/backup", "/src/in").SourceIsInTarget());
  EXPECT_FALSE(Overlap(in_source.files, "/src/in/backup", "/mnt/in").TargetIsInSource());
  for (const Overlap& unknown :
       {Overlap(in_source.files, "/src", "/src/gone"), Overlap(in_source.files, "/src/gone", "/src")}) {
    EXPECT_FALSE(unknown.TargetIsInSource() || unknown.SourceIsInTarget() || unknown.IsTarget("/src/gone"));
    EXPECT_FALSE(unknown.LandsInSource("/src/gone/x", true));
  }
  Scene in_target({"/src/in/a=original", "/src/in/b"}, {"in"});
  in_target.files.MountAgain("/src/in", "/dst");
  EXPECT_EQ(in_target.BackUpAll(), "warnings 1");
  EXPECT_TRUE(in_target.Wrote("Would overwrite: /src/in|"));
}

TEST(FolderWalk, NoObjectOfTheTargetReceivesTwoSourcesWhateverRuleTheTargetFoldsNamesBy) {
  for (const bool numbers_by_spelling : {false, true}) {
    Scene scene({"/src/Docs/a=upper", "/src/docs/a=lower!", "/src/Docs/In/b=upper", "/src/Docs/in/b=lower!",
                 "/src/\u1EC6.txt=one", "/src/\u1EC7.txt=two", "/src/d/x=plain", "/src/d./x=dotted",
                 "/src/d/e\u0301=apart", "/src/d/\u00E9=whole"},
                {"Docs", "docs", "d", "d."});
    scene.files.FoldNames("/dst", numbers_by_spelling);
    EXPECT_EQ(scene.BackUp(), "new 10, copied 5, failed 5") << scene.lines;
    const std::string copies = "Docs/In/b=upper Docs/a=upper d/e\u0301=apart d/x=plain \u1EC6.txt=one";
    EXPECT_EQ(scene.Copies(), copies);
    EXPECT_TRUE(scene.Wrote("Not copied: /src/docs/a. Folder name taken.") &&
                scene.Wrote("Not copied: /src/\u1EC7.txt. Name taken."));
    EXPECT_EQ(scene.BackUp(), "new 5, up to date 5, failed 5") << scene.lines;
    EXPECT_EQ(scene.Copies(), copies);
  }
}

TEST(FolderWalk, AnotherSpellingOfOneCopyIsNeverTakenForTheCopyOfAnother) {
  for (const bool numbers_by_spelling : {false, true}) {
    Scene scene(
        {"/src/both=AAAA", "/src/both.=BBBB", "/src/only.=CCCC", "/src/f/x", "/src/f./y", "/src/o./z"},
        {"f", "f.", "o."});
    scene.files.FoldNames("/dst", numbers_by_spelling);
    scene.BackUp();
    EXPECT_EQ(scene.Copies(), "both=AAAA f/x=1 o/z=1 only=CCCC");
    const bool sees_all = !numbers_by_spelling;
    EXPECT_EQ(scene.BackUp(), sees_all ? "new 2, up to date 4, failed 2" : "new 4, up to date 2, failed 4")
        << scene.lines;
    EXPECT_EQ(scene.Copies(), "both=AAAA f/x=1 o/z=1 only=CCCC");
    Scene other_first({"/src/both.=BBBB", "/src/both=AAAA", "/src/up=1111", "/src/UP=2222"});
    other_first.files.FoldNames("/dst", numbers_by_spelling);
    other_first.BackUp();
    EXPECT_EQ(other_first.Copies(), "both=BBBB up=1111");
    other_first.BackUp();
    EXPECT_EQ(other_first.Copies(), sees_all ? "both=AAAA up=1111" : "both=BBBB up=1111");
  }
}

TEST(FolderWalk, WhatTheTargetSpellsInAnotherWayIsTheCopyAndTakesTheNewCase) {
  for (const bool numbers_by_spelling : {false, true}) {
    Scene scene({"/src/in/A.txt", "/src/in/B.txt=new", "/src/in/only.=dots", "/src/in/Sub/c", "/dst/in/a.txt",
                 "/dst/in/b.txt=old!", "/dst/in/only=dots", "/dst/in/gone", "/dst/in/sub/c"},
                {"in"});
    scene.files.FoldNames("/dst", false);
    scene.files.FoldNames("/dst/in", numbers_by_spelling);
    scene.files.FoldNames("/dst/in/sub", numbers_by_spelling);
    EXPECT_EQ(scene.Check(), "modified 1, up to date 3, due 1") << scene.lines;
    EXPECT_EQ(scene.BackUp(), "modified 1, copied 1, up to date 3") << scene.lines;
    EXPECT_EQ(scene.Copies(), "in/A.txt=1 in/B.txt=new in/Sub/c=1 in/gone=1 in/only=dots");
    EXPECT_EQ(scene.BackUp(), "up to date 4");
  }
}

TEST(FolderWalk, TwoLinksOfTheTargetToOneFolderDoNotMix) {
  Scene scene({"/src/a/x=first", "/src/b/x=second", "/else/", "/dst/a>/else", "/dst/b>/else"}, {"a", "b"});
  EXPECT_EQ(scene.BackUp(), "new 2, copied 1, failed 1, warnings 1");
  EXPECT_EQ(scene.files.ContentOf("/else/x"), "first");
  EXPECT_TRUE(scene.Wrote("Elsewhere: /dst/a|") && scene.Wrote("Same name: /src/b|"));
  Scene later({"/src/p/q/x=first", "/src/z/l/x=second", "/dst/p/", "/dst/z/l>/dst/p/q"}, {"p", "z"});
  EXPECT_EQ(later.BackUp(), "new 2, copied 1, failed 1, warnings 1");
  EXPECT_EQ(later.files.ContentOf("/dst/p/q/x"), "first") << "a folder that this run made";
}

TEST(FolderWalk, ALinkThatAnotherUserLaidInTheTargetIsNotFollowed) {
  Scene scene({"/src/in/below/x=new", "/src/in/y=new", "/else/below/x=kept", "/else/y=kept", "/dst/in>/else"},
              {"in"});
  scene.files.MakeForeign("/dst/in");
  EXPECT_EQ(scene.BackUp(), "new 2, failed 2, warnings 1");
  EXPECT_EQ(tree::Below(scene.files, "/else"), "below/x=kept y=kept");
  EXPECT_TRUE(scene.Wrote("Foreign: /dst/in|") && scene.Wrote("/src/in/below/x. Foreign link."));
}

TEST(FolderWalk, NeitherALinkNorTheSourcesOwnFileIsACopy) {
  Scene scene({"/src/a", "/src/b", "/other", "/dst/a>/other"});
  scene.files.MountAgain("/src/b", "/dst");
  EXPECT_EQ(scene.BackUp(), "modified 2, copied 2");
  EXPECT_EQ(scene.BackUp(), "up to date 2");
  scene.files.AddFile("/src/b", "changed");
  EXPECT_EQ(scene.Copies(), "a=1 b=1");
}

TEST(FolderWalk, ATargetThatGoesAwayIsNotMadeAnewNorTakenForAnotherFolder) {
  for (const bool bare_mount_point : {false, true}) {
    Scene scene({"/src/in/a", "/src/next/b", "/dst/next/"}, {"in", "next"});
    scene.files.Before([&](Call call, const std::string& path) {
      if (path != "/src/in" || call != Call::kOpenFolder || scene.visited.empty()) return;
      scene.files.MountAgain("/dst", "/elsewhere");
      scene.files.Remove("/dst");
      if (bare_mount_point) scene.files.AddFolder("/dst");
    });
    scene.BackUp();
    EXPECT_TRUE(scene.Wrote("Not read: /dst/next. Target gone."));
    EXPECT_EQ(scene.Copies(), "");
  }
}

TEST(FolderWalk, ALinkInTheTargetNeverLeadsCopiesIntoTheSource) {
  for (const std::string link : {"in>/src/out", "in>/", "in/below>/src/out", "in/below>/other"}) {
    Scene scene({"/src/in/below/a=copied", "/src/out/a=original", "/other/", "/dst/" + link}, {"in"});
    EXPECT_EQ(scene.BackUpAll(), link == "in/below>/other" ? "copied 1" : "warnings 1") << link;
    EXPECT_EQ(scene.files.ContentOf("/src/out/a"), "original") << link;
  }
}

TEST(FolderWalk, AFolderInTheWayOfAFileAndAFileInTheWayOfAFolderLoseNothing) {
  Scene scene({"/src/in/thing", "/src/in/sub/x", "/src/in/dead/y", "/dst/in/thing/kept",
               "/dst/in/sub=kept too", "/dst/in/dead>/nowhere"},
              {"in"});
  EXPECT_EQ(scene.BackUp(), "new 3, failed 3");
  EXPECT_TRUE(scene.Wrote("x. File in the way.") && scene.Wrote("y. File in the way.")) << scene.lines;
  scene.files.Remove("/dst/in/dead");
  EXPECT_EQ(scene.Copies(), "in/sub=kept too in/thing/kept=1");
}

TEST(FolderWalk, LeftoversOfAnInterruptedRunGoButOnlyFromTheTarget) {
  const std::string leftover = platform::MakeTemporaryName();
  const std::string of_the_user = platform::MakeTemporaryName();
  Scene scene({"/src/a", "/src/" + of_the_user, "/dst/" + leftover, "/dst/" + of_the_user});
  scene.Check();
  EXPECT_TRUE(scene.files.Exists("/dst/" + leftover));
  scene.BackUp();
  EXPECT_EQ(scene.Copies(), of_the_user + "=1 a=1");
}

TEST(FolderWalk, WhatARunLeftThatEndedWhileItRespelledANameGetsItBack) {
  const std::string between = "/dst/" + platform::MakeTemporaryName();
  Scene scene({"/src/Name/a", between + "/Name/a", between.substr(0, 20) + "/mine"}, {"Name"});
  for (const bool source_files : {true, false}) {
    scene.setup.ExcludeFilesInSourceFolder = !source_files;
    EXPECT_EQ(scene.BackUp(), "up to date 1");
    EXPECT_EQ(scene.files.NamesIn("/dst"), (std::vector<std::string>{between.substr(5, 15), "Name"}));
    tree::Add(scene.files, {between + "/"});
  }
  scene.files.MakeForeign(between);
  scene.BackUp();
  EXPECT_TRUE(scene.files.Exists(between));
}

TEST(FolderWalk, ProgressOnlyMovesForwardAndEndsAtOneAlsoAmongFoldersWithoutFiles) {
  Scene scene({"/src/x/1/a", "/src/x/2/a", "/src/x/3/a", "/src/x/4/a", "/src/x/5/a", "/src/x/6/a",
               "/src/y/1/", "/src/y/2/", "/src/y/3/", "/src/y/4/", "/src/y/5/", "/src/y/6/"},
              {"x", "y"});
  scene.files.Before([&scene](auto, auto&) { scene.clock.Advance(std::chrono::milliseconds{100}); });
  scene.BackUp();
  EXPECT_TRUE(std::ranges::is_sorted(scene.progress));
  EXPECT_GE(scene.breaths, 15);
  EXPECT_EQ(scene.progress.back(), 1.0);
  EXPECT_EQ(scene.outcome.totals.non_empty_folders, 6);
}

TEST(FolderWalk, PausesOnceAfterTheFirstFolderInWhichAFileWasCopied) {
  Scene scene({"/src/x/same", "/dst/x/same", "/src/y/a", "/src/z/b"}, {"x", "y", "z"});
  scene.pause_wished = true;
  scene.BackUp();
  EXPECT_EQ(scene.paused_after, "/src/y/a|");
  EXPECT_EQ(scene.bytes_done.front(), 1) << "also where no time has passed to tell it before";
}

TEST(FolderWalk, BreathesWhileTheTargetIsAskedForEachFileAndEndsThere) {
  Scene scene({"/dst/other"});
  for (int i = 0; i < 100; ++i) scene.files.AddFile("/src/" + std::to_string(i), "");
  scene.files.Before([&](Call call, const std::string&) {
    if (call == Call::kLook) scene.clock.Advance(std::chrono::milliseconds{10});
  });
  scene.Check();
  EXPECT_GT(scene.breaths, 5);
  scene.breaths = 0;
  scene.on_breath = [&] { scene.stop = true; };
  EXPECT_EQ(scene.Check(), "cancelled 1");
  EXPECT_EQ(scene.breaths, 1) << "none after that";
}

}  // namespace engine::test

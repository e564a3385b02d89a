#include <utility>

#include "engine/own_names.h"
#include "tests/engine/scene.h"

namespace engine::test {

using platform::ErrorKind;
using platform::memory::Call;

const platform::Error kNoAccess{ErrorKind::kAccessDenied, 13, "Permission denied"};

TEST(CopyPass, StopsBeforeTheFirstCopyWhenTheTargetDriveIsFull) {
  Scene scene({"/src/a", "/src/sub/b"}, {"sub"});
  scene.files.SetSpace(0, 1'000);
  EXPECT_EQ(scene.BackUp(), "new 1, failed 1, terminated 1");
  EXPECT_EQ(scene.copied + scene.visited, "/src|");
  EXPECT_TRUE(scene.Wrote("|      The target drive is full.|"));
  EXPECT_EQ(scene.told, "The target drive is full, so this backup operation\r\nmust be terminated.");
}

TEST(CopyPass, SkipsWhatTheDiskOrItsFormatCannotHoldAndGoesOnWithASmallerOne) {
  for (const bool by_format : {false, true}) {
    Scene scene({"/src/small"});
    scene.files.AddHugeFile("/src/big", by_format ? std::int64_t{5} << 30 : 1'000);
    by_format ? scene.files.SetLargestFile(platform::kLargestOnFat) : scene.files.SetSpace(1'000, 5'000);
    EXPECT_EQ(scene.BackUp(), "new 2, copied 1, failed 1");
    EXPECT_EQ(scene.Copies(), "small=1");
    EXPECT_TRUE(scene.Wrote(
        by_format ? "/src/big. Too large. (5,368,709,120 > 4,294,967,295 bytes)|"
                  : "/src/big. Insufficient space on the target drive for this file. (1,000 bytes).|"));
    EXPECT_EQ(scene.files.CountOf(Call::kCopyFile), 1U) << "said at once";
  }
}

TEST(CopyPass, TakesWhatIsOnItsWayForGoneFromTheSpaceWhetherItHasJustAskedOrNot) {
  for (const auto& [milliseconds, groups] : {std::pair(0, 2U), {101, 3U}}) {
    Scene scene;
    scene.clock.Advance(std::chrono::hours{1});
    for (const char* path : {"/src/a", "/src/b", "/src/c"}) scene.files.AddHugeFile(path, 300'000'000);
    scene.files.SetSpace(1'000'000'000, 2'000'000'000);
    scene.on_copy = [&, for_long = milliseconds] {
      scene.clock.Advance(std::chrono::milliseconds{for_long});
    };
    EXPECT_EQ(scene.BackUp(), "new 3, copied 3");
    EXPECT_EQ(scene.files.CountOf(Call::kSaveData), groups);
  }
}

TEST(CopyPass, AsksOnceAboutAFolderThatCannotBeCreatedAndLetsTheAnswerDecide) {
  for (const bool go_on : {true, false}) {
    Scene scene({"/src/0", "/src/sub/a", "/src/sub/b", "/src/sub/below/c", "/src/tail/d"}, {"sub", "tail"});
    scene.files.Fail(Call::kCreateFolder, "/dst/sub", kNoAccess);
    scene.go_on = go_on;
    EXPECT_EQ(scene.BackUp(),
              go_on ? "new 5, copied 2, failed 3" : "new 2, copied 1, failed 1, terminated 1");
    EXPECT_EQ(scene.questions, 1);
    EXPECT_TRUE(scene.asked.find("\r\n/dst/sub|") != std::string::npos) << scene.asked;
    EXPECT_EQ(scene.Wrote("/src/sub/below/c. No permission. (13: Permission denied)"), go_on);
    EXPECT_NE(scene.Wrote("Ended early."), go_on);
  }
}

TEST(CopyPass, MakesAReadOnlyCopyWritableOrAsks) {
  for (const bool stays : {false, true}) {
    Scene scene({"/src/0", "/src/a=new"});
    scene.files.AddFile("/dst/a", "old!", {}, platform::kReadOnly);
    if (stays) scene.files.KeepReadOnly("/dst/a");
    EXPECT_EQ(scene.BackUp(),
              stays ? "new 1, modified 1, copied 1, failed 1" : "new 1, modified 1, copied 2");
    EXPECT_EQ(scene.asked.find("\r\n/dst/a\r\n") != std::string::npos, stays);
    EXPECT_EQ(scene.Copies(), stays ? "0=1 a=old!" : "0=1 a=new");
  }
}

TEST(CopyPass, ReplacesALinkAndLeavesWhatItLeadsToAlone) {
  Scene scene({"/src/a=new", "/dst/a>/src/sub/kept"});
  scene.files.AddFile("/src/sub/kept", "kept!", {}, platform::kReadOnly);
  scene.BackUp();
  EXPECT_EQ(tree::Below(scene.files, ""), "dst/a=new src/a=new src/sub/kept=kept!");
  EXPECT_EQ(scene.files.AttributesOf("/src/sub/kept"), platform::kReadOnly);
}

TEST(CopyPass, SaysOnWhichSideAFolderStandsAndANameIsRefused) {
  using platform::ErrorKind;
  const std::tuple<ErrorKind, bool, bool, const char*> cases[] = {
      {ErrorKind::kIsAFolder, true, false, "Became folder."},
      {ErrorKind::kIsAFolder, false, false, "Folder in the way."},
      {ErrorKind::kTooManyOpen, false, false, "Too many open."},
      {ErrorKind::kNotFound, false, false, "Bad name."},
      {ErrorKind::kNotFound, false, true, "Target gone."}};
  for (const auto& [kind, source_is_folder, target_goes, line] : cases) {
    Scene scene({"/src/in/a"}, {"in"});
    scene.files.Fail(Call::kCopyFile, "/dst/in/a", {kind, 0, {}});
    scene.on_copy = [&, becomes = source_is_folder, goes = target_goes] {
      if (becomes) scene.files.Remove("/src/in/a"), scene.files.AddFolder("/src/in/a");
      if (goes) scene.files.Remove("/dst/in");
    };
    EXPECT_EQ(scene.BackUp(), "new 1, failed 1");
    EXPECT_TRUE(scene.Wrote(std::string("a. ") + line + "|")) << line;
  }
}

TEST(CopyPass, AFailureLeavesItsLineAndTheOldCopyAndTheRunGoesOn) {
  const char* const one_failed = "new 1, modified 1, copied 1, failed 1";
  const char* const one_unread = "new 1, copied 1, unread 1";
  const std::tuple<Call, std::string, const char*, const char*> cases[] = {
      {Call::kReadSource, "/src/in/bad/x", "Not copied: /src/in/bad/x", one_failed},
      {Call::kCopyFile, "/dst/in/bad/x", "Not copied: /src/in/bad/x", one_failed},
      {Call::kPublish, "/dst/in/bad/x", "Not copied: /src/in/bad/x", one_failed},
      {Call::kOpenFolder, "/src/in/bad", "Not read: /src/in/bad", one_unread},
      {Call::kOpenFolder, "/dst/in/bad", "Not read: /dst/in/bad", one_unread},
      {Call::kFlush, "", "Not flushed: /dst", "new 1, modified 1, copied 2, terminated 1"}};
  for (const auto& [call, path, line, words] : cases) {
    Scene scene({"/src/in/good", "/src/in/bad/x=new", "/dst/in/bad/x=old!"}, {"in"});
    scene.files.Fail(call, path, kNoAccess);
    EXPECT_EQ(scene.BackUp(), words);
    const std::string mark = std::string(kUnfinishedMark) + "= ";
    EXPECT_EQ(scene.Copies(), path.empty() ? mark + "in/bad/x=new in/good=1" : "in/bad/x=old! in/good=1");
    EXPECT_TRUE(scene.Wrote(std::string("      ") + line + ". No permission. (13: Permission denied)|"))
        << line;
  }
  Scene no_space_told({"/src/a"});
  no_space_told.files.Fail(Call::kSpace, "", kNoAccess);
  EXPECT_EQ(no_space_told.BackUp(), "new 1, copied 1");
}

TEST(CopyPass, CancelKeepsTheOldCopiesOfAllThatDoNotBearTheirNamesYetAndCountsThemAsNotMet) {
  const auto cancel_at = [](const std::string& path) {
    Scene scene({"/src/a=0123456789", "/src/b=new", "/dst/a=old", "/dst/b=old!", "/src/c/d", "/src/c/e"},
                {"c"});
    scene.files.SetGroupSize(3);
    scene.on_copy = [&, path] { scene.stop = scene.copied.ends_with(path + "|"); };
    const std::string words = scene.BackUp();
    return words + " | " + scene.Copies() + " | " + scene.visited + " " + scene.ended + scene.saving;
  };
  EXPECT_EQ(cancel_at("/src/b"), "cancelled 1 | a=old b=old! | /src| /src|");
  EXPECT_EQ(cancel_at("/src/c/d"), "cancelled 1 | a=old b=old! | /src| /src|");
  EXPECT_EQ(
      cancel_at("/src/c/e"),
      "new 1, modified 2, copied 3, cancelled 1 | a=0123456789 b=new c/d=1 | /src|/src/c| /src|/src/c|");
  Scene at_the_end({"/src/a"});
  at_the_end.on_breath = [&] { at_the_end.stop = at_the_end.saving == "saving|"; };
  at_the_end.files.Before([&](auto, auto&) { at_the_end.clock.Advance(std::chrono::seconds{1}); });
  EXPECT_EQ(at_the_end.BackUp(), "new 1, copied 1, cancelled 1");
}

TEST(CopyPass, AFileThatIsWrittenToMeanwhileIsAWarningAndCopiedAgainWhateverItsTimeWillBe) {
  Scene scene({"/src/a=0123456789"});
  bool is_written = false;
  scene.files.Before([&](Call call, const std::string&) {
    if (call == Call::kReadBlock && !std::exchange(is_written, true))
      scene.files.AddFile("/src/a", "9876543210", {7'000, 0});
  });
  EXPECT_EQ(scene.BackUp(), "new 1, copied 1, warnings 1");
  EXPECT_TRUE(scene.Wrote("Changed: /src/a|"));
  for (const std::int64_t later : {0, 20 * 60, 3'600, 86'400, 31 * 86'400, 365 * 86'400}) {
    scene.files.AddFile("/src/a", "9876543210", {7'000 + later, 0});
    EXPECT_EQ(scene.Check(), "modified 1, due 1") << later;
  }
}

TEST(CopyPass, ASourceThatShrinksIsTriedOnceMoreAndThenFailsAndTheOldCopyStays) {
  for (const int times : {1, 2}) {
    Scene scene({"/src/a=0123456789", "/src/b", "/dst/a=old"});
    int left = times;
    scene.files.Before([&](Call call, const std::string& path) {
      if (call == Call::kReadBlock && path == "/src/a" && left > 0)
        scene.files.AddFile("/src/a", std::string(static_cast<std::size_t>(3 + left--), 'x'));
    });
    EXPECT_EQ(scene.BackUp(),
              times == 1 ? "new 1, modified 1, copied 2" : "new 1, modified 1, copied 1, failed 1");
    EXPECT_EQ(scene.Copies(), times == 1 ? "a=xxxx b=1" : "a=old b=1");
  }
}

TEST(CopyPass, AFileThatFindsNoRoomAmongOthersIsTriedOnceMoreByItself) {
  Scene scene({"/src/a=new", "/src/b=new", "/dst/a=old!", "/dst/b=old!"});
  scene.files.Fail(Call::kCopyFile, "/dst/b", {ErrorKind::kDiskFull, 28, {}}, 1);
  EXPECT_EQ(scene.BackUp(), "modified 2, copied 2");
  scene.files.Fail(Call::kCopyFile, "/dst/b", {ErrorKind::kDiskFull, 28, {}}, 2);
  EXPECT_EQ(scene.BackUpAll(), "copied 1, failed 1");
}

TEST(CopyPass, AGroupThatDoesNotReachTheDiskFailsWithEachOfItsNames) {
  Scene scene({"/src/a=new", "/src/b", "/src/c", "/dst/a=old!"});
  scene.files.SetGroupSize(2);
  scene.files.Fail(Call::kSaveData, "", {ErrorKind::kOther, 5, "I/O error"}, 1);
  EXPECT_EQ(scene.BackUp(), "new 2, modified 1, copied 1, failed 2");
  EXPECT_TRUE(scene.Wrote("Not copied: /src/a. ") && scene.Wrote("Not copied: /src/b. "));
  EXPECT_EQ(scene.Copies(), "a=old! c=1");
}

TEST(CopyPass, AFileThatTheListingDidNotShowIsNotReplaced) {
  Scene scene({"/src/a"});
  scene.on_copy = [&scene] { scene.files.AddFile("/dst/a", "other"); };
  EXPECT_EQ(scene.BackUp(), "new 1, failed 1");
  EXPECT_EQ(scene.Copies(), "a=other");
  EXPECT_TRUE(scene.Wrote("a. Name taken."));
}

TEST(CopyPass, ReadingBackKeepsTheOldCopyWhereTheNewOneIsBadAlsoFileByFile) {
  Scene scene({"/src/a=1", "/src/bad=newer", "/dst/bad=old", "/src/c=3", "/src/in/gone=4", "/src/in/z=5"},
              {"in"});
  scene.files.Garble("/dst/bad");
  scene.files.Fail(Call::kReadBack, "/dst/in/gone", {ErrorKind::kOther, 5, "Bad sector"});
  scene.reads_back = true;
  for (const bool is_scarce : {false, true}) {
    if (is_scarce) scene.files.SetSpace(100'000, 1'000'000);
    EXPECT_EQ(scene.BackUpAll(), "copied 3, failed 2");
    const engine::Totals& totals = scene.outcome.totals;
    EXPECT_TRUE(scene.outcome.read_back && !scene.outcome.compared_contents);
    EXPECT_TRUE(totals.counts.read_back == 5 && totals.counts.not_as_written == 2);
    EXPECT_EQ(totals.bytes_read_back, 9);
    EXPECT_EQ(scene.Copies(), "a=1 bad=old c=3 in/z=5");
    EXPECT_TRUE(scene.Wrote("|Reading back.|") && scene.Wrote("      Not copied: /src/bad. Bad disk.|"));
    EXPECT_TRUE(scene.Wrote("      Not copied: /src/in/gone. Bad disk. (5: Bad sector)|"));
  }
  EXPECT_EQ(scene.Check(), "new 1, modified 1, up to date 3, due 2");
  EXPECT_FALSE(scene.Wrote("Reading back."));
}

}  // namespace engine::test

#include <gtest/gtest.h>

#include <numeric>

#include "engine/file_proc.h"
#include "tests/engine/scene.h"

namespace engine {
namespace {

using platform::Error;
using platform::ErrorKind;
using platform::memory::Call;
using test::Balances;
using test::Scene;

const Error kNoAccess{ErrorKind::kAccessDenied, 13, "Permission denied"};

TEST(CopyPass, StopsBeforeTheFirstCopyWhenTheTargetDriveIsFull) {
  Scene scene;
  scene.files.AddFile("/src/a", "1");
  scene.files.AddFile("/src/sub/b", "2");
  scene.setup.IncludedFolders = {"sub"};
  scene.files.SetSpace(0, 1000);
  const RunOutcome outcome = scene.BackUp();
  EXPECT_TRUE(outcome.terminated);
  EXPECT_TRUE(scene.listener.copies.empty());
  EXPECT_EQ(scene.listener.begun, std::vector<std::string>{"/src"});
  EXPECT_TRUE(scene.listener.HasLine("      The target drive is full."));
  EXPECT_EQ(
      scene.listener.told,
      std::vector<std::string>{"The target drive is full, so this backup operation\r\nmust be terminated."});
  EXPECT_EQ(scene.host.steps.back(), "refresh");
}

TEST(CopyPass, SkipsAFileThatExactlyFillsTheDiskAndGoesOnWithASmallerOne) {
  Scene scene;
  scene.files.AddFile("/src/big", std::string(1000, 'x'));
  scene.files.AddFile("/src/small", std::string(999, 'x'));
  scene.files.SetSpace(1000, 5000);
  const RunOutcome outcome = scene.BackUp();
  EXPECT_TRUE(scene.listener.HasLine("Insufficient space on the target drive for this file. (1,000 bytes)."));
  EXPECT_FALSE(scene.files.Exists("/dst/big"));
  EXPECT_TRUE(scene.files.Exists("/dst/small"));
  EXPECT_EQ(outcome.totals.counts.failed, 1);
  EXPECT_TRUE(Balances(outcome.totals.counts));
}

TEST(CopyPass, AsksForTheSpaceOnceInAWhileAndForEveryFileWhenItRunsShort) {
  for (const std::uint64_t free : {1'000'000'000U, 1'000'000U}) {
    Scene scene;
    for (char name = 'a'; name <= 'j'; ++name) scene.files.AddFile(std::string("/src/") + name, "1");
    scene.files.SetSpace(free, 2'000'000'000);
    scene.listener.on_copy = [&](const std::string&) { scene.clock.Advance(std::chrono::milliseconds{21}); };
    scene.BackUp();
    EXPECT_EQ(scene.files.CountOf(Call::kSpace), free > 1'000'000 ? 2U : 10U);
  }
}

TEST(CopyPass, CopiesWhenTheFreeSpaceCannotBeTold) {
  Scene scene;
  scene.files.AddFile("/src/a", "1");
  scene.files.Fail(Call::kSpace, "", kNoAccess);
  EXPECT_EQ(scene.BackUp().totals.counts.copied, 1);
}

TEST(CopyPass, AsksOnceAFolderThatCannotBeCreatedAndLetsTheAnswerDecide) {
  for (const bool go_on : {true, false}) {
    Scene scene;
    scene.files.AddFile("/src/sub/a", "1");
    scene.files.AddFile("/src/sub/b", "2");
    scene.files.AddFile("/src/sub/below/d", "4");
    scene.files.AddFile("/src/tail/c", "3");
    scene.setup.IncludedFolders = {"sub", "tail"};
    scene.files.Fail(Call::kCreateFolder, "/dst/sub", kNoAccess);
    scene.listener.go_on = go_on;
    const RunOutcome outcome = scene.BackUp();
    EXPECT_EQ(scene.listener.questions.size(), 1U);
    EXPECT_EQ(outcome.terminated, !go_on);
    EXPECT_EQ(scene.files.Exists("/dst/tail/c"), go_on);
    EXPECT_EQ(outcome.totals.counts.failed, go_on ? 3 : 1);
    EXPECT_TRUE(Balances(outcome.totals.counts));
  }
}

TEST(CopyPass, MakesAReadOnlyCopyWritableOrAsks) {
  for (const bool stays : {false, true}) {
    Scene scene;
    scene.files.AddFile("/src/a", "new", {2'000'000, 0});
    scene.files.AddFile("/dst/a", "old!", {}, platform::kReadOnly);
    if (stays) scene.files.KeepReadOnly("/dst/a");
    const RunOutcome outcome = scene.BackUp();
    EXPECT_EQ(scene.listener.questions.size(), stays ? 1U : 0U);
    EXPECT_EQ(scene.files.ContentOf("/dst/a"), stays ? "old!" : "new");
    EXPECT_EQ(outcome.totals.counts.failed, stays ? 1 : 0);
  }
}

TEST(CopyPass, ReplacesALinkAndLeavesWhatItLeadsToAlone) {
  Scene scene;
  scene.files.AddFile("/src/a", "new");
  scene.files.AddFile("/src/sub/kept", "kept!", {}, platform::kReadOnly);
  scene.files.AddLink("/dst/a", "/src/sub/kept");
  scene.BackUp();
  EXPECT_EQ(scene.files.ContentOf("/dst/a"), "new");
  EXPECT_EQ(scene.files.ContentOf("/src/sub/kept"), "kept!");
  EXPECT_EQ(scene.files.AttributesOf("/src/sub/kept"), platform::kReadOnly);
}

TEST(CopyPass, TheCopyKeepsSystemAndIsNeitherHiddenNorReadOnly) {
  Scene scene;
  scene.files.AddFile("/src/a", "1", {5, 7}, platform::kReadOnly | platform::kHidden | platform::kSystem);
  scene.BackUp();
  EXPECT_EQ(scene.files.AttributesOf("/dst/a"), platform::kSystem);
  EXPECT_EQ(scene.files.ModifiedOf("/dst/a"), (platform::FileTime{5, 7}));
}

TEST(CopyPass, AFailedCopyNamesTheFileTheReasonAndTheCodeAndTheRunGoesOn) {
  Scene scene;
  scene.files.AddFile("/src/bad\nname", "1");
  scene.files.AddFile("/src/good", "2");
  scene.files.Fail(Call::kReadSource, "/src/bad\nname", kNoAccess);
  const RunOutcome outcome = scene.BackUp();
  EXPECT_TRUE(
      scene.listener.HasLine("      Not copied: /src/bad\\nname. No permission. (13: Permission denied)"));
  EXPECT_EQ(outcome.totals.counts.failed, 1);
  EXPECT_EQ(outcome.totals.counts.copied, 1);
  EXPECT_TRUE(Balances(outcome.totals.counts));
}

TEST(CopyPass, WhateverFailsTheOldCopyStaysWholeAndNothingElseIsLeft) {
  for (const Call call : {Call::kCopyFile, Call::kReadSource, Call::kSetAttributes}) {
    Scene scene;
    scene.files.AddFile("/src/a", "the new text", {9'000'000, 0});
    scene.files.AddFile("/dst/a", "the old text!");
    scene.files.Fail(call, "", {ErrorKind::kDiskFull, 28, "No space left on device"});
    scene.BackUp();
    const std::string content = scene.files.ContentOf("/dst/a");
    EXPECT_TRUE(content == "the old text!" || content == "the new text") << content;
    EXPECT_EQ(scene.files.NamesIn("/dst"), std::vector<std::string>{"a"});
  }
}

TEST(CopyPass, CancelInsideABigFileKeepsItsOldCopyAndCountsItAsNotMet) {
  Scene scene;
  scene.files.AddFile("/src/big", std::string(1000, 'n'), {9'000'000, 0});
  scene.files.AddFile("/dst/big", "old");
  scene.files.SetBlockSize(100);
  scene.files.Before([&](Call call, const std::string&) {
    if (call == Call::kCopyFile) scene.listener.stop = true;
  });
  const RunOutcome outcome = scene.BackUp();
  EXPECT_TRUE(outcome.cancelled);
  EXPECT_EQ(scene.files.ContentOf("/dst/big"), "old");
  EXPECT_EQ(outcome.totals.counts.met, 0);
  EXPECT_TRUE(Balances(outcome.totals.counts));
}

TEST(CopyPass, SumsSaturateByFileAtThirtyTwoBits) {
  Scene scene;
  scene.files.AddHugeFile("/src/huge", 5'000'000'000);
  scene.files.AddHugeFile("/src/small", 10);
  EXPECT_EQ(scene.BackUp().totals.bytes_copied, 2'147'483'657);
}

TEST(AttributeHelpers, WriteOnlyWhatChanges) {
  Scene scene;
  scene.files.AddFile("/src/a", "", {}, platform::kSystem);
  scene.files.ForgetTouches();
  EXPECT_TRUE(ClearReadOnly(scene.files, "/src/a"));
  EXPECT_TRUE(SetSystemFile(scene.files, "/src/a"));
  EXPECT_TRUE(ClearReadOnlyAndHidden(scene.files, "/src/a"));
  EXPECT_EQ(scene.files.CountOf(Call::kSetAttributes), 0U);
  EXPECT_FALSE(ClearReadOnly(scene.files, "/src/missing"));
}

}  // namespace
}  // namespace engine

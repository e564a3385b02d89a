#include <filesystem>
#include <future>
#include <thread>
#include <utility>

#include "tests/contract/platform/file_system_contract.h"

namespace platform::contract {

constexpr std::size_t kBlock = std::size_t{256} * 1024;
constexpr std::size_t kManyBlocks = std::size_t{9} * 1024 * 1024 + 3;
constexpr std::size_t kBig = std::size_t{17} * 1024 * 1024 + 3;  ///< Windows copies it by itself

// Copier, 1.
TEST_P(FileSystemContract, CopyHasTheDataTheTimeAndOfTheAttributesSystem) {
  const std::size_t sizes[] = {0, 1, kBlock - 1, kBlock, kBlock + 1, kManyBlocks, 2, kBig};
  for (Attributes attributes = 0; attributes < 8; ++attributes) {
    const std::string name = std::to_string(attributes);
    const std::string content = Noise(sizes[attributes]);
    AddFile("from/" + name, content);
    ASSERT_TRUE(files().SetAttributes(At("from/" + name), attributes));
    std::vector<std::int64_t> told;
    const auto outcome = Copy(name, [&](std::int64_t bytes) {
      told.push_back(bytes);
      return true;
    });
    ASSERT_TRUE(outcome) << name << outcome.error().text;
    EXPECT_EQ(told.back(), static_cast<std::int64_t>(content.size()));
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end(), std::less_equal<>())) << "no number twice";
    EXPECT_TRUE(outcome->bytes == told.back() && !outcome->changed);
    EXPECT_EQ(outcome->source_attributes, attributes);
    EXPECT_EQ(outcome->target_attributes, attributes & kSystem);
    EXPECT_EQ(*files().GetAttributes(At("to/" + name)), attributes & kSystem);
    EXPECT_EQ(EntryAt("to/" + name).modified, kOldTime);
    EXPECT_TRUE(ContentOf("to/" + name) == content) << name;
  }
  EXPECT_EQ(NamesIn("to"), NamesIn("from"));
}

// Copier, 5.
TEST_P(FileSystemContract, WhatAppearedMeanwhileIsReplacedOnlyWhereTheNameIsKnownAsTaken) {
  AddFile("from/file", "source");
  const auto from = Open("from");
  for (const bool first_copy : {true, false}) {
    if (!first_copy) AddFile("to/other", "");
    const auto to = Open("to");
    AddFile("to/file", "appeared");
    const auto copy = [&](TargetName name) { return CopyAll(from, {"file"}, to, name).front(); };
    EXPECT_EQ(copy(TargetName::kFree).error().kind, ErrorKind::kNameTaken);
    EXPECT_EQ(ContentOf("to/file"), "appeared");
    ASSERT_TRUE(copy(TargetName::kTaken));
    EXPECT_EQ(ContentOf("to/file"), "source");
    EXPECT_EQ(NamesIn("to"), first_copy ? Names{"file"} : (Names{"file", "other"}));
    ASSERT_TRUE(files().RemoveFile(At("to/file")));
    ASSERT_TRUE(copy(TargetName::kFree) && files().RemoveFile(At("to/file")));
  }
}

// Copier, 5.
TEST_P(FileSystemContract, AReadOnlyFileIsReplacedOrStaysWhole) {
  AddPair("new", "old");
  ASSERT_TRUE(files().SetAttributes(At("to/file"), kReadOnly | kHidden));
  const auto outcome = Copy("file");
  EXPECT_TRUE(outcome || outcome.error().kind == ErrorKind::kAccessDenied);
  EXPECT_EQ(ContentOf("to/file"), outcome ? "new" : "old");
  EXPECT_EQ(NamesIn("to"), Names{"file"});
}

// Copier, 6.
TEST_P(FileSystemContract, ALinkIsFollowedWhereItIsReadOrWrittenAndReplacedByACopy) {
  AddFile("kept", "kept");
  AddFile("real", "real");
  if (!scene_->MakeLink(At("from/file"), At("real"))) GTEST_SKIP() << "links cannot be made here";
  ASSERT_TRUE(scene_->MakeLink(At("to/file"), At("kept")));
  ASSERT_TRUE(Copy("file"));
  EXPECT_EQ(ContentOf("to/file"), "real");
  ASSERT_TRUE(files().RemoveFile(At("to/file")));
  EXPECT_EQ(ContentOf("kept"), "kept");
  ASSERT_TRUE(files().ReplaceFile(At("from/file"), "new"));
  EXPECT_EQ(ContentOf("real"), "new");
}

// Copier, 11.
TEST_P(FileSystemContract, WatcherSeesTheBytesGrowAndCanStopAtAnyBlock) {
  const std::pair<std::size_t, std::size_t> stops[] = {{0, 0},           {100, 1},         {kManyBlocks, 0},
                                                       {kManyBlocks, 1}, {kManyBlocks, 2}, {kBig, 1}};
  AddFile("to/file", "old");
  for (const auto& [size, stop_at] : stops) {
    AddFile("from/file", Noise(size));
    std::vector<std::int64_t> asked;
    const auto outcome = Copy("file", [&asked, last = stop_at](std::int64_t bytes) {
      asked.push_back(bytes);
      return asked.size() <= last;
    });
    EXPECT_EQ(outcome.error().kind, ErrorKind::kCancelled);
    ASSERT_EQ(asked.size(), stop_at + 1);
    EXPECT_EQ(asked.front(), 0);
    EXPECT_TRUE(std::is_sorted(asked.begin(), asked.end(), std::less_equal<>())) << "no number twice";
    EXPECT_EQ(ContentOf("to/file"), "old");
    EXPECT_EQ(NamesIn("to"), Names{"file"});
  }
}

// Copier, 2 and 9.
TEST_P(FileSystemContract, ACopyThatIsReadBackIsAsItWasWrittenOrGetsNoName) {
  reads_back_ = true;
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{3}, std::size_t{4} * kBlock, kManyBlocks, kBig}) {
    const std::string content = Noise(size);
    AddFile("from/file", content);
    std::vector<std::int64_t> told;
    const auto outcome = Copy("file", [&](std::int64_t bytes) {
      told.push_back(bytes);
      return true;
    });
    EXPECT_TRUE(outcome && ContentOf("to/file") == content) << size;
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(told.back(), static_cast<std::int64_t>(2 * size));
  }
  AddFile("to/file", "old");
  constexpr auto kSize = static_cast<std::int64_t>(kBig);
  const auto stopped = Copy("file", [](std::int64_t bytes) { return bytes <= kSize; });
  EXPECT_EQ(stopped.error().kind, ErrorKind::kCancelled) << "while it is read back";
  bool is_garbled = scene_->Garble(At("to/file"));
  const auto garble = [&](std::int64_t bytes) {
    if (bytes < kSize || std::exchange(is_garbled, true)) return true;
    const std::string copy = "to/" + (NamesIn("to")[0] == "file" ? NamesIn("to")[1] : NamesIn("to")[0]);
    std::filesystem::rename(At(copy), At("written"));
    return files().WriteFile(At(copy), Noise(kBig - 1) + "x").ok();
  };
  EXPECT_EQ(Copy("file", garble).error().kind, ErrorKind::kNotAsWritten);
  EXPECT_EQ(ContentOf("to/file"), "old");
  EXPECT_EQ(NamesIn("to"), Names{"file"});
}

// Copier, 7 and 8.
TEST_P(FileSystemContract,
       ASourceThatChangesGivesACopyOfWhatItHasAtTheEndThatCountsAsModifiedAndAShorterOneNone) {
  // Sizes before and after, and whether it is written to only once its last byte was read.
  const std::tuple<std::size_t, std::size_t, bool> cases[] = {{kManyBlocks, kManyBlocks, false},
                                                              {kManyBlocks, kManyBlocks + kBlock, false},
                                                              {100, 100, false},
                                                              {100, 200, false},
                                                              {0, 1, false},
                                                              {100, 50, false},
                                                              {kManyBlocks, 9, false},
                                                              {kManyBlocks, kManyBlocks, true},
                                                              {100, 100, true}};
  for (const auto& [before, after, late] : cases) {
    AddPair(Noise(before), "old");
    const std::string changed = Noise(after - 1) + 'x';
    bool was_changed = false;
    const auto outcome = Copy("file", [&, at = late ? before : 0](std::int64_t bytes) {
      if (bytes == static_cast<std::int64_t>(at) && !was_changed)
        was_changed = files().WriteFile(At("from/file"), changed).ok();
      return true;
    });
    if (!was_changed) GTEST_SKIP() << "a file that is being copied cannot be changed here";
    ASSERT_EQ(outcome.ok(), after >= before) << before;
    EXPECT_TRUE(late || ContentOf("to/file") == (outcome ? changed : "old")) << before;
    if (!outcome) {
      EXPECT_EQ(outcome.error().kind, ErrorKind::kShort);
    } else if (late) {
      EXPECT_NE(EntryAt("to/file").modified, EntryAt("from/file").modified) << before;
    } else {
      EXPECT_TRUE(outcome->changed && outcome->bytes == static_cast<std::int64_t>(after)) << before;
      EXPECT_EQ(EntryAt("to/file").modified->seconds,
                EntryAt("from/file").modified->seconds - kEarlierWhenChanged.count());
    }
  }
}

// Copier, 6.
TEST_P(FileSystemContract, AFolderIsNeverReplacedByAFile) {
  AddFile("from/file", "x");
  AddFolder("to/file");
  EXPECT_EQ(Copy("file").error().kind, ErrorKind::kIsAFolder);
  EXPECT_EQ(EntryAt("to/file").kind, EntryKind::kFolder);
  EXPECT_EQ(NamesIn("to"), Names{"file"});
}

// Copier, 3.
TEST_P(FileSystemContract, AFolderThatMayNotBeChangedStaysAsItIs) {
  AddPair("x", "old");
  if (!scene_->ForbidChanges(At("to"))) GTEST_SKIP() << "every folder can be changed here";
  for (const ErrorKind kind : {Copy("file").error().kind, files().CreateFolder(At("to/new")).error().kind,
                               files().RemoveFile(At("to/file")).error().kind,
                               files().ReplaceFile(At("to/file"), "new").error().kind}) {
    EXPECT_TRUE(kind == ErrorKind::kAccessDenied || kind == ErrorKind::kReadOnlyMedium);
  }
  EXPECT_EQ(ContentOf("to/file"), "old");
}

// Copier, 3.
TEST_P(FileSystemContract, AFullDiskKeepsTheOldCopyAndTakesWhatStillFits) {
  if (!scene_->MakeSmallDisk(At("to"))) GTEST_SKIP() << "a small disk cannot be had here";
  const std::string too_big = Noise(std::size_t{4} * 1024 * 1024);
  AddFile("from/file", too_big);
  AddFile("from/small", "fits");
  AddFile("to/file", "old");
  EXPECT_EQ(Copy("file").error().kind, ErrorKind::kDiskFull);
  EXPECT_EQ(files().ReplaceFile(At("to/file"), too_big).error().kind, ErrorKind::kDiskFull);
  EXPECT_EQ(ContentOf("to/file"), "old");
  EXPECT_TRUE(Copy("small"));
  EXPECT_EQ(NamesIn("to"), (Names{"file", "small"}));
}

// Copier, 11.
TEST_P(FileSystemContract, ManyFilesAreCopiedAndTheirOutcomesComeInOrder) {
  const auto content = [](int i) { return Noise(static_cast<std::size_t>(i) * 2'000); };
  Names names;
  for (int i = 0; i < 200; ++i) {
    names.push_back(std::to_string(i));
    AddFile("from/" + names.back(), content(i));
    if (i % 3 == 0) AddFile("to/" + names.back(), "old");
  }
  const auto from = Open("from");
  const auto to = Open("to");
  for (const char* gone : {"from/7", "from/151"}) ASSERT_TRUE(files().RemoveFile(At(gone)));
  const auto outcomes = CopyAll(from, names, to, TargetName::kTaken);
  for (int i = 0; i < 200; ++i) {
    const auto& outcome = outcomes[static_cast<std::size_t>(i)];
    ASSERT_EQ(outcome.ok(), i != 7 && i != 151) << i;
    EXPECT_TRUE(outcome ? outcome->bytes == i * 2'000 && ContentOf("to/" + std::to_string(i)) == content(i)
                        : outcome.error().kind == ErrorKind::kNotFound);
  }
  EXPECT_EQ(NamesIn("to").size(), 198U) << "no temporary file is left";
}

// Copier, 10.
TEST_P(FileSystemContract, WhatDoesNotReachTheDiskGetsNoNameAndIsToldOf) {
  for (const char* name : {"from/a", "from/b"}) AddFile(name, "new");
  AddFile("to/b", "old");
  if (!scene_->FailFlushes()) GTEST_SKIP() << "a disk that fails cannot be had here";
  for (const auto& outcome : CopyAll(Open("from"), {"a", "b"}, Open("to"), TargetName::kTaken))
    EXPECT_TRUE(!outcome && outcome.error().kind == ErrorKind::kOther);
  EXPECT_FALSE(files().ReplaceFile(At("to/b"), "new"));
  EXPECT_FALSE(files().Flush(At("to"), {}));
  EXPECT_EQ(NamesIn("to"), Names{"b"});
  EXPECT_EQ(ContentOf("to/b"), "old");
}

// Copier: its end.
TEST_P(FileSystemContract, ACopierThatIsGivenUpGivesNoMoreNamesAndLeavesNothing) {
  AddPair(Noise(kManyBlocks), "old");
  const auto from = Open("from");
  std::promise<void> begun;
  std::promise<void> given_up;
  {
    const auto copier = files().MakeCopier(At("from"), At("to"));
    bool is_told = false;
    copier->Start({from, &Named(*from, "file"), Open("to"), TargetName::kTaken, [&](std::int64_t) {
                     if (!std::exchange(is_told, true)) begun.set_value();
                     return true;
                   }});
    if (copier->Wait({}) == CopyStage::kWriting) begun.get_future().wait();
  }
  EXPECT_EQ(ContentOf("to/file"), "old");
  while (NamesIn("to").size() > 1) std::this_thread::yield();  // they go in the background
}

// Copier, 1.
TEST_P(FileSystemContract, ACopyIsDatedByWhenItWasMadeWhateverItsTimeOfModification) {
  AddFile("from/first", "1");
  AddFile("from/second", "2");
  ASSERT_TRUE(Copy("first"));
  ASSERT_TRUE(files().ReplaceFile(At("mark"), ""));
  ASSERT_TRUE(Copy("second"));
  const FileTime mark = Must(files().ChangedAt(At("mark")));
  EXPECT_LE(Must(files().ChangedAt(At("to/first"))), mark);
  EXPECT_GE(Must(files().ChangedAt(At("to/second"))), mark);
  EXPECT_EQ(files().ChangedAt(At("to/third")).error().kind, ErrorKind::kNotFound);
}

}  // namespace platform::contract

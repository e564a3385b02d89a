#include "tests/contract/platform/file_system_contract.h"

namespace platform::contract {

TEST_P(FileSystemContract, ListingTellsKindSizeTimeAndReadOnlyOfEveryEntry) {
  AddFile("from/Größe €.txt", "12345", {-86'400, 500});
  AddFile("from/closed", "x");
  AddFolder("from/below");
  ASSERT_TRUE(files().SetAttributes(At("from/closed"), kReadOnly));

  const auto folder = Open("from");
  EXPECT_EQ(folder->path(), At("from"));
  ASSERT_EQ(folder->entries().size(), 3u);
  const Entry& file = Named(*folder, "Größe €.txt");
  EXPECT_TRUE(file.kind == EntryKind::kFile && file.size == 5);
  EXPECT_EQ(file.modified, (FileTime{-86'400, 500}));
  EXPECT_EQ(file.attributes & kReadOnly, 0u);
  EXPECT_EQ(Named(*folder, "closed").attributes & kReadOnly, kReadOnly);
  EXPECT_EQ(Named(*folder, "below").kind, EntryKind::kFolder);
  EXPECT_EQ(Named(*folder, "below").size, kUnknownSize);
}

TEST_P(FileSystemContract, ALockIsHeldByOneAndGoesWithItsFile) {
  AddFile("to/lock", "left by a dead program");
  auto lock = Must(files().Lock(At("to/lock"), "me"));
  const Error refused = files().Lock(At("to/lock"), "you").error();
  EXPECT_TRUE(refused.kind == ErrorKind::kInUse && refused.text == "me");
  lock.reset();
  EXPECT_EQ(NamesIn("to"), Names());
  AddFolder("to/lock");
  const bool links = scene_->MakeLink(At("to/link"), At("from")) && EntryAt("to/link").is_link;
  for (const char* other : {"to/lock", links ? "to/link" : "to/lock"})
    EXPECT_EQ(files().Lock(At(other), "me").error().kind, ErrorKind::kAlreadyExists) << other;
}

TEST_P(FileSystemContract, LinksAreToldByWhatTheyLeadTo) {
  AddFile("to/file", "12345");
  AddFolder("to/folder");
  ASSERT_TRUE(files().SetAttributes(At("to/file"), kReadOnly));
  if (!scene_->MakeLink(At("from/file"), At("to/file"))) GTEST_SKIP() << "links cannot be made here";
  ASSERT_TRUE(scene_->MakeLink(At("from/folder"), At("to/folder")));
  ASSERT_TRUE(scene_->MakeLink(At("from/dead"), At("to/nothing")));
  ASSERT_TRUE(scene_->MakeLink(At("from/circle"), At("from/circle")));

  const auto folder = Open("from");
  const Entry& file = Named(*folder, "file");
  EXPECT_TRUE(file.kind == EntryKind::kFile && file.size == 5 && file.modified == kOldTime);
  EXPECT_EQ(file.attributes & kReadOnly, kReadOnly);
  EXPECT_EQ(Named(*folder, "folder").kind, EntryKind::kFolderLink);
  EXPECT_EQ(Named(*folder, "dead").kind, EntryKind::kDeadLink);
  EXPECT_EQ(Named(*folder, "circle").kind, EntryKind::kDeadLink);
  for (const Entry& entry : folder->entries()) EXPECT_EQ(EntryAt("from/" + entry.name).kind, entry.kind);
  EXPECT_EQ(Open("from/folder")->entries().size(), 0u);
  EXPECT_EQ(*files().RealPath(At("from/file")), *files().RealPath(At("to/file")));
}

TEST_P(FileSystemContract, AFileAndAPatternAreNoFoldersAndAPipeIsNoFile) {
  AddFile("from/file", "x");
  EXPECT_EQ(files().OpenFolder(At("from/file")).error().kind, ErrorKind::kNotAFolder);
  EXPECT_FALSE(files().Stat(At("from/fil?")) || files().Stat(At("from/*")));
  if (!scene_->MakePipe(At("from/pipe"))) GTEST_SKIP() << "pipes cannot be made here";
  EXPECT_EQ(EntryAt("from/pipe").kind, EntryKind::kOther);
  EXPECT_TRUE(!Copy("pipe") && NamesIn("to").empty());
}

TEST_P(FileSystemContract, AFolderThatWasMissingWhenItWasListedAheadIsSeenOnceItIsThere) {
  static_cast<void>(Open("from"));
  files().PrefetchFolder(At("later"));
  AddFolder("later");
  EXPECT_TRUE(files().OpenFolder(At("later")));
}

TEST_P(FileSystemContract, EveryCallTakesALongPath) {
  std::string deep = "from";
  while (At(deep).size() < scene_->long_path()) AddFolder(deep += '/' + std::string(100, 'd'));
  const std::string file = deep + "/file";
  AddFile(file, "content");
  EXPECT_TRUE(files().SetAttributes(At(file), kReadOnly));
  EXPECT_EQ(*files().GetAttributes(At(file)), kReadOnly);
  EXPECT_EQ(EntryAt(file).size, 7);
  const std::string rest = At(file).substr(At("from").size());
  const auto real = files().RealPath(At(file));
  // Wine tells no real path of more than 260 letters, by this number.
  EXPECT_TRUE(real ? *real == *files().RealPath(At("from")) + rest : real.error().code == 234);
  EXPECT_TRUE(files().GetDiskSpace(At(file)) && files().Flush(At(deep), {}));
  EXPECT_EQ(files().DriveOf(At(file)), files().DriveOf(At("to")));
  EXPECT_EQ(files().DisksOf(At(file)), files().DisksOf(At("to")));
  const auto folder = Open(deep);
  ASSERT_TRUE(CopyAll(folder, {"file"}, Open("to"), TargetName::kTaken).front());
  EXPECT_EQ(ContentOf("to/file"), "content");
  EXPECT_TRUE(files().RemoveFile(At(file)));
  ASSERT_TRUE(CopyAll(Open("to"), {"file"}, folder, TargetName::kTaken).front());
  EXPECT_TRUE(files().ReplaceFile(At(file), "new"));
  EXPECT_EQ(ContentOf(file), "new");
}

TEST_P(FileSystemContract, NamesHaveOneKeyExactlyWhenTheyAreOneFile) {
  const std::pair<std::string, std::string> pairs[] = {{"Name", "name"},   {"Name", "Name2"},
                                                       {"Ärger", "ärger"}, {"Ωmega", "ωMEGA"},
                                                       {"a", "ä"},         {"straße", "strasse"}};
  for (const auto& [one, other] : pairs) {
    AddFile("from/" + one, "x");
    EXPECT_EQ(files().NameKey(one) == files().NameKey(other), files().Stat(At("from/" + other)).ok()) << one;
  }
  EXPECT_NE(files().NameKey("\xED\xA0\xBD"), files().NameKey("\xED\xA0\xBE"));  // two single surrogates
}

TEST_P(FileSystemContract, TheVolumeIsKnownForAFolderThatIsStillToBeMade) {
  const std::string drive = files().DriveOf(At("to"));
  for (const std::string& place : {At("to"), At("to/new"), FolderForm(drive)}) {
    const DiskSpace space = Must(files().GetDiskSpace(place));
    EXPECT_TRUE(space.free <= space.total && space.total > 0) << place;
    EXPECT_EQ(files().DriveOf(place), drive);
    EXPECT_EQ(files().LargestFile(place), 0) << "only FAT has a limit";
  }
  EXPECT_TRUE(files().OpenFolder(FolderForm(drive)) && !files().GetDiskSpace(At("none/new")));
}

TEST_P(FileSystemContract, AnotherVolumeIsToldWhereItBegins) {
  if (!scene_->MountFat(At("to"))) GTEST_SKIP() << "no other volume can be had here";
  EXPECT_TRUE(Open("to")->is_mount_point() && !Open("from")->is_mount_point());
  EXPECT_EQ(files().LargestFile(At("to/new")), kLargestOnFat);
  EXPECT_NE(files().DriveOf(At("from")), files().DriveOf(At("to")));
  EXPECT_EQ(files().IdentityOf(At("to")), Open("to")->identity());
  EXPECT_NE(files().IdentityOf(At("to")), files().IdentityOf(At("from")));
}

TEST_P(FileSystemContract, OnlyTrustedLinksToFoldersAreFollowedWhereThatIsAsked) {
  AddFile("from/file", "x");
  if (!scene_->MakeLink(At("link"), At("from")) || !EntryAt("link").is_link)
    GTEST_SKIP() << "links cannot be made here";
  for (const bool another : {false, true}) {
    if (!scene_->GiveTo(At("link"), another)) GTEST_SKIP() << "a link cannot be given to another user here";
    EXPECT_EQ(files().BelongsToUser(At("link")), !another);
    const auto opened = files().OpenFolder(At("link"), FollowLinks::kTrusted);
    ASSERT_EQ(opened.ok(), !another);
    EXPECT_TRUE(opened ? (*opened)->is_link() && (*opened)->entries().size() == 1
                       : opened.error().kind == ErrorKind::kForeignLink);
    EXPECT_TRUE(files().OpenFolder(At("link")));
  }
  EXPECT_FALSE(Must(files().OpenFolder(At("from"), FollowLinks::kTrusted))->is_link());
}

TEST_P(FileSystemContract, WhatBearsTwoNamesHasOneIdentity) {
  AddFile("from/file", "x");
  AddFile("from/other", "x");
  EXPECT_TRUE(files().IdentityOf(At("from")) && files().IdentityOf(At("from")) == Open("from")->identity());
  EXPECT_NE(files().IdentityOf(At("from/file")), files().IdentityOf(At("from/other")));
  if (!scene_->MakeHardLink(At("to/file"), At("from/file"))) GTEST_SKIP() << "hard links cannot be made here";
  EXPECT_EQ(files().IdentityOf(At("from/file")), files().IdentityOf(At("to/file")));
  EXPECT_EQ(Named(*Open("from"), "file").number, EntryAt("to/file").number);
  EXPECT_NE(EntryAt("to/file").number, EntryAt("from/other").number);
  EXPECT_TRUE(EntryAt("to/file").has_other_names && !EntryAt("from/other").has_other_names);
}

}  // namespace platform::contract

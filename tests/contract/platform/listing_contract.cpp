#include "platform/path.h"
#include "tests/contract/platform/file_system_contract.h"

namespace platform::contract {
namespace {

constexpr const char* kNoLinks = "links cannot be made here";

TEST_P(FileSystemContract, ListingTellsKindSizeTimeAndReadOnlyOfEveryEntry) {
  AddFile("from/empty", "");
  AddFile("from/Größe €.txt", "12345", {-86'400, 500});
  AddFile("from/closed", "x");
  AddFolder("from/below");
  ASSERT_TRUE(files().SetAttributes(At("from/closed"), kReadOnly).ok());

  const auto folder = Open("from");
  EXPECT_EQ(folder->path(), At("from"));
  ASSERT_EQ(folder->entries().size(), 4u);
  EXPECT_EQ(Named(*folder, "empty").size, 0);
  EXPECT_EQ(Named(*folder, "empty").modified, kOldTime);
  const Entry& file = Named(*folder, "Größe €.txt");
  EXPECT_EQ(file.kind, EntryKind::kFile);
  EXPECT_EQ(file.size, 5);
  EXPECT_EQ(file.modified, (FileTime{-86'400, 500}));
  EXPECT_EQ(file.attributes & kReadOnly, 0u);
  EXPECT_EQ(Named(*folder, "closed").attributes & kReadOnly, kReadOnly);
  EXPECT_EQ(Named(*folder, "below").kind, EntryKind::kFolder);
  EXPECT_EQ(Named(*folder, "below").size, kUnknownSize);
}

TEST_P(FileSystemContract, LinksAreToldByWhatTheyLeadTo) {
  AddFile("to/file", "12345");
  AddFolder("to/folder");
  if (!scene_->MakeLink(At("from/file"), At("to/file"))) GTEST_SKIP() << kNoLinks;
  ASSERT_TRUE(scene_->MakeLink(At("from/folder"), At("to/folder")));
  ASSERT_TRUE(scene_->MakeLink(At("from/dead"), At("to/nothing")));
  ASSERT_TRUE(scene_->MakeLink(At("from/circle"), At("from/circle")));

  const auto folder = Open("from");
  EXPECT_EQ(Named(*folder, "file").kind, EntryKind::kFile);
  EXPECT_EQ(Named(*folder, "file").size, 5);
  EXPECT_EQ(Named(*folder, "file").modified, kOldTime);
  EXPECT_EQ(Named(*folder, "folder").kind, EntryKind::kFolderLink);
  EXPECT_EQ(Named(*folder, "dead").kind, EntryKind::kDeadLink);
  EXPECT_EQ(Named(*folder, "circle").kind, EntryKind::kDeadLink);
  EXPECT_EQ(Open("from/folder")->entries().size(), 0u);
  for (const Entry& entry : folder->entries()) EXPECT_EQ(EntryAt("from/" + entry.name).kind, entry.kind);
}

TEST_P(FileSystemContract, APipeIsNoFile) {
  if (!scene_->MakePipe(At("from/pipe"))) GTEST_SKIP() << "pipes cannot be made here";
  EXPECT_EQ(Named(*Open("from"), "pipe").kind, EntryKind::kOther);
  EXPECT_FALSE(Copy("pipe").ok());
  EXPECT_TRUE(NamesIn("to").empty());
}

TEST_P(FileSystemContract, WhatIsNoFolderIsNotListed) {
  AddFile("from/file", "x");
  EXPECT_EQ(files().OpenFolder(At("from/none")).error().kind, ErrorKind::kNotFound);
  EXPECT_EQ(files().OpenFolder(At("from/file")).error().kind, ErrorKind::kNotAFolder);
  EXPECT_EQ(files().Look(At("from/none")).error().kind, ErrorKind::kNotFound);
  EXPECT_FALSE(files().OpenFolder(At("from/none")).error().text.empty());
}

TEST_P(FileSystemContract, AHintChangesNothingButTheTimeAListingTakes) {
  for (int i = 0; i < 300; ++i) AddFile("from/" + std::to_string(i), "x");
  Open("from");
  files().ExpectFolder(At("from"));
  EXPECT_EQ(Open("to")->entries().size(), 0u);
  EXPECT_EQ(Open("from")->entries().size(), 300u);
  files().ExpectFolder(At("none"));
  EXPECT_FALSE(files().OpenFolder(At("none")).ok());
  Open("from");
  files().ExpectFolder(At("from"));
  EXPECT_EQ(Open("from")->path(), At("from"));
  files().ExpectFolder(At("to"));
}

TEST_P(FileSystemContract, RealPathHasNoLinks) {
  AddFile("to/file", "x");
  const auto plain = files().RealPath(At("to/file"));
  ASSERT_TRUE(plain.ok());
  EXPECT_EQ(files().RealPath(At("from/none")).error().kind, ErrorKind::kNotFound);
  if (!scene_->MakeLink(At("from/link"), At("to"))) GTEST_SKIP() << kNoLinks;
  EXPECT_EQ(*files().RealPath(At("from/link/file")), *plain);
}

TEST_P(FileSystemContract, PathsOfAThousandLettersWork) {
  std::string deep = "from";
  for (int i = 0; i < 10; ++i) AddFolder(deep += '/' + std::string(100, static_cast<char>('a' + i)));
  AddFile(deep + "/file", "content");
  const auto folder = Open(deep);
  const auto to = Open("to");
  ASSERT_TRUE(files().CopyFile(*folder, Named(*folder, "file"), *to, {}).ok());
  EXPECT_EQ(ContentOf("to/file"), "content");
  EXPECT_TRUE(files().SetAttributes(At(deep + "/file"), kReadOnly).ok());
  EXPECT_TRUE(files().RemoveFile(At(deep + "/file")).ok());
  EXPECT_TRUE(Open(deep)->entries().empty());
}

TEST_P(FileSystemContract, NamesHaveOneKeyExactlyWhenTheyAreOneFile) {
  AddFile("from/Name", "x");
  EXPECT_EQ(files().NameKey("name") == files().NameKey("Name"), files().Look(At("from/name")).ok());
  EXPECT_EQ(files().NameKey("Name"), files().NameKey("Name"));
  EXPECT_NE(files().NameKey("Name"), files().NameKey("Name2"));
}

TEST_P(FileSystemContract, SpaceAndDriveAreKnownForAFolderThatIsStillToBeMade) {
  for (const char* place : {"to", "to/new"}) {
    const auto space = files().Space(At(place));
    ASSERT_TRUE(space.ok()) << place;
    EXPECT_LE(space->free, space->total);
    EXPECT_GT(space->total, 0u);
    EXPECT_FALSE(files().DriveOf(At(place)).empty()) << place;
  }
  EXPECT_FALSE(files().Space(At("none/new")).ok());
}

}  // namespace
}  // namespace platform::contract

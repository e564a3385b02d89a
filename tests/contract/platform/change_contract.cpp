#include "tests/contract/platform/file_system_contract.h"

namespace platform::contract {

TEST_P(FileSystemContract, FilesAreRemovedAlsoReadOnlyOnesAndFoldersAreNot) {
  AddFile("from/file", "x");
  AddFolder("from/folder");
  ASSERT_TRUE(files().SetAttributes(At("from/file"), kReadOnly));
  EXPECT_TRUE(files().RemoveFile(At("from/file")));
  EXPECT_EQ(files().RemoveFile(At("from/file")).error().kind, ErrorKind::kNotFound);
  EXPECT_FALSE(files().RemoveFile(At("from/folder")));
  EXPECT_EQ(NamesIn("from"), Names{"folder"});
}

TEST_P(FileSystemContract, ANewFileIsMadeOnlyWhereNothingBearsTheName) {
  ASSERT_TRUE(files().WriteNewFile(At("to/new"), "new"));
  EXPECT_EQ(ContentOf("to/new"), "new");
  AddFile("from/file", "kept");
  const bool links = scene_->MakeLink(At("to/link"), At("from/file")) && EntryAt("to/link").is_link &&
                     scene_->MakeLink(At("to/dead"), At("from/none"));
  for (const char* name : {"to/new", "to/link", "to/dead", "from"}) {
    if (!links && name[3] != 'n' && name[0] == 't') continue;
    EXPECT_EQ(files().WriteNewFile(At(name), "x").error().kind, ErrorKind::kAlreadyExists) << name;
    EXPECT_EQ(files().CreateFolder(At(name)).error().kind, ErrorKind::kAlreadyExists) << name;
  }
  EXPECT_EQ(ContentOf("to/new") + ContentOf("from/file"), "newkept");
}

TEST_P(FileSystemContract, AReadOnlyFileIsReplacedWithoutTouchingWhatElseBearsAnotherNameOfIt) {
  if (files().ReadOnlyForbidsReplacing()) GTEST_SKIP() << "a read-only file must be made writable here";
  AddPair("new", "old");
  if (!scene_->MakeHardLink(At("other"), At("to/file"))) GTEST_SKIP() << "hard links cannot be made here";
  ASSERT_TRUE(files().SetAttributes(At("other"), kReadOnly));
  ASSERT_TRUE(Copy("file"));
  EXPECT_EQ(ContentOf("to/file") + ContentOf("other"), "newold");
  EXPECT_EQ(*files().GetAttributes(At("other")), kReadOnly);
}

TEST_P(FileSystemContract, ANameTakesAnotherSpellingAndNeverThePlaceOfAnother) {
  AddFile("to/name", "it");
  AddFile("to/other", "another");
  AddFolder("to/folder");
  EXPECT_FALSE(files().Respell(At("to"), "name", "other"));
  ASSERT_TRUE(files().Respell(At("to"), "name", "NAME"));
  ASSERT_TRUE(files().Respell(At("to"), "folder", "Folder"));
  EXPECT_EQ(NamesIn("to"), (Names{"Folder", "NAME", "other"}));
  EXPECT_EQ(ContentOf("to/NAME") + ContentOf("to/other"), "itanother");
}

TEST_P(FileSystemContract, WhatAnInterruptedRespellingLeftGetsItsName) {
  const std::string temporary = MakeTemporaryName();
  for (const char* folder : {"", "/Folder"}) AddFolder("to/" + temporary + folder);
  AddFile("to/" + temporary + "/Folder/file", "it");
  ASSERT_TRUE(files().EndRespelling(At("to"), temporary));
  EXPECT_EQ(NamesIn("to"), Names{"Folder"});
  AddFolder("to/" + temporary);
  AddFolder("to/" + temporary + "/Folder");
  EXPECT_FALSE(files().EndRespelling(At("to"), temporary)) << "never in the place of another";
  EXPECT_EQ(ContentOf("to/Folder/file"), "it");
}

TEST_P(FileSystemContract, WrittenAndReplacedFilesHoldTheNewContentAlone) {
  AddFile("from/file", "a longer old content");
  ASSERT_TRUE(files().WriteFile(At("from/file"), "short"));
  EXPECT_EQ(ContentOf("from/file"), "short");
  ASSERT_TRUE(files().ReplaceFile(At("from/file"), "replaced"));
  ASSERT_TRUE(files().ReplaceFile(At("from/new"), ""));
  EXPECT_EQ(ContentOf("from/file"), "replaced");
  EXPECT_EQ(NamesIn("from"), (Names{"file", "new"}));
  EXPECT_TRUE(files().Flush(At("from"), {}));
}

TEST_P(FileSystemContract, WhatIsMissingIsNotFound) {
  const std::string none = At("from/none");
  for (const Error& error :
       {files().OpenFolder(none).error(), files().Stat(none).error(), files().RealPath(none).error(),
        files().GetAttributes(none).error(), files().SetAttributes(none, 0).error(),
        files().ReadFile(none, 5).error(), files().WriteFile(none + "/x", "x").error(),
        files().ReplaceFile(none + "/x", "x").error(), files().CreateFolder(none + "/x").error()})
    EXPECT_TRUE(error.kind == ErrorKind::kNotFound && !error.text.empty()) << error.text;
}

}  // namespace platform::contract

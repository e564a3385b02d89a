#include "services/setup_file.h"

#include "platform/memory/memory_system.h"
#include "services/data_file.h"
#include "services/last_run_file.h"
#include "services/setup_text.h"
#include "tests/story.h"
#include "tests/tree.h"

namespace services {

struct SetupFile : testing::Test {
  SetupFile() {
    tree::Add(files, {"/s/one/", "/s/two/below/", "/s/file", "/t/", "/short.qvr=/s\r\n/t\r\n 1 \r\n"});
    setup.SourceFolder = "/s";
    setup.TargetFolder = "/t";
    setup.IncludedFolders = {"one", "gone", "file", "..", "two/below", "", "two", "s"};
  }

  LoadedSetup Load(const std::string& path = "/x.qvr") {
    EXPECT_TRUE(SaveSetupToFile(files, "/x.qvr", setup));
    return LoadOperationFile(loader, path);
  }

  platform::memory::MemoryFileSystem files;
  ui::headless::HeadlessFrontEnd front_end;
  ui::headless::HeadlessDialogs& dialogs = front_end.dialogs();
  ui::Form form{front_end, "frmMain", ui::FormStyle::kMain};
  text::ProgramTexts texts{"79 Missing:\n59 Clear?\n82 Title\n640 Stays.\n641 Away:\n653 Not plain:"};
  const SetupLoader loader{files, dialogs, form, texts, true};
  app::Setup setup;
};

TEST_F(SetupFile, ClearsAMissingTargetWhenToldTo) {
  setup.TargetFolder = "/gone";
  for (const bool yes : {true, false}) {
    dialogs.yes_no = {yes};
    const auto loaded = Load();
    EXPECT_EQ(dialogs.asked.back().text, "Missing:\r\n/gone\r\n\r\nClear?");
    EXPECT_EQ(loaded.clear_setup_file, yes);
    EXPECT_EQ(loaded.setup.TargetFolder, yes ? "" : "/gone");
  }
}

TEST_F(SetupFile, WhatWasAwayIsTakenBackOnceItIsThereAndSavedInAnyCase) {
  Story story{"services/told/"};
  setup.IncludedFolders = {"gone", "one"};
  for (int there = 0; there < 8; ++there) {
    const bool source = (there & 1) != 0, target = (there & 2) != 0, folder = (there & 4) != 0;
    platform::memory::MemoryFileSystem disk;
    if (source) disk.AddFolder(folder ? "/s/one" : "/s");
    if (target) disk.AddFolder("/t");
    app::Setup shown = setup;
    AwayParts away = TakeApart(shown);
    EXPECT_EQ(shown, app::Setup{});
    story.told += TakeBackWhatIsThere(disk, shown, away) ? "Back: " : "Nothing is back: ";
    story.told += shown.SourceFolder + "|" + shown.TargetFolder;
    for (const std::string& name : shown.IncludedFolders) story.told += "|" + name;
    story.told += "\n" + WhyMissing(away, false) + "\n" + WhyMissing(away, true) + "\n" +
                  AwaySummary(away, texts) + "\n";
    EXPECT_EQ(WithAwayParts(shown, away), setup);
    EXPECT_FALSE(TakeBackWhatIsThere(disk, shown, away) || away.empty());
    disk.AddFolder("/s/gone");
    EXPECT_TRUE(TakeBackWhatIsThere(disk, shown, away)) << "the last one, or the source with it";
    away.ForgetSource();
    EXPECT_EQ(WithAwayParts(shown, away).IncludedFolders, shown.IncludedFolders);
    EXPECT_EQ(away.empty(), target);
  }
}

TEST_F(SetupFile, WhatASaveOfTheLastRunWouldLoseIsKnown) {
  using Loss = LastRunFile::Loss;
  const std::string path = "/gone/last.qvr";
  LastRunFile last(files);
  std::string reason;
  EXPECT_EQ(last.Stat(path, reason), LastRunState::kNone);
  EXPECT_EQ(last.LossBySaving(path, setup), Loss::kNone);
  files.AddFile(path, "another");
  EXPECT_EQ(last.Stat(path, reason), LastRunState::kFile);
  EXPECT_EQ(last.LossBySaving(path, setup), Loss::kChangedMeanwhile);
  last.NoteBeforeLoading(path);
  EXPECT_EQ(last.LossBySaving(path, setup), Loss::kNone);
  last.NoteReadInPart();
  EXPECT_EQ(last.LossBySaving(path, setup), Loss::kReadInPart);
  last.NoteBeforeLoading(path);
  EXPECT_EQ(last.LossBySaving(path, setup), Loss::kNone) << "it is read anew";
  last.NoteReadInPart();
  files.Remove("/gone");
  EXPECT_TRUE(last.Save(path, setup)) << "its folder is made anew";
  EXPECT_EQ(last.LossBySaving(path, {}), Loss::kNone);
  files.Remove(path);
  last.NoteBeforeLoading(path);
  EXPECT_TRUE(SaveSetupToFile(files, path, setup));
  EXPECT_EQ(last.LossBySaving(path, setup), Loss::kNone);
  EXPECT_EQ(last.LossBySaving(path, {}), Loss::kChangedMeanwhile);
  EXPECT_EQ(last.Stat("/s", reason), LastRunState::kNotReadable);
  files.Fail(platform::memory::Call::kLook, path, {platform::ErrorKind::kOther, 5, "EIO"});
  EXPECT_EQ(last.Stat(path, reason), LastRunState::kNotReadable);
  EXPECT_EQ(reason, "EIO");
}

TEST_F(SetupFile, AnswersAnInputErrorByItsNumberAndAskedForManyBackupsAlsoInWords) {
  files.AddHugeFile("/huge.qvr", 1'000'000'000);
  for (const auto& [path, kind] : {std::pair("/mine.qvr", platform::ErrorKind::kAccessDenied),
                                   {"/open.qvr", platform::ErrorKind::kInUse}})
    files.Fail(platform::memory::Call::kReadFile, path, {kind, 0, {}});
  Story story{"services/told/"};
  for (const std::string path : {"/short.qvr", "/none.qvr", "/s", "/huge.qvr", "/mine.qvr", "/open.qvr"}) {
    const LoadedSetup one = Load(path), of_many = LoadOperationFile(loader, path, true);
    story.told += path + ": " + std::to_string(one.result) + " " + one.problem + "\n" +
                  std::to_string(of_many.result) + " " + of_many.strErr + "\n";
  }
  EXPECT_TRUE(Load("/short.qvr").setup.SuppressDetailedReports);
  dialogs.asked.clear();
  setup.TargetFolder = "/gone";
  EXPECT_TRUE(SaveSetupToFile(files, "/x.qvr", setup));
  const LoadedSetup of_many = LoadOperationFile(loader, "/x.qvr", true);
  EXPECT_EQ(of_many.strErr + std::to_string(of_many.result), "Target folder does not exist-200");
  EXPECT_TRUE(dialogs.asked.empty());
}

}  // namespace services

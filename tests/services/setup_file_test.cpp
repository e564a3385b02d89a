#include "services/setup_file.h"

#include <gtest/gtest.h>

#include <map>

#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_system.h"
#include "services/data_file.h"
#include "services/setup_text.h"
#include "ui/form.h"
#include "ui/headless/headless_front_end.h"

namespace {

using Names = std::vector<std::string>;

class SetupFile : public testing::Test {
 protected:
  SetupFile() {
    files.AddFolder("/s/one");
    files.AddFolder("/s/two/below");
    files.AddFile("/s/file", "");
    files.AddFolder("/t");
    setup.SourceFolder = "/s";
    setup.TargetFolder = "/t";
    setup.IncludedFolders = {"one", "gone", "file", "..", "two/below", "", "two"};
    setup.FileExtension = "txt";
  }

  services::LoadedSetup Load(bool window_ready, bool blnMultipleBackup = false) {
    files.AddFile("/x.qvr", services::SetupText(setup));
    return LoadFrom("/x.qvr", window_ready, blnMultipleBackup);
  }

  services::LoadedSetup LoadFrom(const std::string& path, bool window_ready, bool blnMultipleBackup = false) {
    return services::LoadOperationFile({files, front_end.dialogs(), form, texts, window_ready}, path,
                                       blnMultipleBackup);
  }

  platform::memory::MemoryFileSystem files;
  ui::headless::HeadlessFrontEnd front_end;
  ui::Form form{front_end, "frmMain", ui::FormStyle::kMain};
  text::ProgramTexts texts{"79 Missing:\n59 Clear?\n82 Title"};
  app::Setup setup;
};

TEST_F(SetupFile, KeepsTheOldOneWhenSavingFails) {
  ASSERT_TRUE(services::SaveSetupToFile(files, "/t/x.qvr", {}));
  files.Fail(platform::memory::Call::kReplaceFile, "/t/x.qvr", {});
  EXPECT_FALSE(services::SaveSetupToFile(files, "/t/x.qvr", setup));
  EXPECT_EQ(files.ContentOf("/t/x.qvr"), services::SetupText({}));
}

TEST_F(SetupFile, GivesTheIncludedFoldersThatLieInTheSource) {
  const auto loaded = Load(true);
  EXPECT_EQ(loaded.result, 0);
  EXPECT_EQ(loaded.setup.IncludedFolders, (Names{"one", "two"}));
  EXPECT_TRUE(loaded.AnyIncludedFolderHasSubfolders);
  EXPECT_EQ(loaded.setup.FileExtension, "txt");
  setup.IncludedFolders = {"one"};
  EXPECT_FALSE(Load(true).AnyIncludedFolderHasSubfolders);
  EXPECT_TRUE(front_end.dialogs().asked.empty());
}

TEST_F(SetupFile, ClearsAMissingSourceWithItsFoldersAndSaysSoOnceTheWindowIsReady) {
  setup.SourceFolder = "/s/file";
  for (const bool window_ready : {false, true}) {
    const auto loaded = Load(window_ready);
    EXPECT_EQ(loaded.result, 0);
    EXPECT_EQ(loaded.setup.SourceFolder, "");
    EXPECT_EQ(loaded.setup.IncludedFolders, Names());
    EXPECT_EQ(front_end.dialogs().asked.size(), window_ready ? 1U : 0U);
  }
  EXPECT_EQ(front_end.dialogs().asked[0].text, "Source folder /s/file does not exist.");
  EXPECT_EQ(front_end.dialogs().asked[0].title, "Error");
}

TEST_F(SetupFile, DealsWithAMissingTargetByWhoIsThere) {
  setup.TargetFolder = "/gone";
  front_end.dialogs().yes_no = {true, false};
  const struct {
    bool ready, multiple;
    std::string target;
    bool clear_setup_file;
    int result;
  } cases[] = {{false, true, "", false, 0},
               {true, true, "/gone", false, -200},
               {true, false, "", true, 0},
               {true, false, "/gone", false, 0}};
  for (const auto& c : cases) {
    const auto loaded = Load(c.ready, c.multiple);
    EXPECT_EQ(loaded.setup.TargetFolder, c.target);
    EXPECT_EQ(loaded.clear_setup_file, c.clear_setup_file);
    EXPECT_EQ(loaded.result, c.result);
    EXPECT_EQ(loaded.strErr, c.result == 0 ? "" : "Target folder does not exist");
  }
  ASSERT_EQ(front_end.dialogs().asked.size(), 2U);
  EXPECT_EQ(front_end.dialogs().asked[0].text, "Missing:\r\n/gone\r\n\r\nClear?");
}

TEST_F(SetupFile, AnswersAnInputErrorByItsNumber) {
  files.AddFile("/short.qvr", "/s\r\n/t\r\n 1 \r\n");
  files.AddHugeFile("/huge.qvr", 1'000'000'000);
  const std::map<std::string, int> cases = {
      {"/short.qvr", 62}, {"/none.qvr", 53}, {"/s", 75}, {"/huge.qvr", 75}};
  for (const auto& [path, error] : cases) {
    EXPECT_EQ(LoadFrom(path, true).result, error) << path;
    EXPECT_EQ(LoadFrom(path, true, true).result, -200 - error) << path;
  }
  EXPECT_EQ(LoadFrom("/short.qvr", true, true).strErr, services::InputErrorText(62));
  EXPECT_TRUE(LoadFrom("/short.qvr", true).setup.SuppressDetailedReports);
}

TEST_F(SetupFile, LiesInAFolderThatIsMadeOneLevelDeep) {
  platform::memory::MemoryShell shell;
  files.AddFolder(shell.application_data);
  EXPECT_EQ(services::GetDataFilePath(shell, files, "qvr.usr", "Q"), "/home/user/.config/Q/qvr.usr");
  EXPECT_TRUE(files.Exists("/home/user/.config/Q"));
}

}  // namespace

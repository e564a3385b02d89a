#include "services/setup_file.h"

#include <gtest/gtest.h>

#include <map>

#include "platform/memory/memory_file_system.h"
#include "ui/form.h"
#include "ui/headless/headless_front_end.h"

namespace {

class SetupFile : public testing::Test {
 protected:
  SetupFile() {
    files.AddFolder("/s/one");
    files.AddFolder("/s/two/below");
    files.AddFile("/s/file", "");
    files.AddFolder("/t");
    setup.SourceFolder = "/s";
    setup.TargetFolder = "/t";
    setup.IncludedFolders = {"one", "gone", "file", "..", "two/below", "", "two", "s"};
  }

  services::LoadedSetup Load(bool window_ready, bool multiple = false) {
    EXPECT_TRUE(services::SaveSetupToFile(files, "/x.qvr", setup));
    return LoadFrom("/x.qvr", window_ready, multiple);
  }
  services::LoadedSetup LoadFrom(const std::string& path, bool window_ready, bool multiple = false) {
    return services::LoadOperationFile({files, front_end.dialogs(), form, texts, window_ready}, path,
                                       multiple);
  }

  platform::memory::MemoryFileSystem files;
  ui::headless::HeadlessFrontEnd front_end;
  ui::Form form{front_end, "frmMain", ui::FormStyle::kMain};
  text::ProgramTexts texts{"79 Missing:\n59 Clear?\n82 Title"};
  app::Setup setup;
};

TEST_F(SetupFile, GivesTheIncludedFoldersThatLieInTheSource) {
  const auto loaded = Load(true);
  EXPECT_EQ(loaded.setup.IncludedFolders, (std::vector<std::string>{"one", "two"}));
  ASSERT_EQ(loaded.gone.size(), 6U);
  EXPECT_EQ(loaded.gone[0], "Included folder gone does not exist.");
}

TEST_F(SetupFile, ClearsAMissingSourceWithItsFoldersAndSaysSoOnceTheWindowIsReady) {
  setup.SourceFolder = "/s/file";
  for (const std::size_t ready : {0U, 1U}) {
    const auto loaded = Load(ready == 1);
    EXPECT_TRUE(loaded.setup.SourceFolder.empty() && loaded.setup.IncludedFolders.empty());
    ASSERT_EQ(front_end.dialogs().asked.size(), ready);
  }
  EXPECT_EQ(front_end.dialogs().asked[0].text, "Source folder /s/file does not exist.");
}

TEST_F(SetupFile, DealsWithAMissingTargetByWhoIsThere) {
  setup.TargetFolder = "/gone";
  EXPECT_EQ(Load(false, true).setup.TargetFolder, "");
  const auto multiple = Load(true, true);
  EXPECT_EQ(multiple.result, -200);
  EXPECT_EQ(multiple.strErr, "Target folder does not exist");
  EXPECT_TRUE(front_end.dialogs().asked.empty());
  for (const bool yes : {true, false}) {
    front_end.dialogs().yes_no = {yes};
    const auto loaded = Load(true);
    EXPECT_EQ(loaded.clear_setup_file, yes);
    EXPECT_EQ(loaded.setup.TargetFolder, yes ? "" : "/gone");
  }
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
  EXPECT_TRUE(LoadFrom("/short.qvr", true).setup.SuppressDetailedReports);
}

}  // namespace

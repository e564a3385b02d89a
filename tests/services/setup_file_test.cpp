#include "services/setup_file.h"

#include <gtest/gtest.h>

#include "tests/tree.h"
#include "ui/form.h"
#include "ui/headless/headless_front_end.h"

namespace services {

struct SetupFile : testing::Test {
  SetupFile() {
    tree::Add(files, {"/s/one/", "/s/two/below/", "/s/file", "/t/", "/short.qvr=/s\r\n/t\r\n 1 \r\n"});
    setup.SourceFolder = "/s";
    setup.TargetFolder = "/t";
    setup.IncludedFolders = {"one", "gone", "file", "..", "two/below", "", "two", "s"};
  }

  LoadedSetup Load(bool window_ready) {
    EXPECT_TRUE(SaveSetupToFile(files, "/x.qvr", setup));
    return LoadFrom("/x.qvr", window_ready);
  }
  LoadedSetup LoadFrom(const std::string& path, bool window_ready) {
    dialogs.asked.clear();
    return LoadOperationFile({files, dialogs, form, texts, window_ready}, path);
  }
  std::string Said() { return dialogs.asked.empty() ? "" : dialogs.asked.back().text; }

  platform::memory::MemoryFileSystem files;
  ui::headless::HeadlessFrontEnd front_end;
  ui::headless::HeadlessDialogs& dialogs = front_end.dialogs();
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
  const app::Setup loaded = Load(true).setup;
  EXPECT_EQ(Said(), "Source folder /s/file does not exist.");
  EXPECT_TRUE(loaded.SourceFolder.empty() && loaded.IncludedFolders.empty());
  EXPECT_EQ(Load(false).setup.SourceFolder, "");
  EXPECT_EQ(Said(), "");
}

TEST_F(SetupFile, ClearsAMissingTargetWhenItIsToldToOrNobodyCanBeAsked) {
  setup.TargetFolder = "/gone";
  EXPECT_EQ(Load(false).setup.TargetFolder, "");
  for (const bool yes : {true, false}) {
    dialogs.yes_no = {yes};
    const auto loaded = Load(true);
    EXPECT_EQ(Said(), "Missing:\r\n/gone\r\n\r\nClear?");
    EXPECT_EQ(loaded.clear_setup_file, yes);
    EXPECT_EQ(loaded.setup.TargetFolder, yes ? "" : "/gone");
  }
}

TEST_F(SetupFile, AnswersAnInputErrorByItsNumber) {
  files.AddHugeFile("/huge.qvr", 1'000'000'000);
  const std::pair<std::string, int> cases[] = {
      {"/short.qvr", 62}, {"/none.qvr", 53}, {"/s", 75}, {"/huge.qvr", 75}};
  for (const auto& [path, error] : cases) EXPECT_EQ(LoadFrom(path, true).result, error) << path;
  EXPECT_TRUE(LoadFrom("/short.qvr", true).setup.SuppressDetailedReports);
}

}  // namespace services

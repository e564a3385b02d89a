#include "app/confirmation/frmConfirmOperation.h"
#include "tests/app/program.h"

namespace app::test {

struct ConfirmOperation : testing::Test, Program {
  ConfirmOperation() {
    owner.Show();
    files.AddMountPoint("/dst");  // a disk of its own
  }

  /// Opens the window, lets it read to its end, then lets the user act.
  void Open(const std::string& step, const std::function<void()>& user = {}) {
    confirm.emplace(context, request, warnings, paces);
    InOpenWindow<frmConfirmOperation>([&](frmConfirmOperation& open) {
      story.Note(step, open);
      if (user) user(), story.Note("Then", open);
      open.Hide();
    });
    confirm->Confirm(owner);
  }

  Story story{"app/told/"};
  ui::Form owner{front_end, "owner", ui::FormStyle::kMain};
  engine::RunRequest request{setup, Operation::kBackupModifiedFiles, {}, false};
  KnownPaces paces;
  std::vector<std::string> warnings;
  std::optional<frmConfirmOperation> confirm;
};

TEST_F(ConfirmOperation, CountsWhatTheRunWouldCopyAndWhatEachPatternHits) {
  tree::Add(files,
            {"/src/new=12345", "/src/same=12", "/dst/same=12", "/src/a/below/modified=123",
             "/dst/a/below/modified", "/src/a/skipped.tmp", "/src/a/target/copy", "/src/not included/x"});
  request.setup.IncludedFolders = {"a"};
  request.setup.IncludeSubfolders = true;
  request.setup.SkipFilepaths = ".tmp";
  Open("What is new or modified");
  request.operation = Operation::kBackupAllFiles;
  Open("All");
  request.setup.TargetFolder = "/src/a/target";
  Open("without the target itself");
  request.setup.IncludeSubfolders = false;
  request.setup.ExcludeFilesInSourceFolder = true;
  Open("No file takes part");
  tree::Add(files, {"/src/a/same=12", "/dst/a/same=12"});
  request.setup = {"/src", "/dst", {"a"}, false, "", "skipped", 0, true, false, false, false};
  request.operation = Operation::kBackupModifiedFiles;
  Open("Everything is backed up");
  tree::Add(files, {"/many/Temp/", "/many/other/", "/many/template/", "/many/temp.txt"});
  request.setup = {"/many", "/dst", {"Temp", "other"}, false, "", "/Temp/, temp, nothing"};
  Open("Patterns");
  for (int i = 0; i < 60; ++i) request.setup.SkipFilepaths += ",pattern " + std::to_string(i);
  Open("More than there is room for", [&] {
    using ui::Key;
    for (const Key key :
         {Key::kEnd, Key::kUp, Key::kPageUp, Key::kHome, Key::kDown, Key::kPageDown, Key::kEnd}) {
      ui::headless::PressKey(*confirm, {key});
      story.told += std::to_string(confirm->vsbFacts.value()) + "\n";
    }
  });
  EXPECT_LE(confirm->fact_rows.back()->lblText.bounds().bottom(), confirm->picFacts.height()) << "in reach";
}

TEST_F(ConfirmOperation, DoubtsWhatIsWorthASecondLook) {
  tree::Add(files, {"/src/file=123456", "/src/inside/", "/src/link>/dst"});
  const auto doubt = [&](const std::string& step, const std::string& target,
                         const std::vector<std::string>& included, const std::string& skip = "",
                         const std::string& extension = "") {
    request.setup = {"/src///", target, included, false, extension, skip, 0, false, false, false, false};
    Open(step);
  };
  doubt("None", "/dst", {"inside", "link"});
  doubt("The subfolder is not included", "/dst", {});
  doubt("The same disk, of which nothing else is known", "/other", {});
  files.SetDisk("/dst", "/");
  doubt("Another volume of it", "/dst", {"inside"});
  files.SetDisk("/dst", "sdb");
  doubt("A star in a pattern", "/dst", {}, "*.bak");
  doubt("Nothing but stars", "/dst", {}, "?*");
  doubt("A pattern of two letters", "/dst", {}, "le");
  doubt("A pattern in the source's own path", "/dst", {}, "SRC");
  doubt("An extension that no file has", "/dst", {}, "", "jpg");
  doubt("A target in the source", "/src/inside", {});
  doubt("A source in the target", "/", {});
  doubt("A folder that has gone", "/dst", {"gone", "inside"});
  doubt("Two that have gone", "/dst", {"x", "y"});
  warnings.assign(
      8,
      "A warning from before the run that takes two lines, as long as it is, and that is followed by "
      "more of them than there is room for on a small screen.");
  doubt("Eight more, each of two lines", "/dst", {"x", "y"});
}

TEST_F(ConfirmOperation, DoubtsThatAnythingStaysOutWhichANewcomerExpectsToBeInOrThatItFits) {
  tree::Add(files, {"/src/file", "/src/a/1", "/src/a/x/2", "/src/a/x/y/3", "/src/b/4", "/src/link>/dst"});
  Open("None included");
  request.setup.IncludedFolders = {"a"};
  Open("Without their subfolders");
  request.setup.IncludeSubfolders = true;
  Open("A link");
  request.setup.SkipFilepaths = "/link";
  Open("that is skipped");
  files.Fail(platform::memory::Call::kOpenFolder, "/src/a/x", {});
  Open("A folder that cannot be read");
  tree::Add(files, {"/period/old", "/period/copied", "/dst/copied"});
  request.setup.SourceFolder = "/period";
  request.setup.IncludedFolders.clear();
  request.setup.ModifiedSince = 1;
  request.modified_since = platform::FileTime{1'800'000'000, 0};
  Open("A period that keeps out what has no copy");
  files.Remove("/dst/copied");
  tree::Add(files, {"/dst/lost+found/", "/dst/other"});
  Open("A target of other things");
  tree::Add(files, {"/full/file=1234"});
  files.Remove("/dst/other");
  request.setup.SourceFolder = "/full";
  request.modified_since.reset();
  files.SetSpace(4, 2'000);
  Open("Too little space");
  tree::Add(files, {"/dst/file=x"});
  Open("Enough for three bytes more");
  files.SetSpace(6'000'000'000, 6'000'000'000);
  files.AddHugeFile("/full/film", 5'000'000'000);
  Open("Enough for a film");
  files.SetLargestFile(platform::kLargestOnFat);
  Open("but not on this file system");
}

TEST_F(ConfirmOperation, OffersToCompareAndToReadBackAndTellsHowMuchThatIs) {
  tree::Add(files, {"/src/a=12345", "/dst/a=12345", "/src/b=123", "/dst/b=345", "/src/new", "/src/longer=12",
                    "/dst/longer=1"});
  Open("Compare", [&] { confirm->UserPressedAccessKey('C'); });
  paces.comparing = paces.reading_back = {3, 0, 90};
  Open("It is known how fast that is");
  request.read_back = true;
  for (const Operation operation : {Operation::kBackupModifiedFiles, Operation::kBackupAllFiles}) {
    request.operation = operation;
    Open("Read back no more", [&] { confirm->UserPressedAccessKey('R'); });
  }
}

}  // namespace app::test

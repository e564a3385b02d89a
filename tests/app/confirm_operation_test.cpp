#include "app/confirmation/frmConfirmOperation.h"
#include "tests/app/program.h"
#include "ui/line_break.h"

namespace app::test {

struct ConfirmOperation : testing::Test, Program {
  ConfirmOperation() {
    owner.Show();
    files.AddMountPoint("/dst");  // a disk of its own
  }

  /// Opens the window, lets it read to its end, then lets the user act.
  bool Confirm(const std::function<void()>& user) {
    confirm.emplace(context, request, std::vector<std::string>(), paces);
    InOpenWindow<frmConfirmOperation>([&](frmConfirmOperation& open) {
      user();
      open.Hide();
    });
    return confirm->Confirm(owner);
  }

  /// The text that stands beside a heading; "-" for no such heading.
  std::string Fact(const std::string& heading) {
    for (const auto& row : confirm->fact_rows) {
      if (row->lblHeading.text() == heading) return row->lblText.text();
    }
    return "-";
  }

  std::string FactAtTheEnd(const std::string& heading) {
    Confirm([] {});
    return Fact(heading);
  }
  std::string Doubts() {
    Confirm([] {});
    std::string doubts = confirm->fraDoubts.visible() ? confirm->lblDoubts.text() : "";
    for (std::size_t at = 0; (at = doubts.find("\r\n")) != std::string::npos;) doubts.replace(at, 2, " ");
    return doubts;
  }

  ui::Form owner{front_end, "owner", ui::FormStyle::kMain};
  engine::RunRequest request{setup, Operation::kBackupModifiedFiles, {}, false};
  KnownPaces paces;
  std::optional<frmConfirmOperation> confirm;
};

TEST_F(ConfirmOperation, CountsWhatTheRunWouldCopy) {
  tree::Add(files,
            {"/src/new=12345", "/src/same=12", "/dst/same=12", "/src/a/below/modified=123",
             "/dst/a/below/modified", "/src/a/skipped.tmp", "/src/a/target/copy", "/src/not included/x"});
  request.setup.IncludedFolders = {"a"};
  request.setup.IncludeSubfolders = true;
  request.setup.SkipFilepaths = ".tmp";
  EXPECT_EQ(FactAtTheEnd("To be copied"), "3 files, 9 bytes");
  EXPECT_EQ(Fact("Files"), "All files, whatever their extension.");
  request.operation = Operation::kBackupAllFiles;
  EXPECT_EQ(FactAtTheEnd("To be copied"), "4 files, 11 bytes");
  request.setup.TargetFolder = "/src/a/target";
  EXPECT_EQ(FactAtTheEnd("To be copied"), "3 files, 10 bytes") << "without the target itself";
  request.setup.IncludeSubfolders = false;
  request.setup.ExcludeFilesInSourceFolder = true;
  EXPECT_EQ(FactAtTheEnd("To be copied"), "Nothing to copy: no file takes part.");
  tree::Add(files, {"/src/a/same=12", "/dst/a/same=12"});
  request.setup = {"/src", "/dst", {"a"}, false, "", "skipped", 0, true, false, false, false};
  request.operation = Operation::kBackupModifiedFiles;
  EXPECT_EQ(FactAtTheEnd("To be copied"), "Nothing to copy: everything that takes part is backed up.");
}

TEST_F(ConfirmOperation, TellsWhatEachPatternHitsOnTheFirstLevelAndScrollsToTheLast) {
  tree::Add(files, {"/src/Temp/", "/src/other/", "/src/template/", "/src/temp.txt"});
  request.setup.IncludedFolders = {"Temp", "other"};
  request.setup.SkipFilepaths = "/Temp/, temp, nothing";
  EXPECT_EQ(FactAtTheEnd("Left out"),
            "Files whose path contains any of these:\r\n"
            "\"/Temp/\": 1 of 3 names on the first level: Temp\r\n"
            "\"temp\": 2 of 3 names on the first level: Temp, temp.txt\r\n"
            "\"nothing\": none of the 3 names on the first level");
  for (int i = 0; i < 60; ++i) request.setup.SkipFilepaths += ",pattern " + std::to_string(i);
  Confirm([&] { ui::headless::PressKey(*confirm, {ui::Key::kEnd}); });
  EXPECT_TRUE(confirm->vsbFacts.visible());
  EXPECT_LE(confirm->fact_rows.back()->lblText.bounds().bottom(), confirm->picFacts.height()) << "in reach";
}

TEST_F(ConfirmOperation, DoubtsWhatIsWorthASecondLook) {
  tree::Add(files, {"/src/file=123456", "/src/inside/", "/src/link>/dst"});
  const auto doubts = [&](const std::string& target, const std::vector<std::string>& included,
                          const std::string& skip = "", const std::string& extension = "") {
    request.setup = {"/src///", target, included, false, extension, skip, 0, false, false, false, false};
    return Doubts();
  };
  const auto holds = [](const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
  };
  EXPECT_EQ(doubts("/dst", {"inside", "link"}), "");
  EXPECT_EQ(
      doubts("/dst", {}),
      "The one subfolder of the source is not included. Only the files directly in it will be backed up.");
  EXPECT_TRUE(holds(doubts("/other", {}), "on the same disk as the source"));
  EXPECT_FALSE(holds(doubts("/other", {}), "inside")) << "of what is not there nothing is known";
  files.SetDisk("/dst", "/");
  EXPECT_TRUE(holds(doubts("/dst", {"inside"}), "on the same disk as the source")) << "another volume of it";
  files.SetDisk("/dst", "sdb");
  EXPECT_TRUE(holds(doubts("/dst", {}, "*.bak"), "Write \".bak\" instead."));
  EXPECT_TRUE(holds(doubts("/dst", {}, "?*"), "Remove it."));
  EXPECT_TRUE(holds(doubts("/src/inside", {}), "target folder is inside the source"));
  EXPECT_TRUE(holds(doubts("/", {}), "source folder is inside the target"));
  EXPECT_TRUE(holds(doubts("/dst", {"gone", "inside"}), "no longer there: gone"));
  EXPECT_TRUE(holds(doubts("/dst", {"x", "y"}), "2 included subfolders are no longer there"));
  EXPECT_TRUE(holds(doubts("/dst", {}, "le"), "intend: \"le\""));
  EXPECT_TRUE(holds(doubts("/dst", {}, "SRC"), "so every file is left out"));
  EXPECT_TRUE(holds(doubts("/dst", {}, "", "jpg"), "No file passes the filters"));
}

TEST_F(ConfirmOperation, DoubtsThatFoldersStayOutWhichANewcomerExpectsToBeIn) {
  tree::Add(files, {"/src/file", "/src/a/1", "/src/a/x/2", "/src/a/x/y/3", "/src/b/4", "/src/link>/dst"});
  EXPECT_TRUE(Doubts().starts_with(
      "None of the 2 subfolders of the source is included. Only the files directly in it "
      "will be backed up. 4 files will not."))
      << Doubts();
  request.setup.IncludedFolders = {"a"};
  EXPECT_TRUE(Doubts().starts_with(
      "\"Include all subfolders\" is not ticked: 2 folders inside the included ones, with 2 "
      "files, will not"))
      << Doubts();
  request.setup.IncludeSubfolders = true;
  EXPECT_EQ(
      Doubts(),
      "Links to folders are not followed, so what is in these is not backed up: link. Back up the folders "
      "themselves that they lead to.");
  request.setup.SkipFilepaths = "/link";
  EXPECT_EQ(Doubts(), "");
}

TEST_F(ConfirmOperation, DoubtsAPeriodThatKeepsOutWhatHasNoCopyAndATargetOfOtherThings) {
  tree::Add(files, {"/src/old", "/src/copied", "/dst/copied"});
  request.modified_since = platform::FileTime{1'800'000'000, 0};
  EXPECT_TRUE(Doubts().starts_with("The chosen period keeps out one file that has no copy")) << Doubts();
  files.Remove("/dst/copied");
  tree::Add(files, {"/dst/lost+found/", "/dst/other"});
  EXPECT_TRUE(Doubts().starts_with("Nothing in the target comes from this source. It holds other. Is"))
      << Doubts();
}

TEST_F(ConfirmOperation, DoubtsWhatTheTargetCannotHold) {
  tree::Add(files, {"/src/file=1234"});
  files.SetSpace(4, 2'000);
  EXPECT_EQ(Doubts(), "The copies need 4 bytes, but only 4 bytes are free on the target.");
  tree::Add(files, {"/dst/file=x"});
  EXPECT_EQ(Doubts(), "") << "three bytes more";
  files.SetSpace(6'000'000'000, 6'000'000'000);
  files.AddHugeFile("/src/film", 5'000'000'000);
  EXPECT_EQ(Doubts(), "");
  files.SetLargestFile(platform::kLargestOnFat);
  EXPECT_NE(Doubts().find("4.00 Gb"), std::string::npos);
  EXPECT_TRUE(Doubts().ends_with("film")) << Doubts();
}

TEST_F(ConfirmOperation, OffersToCompareWhatSeemsUpToDateAndTellsHowMuchThatIs) {
  tree::Add(files, {"/src/a=12345", "/dst/a=12345", "/src/b=123", "/dst/b=345", "/src/new", "/src/longer=12",
                    "/dst/longer=1"});
  Confirm([&] {
    EXPECT_EQ(confirm->lblToBeCompared.text(), "To be read: 2 files, 8 bytes on each side.");
    confirm->UserPressedAccessKey('C');
  });
  EXPECT_TRUE(confirm->ComparesContents());
  EXPECT_TRUE(confirm->lblToBeCompared.text().ends_with(
      " Holds for \"Check backup state\", too, until the program ends."));
  paces.comparing = {3, 0, 90};
  const std::string known = "To be read: 2 files, 8 bytes on each side, about 2 minutes.";
  Confirm([&] { EXPECT_EQ(confirm->lblToBeCompared.text(), known); });
  request.operation = Operation::kBackupAllFiles;
  Confirm([&] { EXPECT_FALSE(confirm->chkCompareContents.visible() || confirm->lblToBeCompared.visible()); });
}

TEST_F(ConfirmOperation, OffersToReadCopiesBackAndTellsHowMuchThatIs) {
  tree::Add(files, {"/src/new=12345", "/src/longer=12", "/dst/longer=1"});
  request.read_back = true;
  paces.reading_back = {3, 0, 90};
  for (const Operation operation : {Operation::kBackupModifiedFiles, Operation::kBackupAllFiles}) {
    request.operation = operation;
    Confirm([&] {
      const std::string known = "To be read once more: 2 files, 7 bytes, about 2 minutes with the copying.";
      EXPECT_EQ(confirm->lblToBeReadBack.text(), known + " Holds until the program ends.");
      confirm->UserPressedAccessKey('R');
      EXPECT_EQ(confirm->lblToBeReadBack.text(), known);
    });
    EXPECT_FALSE(confirm->ReadsBack());
  }
}

TEST(LineBreak, KeepsEveryLineWithinTheWidth) {
  const auto measure = [](const std::string& line) { return static_cast<ui::Twips>(line.size()); };
  EXPECT_EQ(
      ui::BreakLines("1234567890 one two three\r\n\r\n/home/someone/files withoutanyplace", 10, measure),
      "1234567890\r\none two\r\nthree\r\n\r\n/home/\r\nsomeone/\r\nfiles\r\nwithoutany\r\nplace");
}

}  // namespace app::test

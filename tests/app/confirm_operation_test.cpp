#include <gtest/gtest.h>

#include "app/frmConfirmOperation.h"
#include "app/line_break.h"
#include "tests/app/program.h"

namespace app::test {
namespace {

class ConfirmOperation : public testing::Test, protected Program {
 protected:
  ConfirmOperation() {
    request.setup = SourceAndTarget();
    request.operation = Operation::kBackupModifiedFiles;
    owner.Show();
  }

  /// Opens the window, lets it read to its end, then lets the user act.
  bool Confirm(const std::function<void()>& user) {
    confirm.emplace(context, request);
    front_end.when_idle = [&] {
      if (confirm->tmrRead.running()) return front_end.PassTime(1);
      user();
      confirm->Hide();
    };
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
    std::string text;
    Confirm([&] { text = Fact(heading); });
    return text;
  }

  std::string Doubts() {
    std::string text;
    Confirm([&] { text = confirm->fraDoubts.visible() ? confirm->lblDoubts.text() : ""; });
    return text;
  }

  ui::Form owner{front_end, "owner", ui::FormStyle::kMain};
  engine::RunRequest request;
  std::optional<frmConfirmOperation> confirm;
};

TEST_F(ConfirmOperation, TellsTheSetupAtOnce) {
  files.SetSpace(3u << 20, 8u << 20);
  request.setup.IncludedFolders = {"a", "b"};
  request.setup.IncludeSubfolders = true;
  request.setup.FileExtension = "j?g";
  request.setup.ModifiedSince = 1;
  request.modified_since = platform::FileTime{};
  request.setup.SkipFilepaths = "cache";
  confirm.emplace(context, request);
  confirm->SetWidth(12'000);
  confirm->Form_Load();
  EXPECT_EQ(confirm->lblOperation.text(), "Back up new and modified");
  EXPECT_EQ(Fact("Source"), "/src");
  EXPECT_EQ(Fact("Target"), "/dst\r\non " + files.DriveOf("/dst") + ", 3.00 Mb free of 8.00 Mb");
  EXPECT_EQ(
      Fact("Included"),
      "The files that lie directly in the source folder.\r\n2 subfolders with everything below them: a, b");
  EXPECT_EQ(Fact("Files"),
            "Only files whose extension fits \"j?g\".\r\nOnly files new or modified in the last week.");
  EXPECT_EQ(Fact("Left out"), "Files whose path holds one of these:\r\n\"cache\"");
  EXPECT_EQ(Fact("To be copied"), "0 files, 0 bytes so far . . .");
  EXPECT_EQ(Fact("Options"), "-");
}

TEST_F(ConfirmOperation, CountsWhatTheRunWouldCopy) {
  files.AddFile("/src/new", "12345");
  files.AddFile("/src/same", "12", {7, 0});
  files.AddFile("/dst/same", "12", {7, 0});
  files.AddFile("/src/a/below/modified", "123", {7, 0});
  files.AddFile("/dst/a/below/modified", "1", {7, 0});
  files.AddFile("/src/a/skipped.tmp", "1");
  files.AddFile("/src/not included/x", "1");
  request.setup.IncludedFolders = {"a"};
  request.setup.IncludeSubfolders = true;
  request.setup.SkipFilepaths = ".tmp";
  EXPECT_EQ(FactAtTheEnd("To be copied"), "2 files, 8 bytes");
  request.operation = Operation::kBackupAllFiles;
  EXPECT_EQ(FactAtTheEnd("To be copied"), "3 files, 10 bytes");
  request.setup.IncludeSubfolders = false;
  request.setup.ExcludeFilesInSourceFolder = true;
  EXPECT_EQ(FactAtTheEnd("To be copied"), "0 files, 0 bytes");
}

TEST_F(ConfirmOperation, TellsWhatEachPatternHitsOnTheFirstLevel) {
  for (const char* name : {"Temp", "other", "template"})
    files.AddFile(std::string("/src/") + name + "/x", "");
  files.AddFile("/src/temp.txt", "");
  request.setup.IncludedFolders = {"Temp", "other"};
  request.setup.SkipFilepaths = "/temp/, temp, nothing";
  EXPECT_EQ(FactAtTheEnd("Left out"),
            "Files whose path holds one of these:\r\n"
            "\"/temp/\": 1 of 3 names on the first level: Temp\r\n"
            "\"temp\": 2 of 3 names on the first level: Temp, temp.txt\r\n"
            "\"nothing\": none of the 3 names on the first level");
}

TEST_F(ConfirmOperation, DoubtsWhatIsWorthASecondLook) {
  files.AddFile("/src/file", "123456");
  files.AddFolder("/src/inside");
  files.AddLink("/src/link", "/dst");
  files.SetSpace(1'000, 2'000);
  struct Case {
    const char* doubt;
    std::function<void(app::Setup&)> change;
  };
  const Case cases[] = {
      {"",
       [](app::Setup& setup) {
         setup.IncludedFolders = {"inside", "link"};
       }},
      {"target folder lies inside the source", [](app::Setup& setup) { setup.TargetFolder = "/src/inside"; }},
      {"source folder lies inside the target", [](app::Setup& setup) { setup.TargetFolder = "/"; }},
      {"in mind: \"le\"", [](app::Setup& setup) { setup.SkipFilepaths = "le"; }},
      {"so every file is left out", [](app::Setup& setup) { setup.SkipFilepaths = "SRC"; }},
      {"no longer there: gone",
       [](app::Setup& setup) {
         setup.IncludedFolders = {"gone", "inside"};
       }},
      {"2 included subfolders are no longer there",
       [](app::Setup& setup) {
         setup.IncludedFolders = {"x", "y"};
       }},
      {"no file that passes the filters", [](app::Setup& setup) { setup.FileExtension = "jpg"; }},
  };
  for (const Case& tried : cases) {
    request.setup = SourceAndTarget();
    tried.change(request.setup);
    const std::string doubts = Doubts();
    EXPECT_NE(doubts.find(tried.doubt), std::string::npos) << tried.doubt << " / " << doubts;
    EXPECT_EQ(doubts.empty(), *tried.doubt == 0) << doubts;
  }
}

TEST_F(ConfirmOperation, DoubtsTheSpaceForWhatTheTargetDoesNotHoldYet) {
  files.AddFile("/src/file", std::string(1'000, 'x'), {7, 0});
  files.SetSpace(1'000, 2'000);
  EXPECT_EQ(Doubts(), "The copies need 1,000 bytes, but only 1,000 bytes are free on the target.");
  files.AddFile("/dst/file", "x", {7, 0});
  EXPECT_EQ(Doubts(), "");
}

TEST_F(ConfirmOperation, DoubtsAFileThatTheFormatOfTheTargetCannotHold) {
  files.AddFile("/src/file", "x");
  files.AddHugeFile("/src/film", 5'000'000'000);
  EXPECT_EQ(Doubts(), "");
  files.SetLargestFile(platform::kLargestOnFat);
  const std::string doubts = Doubts();
  EXPECT_NE(doubts.find("4.00 Gb"), std::string::npos) << doubts;
  EXPECT_TRUE(doubts.ends_with("film")) << doubts;
}

TEST_F(ConfirmOperation, DoesNotCountTheTargetThatLiesInTheSource) {
  files.AddFile("/src/backup/a/file", "123");
  request.setup.TargetFolder = "/src/backup/a";
  request.setup.IncludedFolders = {"backup"};
  request.setup.IncludeSubfolders = true;
  EXPECT_EQ(FactAtTheEnd("To be copied"), "0 files, 0 bytes");
}

TEST_F(ConfirmOperation, StartsOnlyWhenTheUserSaysSo) {
  EXPECT_TRUE(Confirm([&] { confirm->UserPressedEnter(); }));
  EXPECT_FALSE(confirm->NotAgain());
  EXPECT_FALSE(Confirm([&] { confirm->UserPressedEscape(); }));
  EXPECT_FALSE(Confirm([&] { confirm->UserClosed(); }));
  EXPECT_TRUE(Confirm([&] {
    ui::headless::Tick(confirm->chkDontShowAgain, true);
    ui::headless::Click(confirm->cmdStart);
  }));
  EXPECT_TRUE(confirm->NotAgain());
}

TEST_F(ConfirmOperation, ScrollsFactsThatDoNotFit) {
  std::string patterns;
  for (int i = 0; i < 60; ++i) patterns += "pattern " + std::to_string(i) + ",";
  request.setup.SkipFilepaths = patterns;
  Confirm([&] {
    const auto last = [&] { return confirm->fact_rows.back()->lblText.bounds().bottom(); };
    EXPECT_GT(last(), confirm->picFacts.height());
    ui::headless::PressKey(*confirm, {ui::Key::kEnd});
    EXPECT_LE(last(), confirm->picFacts.height());
    ui::headless::Scroll(confirm->vsbFacts, 0);
    EXPECT_GT(confirm->fact_rows[0]->lblText.top(), 0);
  });
}

TEST(LineBreak, KeepsEveryLineWithinTheWidth) {
  const auto measure = [](const std::string& text) { return static_cast<ui::Twips>(text.size()); };
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},
      {"1234567890", "1234567890"},
      {"one two three", "one two\r\nthree"},
      {"123456789 1", "123456789\r\n1"},
      {"a\r\n\r\nb", "a\r\n\r\nb"},
      {"/home/someone/files", "/home/\r\nsomeone/\r\nfiles"},
      {"withoutanyplacetobreak", "withoutany\r\nplacetobre\r\nak"},
  };
  for (const auto& [text, broken] : cases) EXPECT_EQ(BreakLines(text, 10, measure), broken);
}

}  // namespace
}  // namespace app::test

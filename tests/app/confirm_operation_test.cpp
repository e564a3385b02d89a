#include "app/frmConfirmOperation.h"
#include "app/line_break.h"
#include "tests/app/program.h"

namespace app::test {

struct ConfirmOperation : testing::Test, Program {
  ConfirmOperation() {
    request.setup = setup;
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
    Confirm([] {});
    return Fact(heading);
  }

  std::string Doubts() {
    Confirm([] {});
    return confirm->fraDoubts.visible() ? confirm->lblDoubts.text() : "";
  }

  ui::Form owner{front_end, "owner", ui::FormStyle::kMain};
  engine::RunRequest request;
  std::optional<frmConfirmOperation> confirm;
};

TEST_F(ConfirmOperation, TellsTheSetupAtOnce) {
  files.SetSpace(3u << 20, 8u << 20);
  request.setup = {"/src", "/dst", {"a", "b"}, true, "j?g", "cache", 1, false, false, false, false};
  request.modified_since = platform::FileTime{};
  confirm.emplace(context, request);
  confirm->SetWidth(12'000);
  confirm->Form_Load();
  EXPECT_EQ(confirm->lblOperation.text(), "Back up new and modified");
  const std::pair<const char*, const char*> facts[] = {
      {"Source", "/src"},
      {"Target", "/dst\r\non /, 3.00 Mb free of 8.00 Mb"},
      {"Included",
       "The files that lie directly in the source folder.\r\n2 subfolders with everything below them: a, b"},
      {"Files", "Only files whose extension fits \"j?g\".\r\nOnly files new or modified in the last week."},
      {"Left out", "Files whose path holds one of these:\r\n\"cache\""},
      {"To be copied", "0 files, 0 bytes so far . . ."},
      {"Options", "-"}};
  for (const auto& [heading, text] : facts) EXPECT_EQ(Fact(heading), text);
}

TEST_F(ConfirmOperation, CountsWhatTheRunWouldCopy) {
  tree::Add(files,
            {"/src/new=12345", "/src/same=12", "/dst/same=12", "/src/a/below/modified=123",
             "/dst/a/below/modified", "/src/a/skipped.tmp", "/src/a/backup/copy", "/src/not included/x"});
  request.setup.IncludedFolders = {"a"};
  request.setup.IncludeSubfolders = true;
  request.setup.SkipFilepaths = ".tmp, copy";
  EXPECT_EQ(FactAtTheEnd("To be copied"), "2 files, 8 bytes");
  request.operation = Operation::kBackupAllFiles;
  EXPECT_EQ(FactAtTheEnd("To be copied"), "3 files, 10 bytes");
  request.setup.IncludeSubfolders = false;
  request.setup.ExcludeFilesInSourceFolder = true;
  EXPECT_EQ(FactAtTheEnd("To be copied"), "0 files, 0 bytes");
}

TEST_F(ConfirmOperation, DoesNotCountTheTargetThatLiesInTheSource) {
  tree::Add(files, {"/src/backup/a/file"});
  request.setup.TargetFolder = "/src/backup/a";
  request.setup.IncludedFolders = {"backup"};
  request.setup.IncludeSubfolders = true;
  EXPECT_EQ(FactAtTheEnd("To be copied"), "0 files, 0 bytes");
}

TEST_F(ConfirmOperation, TellsWhatEachPatternHitsOnTheFirstLevel) {
  tree::Add(files, {"/src/Temp/", "/src/other/", "/src/template/", "/src/temp.txt"});
  request.setup.IncludedFolders = {"Temp", "other"};
  request.setup.SkipFilepaths = "/temp/, temp, nothing";
  EXPECT_EQ(FactAtTheEnd("Left out"),
            "Files whose path holds one of these:\r\n"
            "\"/temp/\": 1 of 3 names on the first level: Temp\r\n"
            "\"temp\": 2 of 3 names on the first level: Temp, temp.txt\r\n"
            "\"nothing\": none of the 3 names on the first level");
}

TEST_F(ConfirmOperation, DoubtsWhatIsWorthASecondLook) {
  tree::Add(files, {"/src/file=123456", "/src/inside/", "/src/link>/dst"});
  const struct {
    std::string doubt, target;
    std::vector<std::string> included;
    std::string skip, extension;
  } cases[] = {{"", "/dst", {"inside", "link"}, "", ""},
               {"target folder lies inside the source", "/src/inside", {}, "", ""},
               {"source folder lies inside the target", "/", {}, "", ""},
               {"in mind: \"le\"", "/dst", {}, "le", ""},
               {"so every file is left out", "/dst", {}, "SRC", ""},
               {"no longer there: gone", "/dst", {"gone", "inside"}, "", ""},
               {"2 included subfolders are no longer there", "/dst", {"x", "y"}, "", ""},
               {"no file that passes the filters", "/dst", {}, "", "jpg"}};
  for (const auto& c : cases) {
    request.setup = {"/src", c.target, c.included, false, c.extension, c.skip, 0, false, false, false, false};
    const std::string doubts = Doubts();
    EXPECT_NE(doubts.find(c.doubt), std::string::npos) << c.doubt << " / " << doubts;
    EXPECT_EQ(doubts.empty(), c.doubt.empty()) << doubts;
  }
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
  for (int i = 0; i < 60; ++i) request.setup.SkipFilepaths += "pattern " + std::to_string(i) + ",";
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
      {"withoutanyplacetobreak", "withoutany\r\nplacetobre\r\nak"}};
  for (const auto& [text, broken] : cases) EXPECT_EQ(BreakLines(text, 10, measure), broken);
}

}  // namespace app::test

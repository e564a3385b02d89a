#include "services/setup_text.h"

#include <gtest/gtest.h>

namespace services {

constexpr int kPeriods = 10;

const app::Setup kFull{.SourceFolder = "/home/käthe",
                       .TargetFolder = "/mnt/backup",
                       .IncludedFolders = {"a, b", " c ", "\"d\"", std::string("\xFF\0", 2)},
                       .IncludeSubfolders = true,
                       .FileExtension = "j?g",
                       .SkipFilepaths = "tmp, /cache/",
                       .ModifiedSince = 2,
                       .ExcludeFilesInSourceFolder = true,
                       .SaveSetupOnQuit = true};

TEST(SetupText, StandsInTheLayoutToTheByte) {
  EXPECT_EQ(SetupText({}), "\r\n\r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n\r\n 0 \r\n\r\n");
  app::Setup setup = kFull;
  setup.IncludedFolders = {"a", "b"};
  setup.ModifiedSince = -1;
  EXPECT_EQ(SetupText(setup),
            "/home/käthe\r\n/mnt/backup\r\n 0 \r\n 1 \r\n 1 \r\n 1 \r\n-1 \r\n 0 \r\ntmp, /cache/\r\n 2 \r\n"
            "a\r\nb\r\nj?g\r\n");
  EXPECT_TRUE(CanBeWritten(setup));
  setup.IncludedFolders = {"a\nb"};
  EXPECT_FALSE(CanBeWritten(setup)) << "a name of two lines";
  setup.IncludedFolders.assign(32'767, "a");
  EXPECT_TRUE(CanBeWritten(setup));
  setup.IncludedFolders.emplace_back("b");
  EXPECT_FALSE(CanBeWritten(setup)) << "their number cannot be read back";
}

TEST(SetupText, ComesBackWithEveryLineEndAndAByteOrderMark) {
  std::string content = SetupText(kFull);
  EXPECT_EQ(ParseSetup(content, kPeriods).setup, kFull);
  std::erase(content, '\r');
  EXPECT_EQ(ParseSetup("\xEF\xBB\xBF" + content, kPeriods).setup, kFull);
}

TEST(SetupText, CutAtAnyByteGivesTheFieldsBeforeTheCut) {
  const std::string whole = SetupText(kFull);
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const auto parsed = ParseSetup(std::string_view(whole).substr(0, size), kPeriods);
    const bool last_line_began = size > whole.size() - std::string("j?g\r\n").size();
    EXPECT_EQ(parsed.error, last_line_began ? 0 : kInputPastEnd) << size;
    EXPECT_TRUE(whole.starts_with(parsed.setup.SourceFolder)) << size;
  }
}

TEST(SetupText, ReadsItemsUpToCommasAndClosingQuotes) {
  app::Setup setup = ParseSetup("/home/a,b\r\n/t\r\n", kPeriods).setup;
  EXPECT_EQ(setup.SourceFolder + '|' + setup.TargetFolder, "/home/a|b") << "the comma of a path cuts it";
  setup = ParseSetup("\"/a,\r\nb\" , \"/t\"1, 1,0 ,+1,\n3", kPeriods).setup;
  EXPECT_EQ(setup.SourceFolder + '|' + setup.TargetFolder, "/a,\r\nb|/t");
  EXPECT_TRUE(setup.SaveSetupOnQuit && setup.IncludeSubfolders);
  setup = ParseSetup("\"/a\"\n\"/t\"\r\n0\n1\n", kPeriods).setup;
  EXPECT_EQ(setup.TargetFolder + (setup.SaveSetupOnQuit ? "|1" : ""), "/t|1");
  EXPECT_EQ(ParseSetup("\"/a\r\n", kPeriods).setup.SourceFolder, "/a\r\n") << "a quote left open";
}

TEST(SetupText, TellsWhereItEndsAndWhatItCannotHold) {
  const std::string whole = SetupText(kFull);
  const std::string but_last = whole.substr(0, whole.size() - std::string("j?g\r\n").size());
  EXPECT_TRUE(ParseSetup(but_last, kPeriods).extension_missing);
  for (const std::string& text : {whole, but_last.substr(0, but_last.size() - 2),
                                  but_last.substr(0, but_last.find("\"d\"")), std::string("/s\n")})
    EXPECT_FALSE(ParseSetup(text, kPeriods).extension_missing) << text;
  EXPECT_EQ(ProblemText(ParseSetup("\"/s\n\"\n/t\nx", kPeriods)), "Line 4: A number is missing.");
  EXPECT_TRUE(ProblemText(ParseSetup("/a,b\n/t\nx", kPeriods))
                  .starts_with("Line 2: A number is missing. Line 1 has a comma in it, and"));
  const std::pair<const char*, bool> folders[] = {{"", true},     {"/a b", true},  {"/a,b", false},
                                                  {" /a", false}, {"\"/a", false}, {"/a\nb", false}};
  for (const auto& [folder, survives] : folders) EXPECT_EQ(SurvivesSaving(folder), survives) << folder;
}

TEST(SetupText, StopsAtAValueThatItsControlRefuses) {
  const std::string zeros = "0\n0\n0\n0\n";
  const std::string skip = zeros + "0\n0\nskip\n";
  const std::pair<int, std::vector<std::string>> cases[] = {
      {380, {"2", "-1", zeros + "10", zeros + "-2"}},
      {6, {"32768", "-99999999999999999999", skip + "40000"}},
      {13, {"1x", "-", "1.5", "\n"}},
      {62, {zeros + "-1", zeros + "9", skip + "32767\na\nb"}},
      {0, {skip + "-3\nextension"}}};
  for (const auto& [error, texts] : cases) {
    for (const std::string& lines : texts)
      EXPECT_EQ(ParseSetup("/s\n/t\n" + lines, kPeriods).error, error) << lines;
  }
}

}  // namespace services

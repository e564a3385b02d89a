#include "services/setup_text.h"

#include <gtest/gtest.h>

namespace {

using services::ParseSetup;
using services::SetupText;

constexpr int kPeriods = 10;

app::Setup FullSetup() {
  app::Setup setup;
  setup.SourceFolder = "/home/käthe";
  setup.TargetFolder = "/mnt/backup";
  setup.IncludedFolders = {"a, b", " c ", "\"d\"", std::string("\xFF\0", 2)};
  setup.IncludeSubfolders = true;
  setup.FileExtension = "j?g";
  setup.SkipFilepaths = "tmp, /cache/";
  setup.ModifiedSince = 2;
  setup.ExcludeFilesInSourceFolder = true;
  setup.SaveSetupOnQuit = true;
  return setup;
}

TEST(SetupText, StandsInTheLayoutToTheByte) {
  app::Setup setup;
  EXPECT_EQ(SetupText(setup), "\r\n\r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n\r\n 0 \r\n\r\n");
  setup = FullSetup();
  setup.IncludedFolders = {"a", "b"};
  setup.ModifiedSince = -1;
  EXPECT_EQ(SetupText(setup),
            "/home/käthe\r\n/mnt/backup\r\n 0 \r\n 1 \r\n 1 \r\n 1 \r\n-1 \r\n 0 \r\ntmp, /cache/\r\n 2 \r\n"
            "a\r\nb\r\nj?g\r\n");
}

TEST(SetupText, ComesBackWithEveryLineEndAndAByteOrderMark) {
  const app::Setup setup = FullSetup();
  std::string content = SetupText(setup);
  EXPECT_EQ(ParseSetup(content, kPeriods).setup, setup);
  std::erase(content, '\r');
  const auto parsed = ParseSetup("\xEF\xBB\xBF" + content, kPeriods);
  EXPECT_EQ(parsed.setup, setup);
  EXPECT_EQ(parsed.error, 0);
}

TEST(SetupText, CutAtAnyByteGivesTheFieldsBeforeTheCut) {
  const std::string whole = SetupText(FullSetup());
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const auto parsed = ParseSetup(std::string_view(whole).substr(0, size), kPeriods);
    const bool last_line_began = size > whole.size() - std::string("j?g\r\n").size();
    EXPECT_EQ(parsed.error, last_line_began ? 0 : services::kInputPastEnd) << size;
    EXPECT_TRUE(whole.starts_with(parsed.setup.SourceFolder));
    EXPECT_EQ(parsed.setup.TargetFolder, size > 40 ? "/mnt/backup" : parsed.setup.TargetFolder);
    EXPECT_LE(parsed.setup.IncludedFolders.size(), 4U);
  }
}

TEST(SetupText, CutsAFolderAtItsCommaAndReadsOnOneItemOutOfStep) {
  const auto parsed = ParseSetup("/home/a,b\r\n/t\r\n", kPeriods);
  EXPECT_EQ(parsed.setup.SourceFolder, "/home/a");
  EXPECT_EQ(parsed.setup.TargetFolder, "b");
  EXPECT_EQ(parsed.error, services::kInputNotANumber);
}

TEST(SetupText, TakesQuotedItemsAndSeveralOnALine) {
  const auto parsed = ParseSetup("\"/a,\r\nb\" , \"/t\"1, 1,0 ,+1,\n3", kPeriods);
  EXPECT_EQ(parsed.error, services::kInputNotANumber) << "an empty item is no number";
  EXPECT_EQ(parsed.setup.SourceFolder, "/a,\r\nb");
  EXPECT_EQ(parsed.setup.TargetFolder, "/t");
  EXPECT_TRUE(parsed.setup.SaveSetupOnQuit && parsed.setup.IncludeSubfolders);
  EXPECT_EQ(ParseSetup("\"/a\r\n", kPeriods).setup.SourceFolder, "/a\r\n") << "a quote left open";
}

TEST(SetupText, StopsAtAValueThatItsControlRefuses) {
  const std::vector<std::pair<std::string, int>> cases = {{"2", 380},
                                                          {"-1", 380},
                                                          {"32768", 6},
                                                          {"-99999999999999999999", 6},
                                                          {"1x", 13},
                                                          {"-", 13},
                                                          {"1.5", 13},
                                                          {"0\n0\n0\n0\n10", 380},
                                                          {"0\n0\n0\n0\n-2", 380},
                                                          {"0\n0\n0\n0\n-1", 62},
                                                          {"0\n0\n0\n0\n9", 62},
                                                          {"0\n0\n0\n0\n0\n0\nskip\n40000", 6},
                                                          {"0\n0\n0\n0\n0\n0\nskip\n32767\na\nb", 62},
                                                          {"0\n0\n0\n0\n0\n0\nskip\n-3\nextension", 0}};
  for (const auto& [lines, error] : cases) {
    const auto parsed = ParseSetup("/s\n/t\n" + lines, kPeriods);
    EXPECT_EQ(parsed.error, error) << lines;
    EXPECT_EQ(parsed.setup.TargetFolder, "/t");
  }
}

TEST(SetupText, RefusesWhatTheLayoutCannotHold) {
  app::Setup setup = FullSetup();
  EXPECT_TRUE(services::CanBeWritten(setup));
  setup.IncludedFolders.back() = "a\nb";
  EXPECT_FALSE(services::CanBeWritten(setup));
  setup.IncludedFolders.assign(32768, "a");
  EXPECT_FALSE(services::CanBeWritten(setup));
}

}  // namespace

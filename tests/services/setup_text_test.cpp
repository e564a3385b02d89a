#include "services/setup_text.h"

#include "tests/story.h"

namespace services {

constexpr int kPeriods = 10;

const app::Setup kFull{.SourceFolder = "/home/käthe",
                       .TargetFolder = "/mnt/backup",
                       .IncludedFolders = {"a, b", " c ", "\"d\"", "\xFF"},
                       .IncludeSubfolders = true,
                       .FileExtension = "j?g",
                       .SkipFilepaths = "tmp, /cache/",
                       .ModifiedSince = 2,
                       .ExcludeFilesInSourceFolder = true,
                       .SaveSetupOnQuit = true};

TEST(SetupText, HasLinesOfCrLfAndIsWrittenOnlyWhereItCanBeReadBack) {
  EXPECT_EQ(SetupText({}), "\r\n\r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n\r\n 0 \r\n\r\n");
  app::Setup setup = kFull;
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

TEST(SetupText, CutAtAnyByteGivesTheFieldsBeforeTheCutAndAnyZeroByteIsDamage) {
  const std::string whole = SetupText(kFull);
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const auto parsed = ParseSetup(std::string_view(whole).substr(0, size), kPeriods);
    EXPECT_EQ(parsed.error, kInputPastEnd) << size;
    EXPECT_TRUE(whole.starts_with(parsed.setup.SourceFolder)) << size;
    EXPECT_EQ(ParseSetup(std::string(whole).replace(size, 1, 1, '\0'), kPeriods).error, kInputDamaged);
  }
}

TEST(SetupText, IsReadItemByItemAndTellsWhereItEndsAndWhatItCannotHold) {
  Story story{"services/told/"};
  const auto read = [&story](const std::string& lines) {
    const auto parsed = ParseSetup(lines, kPeriods);
    story.told += lines + "-> " + parsed.setup.SourceFolder + "|" + parsed.setup.TargetFolder + "|";
    for (const bool is :
         {parsed.setup.SaveSetupOnQuit, parsed.setup.IncludeSubfolders, parsed.extension_missing})
      story.told += is ? "1" : "0";
    story.told += " " + std::to_string(parsed.error) + " " + ProblemText(parsed) + "\n";
  };
  for (const char* lines : {"/home/a,b\r\n/t\r\n", "\"/a,\r\nb\" , \"/t\"1, 1,0 ,+1,\n3", "\"/a\r\n", "/s\n",
                            "\"/a\"\n\"/t\"\r\n0\n1\n", "\"/s\n\"\n/t\nx", "/a,b\n/t\nx"})
    read(lines);
  const std::string folders = "/s\n/t\n", zeros = folders + "0\n0\n0\n0\n", skip = zeros + "0\n0\nskip\n";
  for (const char* number : {"2", "-1", "32768", "-99999999999999999999", "1x", "-", "1.5", "\n"})
    read(folders + number);
  for (const char* period : {"10", "-2", "-1", "9"}) read(zeros + period);
  for (const char* count : {"40000", "32767\na\nb", "-3\nextension"}) read(skip + count);
  for (const char* folder : {"", "/a b", "/a,b", " /a", "\"/a", "/a\nb"})
    story.told += std::string(folder) + (SurvivesSaving(folder) ? " survives\n" : " does not\n");
}

}  // namespace services

#include "text/program_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>

#include "text/text_numbers.h"

namespace {

namespace fs = std::filesystem;

const fs::path kRoot = QV_SOURCE_ROOT;

std::string ContentOf(const fs::path& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

std::vector<int> NumbersIn(const std::string& content, const std::string& pattern) {
  std::vector<int> numbers;
  const std::regex regex(pattern, std::regex::ECMAScript | std::regex::multiline);
  for (std::sregex_iterator match(content.begin(), content.end(), regex), end; match != end; ++match) {
    numbers.push_back(std::stoi((*match)[1]));
  }
  std::ranges::sort(numbers);
  return numbers;
}

TEST(ProgramTexts, FindATextByTheRulesOfTheFile) {
  const text::ProgramTexts texts(
      "\xEF\xBB\xBF"
      "1 one\r\n# note\n2 first\n2 second\nno text\n3\n4 a\\nb \\\\n\\s\\q\\\n5 ~\n6  two blanks\n7 seven",
      "1 eins\n7 ~\nx");
  const std::map<int, std::string> expected = {
      {1, "eins"}, {2, "second"},      {3, ""}, {4, "a\r\nb \\n \\q\\"},
      {5, ""},     {6, " two blanks"}, {7, ""}, {8, ""}};
  for (const auto& [number, text] : expected) EXPECT_EQ(texts.GetProgramText(number), text) << number;
}

TEST(ProgramTexts, CutALongTextAfter1024Characters) {
  EXPECT_EQ(text::ProgramTexts("1 ä" + std::string(1024, 'x')).GetProgramText(1).size(), 1025U);
}

TEST(EnglishTexts, AreExactlyThoseThatTheCodeNames) {
  const std::string texts = ContentOf(kRoot / "text" / text::TextFileName("en"));
  EXPECT_EQ(NumbersIn(texts, R"(^(\d+) \S)"),
            NumbersIn(ContentOf(kRoot / "text/text_numbers.h"), R"(constexpr int k\w+ = (\d+);)"));
  EXPECT_EQ(NumbersIn(texts, R"(^(\d+) .*( |\\s)$)"), std::vector<int>()) << "a blank at the end";
}

TEST(EnglishTexts, HoldTheSamplesThatGiveWay) {
  const text::ProgramTexts texts(ContentOf(kRoot / "text" / text::TextFileName("en")));
  EXPECT_NE(texts.GetProgramText(text::kNewSubfolderName).find("C:\\"), std::string::npos);
  EXPECT_NE(texts.GetProgramText(text::kMakeItTheTarget).find("E:\\"), std::string::npos);
  EXPECT_EQ(texts.GetProgramText(text::kInTheLastMonths), "in the last 2 months");
}

TEST(Sources, NameEveryTextInTextNumbers) {
  for (const char* folder : {"app", "engine", "main", "report", "services", "ui"}) {
    std::error_code no_such_folder;
    for (const auto& file : fs::recursive_directory_iterator(kRoot / folder, no_such_folder)) {
      if (file.path().extension() != ".cpp" && file.path().extension() != ".h") continue;
      EXPECT_TRUE(NumbersIn(ContentOf(file.path()), R"(GetProgramText\(\s*(\d+))").empty()) << file.path();
    }
  }
}

}  // namespace

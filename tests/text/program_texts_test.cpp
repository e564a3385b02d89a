#include "text/program_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

namespace {

namespace fs = std::filesystem;

const fs::path kRoot = QV_SOURCE_ROOT;

std::string ContentOf(const fs::path& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

/// The numbers that stand directly behind `mark`, sorted.
std::vector<int> NumbersBehind(const std::string& mark, const std::string& content) {
  std::vector<int> numbers;
  for (std::size_t at = content.find(mark); at != std::string::npos; at = content.find(mark, at + 1)) {
    const int number = std::atoi(content.c_str() + at + mark.size());
    if (number != 0) numbers.push_back(number);
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
  const std::string content = ContentOf(kRoot / "text" / text::TextFileName("en"));
  const std::vector<int> numbers = NumbersBehind("\n", content);
  EXPECT_EQ(numbers, NumbersBehind(" = ", ContentOf(kRoot / "text/text_numbers.h")));
  const text::ProgramTexts texts(content);
  for (const int number : numbers) {
    const std::string text = texts.GetProgramText(number);
    EXPECT_TRUE(!text.empty() && text.front() != ' ' && text.back() != ' ') << number;
  }
}

TEST(Sources, NameEveryTextInTextNumbers) {
  for (const char* folder : {"app", "engine", "main", "report", "services", "ui"}) {
    std::error_code no_such_folder;
    for (const auto& file : fs::recursive_directory_iterator(kRoot / folder, no_such_folder)) {
      if (file.path().extension() != ".cpp" && file.path().extension() != ".h") continue;
      EXPECT_TRUE(NumbersBehind("GetProgramText(", ContentOf(file.path())).empty()) << file.path();
    }
  }
}

}  // namespace

#include "text/program_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>

namespace text {
namespace {

std::string Content(const std::string& file) {
  std::ifstream stream(QV_SOURCE_ROOT "/text/" + file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
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
  const ProgramTexts texts(
      "\xEF\xBB\xBF"
      "1 one\r\n# note\n2 first\n2 second\nno text\n3\n4 a\\nb \\\\n\\s\\q\\\n5 ~\n6  two blanks\n7 seven",
      "1 eins\n7 ~\nx");
  const std::map<int, std::string> expected = {
      {1, "eins"}, {2, "second"},      {3, ""}, {4, "a\r\nb \\n \\q\\"},
      {5, ""},     {6, " two blanks"}, {7, ""}, {8, ""}};
  for (const auto& [number, text] : expected) EXPECT_EQ(texts.GetProgramText(number), text) << number;
}

TEST(ProgramTexts, CutALongTextAfter1024Characters) {
  EXPECT_EQ(ProgramTexts("1 ä" + std::string(1024, 'x')).GetProgramText(1).size(), 1025U);
}

TEST(EnglishTexts, AreExactlyThoseThatTheCodeNames) {
  const std::string english = Content(TextFileName("en"));
  const std::vector<int> numbers = NumbersBehind("\n", english);
  EXPECT_EQ(numbers, NumbersBehind(" = ", Content("text_numbers.h")));
  for (const int number : numbers) {
    const std::string text = ProgramTexts(english).GetProgramText(number);
    EXPECT_TRUE(!text.empty() && text.front() != ' ' && text.back() != ' ') << number;
  }
}

}  // namespace
}  // namespace text

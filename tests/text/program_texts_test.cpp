#include "text/program_texts.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "text/built_in.h"

namespace text {

static std::string Content(const std::string& file) {
  std::ifstream stream(QV_SOURCE_ROOT "/text/" + file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// The numbers that stand directly behind `mark`; none stands there twice.
static std::set<int> NumbersBehind(const std::string& mark, const std::string& content) {
  std::set<int> numbers;
  for (std::size_t at = content.find(mark); at != std::string::npos; at = content.find(mark, at + 1)) {
    const int number = std::atoi(content.c_str() + at + mark.size());
    EXPECT_TRUE(number == 0 || numbers.insert(number).second) << number;
  }
  return numbers;
}

TEST(ProgramTexts, FindATextByTheRulesOfTheFile) {
  ProgramTexts texts(
      "\xEF\xBB\xBF"
      "1 one\r\n# note\n2 first\n2 second\nno text\n3\n4 a\\nb \\\\n\\s\\q\\\n5 ~\n6  two blanks\n7 "
      "seven\n 8 no number\n310 folder\n388 key\n389 name");
  texts.Replace(
      "\xEF\xBB\xBF"
      "1 eins\n7 ~\nx\n310 Ordner\n388 \n389 ~");
  const std::map<int, std::string> expected = {
      {1, "eins"},     {2, "second"},      {3, ""},      {4, "a\r\nb \\n \\q\\"},
      {5, ""},         {6, " two blanks"}, {7, ""},      {8, ""},
      {310, "folder"}, {388, "key"},       {389, "name"}};
  for (const auto& [number, text] : expected) EXPECT_EQ(texts.GetProgramText(number), text) << number;
  EXPECT_EQ(ProgramTexts("1 ä" + std::string(1024, 'x')).GetProgramText(1).size(), 1025U);
}

TEST(EnglishTexts, AreExactlyThoseThatTheCodeNames) {
  const std::string english(EnglishTexts());
  EXPECT_EQ(NumbersBehind("\n", english), NumbersBehind(" = ", Content("text_numbers.h")));
  for (const int number : NumbersBehind("\n", english)) {
    const std::string text = ProgramTexts(english).GetProgramText(number);
    EXPECT_TRUE(!text.empty() && text.front() != ' ' && text.back() != ' ') << number;
  }
}

}  // namespace text

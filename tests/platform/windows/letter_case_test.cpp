#include "base/letter_case.h"

#include <gtest/gtest.h>

namespace base {

TEST(LetterCase, EveryCharacterHasItsSmallLetterOrStays) {
  const std::pair<char32_t, char32_t> letters[] = {
      {U'A', U'a'},     {U'Ä', U'ä'},       {U'Ω', U'ω'},        {U'a', U'a'},
      {U'ß', U'ß'},     {0x10400, 0x10428}, {0xD801, 0xD801},    {0xDFFF, 0xDFFF},
      {0xE000, 0xE000}, {0x1F600, 0x1F600}, {0x110000, 0x110000}};
  for (const auto& [letter, small] : letters) EXPECT_EQ(LowerOf(letter), small);
}

}  // namespace base

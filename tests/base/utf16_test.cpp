#include "base/utf16.h"
#include "base/utf8.h"

#include <gtest/gtest.h>

namespace base::utf16 {

TEST(Utf16, EveryNameComesBackAsItWas) {
  const std::pair<std::string, std::u16string> names[] = {
      {"plain name.txt", u"plain name.txt"},
      {"\xC3\xA4\xE2\x82\xAC", u"\x00E4\x20AC"},
      {"a\xF0\x9F\x98\x80z", u"a\xD83D\xDE00z"},
      {"\xEF\xBF\xBF", u"\xFFFF"},
      {"\xC2\x80\xE0\xA0\x80\xEE\x80\x80\xF0\x90\x80\x80", u"\x0080\x0800\xE000\xD800\xDC00"},
      // Surrogates without their partner, in the wrong order, and two of a kind.
      {"x\xED\xA0\xBD", u"x\xD83D"},
      {"\xED\xB8\x80\xED\xA0\xBD", u"\xDE00\xD83D"},
      {"\xED\xA0\xBD\xF0\x9F\x98\x80", u"\xD83D\xD83D\xDE00"},
      {"\xED\xA0\xBD\xEE\x80\x80\xED\xB0\x80\xED\xB0\x80", u"\xD83D\xE000\xDC00\xDC00"},
  };
  for (const auto& [utf8, utf16] : names) {
    EXPECT_EQ(ToUtf8(utf16), utf8);
    EXPECT_EQ(FromUtf8(utf8), utf16) << utf8;
  }
}

TEST(Utf16, BytesThatAreNoCharacterAreReplaced) {
  EXPECT_EQ(FromUtf8("a\xFFz"), u"a\xFFFDz");
  EXPECT_EQ(FromUtf8("a\xE2\x82"), u"a\xFFFD\xFFFD");
  EXPECT_EQ(FromUtf8("\xE0\x80\xAF"), u"\xFFFD");      // an overlong "/"
  EXPECT_EQ(FromUtf8("\xF4\x90\x80\x80"), u"\xFFFD");  // beyond Unicode
}

TEST(LetterCase, ChangesEveryLetterAndNothingElse) {
  const std::string capitals = "[AZ]1 \u00C4\u1E00\U00010400\u03A9\xFF";
  const std::string small = "[az]1 \u00E4\u1E01\U00010428\u03C9\xFF";
  for (const std::string& text : {capitals, small}) EXPECT_EQ(utf8::ToLower(text), small);
  EXPECT_EQ(utf8::Length(small), 11U);
  EXPECT_EQ(utf8::OffsetOf(small, 7), 8U);
  EXPECT_EQ(utf8::OffsetOf(small, 99), small.size());
  EXPECT_EQ(utf8::ToUpper("`az{\u00E4"), "`AZ{\u00E4");
}

TEST(Printable, ShowsWhatWouldHideOrTurnOtherText) {
  EXPECT_EQ(utf8::Printable("a\x1b\n\t\xC2\x85 \xE2\x80\xA8\xE2\x80\xAE\xE2\x81\xA9\xFF\x80"),
            "a\\x1b\\n\\t\\u0085 \\u2028\\u202e\\u2069\xEF\xBF\xBD\xEF\xBF\xBD");
  for (const char* text : {"\xC2\xA0", "\xE2\x80\xA7", "\xE2\x80\xAF", "\xE2\x81\xA5", "\xE2\x82\xA8"})
    EXPECT_EQ(utf8::Printable(text), text);
}

}  // namespace base::utf16

#include "platform/windows/wide_text.h"

#include <gtest/gtest.h>

namespace platform::windows {
namespace {

TEST(WideText, EveryNameComesBackAsItWas) {
  const std::pair<std::string, std::wstring> names[] = {
      {"plain name.txt", L"plain name.txt"},
      {"\xC3\xA4\xE2\x82\xAC", L"\x00E4\x20AC"},
      {"a\xF0\x9F\x98\x80z", L"a\xD83D\xDE00z"},
      {"\xEF\xBF\xBF", L"\xFFFF"},
      // Surrogates without their partner, in the wrong order, and two of a kind.
      {"x\xED\xA0\xBD", L"x\xD83D"},
      {"\xED\xB8\x80\xED\xA0\xBD", L"\xDE00\xD83D"},
      {"\xED\xA0\xBD\xF0\x9F\x98\x80", L"\xD83D\xD83D\xDE00"},
  };
  for (const auto& [narrow, wide] : names) {
    EXPECT_EQ(Narrow(wide), narrow);
    EXPECT_EQ(Widen(narrow), wide);
  }
}

TEST(WideText, BytesThatAreNoCharacterAreReplaced) {
  EXPECT_EQ(Widen("a\xFFz"), L"a\xFFFDz");
  EXPECT_EQ(Widen("a\xE2\x82"), L"a\xFFFD\xFFFD");
  EXPECT_EQ(Widen("\xE0\x80\xAF"), L"\xFFFD");      // an overlong "/"
  EXPECT_EQ(Widen("\xF4\x90\x80\x80"), L"\xFFFD");  // beyond Unicode
}

}  // namespace
}  // namespace platform::windows

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <langinfo.h>
#include <locale.h>
#include <time.h>

#include <cstdlib>
#include <string>

#include "platform/posix/locale.h"

// A country that every system has; only where it is meant do these calls differ from the C library's.
extern "C" {

locale_t newlocale(int mask, const char* name, locale_t base) noexcept {
  static const auto real = reinterpret_cast<decltype(&newlocale)>(dlsym(RTLD_NEXT, "newlocale"));
  return real(mask, std::string(name).starts_with("tt_TT") ? "C.UTF-8" : name, base);
}

char* nl_langinfo_l(nl_item item, locale_t /*locale*/) {
  const char* const grouping = std::getenv("GROUPING");
  std::string text = item == THOUSEP ? "'" : item == RADIXCHAR ? ";" : grouping == nullptr ? "" : grouping;
  if (item == CODESET) text = std::getenv("CODESET");
  static char room[8] = {};
  room[text.copy(room, 7)] = 0;
  return room;
}

size_t strftime_l(char* text, size_t size, const char* format, const struct tm* time,
                  locale_t locale) noexcept {
  static const auto real = reinterpret_cast<decltype(&strftime_l)>(dlsym(RTLD_NEXT, "strftime_l"));
  return real(text, size, std::string(format) == "%x" ? "%a %d.%m.%y" : "%H.%M.%S", time, locale);
}
}

namespace platform::posix {
namespace {

TEST(PosixLocale, WritesNumbersAndTimesAsTheUsersCountryDoes) {
  setenv("LC_ALL", "tt_TT.UTF-8", 1);
  const std::pair<const char*, std::vector<int>> groupings[] = {
      {"\3", {3}}, {"\3\2", {3, 2}}, {"\3\x7f", {3, 0}}, {"", {0}}, {"\x7f", {0}}};
  for (const auto& [grouping, groups] : groupings) {
    setenv("GROUPING", grouping, 1);
    setenv("CODESET", "UTF-8", 1);
    PosixLocale locale;
    EXPECT_EQ(locale.ThousandsSeparator() + locale.DecimalSeparator(), "';");
    EXPECT_EQ(locale.DigitGroups(), groups);
    EXPECT_EQ(locale.ShortDate({2026, 2, 9, 14, 5, 8, 40}), "Mon 09.02.26");
    EXPECT_EQ(locale.TimeOfDay({2026, 1, 9, 14, 5, 8, 9}), "14.05.08");
    setenv("CODESET", "ISO-8859-1", 1);
    EXPECT_EQ(PosixLocale().ThousandsSeparator(), ",") << "only texts of UTF-8 can be shown";
  }
}

}  // namespace
}  // namespace platform::posix

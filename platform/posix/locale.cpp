#include "platform/posix/locale.h"

#include <langinfo.h>
#include <time.h>

#include <array>
#include <climits>
#include <cstdlib>
#include <string_view>

#include "base/digits.h"

namespace platform::posix {
namespace {

std::string_view Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string_view() : value;
}

/// The name of the locale for a category, by the order of locale(7).
std::string LocaleName(const char* category) {
  for (const char* name : {"LC_ALL", category, "LANG"}) {
    if (const std::string_view value = Environment(name); !value.empty()) return std::string(value);
  }
  return "C";
}

bool IsPlain(std::string_view name) { return name == "C" || name == "POSIX" || name.starts_with("C."); }

/// The locale of that name for one category; none for the plain formats.
base::Handle<LocaleTraits> OpenLocale(int category_mask, const std::string& name) {
  if (IsPlain(name)) return {};
  base::Handle<LocaleTraits> locale(newlocale(category_mask | LC_CTYPE_MASK, name.c_str(), nullptr));
  if (locale && nl_langinfo_l(CODESET, locale.get()) != std::string_view("UTF-8")) return {};
  return locale;
}

bool IsSmallLetter(char c) { return c >= 'a' && c <= 'z'; }

/// "de_AT.UTF-8" and "de:en" give "de".
std::string LanguageOf(std::string_view name) {
  const std::string_view code = name.substr(0, name.find_first_of("_.@:-"));
  const bool is_code = code.size() == 2 && IsSmallLetter(code[0]) && IsSmallLetter(code[1]);
  return is_code ? std::string(code) : "en";
}

std::string UserLanguage() {
  const std::string name = LocaleName("LC_MESSAGES");
  if (IsPlain(name)) return "en";
  const std::string_view wished = Environment("LANGUAGE");
  return LanguageOf(wished.empty() ? name : wished);
}

std::string Formatted(const char* format, const CalendarTime& time, locale_t locale) {
  struct tm parts = {};
  parts.tm_year = time.year - 1900;
  parts.tm_mon = time.month - 1;
  parts.tm_mday = time.day;
  parts.tm_hour = time.hour;
  parts.tm_min = time.minute;
  parts.tm_sec = time.second;
  timegm(&parts);  // also the day of the week
  std::array<char, 200> text = {};
  return {text.data(), strftime_l(text.data(), text.size(), format, &parts, locale)};
}

/// From the form of localeconv(3): one byte a group, CHAR_MAX for one that takes the rest.
std::vector<int> GroupsOf(const char* grouping) {
  std::vector<int> groups;
  for (; *grouping > 0 && *grouping != CHAR_MAX; ++grouping) groups.push_back(*grouping);
  if (groups.empty() || *grouping == CHAR_MAX) groups.push_back(0);
  return groups;
}

}  // namespace

PosixLocale::PosixLocale()
    : language_(UserLanguage()), times_(OpenLocale(LC_TIME_MASK, LocaleName("LC_TIME"))) {
  const auto numbers = OpenLocale(LC_NUMERIC_MASK, LocaleName("LC_NUMERIC"));
  if (!numbers) return;
  thousands_ = nl_langinfo_l(THOUSEP, numbers.get());
  groups_ = GroupsOf(nl_langinfo_l(GROUPING, numbers.get()));
  const std::string decimal = nl_langinfo_l(RADIXCHAR, numbers.get());
  if (!decimal.empty()) decimal_ = decimal;
}

std::string PosixLocale::ShortDate(const CalendarTime& time) {
  if (times_) return Formatted("%x", time, times_.get());
  return base::Digits(time.year, 4) + '-' + base::Digits(time.month, 2) + '-' + base::Digits(time.day, 2);
}

std::string PosixLocale::TimeOfDay(const CalendarTime& time) {
  if (times_) return Formatted("%X", time, times_.get());
  return base::Digits(time.hour, 2) + ':' + base::Digits(time.minute, 2);
}

}  // namespace platform::posix

#pragma once

#include <locale.h>

#include "base/handle.h"
#include "platform/locale.h"

namespace platform::posix {

struct LocaleTraits {
  using Value = locale_t;
  static Value None() { return nullptr; }
  static void Close(Value value) { freelocale(value); }
};

/// The user's formats by LC_NUMERIC, LC_TIME and LC_MESSAGES (or LC_ALL, LANG) as the environment has them
/// when the object is made; the process's own locale stays as it is. In the locale "C" or "POSIX", in one
/// that is not installed and in one that is not UTF-8, the formats are 1,234.5, 2026-11-21 and 14:05.
class PosixLocale : public Locale {
 public:
  PosixLocale();
  std::string Language() override { return language_; }
  std::string ThousandsSeparator() override { return thousands_; }
  std::vector<int> DigitGroups() override { return groups_; }
  std::string DecimalSeparator() override { return decimal_; }
  std::string ShortDate(const CalendarTime& time) override;
  std::string TimeOfDay(const CalendarTime& time) override;

 private:
  std::string language_;
  std::string thousands_ = ",";
  std::vector<int> groups_{3};
  std::string decimal_ = ".";
  base::Handle<LocaleTraits> times_;  ///< none: the plain formats
};

}  // namespace platform::posix

#pragma once

#include <string>
#include <vector>

#include "platform/file_time.h"

namespace platform {

/// The user's language and formats. Texts are UTF-8.
class Locale {
 public:
  virtual ~Locale() = default;

  /// The language as two small letters ("en", "de"); "en" when it is not known.
  virtual std::string Language() = 0;

  /// What comes between groups of three digits ("," or "." or a space ...). May be empty.
  virtual std::string ThousandsSeparator() = 0;

  /// How many digits are in each group, from the right; the last number holds for all further groups, a 0
  /// there for one that takes the rest. Never empty.
  virtual std::vector<int> DigitGroups() = 0;

  /// What comes before the decimals; never empty.
  virtual std::string DecimalSeparator() = 0;

  /// The day in the user's short form.
  virtual std::string ShortDate(const CalendarTime& time) = 0;

  /// The time of day in the user's form.
  virtual std::string TimeOfDay(const CalendarTime& time) = 0;
};

}  // namespace platform

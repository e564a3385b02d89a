#pragma once

#include "platform/locale.h"

namespace platform::windows {

/// The formats that the user has chosen in the system's settings, asked anew each time.
class WindowsLocale : public Locale {
 public:
  std::string Language() override;
  std::string ThousandsSeparator() override;
  std::vector<int> DigitGroups() override;
  std::string DecimalSeparator() override;
  std::string ShortDate(const CalendarTime& time) override;
  std::string TimeOfDay(const CalendarTime& time) override;
};

}  // namespace platform::windows

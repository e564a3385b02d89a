#include "platform/windows/locale.h"

#include "base/utf8.h"
#include "base/wide_text.h"
#include "platform/windows/windows_api.h"

namespace platform::windows {
namespace {

/// A format of the locale holds at most 80 characters (winnls.h: LOCALE_SSHORTDATE); names of months make it
/// longer.
constexpr int kBufferSize = 256;

/// A text from a system call that gives back its length with the terminating zero, or 0.
template <typename Call>
std::string TextFrom(Call call) {
  wchar_t buffer[kBufferSize];
  const int length = call(buffer);
  return length > 0 ? base::Narrow({buffer, static_cast<std::size_t>(length) - 1}) : std::string();
}

std::string LocaleText(LCTYPE type) {
  return TextFrom([&](wchar_t* buffer) {
    return ::GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, type, buffer, kBufferSize);
  });
}

SYSTEMTIME ToSystemTime(const CalendarTime& time) {
  SYSTEMTIME result{};
  result.wYear = static_cast<WORD>(time.year);
  result.wMonth = static_cast<WORD>(time.month);
  result.wDay = static_cast<WORD>(time.day);
  result.wHour = static_cast<WORD>(time.hour);
  result.wMinute = static_cast<WORD>(time.minute);
  result.wSecond = static_cast<WORD>(time.second);
  return result;
}

}  // namespace

std::string WindowsLocale::Language() {
  const std::string name =
      TextFrom([](wchar_t* buffer) { return ::GetUserDefaultLocaleName(buffer, kBufferSize); });
  const std::string language = name.substr(0, name.find('-'));
  return language.size() == 2 ? base::utf8::ToLower(language) : "en";
}

std::string WindowsLocale::ThousandsSeparator() { return LocaleText(LOCALE_STHOUSAND); }

/// From "3;2;0", where the 0 says that the group before it repeats.
std::vector<int> WindowsLocale::DigitGroups() {
  std::vector<int> groups;
  for (const char c : LocaleText(LOCALE_SGROUPING)) {
    if (c >= '0' && c <= '9') groups.push_back(c - '0');
  }
  if (groups.empty() || groups.front() == 0) return {0};
  if (groups.back() == 0) {
    groups.pop_back();
  } else {
    groups.push_back(0);
  }
  return groups;
}

std::string WindowsLocale::DecimalSeparator() {
  const std::string separator = LocaleText(LOCALE_SDECIMAL);
  return separator.empty() ? "." : separator;
}

std::string WindowsLocale::ShortDate(const CalendarTime& time) {
  const SYSTEMTIME day = ToSystemTime(time);
  return TextFrom([&](wchar_t* buffer) {
    return ::GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &day, nullptr, buffer, kBufferSize,
                             nullptr);
  });
}

std::string WindowsLocale::TimeOfDay(const CalendarTime& time) {
  const SYSTEMTIME clock = ToSystemTime(time);
  return TextFrom([&](wchar_t* buffer) {
    return ::GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &clock, nullptr, buffer, kBufferSize);
  });
}

}  // namespace platform::windows

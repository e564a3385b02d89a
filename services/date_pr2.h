#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/locale.h"
#include "text/program_texts.h"

/// The periods of "modified since", and time stamps.
namespace DatePr2 {

/// The number of periods. Number 0 is no limit; the others grow longer: a week, then 1 to 24 months.
int ModifiedSinceCount();

/// What the list shows for a period, worded so that it also follows "For files new or modified ". Empty for
/// a number that is none.
std::string ModifiedSinceText(int index, const text::ProgramTexts& texts);

/// The earliest modification time that a period lets pass: this time of day on the day of the local calendar
/// that lies so far back, and the last day of a month that is too short. Empty: no limit, also for a number
/// that is none.
std::optional<platform::FileTime> ModifiedSinceLimit(int index, platform::Clock& clock);

/// The date and the time of day, a space between them, every ":" as ".", so that it can be part of a name.
std::string TimeStamp(platform::Clock& clock, platform::Locale& locale);

}  // namespace DatePr2

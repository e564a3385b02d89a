#include "engine/selection/file_proc.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <limits>

namespace engine {
namespace {

using platform::Attributes;

/// Counted from the day before New Year; only differences count.
int MinutesInYear(const platform::CalendarTime& time) {
  return time.day_of_year * 1440 + time.hour * 60 + time.minute;
}

bool IsShiftOfTimeZone(int minutes) { return minutes % 30 == 0 && minutes <= 480; }

// What a volume may hold: FAT and exFAT from 1980 to 2107 (after the clock on the wall, so a day more or
// less), others the seconds of 32 bits or from 1901 on.
constexpr std::int64_t kDay = 24 * 60 * 60;
constexpr std::int64_t kSpans[][2] = {
    {315'532'800, 4'354'819'199},
    {std::numeric_limits<std::int32_t>::min(), 4'354'819'199},
    {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}};

/// Whether a volume that cannot hold the time of the source has the nearest one that it can.
bool IsNearest(std::int64_t source, std::int64_t target) {
  return std::any_of(std::begin(kSpans), std::end(kSpans), [&](const auto& span) {
    return (source < span[0] && std::abs(target - span[0]) <= kDay) ||
           (source > span[1] && std::abs(target - span[1]) <= kDay);
  });
}

/// Clears and sets attribute bits where that changes anything; whether they are as wished afterwards.
bool ChangeAttributes(platform::FileSystem& files, const std::string& path, Attributes clear,
                      Attributes set) {
  const auto now = files.GetAttributes(path);
  if (!now) return false;
  const Attributes wanted = (*now & ~clear) | set;
  return wanted == *now || files.SetAttributes(path, wanted).ok();
}

}  // namespace

std::int32_t FileSizeOf(std::int64_t bytes) {
  return bytes < 0 ? kLargestFileSize
                   : static_cast<std::int32_t>(std::min<std::int64_t>(bytes, kLargestFileSize));
}

std::int32_t FileSizeOf(const platform::Entry& file) { return FileSizeOf(file.size); }

bool FileTimesDiffer(const platform::Entry& source, const platform::Entry& target) {
  if (source.size != target.size) return true;
  if (!source.modified || !target.modified) return false;
  if (source.modified->seconds == target.modified->seconds) return false;
  if (IsNearest(source.modified->seconds, target.modified->seconds)) return false;

  const platform::CalendarTime a = platform::ToUtc(*source.modified);
  const platform::CalendarTime b = platform::ToUtc(*target.modified);
  if (a.year != b.year || a.month != b.month) return true;
  const int delta = std::abs(MinutesInYear(a) - MinutesInYear(b));
  return delta >= 2 && !IsShiftOfTimeZone(delta);
}

bool ClearReadOnly(platform::FileSystem& files, const std::string& path) {
  return ChangeAttributes(files, path, platform::kReadOnly, 0);
}

bool SetSystemFile(platform::FileSystem& files, const std::string& path) {
  return ChangeAttributes(files, path, 0, platform::kSystem);
}

bool ClearReadOnlyAndHidden(platform::FileSystem& files, const std::string& path) {
  return ChangeAttributes(files, path, platform::kReadOnly | platform::kHidden, 0);
}

}  // namespace engine

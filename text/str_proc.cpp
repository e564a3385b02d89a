#include "text/str_proc.h"

namespace StrProc {
namespace {

constexpr double kStep = 1024;
constexpr double kMb = kStep * kStep;

}  // namespace

std::string Trim(std::int64_t number) { return std::to_string(number); }

std::string Str(std::int64_t number) {
  std::string text = number < 0 ? "" : " ";
  return text += std::to_string(number);
}

std::string PluralSuffix(std::int64_t count) { return count == 1 ? "" : "s"; }

std::string FormatByteCount(double size, bool capitalise, const text::NumberMarks& marks) {
  if (size < 0) return "";
  return text::GroupedNumber(size, 0, marks) + (capitalise ? " Bytes" : " bytes");
}

std::string FormatByteCountWithMb(double size, bool capitalise, const text::NumberMarks& marks) {
  const std::string count = FormatByteCount(size, capitalise, marks);
  if (size <= kMb) return count;
  return count + " (" + text::GroupedNumber(size / kMb, 2, marks) + " Mb)";
}

std::string FormatSizeKbMb(double size, int decimals, const text::NumberMarks& marks) {
  if (size < kStep) return FormatByteCount(size, false, marks);
  if (size < kMb) return text::GroupedNumber(size / kStep, decimals, marks) + " Kb";
  return text::GroupedNumber(size / kMb, decimals, marks) + " Mb";
}

std::string FormatSizeKbMbGb(double size, int decimals, const text::NumberMarks& marks) {
  if (size < kMb * kStep) return FormatSizeKbMb(size, decimals, marks);
  return text::GroupedNumber(size / (kMb * kStep), decimals, marks) + " Gb";
}

}  // namespace StrProc

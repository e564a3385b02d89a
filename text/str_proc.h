#pragma once

#include <cstdint>
#include <string>

#include "text/grouped_number.h"

/// Numbers and sizes as the report and the windows show them. Sizes are bytes and may be any whole number
/// that a double holds; a negative size is "not known" and gives the empty text. The units are powers of
/// 1,024. `marks` are those of the user's number format.
namespace StrProc {

/// What the windows show of Kb and more.
inline constexpr int kDecimals = 2;

/// The decimal digits alone, with a minus sign in front when negative.
std::string Trim(std::int64_t number);

/// The decimal digits after one character for the sign: a space, or "-" when negative.
std::string Str(std::int64_t number);

/// Empty for 1, "s" for every other count, 0 included.
std::string PluralSuffix(std::int64_t count);

/// "1,048,576 bytes"; the unit reads "Bytes" with `capitalise`.
std::string FormatByteCount(double size, bool capitalise, const text::NumberMarks& marks);

/// The same, and above 1,048,576 bytes the size in Mb after it: "2,097,152 bytes (2.00 Mb)".
std::string FormatByteCountWithMb(double size, bool capitalise, const text::NumberMarks& marks);

/// The size in bytes, Kb or Mb. Kb and Mb have so many decimals (0 to 9), bytes have none.
std::string FormatSizeKbMb(double size, int decimals, const text::NumberMarks& marks);

/// The size in bytes, Kb, Mb or Gb.
std::string FormatSizeKbMbGb(double size, int decimals, const text::NumberMarks& marks);

}  // namespace StrProc

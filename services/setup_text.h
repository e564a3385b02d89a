#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "app/data/setup.h"

/// The layout of a setup file: plain lines whose meaning is their position, without header or version.
///
/// 1 source folder, 2 target folder, 3 to 8 the numbers SuppressDetailedReports, SaveSetupOnQuit,
/// ExcludeFilesInSourceFolder, IncludeSubfolders, ModifiedSince (-1: none chosen) and PauseAfterFirstCopy,
/// 9 SkipFilepaths, 10 the number N of included folders, then N lines with one name each, last FileExtension.
///
/// UTF-8; lines end in CR LF. Texts are written as they are; a number has a space or "-" in front and a space
/// behind. Lines 1 to 8 and 10 are read as items that end at a comma or at the line's end, so a folder whose
/// path holds a comma is cut there and every later item moves up by one: the format has no way to quote it
/// when written, though an item in double quotes is understood.
namespace services {

/// What can stop the reading of a setup, with the numbers that users of such files know.
inline constexpr std::int16_t kInputOverflow = 6;       ///< a number that 16 bits cannot hold
inline constexpr std::int16_t kInputNotANumber = 13;    ///< text where a whole number must be
inline constexpr std::int16_t kInputFileNotFound = 53;  ///< no such file
inline constexpr std::int16_t kInputPastEnd = 62;       ///< fewer lines than the layout needs
inline constexpr std::int16_t kInputNoPermission = 70;  ///< the file may not be read, or is in use
inline constexpr std::int16_t kInputFileAccess = 75;    ///< the file cannot be read for another reason
inline constexpr std::int16_t kInputDamaged = 321;      ///< a zero byte, which no line has
inline constexpr std::int16_t kInputBadValue = 380;     ///< a number that its control refuses

/// One plain sentence for one of these numbers.
std::string InputErrorText(std::int16_t error);

/// The content of a setup file. A text that holds a line end would shift the lines: see CanBeWritten().
std::string SetupText(const app::Setup& setup);

/// Whether the layout can hold the setup: no text has a CR, LF or zero byte in it, as names on Linux may, and
/// there are no more than 32,767 included folders.
bool CanBeWritten(const app::Setup& setup);

struct ParsedSetup {
  app::Setup setup;        ///< what was read before the error; the rest has its defaults
  std::int16_t error = 0;  ///< 0: read to the end
  int line = 0;            ///< the line (from 1) at which an error stopped the reading; 0: none of the lines
  int comma_line = 0;      ///< the first line with a path that a comma cut; 0: there is none
  bool extension_missing = false;  ///< the error is that the last line, and it alone, is missing
};

/// Why a setup was not read to its end, in sentences that name the line, and a comma where that is to blame.
std::string ProblemText(const ParsedSetup& parsed);

/// Whether a folder text comes back whole from a saved setup: see above.
bool SurvivesSaving(const std::string& folder);

/// Reads a setup file's content: any bytes, with CR LF or LF, a byte order mark passed over, anything behind
/// the last line ignored. A whole line without its line end was cut off, and counts as missing. `periods` is
/// the length of the list that ModifiedSince points into.
ParsedSetup ParseSetup(std::string_view content, int periods);

}  // namespace services

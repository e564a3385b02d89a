#pragma once

#include <cstdint>
#include <string>

#include "platform/file_system.h"
#include "text/grouped_number.h"

/// The disk that holds a path: its space, and whether it can be written. On Windows the disk is named by the
/// path's first two characters ("E:"), so a network path has none; elsewhere it is the mounted volume.
namespace DiskProc {

/// The bytes that this user may still write there and the disk's size. 0, or -1 when they are unknown;
/// the numbers are then left alone.
std::int16_t GetDiskSpace(platform::FileSystem& files, const std::string& path, double& free_bytes,
                          double& total_bytes);

/// The free space as FormatDiskSize() words it with "bytes"; empty when it is not known.
std::string FreeSpaceText(platform::FileSystem& files, const std::string& path,
                          const text::NumberMarks& marks);

/// A number of bytes in bytes, Kb, Mb or Gb (powers of 1,024), the last three with two decimals. "Bytes"
/// when `capital` is not 0, else "bytes".
std::string FormatDiskSize(double bytes, std::int16_t capital, const text::NumberMarks& marks);

/// Whether no file can be made and removed again in a folder; tried with a small file, which is gone
/// afterwards. What else has the file's name, a link above all, stays as it is: then the name is another
/// one. `error_text` receives the system's text for what failed, or nothing.
bool IsWriteProtected(platform::FileSystem& files, const std::string& folder, std::string& error_text);

}  // namespace DiskProc

#pragma once

#include <functional>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "text/grouped_number.h"
#include "text/program_texts.h"

namespace engine {

/// What the engine works with; all of it is owned by the caller and outlives the run.
struct Tools {
  platform::FileSystem& files;
  platform::Clock& clock;
  const text::ProgramTexts& texts;
  text::NumberMarks marks;
  /// Free and total bytes of the disk that holds a path; 0 when they could be told, -1 when not.
  std::function<std::int16_t(const std::string& path, double& free_bytes, double& total_bytes)> GetDiskSpace;
  /// Whether a folder cannot be written to; the system's reason goes to `error_text`.
  std::function<bool(const std::string& folder, std::string& error_text)> IsWriteProtected;
  std::string who = {};          ///< this run in words, for a second one that would copy to its target
  std::string lock_folder = {};  ///< a folder of this user's on this computer; empty: none
};

}  // namespace engine

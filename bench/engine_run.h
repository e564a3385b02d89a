#pragma once

#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/file_system.h"

/// One operation of the engine with its report suppressed, as a program to be timed from outside:
///   engine_run check|modified|all SOURCE TARGET [--flush]
/// All first-level subfolders are included with everything below them. Without --flush the last step of a
/// run, bringing the copies safely to the disk, is left out: the tools it is compared with do not do it
/// either.
namespace bench {

/// A file system that says it has flushed without doing it.
template <typename FileSystem>
class WithoutFlush : public FileSystem {
 public:
  platform::Status Flush(const std::string&, const platform::Waiting&) override { return platform::Done{}; }
};

/// Runs what the words say and prints what came of it. Returns the exit code: 2 for words that make no sense.
int RunEngine(platform::FileSystem& flushing, platform::FileSystem& not_flushing, platform::Clock& clock,
              const std::vector<std::string>& words);

}  // namespace bench

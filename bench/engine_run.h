#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/grouped_copier.h"

/// One operation of the engine with its report suppressed, as a program to be timed from outside:
///   engine_run check|modified|all SOURCE TARGET [--flush] [--compare]
/// All first-level subfolders are included with everything below them. Without --flush nothing is
/// brought to the disk: the tools it is compared with do not do it either. With --compare contents are
/// compared.
namespace bench {

/// Copies that go the usual way and are not brought to the disk.
template <typename Volume>
class UnsavedVolume : public Volume {
 public:
  using Volume::Volume;
  platform::Status SaveData(const platform::Drafts&) override { return platform::Done{}; }
  platform::Status SaveNames(const platform::Drafts&) override { return platform::Done{}; }
};

/// A file system that says it has flushed without doing it.
template <typename FileSystem, typename Volume>
class WithoutFlush : public FileSystem {
 public:
  platform::Status Flush(const std::string&, const platform::IdleCallback&) override {
    return platform::Done{};
  }
  std::unique_ptr<platform::Copier> MakeCopier(const std::string& source,
                                               const std::string& target) override {
    return std::make_unique<platform::GroupedCopier>(std::make_shared<UnsavedVolume<Volume>>(source, target),
                                                     threads_);
  }

 private:
  platform::CopyThreads threads_;
};

/// Runs what the words say and prints what came of it. Returns the exit code: 2 for words that make no sense.
int RunEngine(platform::FileSystem& flushing, platform::FileSystem& not_flushing, platform::Clock& clock,
              const std::vector<std::string>& words);

}  // namespace bench

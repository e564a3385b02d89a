#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>

#include "engine/listener/listener.h"
#include "engine/selection/selection.h"
#include "engine/target/folder_pair.h"
#include "platform/copier.h"
#include "platform/path.h"

namespace engine {

/// A selected file. It keeps its folders open until it is settled.
struct CopyJob {
  std::shared_ptr<FolderPair> folders;
  const platform::Entry* file = nullptr;  ///< an entry of folders->source()
  Selection selection;
  std::shared_ptr<FolderCounts> counts;  ///< of its folder
  double share_begin = 0;                ///< of the whole run, as of a folder in the walk
  double share = 0;

  std::string SourcePath() const { return platform::JoinPath(folders->source().path(), file->name); }
};

/// A copy that was handed over and is not settled.
struct PendingCopy {
  using Bytes = std::atomic<std::int64_t>;

  CopyJob job;
  std::shared_ptr<Bytes> done;  ///< those written so far, and after them those read back
  std::optional<platform::Result<platform::CopyOutcome>> outcome;
  bool was_alone = false;  ///< on its way
  bool had_second_try = false;
};

/// The oldest first.
using PendingCopies = std::deque<PendingCopy>;

}  // namespace engine

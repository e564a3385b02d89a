#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/posix/posix_folder.h"
#include "platform/posix/source_file.h"
#include "platform/posix/worker.h"

namespace platform::posix {

/// Reads the small files that are copied next while the program still writes others. Never waits for the
/// reader: what it has not got yet, the program reads itself.
class ReadAhead {
 public:
  ReadAhead() = default;
  ReadAhead(const ReadAhead&) = delete;
  ReadAhead& operator=(const ReadAhead&) = delete;
  ~ReadAhead();

  /// These files of `folder` are copied next, in this order. Ends what was begun before. Reading ends by
  /// itself when the folder is closed; no file is left open.
  void Expect(const PosixFolder& folder, const std::vector<const Entry*>& files);

  /// The file with its content, when it has been read and is still fresh.
  std::optional<SourceFile> Take(const PosixFolder& folder, const std::string& name);

 private:
  class Batch;

  std::shared_ptr<Batch> batch_;
  Worker worker_;
};

}  // namespace platform::posix

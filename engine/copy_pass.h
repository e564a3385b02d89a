#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "engine/folder_pair.h"
#include "engine/listener/listener.h"
#include "engine/pulse.h"
#include "engine/selection.h"
#include "engine/tools.h"

namespace engine {

enum class CopyResult { kCopied, kFailed, kCancelled };

/// Copies selected files, one call a file: guards against a full target drive, makes a read-only old copy
/// writable, copies as one transaction, and tells the listener. Whatever is not copied has left its line in
/// the report.
class CopyPass {
 public:
  /// `target_root`: the setup's target folder; its disk's free space counts.
  CopyPass(const Tools& tools, Listener& listener, Pulse& pulse, Totals& totals,
           const TargetRoot& target_root);

  CopyResult Copy(FolderPair& folders, const Candidate& file);

  /// Set when the run must stop: the target drive is full, or an answer stopped it.
  bool OperationTerminated() const { return operation_terminated_; }

 private:
  /// The target disk's, for a file that wants so many; nothing when they cannot be told.
  std::optional<double> FreeBytes(double wanted);
  bool HasSpaceFor(const Candidate& file);
  bool HasTargetFolder(FolderPair& folders, const Candidate& file);
  bool CanBeReplaced(const FolderPair& folders, const Candidate& file);
  platform::Result<platform::CopyOutcome> CopyFileTo(FolderPair& folders, const Candidate& file);
  void CarryAttributes(const FolderPair& folders, const Candidate& file,
                       const platform::CopyOutcome& outcome);
  void Fail(const Candidate& file, const platform::Error& error);
  void FailForTarget(const Candidate& file, const platform::Error& error);
  void Terminate() { operation_terminated_ = true; }

  const Tools& tools_;
  Listener& listener_;
  Pulse& pulse_;
  Totals& totals_;
  const TargetRoot& target_root_;
  std::string folder_given_up_;  ///< a target folder that was asked about: nothing goes there or below
  platform::Error why_given_up_;
  std::optional<double> free_bytes_;  ///< when last asked, less what was copied since
  std::chrono::milliseconds free_bytes_asked_{0};
  bool operation_terminated_ = false;
};

}  // namespace engine

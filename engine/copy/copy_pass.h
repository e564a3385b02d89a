#pragma once

#include <memory>
#include <string>

#include "engine/copy/copy_display.h"
#include "engine/copy/pending_copy.h"
#include "engine/copy/pulse.h"
#include "engine/copy/report_order.h"
#include "engine/target/target_space.h"
#include "engine/target/unfinished_run.h"
#include "engine/tools.h"

namespace engine {

/// Adds a file to the counts of its folder, but for what became of it.
void Count(const Selection& selection, const platform::Entry& file, FolderCounts& counts);

/// Copies selected files: guards against a full target drive, makes a read-only old copy writable, lets the
/// file system copy many at a time, and tells the listener what came of each, in the order in which they were
/// handed over. Whatever is not copied has left its line in the report.
///
/// Near the end of the space, and before it asks the user something, it works file by file: what was handed
/// over before is settled first. A file that does not fit although it should have, or whose source could not
/// be read to its end, is tried once more.
class CopyPass {
 public:
  struct Setting {
    std::string source_root;  ///< the setup's source folder
    bool reads_back;          ///< every copy
  };

  /// `target_root`: the setup's target folder; its disk's free space counts.
  CopyPass(const Tools& tools, Listener& listener, Pulse& pulse, Totals& totals, ReportOrder& order,
           UnfinishedRun& unfinished, TargetRoot& target_root, Setting setting);

  /// Hands a file over. Returns when there is room for the next one, or when the user wants to stop.
  void Copy(CopyJob job);

  /// Waits until everything handed over is settled, or until the user wants to stop.
  void Finish();

  /// Settles what can be settled without waiting, and shows how far the run is: `fraction` of it is walked.
  void Beat(double fraction);

  /// The user has cancelled: what is on its way and has not its name yet counts as not met.
  void GiveUp();

  /// Set when the run must stop: the target drive is full, or an answer stopped it.
  bool OperationTerminated() const { return operation_terminated_; }

 private:
  bool CheckSize(const CopyJob& job);
  bool CheckSpace(const CopyJob& job);
  bool EnsureTargetFolder(const CopyJob& job);
  bool MakeReplaceable(const CopyJob& job);

  void Begin(CopyJob job);
  void Start(PendingCopy& pending);
  void ShowReached(double walked);
  bool IsBusy();
  bool Wait();
  void Settle();
  bool NeedsSecondTry(const PendingCopy& pending) const;
  void TrySecondTime(PendingCopy& pending);
  void SettleFirst();
  std::string WhyNotCopied(const CopyJob& job, platform::Error error);
  void CountReadBack(const PendingCopy& pending);
  void ReportCopied(const CopyJob& job, const platform::CopyOutcome& outcome);
  void CarryAttributes(const CopyJob& job, const platform::CopyOutcome& outcome);

  /// What the target has of a file that is not copied.
  void LeaveAsItIs(const CopyJob& job);
  /// Counts the file as failed and writes the line.
  void Fail(const CopyJob& job, const std::string& line);
  void Terminate() { operation_terminated_ = true; }

  const Tools& tools_;
  Listener& listener_;
  Pulse& pulse_;
  Totals& totals_;
  ReportOrder& order_;
  UnfinishedRun& unfinished_;
  TargetRoot& target_root_;
  const Setting setting_;
  std::unique_ptr<platform::Copier> copier_;  ///< made for the first file
  PendingCopies pending_;
  std::size_t on_their_way_ = 0;  ///< of these, those that the copier has
  TargetSpace space_;
  CopyDisplay display_;
  std::string folder_given_up_;  ///< a target folder that was asked about: nothing goes there or below
  platform::Error why_given_up_;
  bool operation_terminated_ = false;
};

}  // namespace engine

#pragma once

#include <atomic>
#include <chrono>
#include <deque>
#include <memory>
#include <optional>
#include <string>

#include "engine/folder_pair.h"
#include "engine/listener/listener.h"
#include "engine/pulse.h"
#include "engine/report_order.h"
#include "engine/selection.h"
#include "engine/tools.h"
#include "engine/unfinished_run.h"

namespace engine {

/// A selected file. It keeps its folders open until it is settled.
struct CopyJob {
  std::shared_ptr<FolderPair> folders;
  const platform::Entry* file = nullptr;  ///< an entry of folders->source()
  Selection selection;
  std::shared_ptr<FolderCounts> counts;  ///< of its folder
  double share_begin = 0;                ///< of the whole run, as of a folder in the walk
  double share = 0;

  std::string SourcePath() const;
};

/// Adds a file to the counts of its folder, but for what became of it.
void Count(const Selection& selection, const platform::Entry& file, FolderCounts& counts);

/// Copies selected files: guards against a full target drive, makes a read-only old copy writable, lets the
/// file system copy many at a time, and tells the listener what came of each, in the order in which they were
/// handed over. Whatever is not copied has left its line in the report.
///
/// Near the end of the space, and before it asks the user something, it works file by file: what was handed
/// over before is settled first. A file that does not fit although it should have, or whose source shrank
/// while it was read, is tried once more.
class CopyPass {
 public:
  struct Setting {
    std::string source_root;  ///< the setup's source folder
    bool reads_back = false;  ///< every copy
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

  /// The user has cancelled: what is not settled counts as not met.
  void GiveUp();

  /// Set when the run must stop: the target drive is full, or an answer stopped it.
  bool OperationTerminated() const { return operation_terminated_; }

 private:
  using Bytes = std::atomic<std::int64_t>;
  struct Pending {
    CopyJob job;
    std::shared_ptr<Bytes> done;  ///< of its copy: those written so far, and after them those read back
    std::optional<platform::Result<platform::CopyOutcome>> outcome;
    bool was_alone = false;
    bool had_second_try = false;
  };

  /// The target disk's, less what is on its way; nothing when they are unknown.
  std::optional<double> FreeBytes();
  std::optional<double> FreeBytesFor(double wanted);
  bool CheckSize(const CopyJob& job);
  bool CheckSpace(const CopyJob& job);
  bool EnsureTargetFolder(const CopyJob& job);
  bool MakeReplaceable(const CopyJob& job);

  void Begin(CopyJob job);
  void Start(Pending& pending);
  bool IsBusy();
  bool Wait();
  void Settle();
  bool NeedsSecondTry(const Pending& pending) const;
  void TrySecondTime(Pending& pending);
  void SettleFirst();
  std::string WhyNotCopied(const CopyJob& job, platform::Error error);
  void CountReadBack(const Pending& pending);
  void ReportCopied(const CopyJob& job, const platform::CopyOutcome& outcome);
  void CarryAttributes(const CopyJob& job, const platform::CopyOutcome& outcome);
  const Pending* FirstWithLessThan(std::int64_t times_its_size) const;
  void ShowFile(platform::CopyStage stage);
  void ShowStage(platform::CopyStage stage);
  double Reached(double walked) const;

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
  std::deque<Pending> pending_;               ///< handed over and not settled, the oldest first
  std::size_t on_their_way_ = 0;              ///< of these, those that the copier has
  double bytes_on_their_way_ = 0;
  int saving_waits_ = 0;
  bool is_saving_ = false;
  bool is_scarce_ = false;       ///< the space: work goes file by file
  std::string folder_given_up_;  ///< a target folder that was asked about: nothing goes there or below
  platform::Error why_given_up_;
  std::optional<double> free_bytes_;  ///< when last asked, less what was handed over since
  std::chrono::milliseconds free_bytes_asked_{0};
  std::optional<std::int64_t> largest_file_;  ///< that the target can hold; 0: no limit is known
  bool operation_terminated_ = false;
};

}  // namespace engine

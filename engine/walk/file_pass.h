#pragma once

#include <functional>
#include <string>

#include "engine/copy/content_comparison.h"
#include "engine/copy/copy_pass.h"
#include "engine/copy/pulse.h"
#include "engine/copy/report_order.h"
#include "engine/listener/listener.h"
#include "engine/selection/selection.h"
#include "engine/target/target_root.h"
#include "engine/tools.h"

namespace engine {

/// Takes the files of a walk one after the other, and brings each to where it belongs: to the copies, or to
/// one of the counts. Where the user wishes it, or the copy may be another file's, a file that counts as up
/// to date is compared with its copy before. While such comparisons are on their way, whatever the walk does
/// or tells after them waits, so that all comes as if each had been made on the spot.
class FilePass {
 public:
  struct Setting {
    const SelectionRules& rules;
    bool compares_contents;
    std::function<bool()> has_ended;  ///< whether the run is over before its end; asks the user's wish, too
  };

  FilePass(const Tools& tools, Listener& listener, Pulse& pulse, ReportOrder& order, CopyPass& copy_pass,
           ContentComparison& comparison, TargetRoot& target_root, Setting setting);

  /// Returns when there is room for the next file, or when the run has ended.
  void Take(CopyJob job);

  /// Does it when the files taken before are where they belong. See ReportOrder.
  void InTurn(ReportOrder::Act act) { decisions_.Tell(std::move(act)); }
  void AtEndOfFolder(ReportOrder::Act act) { decisions_.ReportEndOfFolder(std::move(act)); }

  /// Waits until every file taken is where it belongs, or until the run has ended.
  void Finish();

  /// Keeps the listener alive, and shows how far the run is: `fraction` of it is walked.
  void Beat(double fraction);

  /// The run has ended: what is being compared counts as not met.
  void GiveUp();

 private:
  bool IsToBeCompared(const CopyJob& job) const;
  void Compare(CopyJob job);
  void ShowReached(double walked);
  bool Wait();
  void Settle();
  void Conclude(CopyJob job, const platform::CompareOutcome& outcome);
  void BecomeModified(CopyJob& job) const;
  void Fail(const CopyJob& job, const std::string& line);
  void Act(CopyJob job);
  void CountCompared(const CopyJob& job);
  void Write(const std::string& line);

  const Tools& tools_;
  Listener& listener_;
  Pulse& pulse_;
  ReportOrder& order_;
  CopyPass& copy_pass_;
  ContentComparison& comparison_;
  TargetRoot& target_root_;
  const Setting setting_;
  ReportOrder decisions_;
  std::int64_t bytes_compared_ = 0;
  std::int64_t files_compared_ = 0;
};

}  // namespace engine

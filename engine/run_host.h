#pragma once

#include <string>
#include <vector>

#include "app/data/operation.h"
#include "engine/listener/listener.h"

namespace engine {

struct RunRequest;

/// The heading of a report.
struct ReportHeading {
  std::string caption;             ///< the report window's title
  std::vector<std::string> lines;  ///< its first lines
};

/// The windows around a run: what RunOperation() asks of the main window, in the order of the calls.
class RunHost {
 public:
  virtual ~RunHost() = default;

  /// Makes the main window ready for this kind of operation.
  virtual void PrepareFor(app::Operation operation) = 0;

  /// Says why the run does not start. Not called in an unattended run.
  virtual void Refuse(const std::string& text, const std::string& title) = 0;

  /// Shows what is going on before the report opens; empty: nothing any more.
  virtual void ShowNote(const std::string& note) = 0;

  /// Shows the settings of a copying run; false: the user does not want it. What the user chooses there for
  /// this run goes into the request.
  virtual bool ConfirmOperation(RunRequest& request) = 0;

  /// Opens the report, empty but for its heading, and hands out the listener of the run.
  virtual Listener& OpenReport(app::Operation operation, const ReportHeading& heading) = 0;

  virtual void RefreshFreeSpace() = 0;
  virtual void LockControls() = 0;

  /// The report routine's last act: writes the summary.
  virtual void WriteSummary(const Totals& totals) = 0;

  /// Sets the report's buttons to their end state, with this caption for the one that closes it.
  virtual void CloseReport(const std::string& close_caption) = 0;
  virtual void UnlockControls() = 0;
  virtual void RefreshFolderDisplays() = 0;
};

}  // namespace engine

#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/confirmation/confirmation_input.h"
#include "app/confirmation/operation_preview.h"
#include "app/context.h"
#include "app/data/operation.h"
#include "engine/run/operation_run.h"
#include "report/frmReport.h"
#include "report/main_window.h"
#include "report/run_report.h"

namespace app {

class frmMain;

/// Runs the operations of the main window: has the setup checked and confirmed, opens the report, lets the
/// engine work, and gives the main window back. Owns the report window, which the first operation makes.
class OperationController : public report::MainWindow {
 public:
  OperationController(Context& context, frmMain& main_window);
  ~OperationController() override;

  /// Runs frmMain::CurrentOperation to its end. Unattended while frmMain::RunningFromCommandLine is set.
  void Run();

  bool OperationRunning() const override { return running_; }
  void RequestStop() override { stop_requested_ = true; }
  bool ReportHoldsText() const;
  /// Brings the report window to the front.
  void ShowReport();
  report::frmReport& ReportWindow();

  /// What the program's exit code says of the unattended run: 0 clean (or there was none), 1 with warnings, 2
  /// files failed, 3 cancelled, 4 refused.
  int exit_code() const { return exit_code_; }
  /// For an unattended run: when it began. The report begins with this line.
  void SetUnattendedHeading(std::string begin) { unattended_heading_ = std::move(begin); }
  /// Reports that an unattended run does not begin, for this reason.
  void RefuseUnattended(std::int16_t status, const std::string& reason);
  /// The program ends: stops a run that is still on its way and hides the report.
  void EndWithProgram();

 private:
  // report::MainWindow
  ui::Form& Window() override;
  bool PauseAfterFirstCopy() const override;
  bool StopRequested() const override;
  void EnableOperationControls() override;
  void OpenTargetFolder() override { context_.front_end.OpenFolder(target_); }
  void ShowLatest() override;

  bool Unattended() const;
  engine::RunOutcome RunOperation(std::string* statusText);
  engine::RunOutcome Refuse(const engine::Refusal& refusal, std::string* statusText);
  bool Confirm(engine::RunRequest& request);
  void OpenReport(const engine::ReportHeading& heading);
  void CloseReport();
  engine::Tools EngineTools() const;
  std::string WhoRuns() const;
  engine::RunRequest RequestForRun() const;
  std::string TrueReason(std::int16_t status, const std::string& reason) const;
  void ReportUnattended(const engine::RunOutcome& outcome, const std::string& reason, double seconds);

  static report::Expected ExpectedBy(const PreviewFindings& findings, bool compares);
  void RememberPace(const engine::Totals& totals);
  void ShowEnd(const engine::RunOutcome& outcome);

  Context& context_;
  frmMain& main_;
  std::unique_ptr<report::frmReport> report_;
  std::unique_ptr<report::RunReport> run_report_;
  bool running_ = false;
  bool stop_requested_ = false;
  int exit_code_ = 0;
  std::string unattended_heading_;
  std::vector<std::string> warnings_;  ///< of the setup, from before the run; each is in its report
  std::string target_;                 ///< of the last run that copies
  bool compares_contents_ = false;     ///< the run does
  bool reads_back_ = false;            ///< likewise
  KnownPaces paces_;                   ///< of the last runs that did much
  report::Expected expected_;          ///< of the run that was just confirmed
};

}  // namespace app

#pragma once

#include <cstddef>

namespace ui {
class Form;
}

namespace report {

/// What the report window needs of the main window, which outlives it.
class MainWindow {
 public:
  virtual ~MainWindow() = default;

  /// The window itself: restored together with the report window, and the measure of its width.
  virtual ui::Form& Window() = 0;

  /// A report of more characters than this gets the report window's full working size.
  virtual std::size_t ReportResizeThreshold() const { return 500; }
  /// A report of more characters than this is emptied before it goes on.
  virtual std::size_t ReportCapacity() const { return 61'440; }

  /// Whether the detailed report is suppressed in the present run.
  virtual bool SuppressDetailedReports() const = 0;

  /// Whether a full report loses its end rather than only being followed by the notice. The operations that
  /// copy set it: the lines of the files just copied say least, and the notice is where the user looks.
  virtual bool SnipFullReport() const = 0;

  /// Whether the present run copies files.
  virtual bool CopiesFiles() const = 0;

  /// Whether the present run is to hold after the first folder in which a file was copied.
  virtual bool PauseAfterFirstCopy() const = 0;

  /// Whether the present run goes on without anybody: a full report is then not shown for a while first.
  virtual bool Unattended() const = 0;

  /// Whether an operation is on its way, paused and cancelled ones included, until its summary is written.
  virtual bool OperationRunning() const = 0;

  /// Asks the running operation to stop at the next file, folder or block.
  virtual void RequestStop() = 0;
  virtual bool StopRequested() const = 0;

  /// Enables the controls that were disabled during a run. Never called while OperationRunning().
  virtual void EnableOperationControls() = 0;

  /// Shows the folder that received the copies of the last run in the system's file manager.
  virtual void OpenTargetFolder() {}

  /// The operation is about to be held: what is shown beside the report is to be brought up to date.
  virtual void ShowLatest() {}
};

}  // namespace report

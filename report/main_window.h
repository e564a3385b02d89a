#pragma once

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

  /// Whether the present run is to hold after the first folder in which a file was copied: the user may
  /// change that while it runs.
  virtual bool PauseAfterFirstCopy() const = 0;

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

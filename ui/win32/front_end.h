#pragma once

#include <memory>
#include <optional>
#include <string>

#include "ui/front_end.h"

struct tagMSG;

/// The front end for Windows, made of the system's own controls. The program's manifest has to name the
/// common controls 6 and the DPI awareness "PerMonitorV2".
namespace ui::win32 {

struct Toolkit;
class Win32Clipboard;
class Win32Dialogs;

class Win32FrontEnd : public FrontEnd {
 public:
  /// Whether somebody may see this process's windows: those of services and of tasks without a logged-on user
  /// are on a desktop of their own.
  static bool HasDisplay();

  /// For the thread that makes it. Starts OLE there, for the shell's dialogs and the task bar, until it goes.
  Win32FrontEnd();
  ~Win32FrontEnd() override;

  std::unique_ptr<Peer> CreatePeer(Form& form) override;
  std::unique_ptr<Peer> CreatePeer(Frame& frame) override;
  std::unique_ptr<Peer> CreatePeer(Button& button) override;
  std::unique_ptr<Peer> CreatePeer(Label& label) override;
  std::unique_ptr<Peer> CreatePeer(CheckBox& box) override;
  std::unique_ptr<Peer> CreatePeer(DropDownList& list) override;
  std::unique_ptr<Peer> CreatePeer(ProgressBar& bar) override;
  std::unique_ptr<Peer> CreatePeer(ScrollBar& bar) override;
  std::unique_ptr<Peer> CreatePeer(TextBox& box) override;
  std::unique_ptr<Peer> CreatePeer(Timer& timer) override;

  void RunPendingEvents() override;
  void WaitForEvents(std::chrono::milliseconds longest) override;
  int Run() override;
  /// Open dialogs end as if the user had left them.
  void Quit(int exit_code) override;
  bool quitting() const override { return exit_code_.has_value(); }
  void RunModal(Form& form) override;
  void Notify(Form& form, const std::string& title, const std::string& text) override;
  void OpenFolder(const std::string& path) override;
  Size screen() const override;
  Twips TextWidth(const std::string& text, const Font& font) const override;
  Dialogs& dialogs() override;
  Clipboard& clipboard() override;

 private:
  void Handle(tagMSG& message);
  /// Waits for a message and handles it.
  void HandleNext();

  std::unique_ptr<Toolkit> toolkit_;
  std::unique_ptr<Win32Dialogs> dialogs_;
  std::unique_ptr<Win32Clipboard> clipboard_;
  std::optional<int> exit_code_;
};

}  // namespace ui::win32

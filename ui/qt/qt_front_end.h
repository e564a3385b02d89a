#pragma once

#include <memory>
#include <optional>
#include <string>

#include "ui/front_end.h"

class QApplication;
class QEventLoop;

/// The front end for Linux desktops, made of Qt 6 Widgets.
namespace ui::qt {

class QtClipboard;
class QtDialogs;

class QtFrontEnd : public FrontEnd {
 public:
  /// Whether windows can be shown here: the environment names a display, and it answers. Qt ends the whole
  /// program where it finds none, so a child tries; call it before any thread is started. The arguments are
  /// those of main(), and stay as they are.
  static bool HasDisplay(int argc, char** argv);

  /// Makes the QApplication, unless there is one already. Both arguments live as long as the front end. Only
  /// one front end at a time.
  QtFrontEnd(int& argc, char** argv);
  ~QtFrontEnd() override;

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
  std::unique_ptr<QApplication> application_;  ///< null when another made it
  std::unique_ptr<QtDialogs> dialogs_;
  std::unique_ptr<QtClipboard> clipboard_;
  std::optional<int> exit_code_;
  QEventLoop* run_loop_ = nullptr;
};

}  // namespace ui::qt

#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "ui/dialogs.h"
#include "ui/geometry.h"
#include "ui/peer.h"

namespace ui {

class Button;
class CheckBox;
class DropDownList;
class Form;
class Frame;
class Label;
class ProgressBar;
class ScrollBar;
class TextBox;
class Timer;

/// Plain text on the system's clipboard.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void Clear() = 0;
  virtual void SetText(const std::string& text) = 0;
  virtual std::string Text() = 0;
};

/// A toolkit: makes peers, runs events, owns the system's dialogs and clipboard. Outlives every window.
class FrontEnd {
 public:
  virtual ~FrontEnd() = default;

  /// The peer of a control; null where nothing needs to be mirrored. Made after the peer of its container,
  /// except that a timer's may come first.
  virtual std::unique_ptr<Peer> CreatePeer(Form& form) = 0;
  virtual std::unique_ptr<Peer> CreatePeer(Frame& frame) = 0;
  virtual std::unique_ptr<Peer> CreatePeer(Button& button) = 0;
  virtual std::unique_ptr<Peer> CreatePeer(Label& label) = 0;
  virtual std::unique_ptr<Peer> CreatePeer(CheckBox& box) = 0;
  virtual std::unique_ptr<Peer> CreatePeer(DropDownList& list) = 0;
  virtual std::unique_ptr<Peer> CreatePeer(ProgressBar& bar) = 0;
  virtual std::unique_ptr<Peer> CreatePeer(ScrollBar& bar) = 0;
  virtual std::unique_ptr<Peer> CreatePeer(TextBox& box) = 0;
  virtual std::unique_ptr<Peer> CreatePeer(Timer& timer) = 0;

  /// Lets everything that has happened so far be handled, and returns.
  virtual void RunPendingEvents() = 0;
  /// The same, but first waits until something happens or the time has passed.
  virtual void WaitForEvents(std::chrono::milliseconds longest) = 0;

  /// Runs events until Quit(), and returns its code. Quit() may come before Run().
  virtual int Run() = 0;
  virtual void Quit(int exit_code) = 0;
  /// Whether Quit() has been called. Loops that run pending events end then.
  virtual bool quitting() const = 0;

  /// Runs events until `form` is hidden or Quit() is called: the inside of Form::ShowModal().
  virtual void RunModal(Form& form) = 0;

  /// Tells the user something that has happened in `form`, by the means that the system has for notes of
  /// programs in the background. Does nothing while a window of this program has the keyboard: the user sees
  /// it there.
  virtual void Notify(Form& form, const std::string& title, const std::string& text) = 0;

  /// Shows a folder in the system's file manager, without waiting for that.
  virtual void OpenFolder(const std::string& path) = 0;

  /// The screen without task bars.
  virtual Size screen() const = 0;

  /// How wide a text is in a font.
  virtual Twips TextWidth(const std::string& text, const Font& font) const = 0;

  virtual Dialogs& dialogs() = 0;
  virtual Clipboard& clipboard() = 0;

  /// Whether an open dialog keeps the user from this window.
  bool Blocks(const Form& form) const { return !modal_.empty() && modal_.back() != &form; }

 private:
  friend class ModalScope;
  std::vector<const Form*> modal_;
};

/// While it lives, only `form` reacts to the user; with null no window does, for a dialog of the system
/// is open.
class ModalScope {
 public:
  ModalScope(FrontEnd& front_end, const Form* form) : front_end_(front_end) {
    front_end.modal_.push_back(form);
  }
  ~ModalScope() { front_end_.modal_.pop_back(); }
  ModalScope(const ModalScope&) = delete;
  ModalScope& operator=(const ModalScope&) = delete;

 private:
  FrontEnd& front_end_;
};

}  // namespace ui

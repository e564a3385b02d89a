#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ui/form.h"
#include "ui/front_end.h"

/// The front end without a screen: for tests, benchmarks and machines without a display.
namespace ui::headless {

/// Answers from a script and remembers what was asked. With the script used up: No, cancelled.
class HeadlessDialogs : public Dialogs {
 public:
  struct Asked {
    std::string kind;  ///< "message", "yes-no", "folder", "open", "save", "text"
    std::string text;  ///< the text or prompt; of "folder" the start, of "open" and "save" the filter's name
    std::string title;
    Icon icon = Icon::kNone;
  };

  void Show(Form& owner, const MessageBox& box) override;
  bool AskYesNo(Form& owner, const MessageBox& box) override;
  std::optional<std::string> BrowseForFolder(Form& owner, const std::string& title, const std::string& start,
                                             bool new_style) override;
  std::optional<std::string> OpenFile(Form& owner, const FileDialog& dialog) override;
  std::optional<std::string> SaveFile(Form& owner, const FileDialog& dialog) override;
  std::optional<std::string> AskText(Form& owner, const InputBox& box) override;

  std::deque<std::optional<bool>> yes_no;        ///< the next answers to yes-no questions; empty: Enter
  std::deque<std::optional<std::string>> texts;  ///< the next paths and texts
  std::vector<Asked> asked;
  std::function<void(const Asked&)> while_open;  ///< runs while a dialog is open

 private:
  void Open(Form& owner, const Asked& asked_now);
  std::optional<std::string> Ask(Form& owner, const Asked& asked_now);
};

class HeadlessClipboard : public Clipboard {
 public:
  void Clear() override { text_.clear(); }
  void SetText(const std::string& text) override { text_ = text; }
  std::string Text() override { return text_; }

 private:
  std::string text_;
};

class HeadlessFrontEnd : public FrontEnd {
 public:
  std::unique_ptr<Peer> CreatePeer(Form& form) override;
  std::unique_ptr<Peer> CreatePeer(Frame&) override { return nullptr; }
  std::unique_ptr<Peer> CreatePeer(Button&) override { return nullptr; }
  std::unique_ptr<Peer> CreatePeer(Label&) override { return nullptr; }
  std::unique_ptr<Peer> CreatePeer(CheckBox&) override { return nullptr; }
  std::unique_ptr<Peer> CreatePeer(DropDownList&) override { return nullptr; }
  std::unique_ptr<Peer> CreatePeer(ProgressBar&) override { return nullptr; }
  std::unique_ptr<Peer> CreatePeer(ScrollBar&) override { return nullptr; }
  std::unique_ptr<Peer> CreatePeer(TextBox&) override { return nullptr; }
  std::unique_ptr<Peer> CreatePeer(Timer& timer) override;

  /// Runs what was posted before the call, in order. With nothing posted, runs `when_idle`.
  void RunPendingEvents() override;
  /// With nothing posted, lets the time pass.
  void WaitForEvents(std::chrono::milliseconds longest) override;
  /// Runs posted events; ends at Quit() or, so that no test hangs, when nothing is posted and `when_idle` is
  /// empty.
  int Run() override;
  void Quit(int exit_code) override;
  bool quitting() const override { return exit_code_.has_value(); }
  /// Ends like Run() as well.
  void RunModal(Form& form) override;
  void Notify(Form&, const std::string& title, const std::string& text) override {
    notes.push_back(title + ": " + text);
  }
  void OpenFolder(const std::string& path) override { opened_folders.push_back(path); }
  Size screen() const override { return screen_size; }
  Twips TextWidth(const std::string& text, const Font& font) const override;
  HeadlessDialogs& dialogs() override { return dialogs_; }
  HeadlessClipboard& clipboard() override { return clipboard_; }

  // --- For tests.
  /// Something the user will do at the next chance.
  void Post(std::function<void()> event) { events_.push_back(std::move(event)); }
  std::function<void()> when_idle;
  Form* modal = nullptr;             ///< the window that is open above the others and waits for the user
  Size screen_size{28'800, 16'200};  ///< 1920 by 1080 pixels
  std::vector<std::string> notes;    ///< of Notify(), each with its title
  std::vector<std::string> opened_folders;
  /// Lets so much time pass: each running timer ticks as often as its interval fits in, in the order
  /// of time. Other posted events run as well. A timer whose handler still runs does not tick.
  void PassTime(std::chrono::milliseconds time);
  int pending_runs = 0;  ///< how often RunPendingEvents() was called

 private:
  friend class TimerPeer;
  bool HasWork() const { return !events_.empty() || when_idle; }
  void RunPosted();
  std::deque<std::function<void()>> events_;
  std::size_t events_begun_ = 0;
  std::vector<class TimerPeer*> timers_;
  std::optional<int> exit_code_;
  HeadlessDialogs dialogs_;
  HeadlessClipboard clipboard_;
};

/// What a user does, on any control; nothing when the control is not reachable. Each returns whether it was.
bool Click(Button& button);
bool Click(Label& label);
bool Tick(CheckBox& box, bool ticked);
bool Select(DropDownList& list, int index);
/// Focuses the box and replaces its text; only focuses one that is read-only, and returns false.
bool Type(TextBox& box, const std::string& text);
bool Scroll(ScrollBar& bar, int value);
/// Moves the focus on to the next reachable control of the window.
void PressTab(Form& form);
/// Space on the control with the focus.
void PressSpace(Form& form);
/// Returns whether the window used the key.
bool PressKey(Form& form, const KeyPress& press);

/// What somebody sees of a window: its title, and from top to bottom what is visible in it. Controls that
/// are side by side are in one line, from left to right, what is in a frame below its heading. A control is
/// written as [button] (disabled button) [x] ticked {box} {=read only} <list, 2 of 3>; after it comes what
/// is special about it: * the focus, its key, a font, a colour, "a tool tip".
std::string Seen(const Form& form);
/// What a screen reader says beyond that, and the access key, of each control in the order of tabbing.
std::string Spoken(const Form& form);

}  // namespace ui::headless

#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "ui/control.h"

namespace ui {

/// A text that the user can edit, or only read and select. Lines end in CR LF in text().
class TextBox : public Control {
 public:
  enum class Lines { kOne, kMany };

  TextBox(Container* parent, std::string name, Lines lines = Lines::kOne);

  Lines lines() const { return lines_; }
  /// A box of many lines breaks those that are longer than it is wide, instead of scrolling to the side. To
  /// be called before its window is shown for the first time.
  void SetWraps() { wraps_ = true; }
  bool wraps() const { return wraps_; }
  bool read_only() const { return read_only_; }
  void SetReadOnly(bool read_only);
  /// What a box of one line shows for the line ends of a text that the user pastes: a space unless set.
  /// Line ends at the beginning and the end of the text go.
  void SetLineEndMark(std::string mark) { line_end_mark_ = std::move(mark); }
  const std::string& spoken_name() const override { return spoken_name_; }

  /// The caret is then at the beginning. In a box of many lines every CR or LF that is alone becomes
  /// CR LF.
  void SetText(std::string text) override;
  /// Adds at the end and scrolls there: the caret is then at the end and nothing is selected. Costs as
  /// much as the text that is added, not as the whole.
  void Append(std::string_view text);
  /// The same, but the screen follows only with ShowAppended(), or with any other change of the text or the
  /// selection: for a caller that appends more often than anybody can read. text(), length() and
  /// wanted_selection() count what is still to be shown.
  void AppendLater(std::string_view text);
  /// Brings to the screen what AppendLater() has left to be shown; nothing when there is none.
  void ShowAppended();
  /// Takes this many characters off the end, all of them when there are fewer. The caret is then at the
  /// end.
  void RemoveFromEnd(std::size_t characters);
  /// Characters in the text: code points, a line end counts two.
  std::size_t length() const { return length_; }

  /// What is selected, by the user or by Select(), in code points.
  Selection selection();
  std::string selected_text();
  /// What the program last asked for by Select() and the like, for a peer to mirror.
  const Selection& wanted_selection() const { return selection_; }
  void Select(Selection selection);  ///< cut to what is there

  Handler on_change;  ///< the user edited the text
  /// What is selected may have changed by the user: the left button, pressed over the box, was released,
  /// wherever, or a key was.
  Handler on_mouse_up;

  // --- From a peer.
  void UserEdited(const std::string& text);
  void UserReleasedMouse() { Raise(on_mouse_up); }

 protected:
  std::unique_ptr<Peer> MakePeer(FrontEnd& front_end) override;

 private:
  void MirrorWhole();

  Lines lines_;
  bool read_only_ = false;
  std::string line_end_mark_ = " ";
  bool wraps_ = false;
  std::string to_be_shown_;  ///< the end of the text that the peer has not got yet
  std::size_t length_ = 0;
  Selection selection_;
};

}  // namespace ui

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
  bool read_only() const { return read_only_; }
  void SetReadOnly(bool read_only);
  /// What stands in a box of one line for the line ends of a text that the user pastes: a blank unless set.
  /// Line ends at the beginning and the end of the text go.
  void SetLineEndMark(std::string mark) { line_end_mark_ = std::move(mark); }
  const std::string& spoken_name() const override { return spoken_name_; }

  /// The caret then stands at the beginning. In a box of many lines every CR or LF that stands alone becomes
  /// CR LF.
  void SetText(std::string text) override;
  /// Adds at the end and scrolls there: the caret then stands at the end and nothing is selected. Costs as
  /// much as the text that is added, not as the whole.
  void Append(std::string_view text);
  /// Takes this many characters off the end, all of them when there are fewer. The caret then stands at the
  /// end.
  void RemoveFromEnd(std::size_t characters);
  /// Characters in the text: code points, a line end counts two.
  std::size_t length() const { return length_; }

  /// What is selected, by the user or by Select(), in code points.
  Selection selection() const;
  std::string selected_text() const;
  /// What the program last asked for by Select() and the like, for a peer to mirror.
  const Selection& wanted_selection() const { return selection_; }
  void Select(Selection selection);  ///< cut to what is there

  Handler on_change;    ///< the user edited the text
  Handler on_mouse_up;  ///< the left button was released over it

  // --- From a peer.
  void UserEdited(std::string text);
  void UserReleasedMouse() { Raise(on_mouse_up); }

 protected:
  std::unique_ptr<Peer> MakePeer(FrontEnd& front_end) override;

 private:
  Lines lines_;
  bool read_only_ = false;
  std::string line_end_mark_ = " ";
  std::size_t length_ = 0;
  Selection selection_;
};

}  // namespace ui

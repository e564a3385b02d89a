#pragma once

#include <cstddef>
#include <string_view>

namespace ui {

/// What of a control has changed and is to be mirrored.
enum class Property {
  kText,     ///< text, caption or title
  kVisible,  ///< a visible window also comes to the front
  kEnabled,  ///< and whether a text box is read-only
  kBounds,
  kHelp,  ///< tool tip, spoken name, description, access key
  kColours,
  kFont,
  kValue,      ///< ticked, list index, progress, scroll range, interval and run state of a timer
  kItems,      ///< the entries of a list
  kSelection,  ///< caret and selection of a text box
  kState,      ///< normal or minimised window
};

/// Which characters of a text box are selected, in code points.
struct Selection {
  std::size_t start = 0;
  std::size_t length = 0;
  bool operator==(const Selection&) const = default;
};

/// The front end's half of one control: shows the control's state and tells it what the user does. Owned by
/// the control.
class Peer {
 public:
  virtual ~Peer() = default;

  /// Shows the new state of one property, read from the control.
  void Mirror(Property property);

  /// Adds text at the end of a text box without rewriting the rest, and scrolls it into view. The control
  /// already holds it.
  virtual void Append(std::string_view text) { static_cast<void>(text); }

  /// What the user has selected in a text box.
  virtual Selection UserSelection() const { return {}; }

  /// Moves the keyboard focus to the control; of a window: to none of its controls.
  virtual void TakeFocus() {}

  /// Draws at once what has changed.
  virtual void Repaint() {}

 protected:
  // --- One for each property; a peer overrides those that its kind of control has.
  virtual void MirrorText() {}
  virtual void MirrorSpokenName() {}  ///< with the text too, which is the name where no other is set
  virtual void MirrorVisible() {}
  virtual void MirrorEnabled() {}
  virtual void MirrorBounds() {}
  virtual void MirrorHelp() {}
  virtual void MirrorColours() {}
  virtual void MirrorFont() {}
  virtual void MirrorValue() {}
  virtual void MirrorItems() {}
  virtual void MirrorSelection() {}
  virtual void MirrorState() {}
};

}  // namespace ui

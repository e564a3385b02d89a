#pragma once

#include <string>

#include "ui/control.h"
#include "ui/win32/controls/native_window.h"
#include "ui/win32/drawing/scale.h"
#include "ui/win32/toolkit.h"

namespace ui::win32 {

class FormPeer;

/// What the peers of all kinds share: place, text, help, font, colours, focus and pointer.
class WindowPeer : public Peer {
 public:
  ~WindowPeer() override;

  void TakeFocus() override;
  void Repaint() override;

  HWND handle() const { return window_.handle(); }
  /// Of the window, as the program scales what is in it.
  UINT dpi() const { return DotsPerInch(handle()); }

 protected:
  WindowPeer(Control& control, Toolkit& toolkit, const WindowKind& kind);

  void MirrorText() override;
  void MirrorVisible() override;
  void MirrorEnabled() override;
  void MirrorBounds() override;
  void MirrorHelp() override;
  void MirrorColours() override;
  void MirrorFont() override;
  /// The window has got the keyboard focus, and has done its own part.
  virtual void FocusArrived();
  /// The colours of the control; none: those of the system for its kind.
  virtual std::optional<Colours> ColoursToDraw() const;

  NativeWindow& window() { return window_; }
  const NativeWindow& window() const { return window_; }
  Toolkit& toolkit() { return toolkit_; }
  /// Where the control is in the window around it, in pixels.
  RECT Place() const;
  HFONT font() { return toolkit_.fonts.Get(control_.font(), dpi()); }
  /// Whether a point of a mouse message is in the window: the button may be released outside of it.
  bool Contains(const Message& mouse) const;

 private:
  void MirrorSpokenName() override;
  void HandleFocus();
  void HandlePointer();
  void HandleColours();
  void PointerMoved();

  Control& control_;
  Toolkit& toolkit_;
  NativeWindow window_;
  std::string told_name_;
  std::optional<POINT> pointer_;  ///< where it was last seen over the control, on the screen
};

/// The window of a control; null when it has none.
HWND HandleOf(const Control& control);
FormPeer& FormPeerOf(Control& control);

}  // namespace ui::win32

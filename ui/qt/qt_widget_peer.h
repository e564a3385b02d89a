#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include "ui/control.h"

namespace ui::qt {

/// What all peers with a widget share: geometry, help, colours, font, focus and pointer.
class WidgetPeer : public QObject, public Peer {
 public:
  /// What the background of a control's own colours is: that of the control, or only what lies around the
  /// boxes in it.
  enum class Background { kAround, kItself };

  /// Owns the widget.
  WidgetPeer(Control& control, QWidget* widget, Background background = Background::kAround);
  ~WidgetPeer() override;

  void TakeFocus() override { widget_->setFocus(); }
  void Repaint() override;

  QWidget* widget() const { return widget_; }
  /// The widget that holds the controls inside.
  virtual QWidget* client() { return widget_; }

 protected:
  Control& control() { return control_; }
  /// Also watches a part of the widget that gets the mouse in its place.
  void Watch(QWidget* part);
  void MirrorEnabled() override;
  void MirrorBounds() override;
  void MirrorVisible() override;
  void MirrorHelp() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MirrorSpokenName() override;
  void MirrorFont() override;
  void MirrorColours() override;
  void MirrorAccessKey();

  Control& control_;
  QPointer<QWidget> widget_;
  Background background_;
  int shortcut_ = 0;
};

/// The widget into which a control's widget goes; null for a window.
QWidget* ClientAround(const Control& control);
/// The widget of a control; null when it has none.
QWidget* WidgetOf(const Control& control);

}  // namespace ui::qt

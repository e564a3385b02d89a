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

  void Mirror(Property property) override;
  void TakeFocus() override { widget_->setFocus(); }
  void Repaint() override;

  QWidget* widget() const { return widget_; }
  /// The widget that holds the controls inside.
  virtual QWidget* client() { return widget_; }

 protected:
  /// Also watches a part of the widget that gets the mouse in its place.
  void Watch(QWidget* part);
  virtual void MirrorText() {}
  virtual void MirrorValue() {}
  virtual void MirrorItems() {}
  virtual void MirrorEnabled();
  virtual void MirrorBounds();
  virtual void MirrorVisible();
  virtual void MirrorHelp();
  virtual void MirrorSelection() {}
  virtual void MirrorState() {}

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MirrorSpokenName();
  void MirrorAccessKey();
  void MirrorColours();

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

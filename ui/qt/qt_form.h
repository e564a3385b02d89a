#pragma once

#include <memory>

#include "ui/form.h"
#include "ui/qt/qt_widget_peer.h"

class QScrollArea;

namespace ui::qt {

/// A window. The desktop draws its border and title, whose size is known only once a window is on the
/// screen: the first one is made by an estimate, and the window is told its true bounds then.
class FormPeer : public WidgetPeer {
 public:
  explicit FormPeer(Form& form);

  QWidget* client() override { return client_; }

  // --- From the window.
  void WasMovedOrSized();
  void WasPainted();
  void ChangedState();
  Form& form() { return form_; }

 protected:
  void MirrorText() override;
  void MirrorBounds() override;
  void MirrorVisible() override;
  void MirrorValue() override;
  void MirrorState() override;

 private:
  void ComeForward();
  void ShowWithOwner();
  /// Inside the border and the title, without what a pop-up draws there.
  QSize InnerSize() const;
  void MakeScroll(const QSize& needed);

  Form& form_;
  QWidget* client_;
  QScrollArea* scroll_ = nullptr;  ///< where the screen has less room than the controls need
  bool place_again_ = false;       ///< once the border is there
  QRect asked_for_;                ///< the outer bounds that the program wants, in pixels
};

}  // namespace ui::qt

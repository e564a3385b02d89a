#pragma once

#include <string_view>

#include "ui/qt/qt_widget_peer.h"
#include "ui/text_box.h"

class QLineEdit;
class QPlainTextEdit;

namespace ui::qt {

class OneLinePeer : public WidgetPeer {
 public:
  explicit OneLinePeer(TextBox& box);
  void Append(std::string_view text) override;
  Selection UserSelection() const override;

 protected:
  void MirrorText() override;
  void MirrorEnabled() override;
  void MirrorSelection() override;

 private:
  TextBox& box_;
  QLineEdit& widget_;
};

/// Holds line breaks as one character each, where the control has CR LF.
class ManyLinesPeer : public WidgetPeer {
 public:
  explicit ManyLinesPeer(TextBox& box);
  void Append(std::string_view text) override;
  Selection UserSelection() const override;

 protected:
  void MirrorText() override;
  void MirrorEnabled() override;
  void MirrorHelp() override;
  void MirrorSelection() override;

 private:
  void ScrollToEnd();

  TextBox& box_;
  QPlainTextEdit& widget_;
  bool by_program_ = false;
};

}  // namespace ui::qt

#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>

#include "ui/controls.h"
#include "ui/qt/qt_late_focus_peer.h"
#include "ui/qt/qt_widget_peer.h"

/// The peers of the small controls.
namespace ui::qt {

class ButtonPeer : public LateFocusPeer {
 public:
  explicit ButtonPeer(Button& button);

 protected:
  void MirrorText() override;

 private:
  Button& button_;
  QPushButton& widget_;
};

class LabelPeer : public WidgetPeer {
 public:
  explicit LabelPeer(Label& label);
  /// Lets the label mark its access key, which Qt does only for a label that names another widget: the next
  /// one that can have the focus.
  void FindBuddy();

 protected:
  void MirrorText() override;
  void MirrorVisible() override;
  void MirrorBounds() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Label& label_;
  QLabel& widget_;
};

class CheckBoxPeer : public LateFocusPeer {
 public:
  explicit CheckBoxPeer(CheckBox& box);

 protected:
  void MirrorText() override;
  void MirrorValue() override;

 private:
  CheckBox& box_;
  QCheckBox& widget_;
};

class DropDownListPeer : public WidgetPeer {
 public:
  explicit DropDownListPeer(DropDownList& list);

 protected:
  void MirrorHelp() override;
  void MirrorItems() override;
  void MirrorValue() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  DropDownList& list_;
  QComboBox& widget_;
  QLabel* name_ = nullptr;  ///< the widget around owns it
};

class ProgressBarPeer : public WidgetPeer {
 public:
  explicit ProgressBarPeer(ProgressBar& bar);

 protected:
  void MirrorValue() override;

 private:
  ProgressBar& bar_;
  QProgressBar& widget_;
};

class ScrollBarPeer : public WidgetPeer {
 public:
  explicit ScrollBarPeer(ScrollBar& bar);

 protected:
  void MirrorValue() override;

 private:
  ScrollBar& bar_;
  QScrollBar& widget_;
};

}  // namespace ui::qt

#include "ui/qt/qt_controls.h"

#include <QAbstractItemView>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

#include "ui/form.h"
#include "ui/qt/qt_text.h"

namespace ui::qt {
namespace {

template <typename Widget>
Widget& As(WidgetPeer& peer) {
  return *static_cast<Widget*>(peer.widget());
}

}  // namespace

ButtonPeer::ButtonPeer(Button& button)
    : LateFocusPeer(button, new QPushButton(ClientAround(button)), Background::kItself),
      button_(button),
      widget_(As<QPushButton>(*this)) {
  // "released" would also come when the mouse is dragged off the button first.
  connect(&widget_, &QPushButton::clicked, this, [this] {
    ReportFocus();
    button_.UserPressed();
  });
}

void ButtonPeer::MirrorText() { widget_.setText(ToCaption(button_.text(), button_.access_key())); }

LabelPeer::LabelPeer(Label& label)
    : WidgetPeer(label, new QLabel(ClientAround(label))), label_(label), widget_(As<QLabel>(*this)) {
  widget_.setTextFormat(Qt::PlainText);
  widget_.setWordWrap(true);
  widget_.setAlignment(Qt::AlignLeft | Qt::AlignTop);
  constexpr int kPopUpMargin = 6;
  if (label.form().style() == FormStyle::kPopUp) widget_.setMargin(kPopUpMargin);
}

void LabelPeer::MirrorText() {
  const bool marked = label_.access_key() != 0;
  const QString text = marked ? ToCaption(label_.text(), label_.access_key()) : ToQLines(label_.text());
  const QFontMetrics metrics = widget_.fontMetrics();
  const bool one_line = 2 * widget_.height() < 3 * metrics.height();
  widget_.setWordWrap(!one_line);
  widget_.setText(
      one_line && !marked
          ? metrics.elidedText(text, text.contains('/') ? Qt::ElideMiddle : Qt::ElideRight, widget_.width())
          : text);
  MirrorVisible();
}

/// A screen reader would come upon an empty one, and have nothing to say.
void LabelPeer::MirrorVisible() { widget_.setVisible(label_.visible() && !label_.text().empty()); }

void LabelPeer::MirrorBounds() {
  WidgetPeer::MirrorBounds();
  MirrorText();
}

void LabelPeer::FindBuddy() {
  if (label_.access_key() == 0) return;
  Control* next = nullptr;
  bool passed = false;
  label_.form().ForEach([&](Control& control) {
    if (passed && next == nullptr && control.takes_focus()) next = &control;
    if (&control == &label_) passed = true;
  });
  if (next != nullptr) widget_.setBuddy(WidgetOf(*next));
}

bool LabelPeer::eventFilter(QObject* watched, QEvent* event) {
  const bool pressed = event->type() == QEvent::MouseButtonPress;
  if (pressed || event->type() == QEvent::MouseButtonRelease) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() == Qt::LeftButton && label_.on_mouse_up) {
      if (!pressed && widget_.rect().contains(mouse->position().toPoint())) label_.UserPressed();
      return true;
    }
  }
  return WidgetPeer::eventFilter(watched, event);
}

CheckBoxPeer::CheckBoxPeer(CheckBox& box)
    : LateFocusPeer(box, new QCheckBox(ClientAround(box))), box_(box), widget_(As<QCheckBox>(*this)) {
  widget_.setBackgroundRole(QPalette::Window);  // not the one of a button
  // Not "clicked": a screen reader ticks the box without a click.
  connect(&widget_, &QCheckBox::toggled, this, [this](bool ticked) {
    ReportFocus();
    box_.UserTicked(ticked ? 1 : 0);
  });
}

void CheckBoxPeer::MirrorText() { widget_.setText(ToCaption(box_.text(), box_.access_key())); }

void CheckBoxPeer::MirrorValue() {
  const QSignalBlocker by_program(widget_);
  widget_.setChecked(box_.value() != 0);
}

/// Tells a choice by a key or the wheel on the closed list from one in the open list, which is a window of
/// its own.
class ClosedListKeys : public QComboBox {
 public:
  using QComboBox::QComboBox;
  bool at_work() const { return at_work_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    at_work_ = true;
    QComboBox::keyPressEvent(event);
    at_work_ = false;
  }
  void wheelEvent(QWheelEvent* event) override {
    at_work_ = true;
    QComboBox::wheelEvent(event);
    at_work_ = false;
  }

 private:
  bool at_work_ = false;
};

DropDownListPeer::DropDownListPeer(DropDownList& list)
    : WidgetPeer(list, new ClosedListKeys(ClientAround(list)), Background::kItself),
      list_(list),
      widget_(As<QComboBox>(*this)) {
  const auto& keys = static_cast<const ClosedListKeys&>(widget_);
  connect(&widget_, &QComboBox::activated, this, [this, &keys](int index) {
    using Choice = DropDownList::Choice;
    list_.UserSelected(index, keys.at_work() ? Choice::kPassing : Choice::kFinished);
  });
}

/// Screen readers on Linux get the name of a list from a label alone: one that is not seen stands for it.
void DropDownListPeer::MirrorHelp() {
  WidgetPeer::MirrorHelp();
  if (name_ == nullptr) {
    name_ = new QLabel(widget_.parentWidget());
    name_->setVisible(false);
    name_->setBuddy(&widget_);
  }
  name_->setText(ToQString(list_.spoken_name()));
  widget_.view()->setAccessibleName(ToQString(list_.spoken_name()));
}

void DropDownListPeer::MirrorItems() {
  widget_.clear();
  for (const std::string& item : list_.items()) widget_.addItem(ToQString(item));
}

void DropDownListPeer::MirrorValue() { widget_.setCurrentIndex(list_.list_index()); }

bool DropDownListPeer::eventFilter(QObject* watched, QEvent* event) {
  // A wheel that passes over a closed list would change the setup unnoticed.
  if (event->type() == QEvent::Wheel && !widget_.hasFocus()) {
    event->ignore();
    return true;
  }
  return WidgetPeer::eventFilter(watched, event);
}

ProgressBarPeer::ProgressBarPeer(ProgressBar& bar)
    : WidgetPeer(bar, new QProgressBar(ClientAround(bar))), bar_(bar), widget_(As<QProgressBar>(*this)) {
  widget_.setRange(0, 1000);
  widget_.setTextVisible(false);
}

void ProgressBarPeer::MirrorValue() {
  widget_.setValue(static_cast<int>(std::floor(bar_.fraction() * widget_.maximum())));
}

ScrollBarPeer::ScrollBarPeer(ScrollBar& bar)
    : WidgetPeer(bar, new QScrollBar(Qt::Vertical, ClientAround(bar))),
      bar_(bar),
      widget_(As<QScrollBar>(*this)) {
  widget_.setFocusPolicy(Qt::StrongFocus);
  connect(&widget_, &QScrollBar::valueChanged, this, [this](int value) { bar_.UserScrolled(value); });
}

void ScrollBarPeer::MirrorValue() {
  const QSignalBlocker by_program(widget_);
  constexpr int kStepsOfAPage = 10;
  widget_.setRange(0, bar_.maximum());
  widget_.setPageStep(bar_.page());
  widget_.setSingleStep(std::max(bar_.page() / kStepsOfAPage, 1));
  widget_.setValue(bar_.value());
}

}  // namespace ui::qt

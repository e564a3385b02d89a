#include <QtTest>
#include <QtWidgets>

#include "tests/contract/ui/driver.h"
#include "ui/qt/qt_front_end.h"
#include "ui/qt/qt_scale.h"
#include "ui/qt/qt_widget_peer.h"

namespace contract {
namespace {

using ui::qt::ToPixels;
using ui::qt::WidgetOf;

QWindow* WindowOf(ui::Form& form) { return WidgetOf(form)->windowHandle(); }

/// Where the control is, or would be, in its window: as a user hits it.
QPoint SpotOf(ui::Control& control) {
  const QWidget& widget = *WidgetOf(control);
  return widget.mapTo(widget.window(), QPoint(10, widget.height() / 2));
}

QDialog* OpenDialog() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }

/// Types into the edit of that name, or into any.
void AnswerInEdit(const std::string& text, const QString& name = {}) {
  OpenDialog()->findChild<QLineEdit*>(name)->setText(QString::fromStdString(text));
  QTest::keyClick(OpenDialog(), Qt::Key_Return);
}

class QtDriver : public Driver {
 public:
  ui::FrontEnd& front_end() override { return front_end_; }

  void Click(ui::Control& control) override {
    QTest::mouseClick(WindowOf(control.form()), Qt::LeftButton, {}, SpotOf(control));
  }
  void DragOff(ui::Control& control) override {
    QTest::mousePress(WindowOf(control.form()), Qt::LeftButton, {}, SpotOf(control));
    QTest::mouseRelease(WindowOf(control.form()), Qt::LeftButton, {}, QPoint(1, 1));
  }
  void HoverOver(ui::Control& control) override {
    QTest::mouseMove(WindowOf(control.form()), SpotOf(control));
  }
  void TurnWheel(ui::Control& control, int notches) override {
    QWheelEvent turn(QPointF(5, 5), QPointF(), {}, {0, notches * 120}, {}, {}, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&turn);
    qApp->notify(WidgetOf(control), &turn);
  }

  void Press(ui::Form& form, char key, Held held) override {
    const Qt::KeyboardModifier modifiers[] = {Qt::NoModifier, Qt::ShiftModifier, Qt::AltModifier};
    const Qt::KeyboardModifier modifier = modifiers[static_cast<int>(held)];
    if (key == kDown) return QTest::keyClick(WindowOf(form), Qt::Key_Down, modifier);
    QTest::keyClick(WindowOf(form), key, modifier);
  }
  void Type(ui::TextBox& box, const std::string& text) override {
    Click(box);
    QTest::keyClick(WindowOf(box.form()), Qt::Key_A, Qt::ControlModifier);
    for (const QChar c : QString::fromStdString(text)) {
      if (c == u'\n') Driver::Press(box.form(), kEnter);
      if (c != u'\n') QTest::sendKeyEvent(QTest::Click, WidgetOf(box), Qt::Key_unknown, c, Qt::NoModifier);
    }
  }
  void Drag(ui::ScrollBar& bar, int value) override {
    static_cast<QScrollBar*>(WidgetOf(bar))->setSliderPosition(value);
  }

  void Close(ui::Form& form) override {
    WindowOf(form)->close();
    front_end_.RunPendingEvents();
  }
  void Minimise(ui::Form& form) override {
    WidgetOf(form)->showMinimized();
    front_end_.RunPendingEvents();
  }
  void Resize(ui::Form& form, ui::Size outer) override {
    QWidget& window = *WidgetOf(form);
    const QSize frame = window.frameGeometry().size() - window.size();
    window.resize(QSize(ToPixels(outer.width), ToPixels(outer.height)) - frame);
    front_end_.RunPendingEvents();
  }
  void PassTime(std::chrono::milliseconds time) override { QTest::qWait(static_cast<int>(time.count())); }

  bool DialogIsOpen() override { return OpenDialog() != nullptr; }
  void AnswerYes() override { qobject_cast<QMessageBox*>(OpenDialog())->button(QMessageBox::Yes)->click(); }
  void AnswerByEnter() override { QTest::keyClick(OpenDialog(), Qt::Key_Return); }
  void AnswerText(const std::string& text) override { AnswerInEdit(text); }
  void AnswerPath(const std::string& path) override { AnswerInEdit(path, "fileNameEdit"); }
  void LeaveDialog() override { QTest::keyClick(OpenDialog(), Qt::Key_Escape); }

  std::string SpokenName(ui::Control& control) override {
    return QAccessible::queryAccessibleInterface(WidgetOf(control))->text(QAccessible::Name).toStdString();
  }

 private:
  /// Made once and never destroyed: Qt allows one in a program.
  static ui::qt::QtFrontEnd MakeFrontEnd() {
    static int argc = 1;
    static char name[] = "contract";
    static char* argv[] = {name, nullptr};
    if (QCoreApplication::instance() == nullptr) new QApplication(argc, argv);
    return {argc, argv};
  }

  ui::qt::QtFrontEnd front_end_ = MakeFrontEnd();
};

}  // namespace

std::unique_ptr<Driver> MakeDriver() { return std::make_unique<QtDriver>(); }

}  // namespace contract

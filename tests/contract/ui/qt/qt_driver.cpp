#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <map>

#include "tests/contract/ui/driver.h"
#include "ui/qt/qt_front_end.h"
#include "ui/qt/qt_scale.h"
#include "ui/qt/qt_widget_peer.h"

namespace contract {
namespace {

using ui::qt::WidgetOf;

/// Made once and never destroyed: Qt allows one in a program.
void NeedApplication() {
  static int argc = 1;
  static char name[] = "contract";
  static char* argv[] = {name, nullptr};
  if (QCoreApplication::instance() == nullptr) new QApplication(argc, argv);
}

ui::qt::QtFrontEnd MakeFrontEnd() {
  NeedApplication();
  int none = 0;
  return {none, nullptr};
}

class QtDriver : public Driver {
 public:
  ui::FrontEnd& front_end() override { return front_end_; }

  /// Where the control is, or would be, in its window: as a user hits it.
  void Click(ui::Control& control) override {
    QWidget& widget = *WidgetOf(control);
    QTest::mouseClick(WindowOf(control.form()), Qt::LeftButton, {}, SpotIn(widget));
    Settle();
  }

  void Press(ui::Form& form, Key key) override {
    static const std::map<Key, Qt::Key> keys = {{Key::kSpace, Qt::Key_Space},
                                                {Key::kEnter, Qt::Key_Return},
                                                {Key::kEscape, Qt::Key_Escape},
                                                {Key::kTab, Qt::Key_Tab},
                                                {Key::kBackTab, Qt::Key_Backtab}};
    QTest::keyClick(WindowOf(form), keys.at(key));
    Settle();
  }

  void PressAccessKey(ui::Form& form, char letter) override {
    QTest::keyClick(WindowOf(form), letter, Qt::AltModifier);
    Settle();
  }

  void Type(ui::TextBox& box, const std::string& text) override {
    Click(box);
    QTest::keyClick(WindowOf(box.form()), Qt::Key_A, Qt::ControlModifier);
    for (const QChar c : QString::fromStdString(text)) {
      if (c == u'\n') {
        QTest::keyClick(WindowOf(box.form()), Qt::Key_Return);
      } else {
        QTest::sendKeyEvent(QTest::Click, WidgetOf(box), Qt::Key_unknown, QString(c), Qt::NoModifier);
      }
    }
    Settle();
  }

  void Choose(ui::DropDownList& list, int index) override {
    auto* combo = static_cast<QComboBox*>(WidgetOf(list));
    combo->setFocus();
    for (int step = combo->currentIndex(); step < index; ++step)
      QTest::keyClick(WindowOf(list.form()), Qt::Key_Down);
    Settle();
  }

  void Drag(ui::ScrollBar& bar, int value) override {
    static_cast<QScrollBar*>(WidgetOf(bar))->setSliderPosition(value);
    Settle();
  }

  void Close(ui::Form& form) override {
    WidgetOf(form)->close();
    Settle();
  }

  void Minimise(ui::Form& form) override {
    WidgetOf(form)->showMinimized();
    Settle();
  }

  void Resize(ui::Form& form, ui::Size outer) override {
    QWidget& window = *WidgetOf(form);
    const QSize frame = window.frameGeometry().size() - window.size();
    window.resize(QSize(ui::qt::ToPixels(outer.width), ui::qt::ToPixels(outer.height)) - frame);
    Settle();
  }

  void HoverOver(ui::Control& control) override {
    QTest::mouseMove(WindowOf(control.form()), SpotIn(*WidgetOf(control)));
    Settle();
  }

  void Later(std::function<void()> act) override { QTimer::singleShot(0, std::move(act)); }

  void PassTime(int milliseconds) override { QTest::qWait(milliseconds); }

  void AnswerYes() override {
    WhenADialogIsOpen<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
  }
  void AnswerByLeaving() override {
    WhenADialogIsOpen<QDialog>([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  }
  void AnswerText(const std::string& text) override {
    WhenADialogIsOpen<QInputDialog>([text](QInputDialog& dialog) {
      dialog.findChild<QLineEdit*>()->setText(QString::fromStdString(text));
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
  }

  std::string SpokenName(ui::Control& control) override {
    return QAccessible::queryAccessibleInterface(WidgetOf(control))->text(QAccessible::Name).toStdString();
  }

 private:
  static QWindow* WindowOf(ui::Form& form) { return WidgetOf(form)->windowHandle(); }

  static QPoint SpotIn(QWidget& widget) {
    return widget.mapTo(widget.window(), QPoint(10, widget.height() / 2));
  }

  void Settle() { front_end_.RunPendingEvents(); }

  template <typename Dialog, typename Answer>
  static void WhenADialogIsOpen(Answer answer) {
    QTimer::singleShot(0, [answer] {
      if (auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget())) return answer(*dialog);
      WhenADialogIsOpen<Dialog>(answer);
    });
  }

  ui::qt::QtFrontEnd front_end_ = MakeFrontEnd();
};

}  // namespace

std::unique_ptr<Driver> MakeDriver() { return std::make_unique<QtDriver>(); }

}  // namespace contract

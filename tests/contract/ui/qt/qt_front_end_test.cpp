#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <cmath>
#include <limits>

#include "tests/contract/ui/contract_window.h"
#include "ui/qt/qt_look.h"
#include "ui/qt/qt_text.h"
#include "ui/qt/qt_widget_peer.h"

namespace contract {
namespace {

using QtFrontEndTest = FrontEndContract;
using ui::qt::WidgetOf;

TEST_F(QtFrontEndTest, AButtonDoesNotActWhenTheMouseIsDraggedOffIt) {
  window_.first.on_mouse_up = Count();
  QWidget* button = WidgetOf(window_.first);
  QTest::mousePress(button, Qt::LeftButton);
  QTest::mouseRelease(button, Qt::LeftButton, {}, QPoint(-20, -20));
  EXPECT_EQ(count_, 0);
}

TEST_F(QtFrontEndTest, AnAppendedTextLeavesTheRestUntouchedAndComesIntoView) {
  auto* edit = static_cast<QPlainTextEdit*>(WidgetOf(window_.report));
  int removed_in_all = 0;
  int first_touched = std::numeric_limits<int>::max();
  for (int line = 0; line < 100; ++line) window_.report.Append("an earlier line\r\n");
  QObject::connect(edit->document(), &QTextDocument::contentsChange, edit, [&](int at, int removed, int) {
    removed_in_all += removed;
    first_touched = std::min(first_touched, at);
  });
  window_.report.Append("last\r\n");
  EXPECT_LE(removed_in_all, 1);  // the end mark of the last paragraph
  EXPECT_GE(first_touched, 100 * 16 - 1);
  EXPECT_EQ(edit->blockCount(), 102);
  EXPECT_GE(edit->verticalScrollBar()->value(), edit->verticalScrollBar()->maximum() - 1);
}

TEST(QtText, CaptionsMarkTheAccessKeyAndKeepAmpersands) {
  EXPECT_EQ(ui::qt::ToCaption("Load setup", 's'), "Load &setup");
  EXPECT_EQ(ui::qt::ToCaption("Load setup", 0), "Load setup");
  EXPECT_EQ(ui::qt::ToCaption("Load setup", 'x'), "Load setup");
  EXPECT_EQ(ui::qt::ToCaption("Q & A", 'A'), "Q && &A");
}

TEST(QtText, EveryCodePointBecomesOne) {
  const std::string text = "a\xFF\xC3\xA4\xED\xA0\x80\xE2\x80\xA9\xF0\x9F\x93\x81";
  const QString shown = ui::qt::ToQString(text);
  EXPECT_EQ(ui::qt::CodePointsBefore(shown, shown.size(), 1), 6U);
  EXPECT_EQ(shown, QString::fromUtf8("a\xEF\xBF\xBD\xC3\xA4\xEF\xBF\xBD\xEF\xBF\xBD\xF0\x9F\x93\x81"));
}

double Contrast(const QColor& a, const QColor& b) {
  const auto part = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
  const auto light = [&](const QColor& c) {
    return 0.2126 * part(c.redF()) + 0.7152 * part(c.greenF()) + 0.0722 * part(c.blueF()) + 0.05;
  };
  return std::max(light(a), light(b)) / std::min(light(a), light(b));
}

QPalette DarkDesktop() {
  QPalette dark(QColor(45, 45, 45), QColor(40, 40, 40));
  dark.setColor(QPalette::Base, QColor(30, 30, 30));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    dark.setColor(role, Qt::white);
  return dark;
}

TEST_F(QtFrontEndTest, EveryTextIsReadableOnThePaleGreenWindowWhateverTheDesktop) {
  const QPalette before = QApplication::palette();
  for (const QPalette& desktop : {before, DarkDesktop()}) {
    QApplication::setPalette(desktop);
    Window window(front_end_, ui::FormStyle::kMain);
    window.SetColours(ui::Colours{{224, 247, 228}, {20, 40, 26}});
    Show(window);
    EXPECT_EQ(WidgetOf(window)->palette().color(QPalette::Window), QColor(224, 247, 228));
    window.ForEach([](ui::Control& control) {
      if (WidgetOf(control) == nullptr) return;
      const QPalette colours = WidgetOf(control)->palette();
      EXPECT_GE(Contrast(colours.color(QPalette::Text), colours.color(QPalette::Base)), 7) << control.name();
      EXPECT_GE(Contrast(colours.color(QPalette::ButtonText), colours.color(QPalette::Button)), 7)
          << control.name();
      EXPECT_GE(Contrast(colours.color(QPalette::WindowText), colours.color(QPalette::Window)), 7)
          << control.name();
      EXPECT_GE(Contrast(colours.color(QPalette::HighlightedText), colours.color(QPalette::Highlight)), 4.5);
      EXPECT_GE(Contrast(colours.color(QPalette::Highlight), colours.color(QPalette::Window)), 3)
          << control.name();
    });
  }
  QApplication::setPalette(before);
}

TEST_F(QtFrontEndTest, HighContrastKeepsTheSystemsColours) {
  const QPalette before = QApplication::palette();
  QPalette black(Qt::black, Qt::black);
  black.setColor(QPalette::WindowText, Qt::white);
  QApplication::setPalette(black);
  window_.SetColours(ui::Colours{{224, 247, 228}, {20, 40, 26}});
  EXPECT_EQ(WidgetOf(window_)->palette().color(QPalette::Window), QColor(Qt::black));
  QApplication::setPalette(before);
}

TEST_F(QtFrontEndTest, AFileNeedsNotExistAndTheCurrentFolderStays) {
  const QString folder = QDir::currentPath();
  QTimer::singleShot(0, [] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    dialog->setDirectory("/");
    dialog->findChild<QLineEdit*>("fileNameEdit")->setText("not there.qvr");
    QTest::keyClick(dialog, Qt::Key_Return);
  });
  EXPECT_EQ(front_end_.dialogs().OpenFile(window_, {"Load", "Setup files (*.qvr)", "*.qvr"}),
            "/not there.qvr");
  EXPECT_EQ(QDir::currentPath(), folder);
}

TEST_F(QtFrontEndTest, QuitClosesAnOpenDialog) {
  driver_->Later([&] { front_end_.Quit(2); });
  EXPECT_FALSE(front_end_.dialogs().AskYesNo(window_, {"Go on?", "", ui::Icon::kQuestion}));
  EXPECT_EQ(front_end_.Run(), 2);
}

}  // namespace
}  // namespace contract

#include <QtWidgets>
#include <limits>

#include "tests/contract/ui/contract_window.h"
#include "ui/qt/qt_widget_peer.h"

// What only this front end can get wrong.
namespace contract {
namespace {

using QtFrontEndTest = FrontEndContract;
using ui::qt::WidgetOf;

TEST_F(QtFrontEndTest, AnAppendedTextLeavesTheRestUntouchedAndComesIntoView) {
  auto* edit = static_cast<QPlainTextEdit*>(WidgetOf(window_.report));
  for (int line = 0; line < 100; ++line) window_.report.Append("an earlier line\r\n");
  int first_touched = std::numeric_limits<int>::max();
  QObject::connect(edit->document(), &QTextDocument::contentsChange, edit,
                   [&](int at) { first_touched = std::min(first_touched, at); });
  window_.report.Append("last\r\n");
  EXPECT_GE(first_touched, 100 * 16 - 1);
  EXPECT_GE(edit->verticalScrollBar()->value(), edit->verticalScrollBar()->maximum() - 1);
}

double Luminance(const QColor& colour) {
  const auto part = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
  return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}

/// As WCAG 2.1 counts it: 7 is good for a text, 3 for a mark.
double Contrast(const QPalette& colours, QPalette::ColorRole one, QPalette::ColorRole other) {
  const auto [dark, light] = std::minmax({Luminance(colours.color(one)), Luminance(colours.color(other))});
  return (light + 0.05) / (dark + 0.05);
}

TEST_F(QtFrontEndTest, EveryTextIsReadableOnThePaleGreenWindowWhateverTheDesktop) {
  const QPalette before = QApplication::palette();
  for (const QPalette& desktop : {before, QPalette(QColor(45, 45, 45), QColor(40, 40, 40))}) {
    QApplication::setPalette(desktop);
    Window window(front_end_, ui::FormStyle::kMain);
    window.SetColours(ui::Colours{{224, 247, 228}, {20, 40, 26}});
    Show(window);
    EXPECT_EQ(WidgetOf(window)->palette().color(QPalette::Window), QColor(224, 247, 228));
    window.ForEach([](ui::Control& control) {
      if (WidgetOf(control) == nullptr) return;
      SCOPED_TRACE(control.name());
      const QPalette colours = WidgetOf(control)->palette();
      EXPECT_GE(Contrast(colours, QPalette::Text, QPalette::Base), 7);
      EXPECT_GE(Contrast(colours, QPalette::ButtonText, QPalette::Button), 7);
      EXPECT_GE(Contrast(colours, QPalette::WindowText, QPalette::Window), 7);
      EXPECT_GE(Contrast(colours, QPalette::HighlightedText, QPalette::Highlight), 4.5);
      EXPECT_GE(Contrast(colours, QPalette::Highlight, QPalette::Window), 3);
    });
  }
  QApplication::setPalette(QPalette(Qt::black, Qt::black));  // a desktop of high contrast keeps its colours
  window_.SetColours(ui::Colours{{224, 247, 228}, {20, 40, 26}});
  EXPECT_EQ(WidgetOf(window_)->palette().color(QPalette::Window), QColor(Qt::black));
  QApplication::setPalette(before);
}

}  // namespace
}  // namespace contract

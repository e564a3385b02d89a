#include <QtTest>
#include <QtWidgets>
#include <limits>

#include "tests/contract/ui/contract_window.h"
#include "ui/qt/qt_look.h"
#include "ui/qt/qt_widget_peer.h"

// What only this front end can get wrong.
namespace contract {

using QtFrontEndTest = FrontEndContract;
using ui::qt::WidgetOf;

TEST(QtFrontEnd, WhatNobodySeesIsNoDisplay) {
  EXPECT_FALSE(ui::qt::QtFrontEnd::HasDisplay(0, nullptr)) << qgetenv("QT_QPA_PLATFORM").data();
}

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

TEST_F(QtFrontEndTest, AWindowLargerThanItsScreenScrollsToTheFocus) {
  LargeWindow large(front_end_);
  Show(large);
  EXPECT_TRUE(WidgetOf(large.check)->visibleRegion().isEmpty());
  large.check.SetFocus();
  EXPECT_EQ(WidgetOf(large.check)->visibleRegion().boundingRect(), WidgetOf(large.check)->rect());
}

TEST_F(QtFrontEndTest, TheFocusThatAClickMovesIsToldOnItsRelease) {
  window_.line.on_lost_focus = Count();
  for (ui::Control* clicked : std::initializer_list<ui::Control*>{&window_.first, &window_.check}) {
    window_.line.SetFocus();
    const auto before = count_;
    window_.first.on_mouse_up = window_.check.on_click = [&] { EXPECT_EQ(count_, before + 1); };
    const QPoint spot = WidgetOf(*clicked)->mapTo(WidgetOf(window_), QPoint(5, 5));
    QTest::mousePress(WidgetOf(window_)->windowHandle(), Qt::LeftButton, {}, spot);
    EXPECT_EQ(count_, before);
    QTest::mouseRelease(WidgetOf(window_)->windowHandle(), Qt::LeftButton, {}, spot);
    EXPECT_TRUE(clicked->has_focus());
  }
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
      const auto contrast = [colours = WidgetOf(control)->palette()](auto one, auto other) {
        return ui::qt::Contrast(colours.color(one), colours.color(other));
      };
      EXPECT_GE(contrast(QPalette::Text, QPalette::Base), 7);
      EXPECT_GE(contrast(QPalette::ButtonText, QPalette::Button), 7);
      EXPECT_GE(contrast(QPalette::WindowText, QPalette::Window), 7);
      EXPECT_GE(contrast(QPalette::HighlightedText, QPalette::Highlight), 4.5);
      EXPECT_GE(contrast(QPalette::Highlight, QPalette::Window), 3);
    });
  }
  QApplication::setPalette(QPalette(Qt::black, Qt::black));  // a desktop of high contrast keeps its colours
  window_.SetColours(ui::Colours{{224, 247, 228}, {20, 40, 26}});
  EXPECT_EQ(WidgetOf(window_)->palette().color(QPalette::Window), QColor(Qt::black));
  QApplication::setPalette(before);
}

}  // namespace contract

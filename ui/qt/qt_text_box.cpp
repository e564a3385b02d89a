#include "ui/qt/qt_text_box.h"

#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextDocument>
#include <limits>

#include "ui/qt/qt_text.h"

namespace ui::qt {
namespace {

constexpr std::size_t kCrLf = 2;

/// An edit that tells of mouse and keys once it has handled them itself: only then the selection is final.
template <typename Edit>
class MouseEdit : public Edit {
 public:
  MouseEdit(QWidget* parent, TextBox& box) : Edit(parent), box_(box) {}

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override {
    Edit::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton) box_.UserReleasedMouse();
  }

  void keyReleaseEvent(QKeyEvent* event) override {
    Edit::keyReleaseEvent(event);
    box_.UserReleasedMouse();
  }

 private:
  TextBox& box_;
};

}  // namespace

OneLinePeer::OneLinePeer(TextBox& box)
    : WidgetPeer(box, new MouseEdit<QLineEdit>(ClientAround(box), box), Background::kItself),
      box_(box),
      widget_(*static_cast<QLineEdit*>(widget())) {
  widget_.setMaxLength(std::numeric_limits<int>::max());
  constexpr int kMargin = 3;
  widget_.setTextMargins(kMargin, 0, kMargin, 0);
  // Not "textEdited": a screen reader changes the text without a key.
  connect(&widget_, &QLineEdit::textChanged, this,
          [this](const QString& text) { box_.UserEdited(FromQString(text)); });
}

void OneLinePeer::Append(std::string_view /*text*/) {
  MirrorText();
  MirrorSelection();
}

void OneLinePeer::MirrorText() {
  const QSignalBlocker by_program(widget_);
  const QString text = ToQString(box_.text());
  if (widget_.text() != text) widget_.setText(text);
}

void OneLinePeer::MirrorEnabled() {
  WidgetPeer::MirrorEnabled();
  widget_.setReadOnly(box_.read_only());
}

void OneLinePeer::MirrorSelection() {
  const QString text = widget_.text();
  const Selection wanted = box_.wanted_selection();
  const auto start = PositionOf(text, wanted.start, 1);
  const auto end = PositionOf(text, wanted.start + wanted.length, 1);
  widget_.deselect();
  widget_.setCursorPosition(static_cast<int>(end));
  if (end > start) widget_.setSelection(static_cast<int>(start), static_cast<int>(end - start));
}

Selection OneLinePeer::UserSelection() const {
  const QString text = widget_.text();
  const qsizetype start = widget_.hasSelectedText() ? widget_.selectionStart() : widget_.cursorPosition();
  const std::size_t before = CodePointsBefore(text, start, 1);
  return {before, CodePointsBefore(text, start + widget_.selectionLength(), 1) - before};
}

ManyLinesPeer::ManyLinesPeer(TextBox& box)
    : WidgetPeer(box, new MouseEdit<QPlainTextEdit>(ClientAround(box), box), Background::kItself),
      box_(box),
      widget_(*static_cast<QPlainTextEdit*>(widget())) {
  Watch(widget_.viewport());
  widget_.setLineWrapMode(box.wraps() ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
  widget_.setTabChangesFocus(true);
  connect(&widget_, &QPlainTextEdit::textChanged, this, [this] {
    if (!by_program_) box_.UserEdited(FromQLines(widget_.document()->toRawText()));
  });
}

void ManyLinesPeer::MirrorText() {
  by_program_ = true;
  widget_.setPlainText(ToQLines(box_.text()));
  by_program_ = false;
}

void ManyLinesPeer::Append(std::string_view text) {
  by_program_ = true;
  QTextCursor end(widget_.document());
  end.movePosition(QTextCursor::End);
  end.insertText(ToQLines(text));
  widget_.setTextCursor(end);
  by_program_ = false;
  ScrollToEnd();
}

void ManyLinesPeer::MirrorEnabled() {
  WidgetPeer::MirrorEnabled();
  widget_.setReadOnly(box_.read_only());
  if (box_.read_only())
    widget_.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  widget_.setUndoRedoEnabled(!box_.read_only());
}

void ManyLinesPeer::MirrorHelp() {
  WidgetPeer::MirrorHelp();
  const QString name = QStringLiteral("Scroll ") + ToQString(box_.spoken_name());
  widget_.verticalScrollBar()->setAccessibleName(name);
  widget_.horizontalScrollBar()->setAccessibleName(name + QStringLiteral(" to the side"));
}

/// The last line that holds something is to be at the bottom. The bar's maximum would show an empty line
/// below it, and so would the caret where it is in one.
void ManyLinesPeer::ScrollToEnd() {
  widget_.ensureCursorVisible();
  widget_.horizontalScrollBar()->setValue(0);
  QScrollBar& bar = *widget_.verticalScrollBar();
  const bool at_empty_line = widget_.textCursor().block().length() <= 1;
  const auto has_room = [&] {
    const QRect caret = widget_.cursorRect();
    const int below = widget_.viewport()->height() - (at_empty_line ? caret.top() : caret.bottom());
    return bar.value() > 0 && below >= caret.height();
  };
  while (has_room()) bar.setValue(bar.value() - 1);
}

void ManyLinesPeer::MirrorSelection() {
  const Selection wanted = box_.wanted_selection();
  QTextCursor cursor(widget_.document());
  if (wanted.start == box_.length()) {
    cursor.movePosition(QTextCursor::End);
    widget_.setTextCursor(cursor);
    return ScrollToEnd();
  }
  const QString text = widget_.document()->toRawText();
  cursor.setPosition(static_cast<int>(PositionOf(text, wanted.start, kCrLf)));
  cursor.setPosition(static_cast<int>(PositionOf(text, wanted.start + wanted.length, kCrLf)),
                     QTextCursor::KeepAnchor);
  widget_.setTextCursor(cursor);
}

Selection ManyLinesPeer::UserSelection() const {
  const QTextCursor cursor = widget_.textCursor();
  const QString text = widget_.document()->toRawText();
  const std::size_t start = CodePointsBefore(text, cursor.selectionStart(), kCrLf);
  return {start, CodePointsBefore(text, cursor.selectionEnd(), kCrLf) - start};
}

}  // namespace ui::qt

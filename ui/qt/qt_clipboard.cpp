#include "ui/qt/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "ui/qt/qt_text.h"

namespace ui::qt {

void QtClipboard::Clear() { QGuiApplication::clipboard()->clear(); }
void QtClipboard::SetText(const std::string& text) { QGuiApplication::clipboard()->setText(ToQLines(text)); }
std::string QtClipboard::Text() { return FromQLines(QGuiApplication::clipboard()->text()); }

}  // namespace ui::qt

#pragma once

#include <QFont>
#include <QString>
#include <string>
#include <string_view>

#include "ui/geometry.h"
#include "ui/peer.h"

/// Texts on their way to and from Qt.
namespace ui::qt {

/// Character by character: what is no UTF-8, or would break a line by itself, shows as U+FFFD. So a position
/// in the result, counted in code points, is the same position in the text.
QString ToQString(std::string_view text);
std::string FromQString(const QString& text);

/// The same with CR LF as one line feed, as Qt breaks lines, and back.
QString ToQLines(std::string_view text);
std::string FromQLines(const QString& text);

/// A caption as MarkAccessKey() makes it.
QString ToCaption(std::string_view text, char access_key);

/// A tool tip, which Qt would otherwise take for HTML when it looks like that.
QString ToPlainTip(std::string_view text);

QFont ToQFont(const Font& font);

/// Code points in front of a position of a Qt text, and the other way round. `line_end` is how many a line
/// break counts.
std::size_t CodePointsBefore(QStringView text, qsizetype position, std::size_t line_end);
qsizetype PositionOf(QStringView text, std::size_t code_points, std::size_t line_end);

}  // namespace ui::qt

#include "ui/qt/qt_text.h"

#include "ui/qt/qt_scale.h"

#include <QList>
#include <QTextDocument>
#include <algorithm>

#include "base/utf8.h"
#include "ui/caption.h"

namespace ui::qt {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// Characters at which QTextDocument begins a new paragraph, besides CR and LF.
bool BreaksParagraph(char32_t code) {
  return code == 0x2028 || code == 0x2029 || code == 0xFDD0 || code == 0xFDD1;
}

char32_t CodePoint(std::string_view character) {
  const QString decoded = QString::fromUtf8(character.data(), static_cast<qsizetype>(character.size()));
  const auto code_points = decoded.toUcs4();
  const bool sound = code_points.size() == 1 && !BreaksParagraph(code_points[0]);
  return sound ? code_points[0] : kReplacement;
}

bool IsLineBreak(QChar c) { return c == u'\n' || c == QChar::ParagraphSeparator; }

/// How many code points a unit of a Qt text stands for: the second half of a pair none.
std::size_t Weight(QChar c, std::size_t line_end) {
  if (c.isLowSurrogate()) return 0;
  return IsLineBreak(c) ? line_end : 1;
}

}  // namespace

QString ToQString(std::string_view text) {
  QString result;
  result.reserve(static_cast<qsizetype>(text.size()));
  while (!text.empty()) {
    const std::string_view character = base::utf8::First(text);
    const auto first = static_cast<unsigned char>(character[0]);
    if (first < 0x80) {
      result += QChar(first);
    } else {
      result += QString::fromUcs4(std::u32string(1, CodePoint(character)).c_str(), 1);
    }
    text.remove_prefix(character.size());
  }
  return result;
}

std::string FromQString(const QString& text) { return text.toStdString(); }

QString ToQLines(std::string_view text) {
  return ToQString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

std::string FromQLines(const QString& text) {
  QString lines = text;
  lines.replace(QChar::ParagraphSeparator, u'\n').replace(u'\n', QStringLiteral("\r\n"));
  return FromQString(lines);
}

QString ToCaption(std::string_view text, char access_key) {
  return ToQLines(MarkAccessKey(text, access_key));
}

QString ToPlainTip(std::string_view text) {
  const QString tip = ToQLines(text);
  return Qt::mightBeRichText(tip) ? Qt::convertFromPlainText(tip) : tip;
}

QFont ToQFont(const Font& font) {
  QFont result;
  if (!font.name.empty()) result.setFamily(ToQString(font.name));
  result.setPointSizeF(font.points * TextScale());
  result.setBold(font.bold);
  return result;
}

std::size_t CodePointsBefore(QStringView text, qsizetype position, std::size_t line_end) {
  std::size_t count = 0;
  for (const QChar c : text.first(std::min(position, text.size()))) count += Weight(c, line_end);
  return count;
}

qsizetype PositionOf(QStringView text, std::size_t code_points, std::size_t line_end) {
  std::size_t passed = 0;
  for (qsizetype position = 0; position < text.size(); ++position) {
    const std::size_t weight = Weight(text[position], line_end);
    if (weight > 0 && passed + weight > code_points) return position;
    passed += weight;
  }
  return text.size();
}

}  // namespace ui::qt

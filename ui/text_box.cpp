#include "ui/text_box.h"

#include <algorithm>
#include <utility>

#include "base/utf8.h"
#include "ui/front_end.h"

namespace ui {
namespace {

/// Every line end as CR LF.
std::string WithWholeLineEnds(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' && text[i] != '\n') {
      result += text[i];
      continue;
    }
    result += "\r\n";
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
  }
  return result;
}

/// What can be pasted into a box of one line: line ends at its ends go, others become the mark.
std::string InOneLine(std::string_view text, std::string_view mark) {
  constexpr std::string_view kEnds = "\r\n";
  std::string result;
  while (!text.empty()) {
    const std::size_t begin = std::min(text.find_first_not_of(kEnds), text.size());
    const std::size_t end = std::min(text.find_first_of(kEnds, begin), text.size());
    if (begin > 0 && begin < end && !result.empty()) result += mark;
    result += text.substr(begin, end - begin);
    text.remove_prefix(end);
  }
  return result;
}

}  // namespace

TextBox::TextBox(Container* parent, std::string name, Lines lines)
    : Control(parent, std::move(name)), lines_(lines) {}

std::unique_ptr<Peer> TextBox::MakePeer(FrontEnd& front_end) { return front_end.CreatePeer(*this); }

void TextBox::SetReadOnly(bool read_only) {
  read_only_ = read_only;
  Mirror(Property::kEnabled);
}

void TextBox::SetText(std::string text) {
  text_ = lines_ == Lines::kMany ? WithWholeLineEnds(text) : std::move(text);
  length_ = base::utf8::Length(text_);
  selection_ = {};
  MirrorWhole();
}

void TextBox::Append(std::string_view text) {
  AppendLater(text);
  ShowAppended();
}

void TextBox::AppendLater(std::string_view text) {
  const std::string added = lines_ == Lines::kMany ? WithWholeLineEnds(text) : std::string(text);
  text_ += added;
  length_ += base::utf8::Length(added);
  selection_ = {length_, 0};
  if (peer() != nullptr) to_be_shown_ += added;
}

void TextBox::ShowAppended() {
  if (to_be_shown_.empty()) return;
  const std::string added = std::exchange(to_be_shown_, {});
  if (peer() != nullptr) peer()->Append(added);
}

void TextBox::MirrorWhole() {
  to_be_shown_.clear();
  Mirror(Property::kText);
  Mirror(Property::kSelection);
}

void TextBox::RemoveFromEnd(std::size_t characters) {
  length_ -= std::min(characters, length_);
  text_.resize(base::utf8::OffsetOf(text_, length_));
  selection_ = {length_, 0};
  MirrorWhole();
}

Selection TextBox::selection() {
  ShowAppended();
  return peer() != nullptr ? peer()->UserSelection() : selection_;
}

std::string TextBox::selected_text() {
  const Selection selected = selection();
  const std::size_t begin = base::utf8::OffsetOf(text_, selected.start);
  const std::string_view rest = std::string_view(text_).substr(begin);
  return std::string(rest.substr(0, base::utf8::OffsetOf(rest, selected.length)));
}

void TextBox::Select(Selection selection) {
  const std::size_t start = std::min(selection.start, length_);
  selection_ = {start, std::min(selection.length, length_ - start)};
  ShowAppended();
  Mirror(Property::kSelection);
}

void TextBox::UserEdited(const std::string& text) {
  to_be_shown_.clear();
  if (read_only_ || !reachable()) {
    Mirror(Property::kText);
    return;
  }
  text_ = lines_ == Lines::kMany ? WithWholeLineEnds(text) : InOneLine(text, line_end_mark_);
  length_ = base::utf8::Length(text_);
  selection_ = {length_, 0};
  if (lines_ == Lines::kOne && text_ != text) Mirror(Property::kText);
  Raise(on_change);
}

}  // namespace ui

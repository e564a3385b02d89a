#include <algorithm>

#include "app/select_subfolders/frmSelectSubfolders.h"
#include "base/utf8.h"
#include "ui/window_look.h"

/// The rows of the list: which subfolders they show, and the keys that move through them.
namespace app {
namespace {

using ui::Twips;

constexpr Twips kRowHeight = 330;                ///< at least; the rows share what is left over
constexpr Twips kInset = 120;                    ///< from the sides of the list to its rows
constexpr Twips kNameShare = 55;                 ///< per cent of a row's width; the rest is for the content
constexpr Twips kTickWidth = 330;                ///< of a check box without its text
constexpr Twips kTextDrop = 60;                  ///< by which a label is lower than a check box beside it
constexpr std::chrono::seconds kTypingPause{1};  ///< after which typed characters begin another name

}  // namespace

frmSelectSubfolders::Row::Row(ui::Container& area, std::size_t index)
    : chkSubfolder(&area, "chkSubfolder " + std::to_string(index)),
      lblContent(&area, "lblContent " + std::to_string(index)) {
  for (ui::Control* control :
       {static_cast<ui::Control*>(&chkSubfolder), static_cast<ui::Control*>(&lblContent)}) {
    control->SetFont({ui::kWindowFont});
    control->SetColours(ui::kPaperColours);
    control->SetVisible(false);
  }
}

/// Whole rows only, so that each can be reached and read.
std::size_t frmSelectSubfolders::RowsInView() const {
  return static_cast<std::size_t>(std::max((picSubfolders.height() - 2 * kInset) / kRowHeight, 1));
}

void frmSelectSubfolders::MakeRows(std::size_t count) {
  while (rows.size() < count) {
    const std::size_t row = rows.size();
    rows.push_back(std::make_unique<Row>(picSubfolders, row));
    rows.back()->chkSubfolder.on_click = [this, row] { chkSubfolder_Click(row); };
  }
}

void frmSelectSubfolders::PlaceRows() {
  MakeRows(RowsInView());
  SetScrollRange();
  const Twips width = picSubfolders.width() - 2 * kInset;
  const Twips name_width = width * kNameShare / 100;
  const Twips height =
      std::max((picSubfolders.height() - 2 * kInset) / static_cast<Twips>(RowsInView()), kRowHeight);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const Twips top = kInset + static_cast<Twips>(i) * height;
    rows[i]->chkSubfolder.SetBounds({kInset, top, name_width, kRowHeight});
    rows[i]->lblContent.SetBounds(
        {kInset + name_width, top + kTextDrop, width - name_width, kRowHeight - kTextDrop});
  }
  lblNothingListed.SetBounds({kInset, kInset, width, 3 * kRowHeight});
  ShowRows();
}

void frmSelectSubfolders::SetScrollRange() {
  const std::size_t in_view = RowsInView();
  const std::size_t beyond = list_.size() - std::min(list_.size(), in_view);
  vsbScrollBar.SetRange(static_cast<int>(beyond), static_cast<int>(in_view));
  vsbScrollBar.SetVisible(beyond > 0);
  const Twips right = beyond > 0 ? vsbScrollBar.left() : vsbScrollBar.bounds().right();
  picSubfolders.SetWidth(right - picSubfolders.left());
}

void frmSelectSubfolders::ShowRows() {
  lblNothingListed.SetVisible(names_read_ && list_.size() == 0);
  for (std::size_t row = 0; row < rows.size(); ++row) ShowRow(row);
}

void frmSelectSubfolders::ShowRow(std::size_t row) {
  auto& [check_box, content] = *rows[row];
  const std::size_t index = FirstInView() + row;
  const bool used = row < RowsInView() && index < list_.size();
  if (used) {
    const Subfolder& subfolder = list_[index];
    const std::string name = base::utf8::Printable(subfolder.name);
    const bool fits = context_.front_end.TextWidth(name, check_box.font()) + kTickWidth <= check_box.width();
    check_box.SetText(fits ? name : Shortened(name, check_box.width() - kTickWidth, check_box.font()));
    check_box.SetSpokenName(name);
    check_box.SetToolTip(fits ? std::string() : name);
    check_box.SetDescription(ContentText(subfolder));
    check_box.SetValue(subfolder.selected ? 1 : 0);
    content.SetText(ContentText(subfolder));
  }
  check_box.SetVisible(used);
  content.SetVisible(used);
}

/// As much of the beginning as fits, and an ellipsis.
std::string frmSelectSubfolders::Shortened(const std::string& name, Twips width, const ui::Font& font) const {
  const auto beginning = [&](std::size_t characters) {
    return name.substr(0, base::utf8::OffsetOf(name, characters)) + "\u2026";
  };
  std::size_t fits = 0;
  std::size_t beyond = base::utf8::Length(name);
  while (beyond - fits > 1) {
    const std::size_t middle = (fits + beyond) / 2;
    (context_.front_end.TextWidth(beginning(middle), font) <= width ? fits : beyond) = middle;
  }
  return beginning(fits);
}

void frmSelectSubfolders::vsbScrollBar_Change() { ShowRows(); }

std::optional<std::size_t> frmSelectSubfolders::Current() {
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (rows[row]->chkSubfolder.has_focus()) return FirstInView() + row;
  }
  return std::nullopt;
}

void frmSelectSubfolders::GoTo(std::size_t index) {
  const std::size_t in_view = RowsInView();
  if (index < FirstInView()) {
    vsbScrollBar.SetValue(static_cast<int>(index));
  } else if (index >= FirstInView() + in_view) {
    vsbScrollBar.SetValue(static_cast<int>(index + 1 - in_view));
  }
  ShowRows();
  rows[index - FirstInView()]->chkSubfolder.SetFocus();
}

bool frmSelectSubfolders::KeyPressed(const ui::KeyPress& press) {
  if (list_.size() == 0) return false;
  const auto current = Current();
  const std::size_t last = list_.size() - 1;
  const std::size_t page = RowsInView();
  const std::size_t from = current.value_or(FirstInView());
  std::optional<std::size_t> to;
  switch (press.key) {
    case ui::Key::kUp:
      to = current ? from - std::min<std::size_t>(from, 1) : from;
      break;
    case ui::Key::kDown:
      to = current ? from + 1 : from;
      break;
    case ui::Key::kPageUp:
      to = from - std::min(from, page);
      break;
    case ui::Key::kPageDown:
      to = from + page;
      break;
    case ui::Key::kHome:
      to = 0;
      break;
    case ui::Key::kEnd:
      to = last;
      break;
    case ui::Key::kCharacter:
      if (press.character == " " && !IsTypingName()) return false;  // it ticks the row
      to = FindTyped(press.character);
      break;
    default:
      return false;
  }
  if (to) GoTo(std::min(*to, last));
  return true;
}

/// While the beginning of a name is young, what is typed belongs to it, spaces too.
bool frmSelectSubfolders::IsTypingName() const {
  return !typed_.empty() && context_.clock.Monotonic() - typed_at_ <= kTypingPause;
}

/// The next subfolder, from the current one on and round, whose name begins with what has been typed. The
/// same letter again and again goes from one such subfolder to the next.
std::optional<std::size_t> frmSelectSubfolders::FindTyped(const std::string& character) {
  const std::string letter = base::utf8::ToLower(character);
  if (!IsTypingName()) typed_.clear();
  typed_at_ = context_.clock.Monotonic();
  if (typed_ != letter) typed_ += letter;
  const bool one_letter = typed_ == letter;
  const auto current = Current();
  const std::size_t start = current ? *current + (one_letter ? 1 : 0) : 0;
  for (std::size_t i = 0; i < list_.size(); ++i) {
    const std::size_t index = (start + i) % list_.size();
    if (base::utf8::ToLower(list_[index].name).starts_with(typed_)) return index;
  }
  return std::nullopt;
}

}  // namespace app

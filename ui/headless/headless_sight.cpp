#include <algorithm>
#include <cstdio>
#include <vector>

#include "ui/controls.h"
#include "ui/form.h"
#include "ui/headless/headless_front_end.h"
#include "ui/text_box.h"
#include "ui/window_look.h"

namespace ui::headless {
namespace {

std::string Shade(const Control& control) {
  char code[16] = " plain";
  if (const auto& colours = control.colours(); colours) {
    std::snprintf(code, sizeof code, " #%02X%02X%02X", colours->background.red, colours->background.green,
                  colours->background.blue);
  }
  return code;
}

std::string Face(Control& control) {
  std::string text = control.text();
  if (dynamic_cast<Button*>(&control) != nullptr) {
    text = "[" + text + "]";
  } else if (const auto* box = dynamic_cast<CheckBox*>(&control)) {
    text = (box->value() == 1 ? "[x] " : "[ ] ") + text;
  } else if (const auto* edit = dynamic_cast<TextBox*>(&control)) {
    text = (edit->read_only() ? "{=" : "{") + std::string(edit->wraps() ? "~" : "") + text + "}";
  } else if (const auto* list = dynamic_cast<DropDownList*>(&control)) {
    const int at = list->list_index();
    text = "<" + (at < 0 ? "" : list->items()[static_cast<std::size_t>(at)]) + ", " + std::to_string(at + 1) +
           " of " + std::to_string(list->count()) + ">";
  } else if (const auto* bar = dynamic_cast<ProgressBar*>(&control)) {
    text = "=" + std::to_string(static_cast<int>(bar->fraction() * 100)) + "%=";
  } else if (const auto* scroll = dynamic_cast<ScrollBar*>(&control)) {
    text = "|" + std::to_string(scroll->value()) + " of " + std::to_string(scroll->maximum()) + "|";
  }
  if (!control.enabled()) text = "(" + text + ")";
  if (control.has_focus()) text += "*";
  if (&control == control.form().default_button()) text += " Enter";
  if (&control == control.form().cancel_button()) text += " Esc";
  if (control.font().bold || control.font().points != 9)
    text += " " + std::to_string(control.font().points) + (control.font().bold ? "b" : "");
  if (control.font().name != kWindowFont) text += " in " + control.font().name;
  if (control.colours() && control.colours() != control.form().colours()) text += Shade(control);
  return control.tool_tip().empty() ? text : text + " \"" + control.tool_tip() + "\"";
}

/// A text whose lines are set apart by something else.
std::string OnLines(std::string text, const std::string& between) {
  for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos;) text.replace(at, 2, between);
  return text;
}

std::string Rows(const Container& around, const std::string& indent) {
  // A frame is where its heading is.
  const auto middle = [](const Control* c) { return c->top() + std::min(c->height(), 400) / 2; };
  std::vector<Control*> controls;
  for (Control* control : around.controls())
    if (control->visible() && dynamic_cast<Timer*>(control) == nullptr) controls.push_back(control);
  std::ranges::stable_sort(controls, {}, middle);
  std::string text;
  for (auto begin = controls.begin(); begin != controls.end();) {
    const auto* const frame = dynamic_cast<Frame*>(*begin);
    const auto end = std::find_if(begin + 1, controls.end(), [&](const Control* c) {
      return frame != nullptr || dynamic_cast<const Frame*>(c) != nullptr ||
             middle(c) >= (*begin)->bounds().bottom();
    });
    std::ranges::stable_sort(begin, end, {}, &Control::left);
    std::string row;
    for (; begin != end; ++begin) row += (row.empty() ? "" : "  ") + Face(**begin);
    text.append(indent).append(OnLines(row, "\n" + indent + "  ")).append("\n");
    if (frame != nullptr) text += Rows(*frame, indent + "    ");
  }
  return text;
}

}  // namespace

std::string Seen(const Form& window) {
  return window.text() + Shade(window) + "\n" + (window.visible() ? Rows(window, "  ") : "  hidden\n");
}

std::string Spoken(const Form& window) {
  std::string text;
  window.ForEach([&](Control& control) {
    if (control.spoken_name() == control.text() && control.description().empty() && control.access_key() == 0)
      return;
    std::string line = control.name() + ": " + control.spoken_name();
    if (control.access_key() != 0) line += std::string(" (Alt+") + control.access_key() + ")";
    if (!control.description().empty()) line += " - " + control.description();
    text += "  " + OnLines(line, " / ") + "\n";
  });
  return text;
}

}  // namespace ui::headless

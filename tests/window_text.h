#pragma once

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "ui/controls.h"
#include "ui/form.h"
#include "ui/text_box.h"

/// Windows written down as text, so that a test can hold all of one against what it is to look like.
namespace window_text {

inline std::string Shade(const ui::Control& control) {
  char code[16] = " plain";
  if (const auto& colours = control.colours(); colours) {
    std::snprintf(code, sizeof code, " #%02X%02X%02X", colours->background.red, colours->background.green,
                  colours->background.blue);
  }
  return code;
}

/// A control as somebody sees it: [button] (disabled button) [x] ticked {box} {=read only} <list, 2 of 3> and
/// so on, behind it what is special about it: * the focus, its key, a font, a colour, "a tool tip".
inline std::string Face(ui::Control& control) {
  std::string text = control.text();
  if (dynamic_cast<ui::Button*>(&control) != nullptr) {
    text = "[" + text + "]";
  } else if (const auto* box = dynamic_cast<ui::CheckBox*>(&control)) {
    text = (box->value() == 1 ? "[x] " : "[ ] ") + text;
  } else if (const auto* edit = dynamic_cast<ui::TextBox*>(&control)) {
    text = (edit->read_only() ? "{=" : "{") + text + "}";
  } else if (const auto* list = dynamic_cast<ui::DropDownList*>(&control)) {
    const int at = list->list_index();
    text = "<" + (at < 0 ? "" : list->items()[static_cast<std::size_t>(at)]) + ", " + std::to_string(at + 1) +
           " of " + std::to_string(list->count()) + ">";
  } else if (const auto* bar = dynamic_cast<ui::ProgressBar*>(&control)) {
    text = "=" + std::to_string(static_cast<int>(bar->fraction() * 100)) + "%=";
  } else if (const auto* scroll = dynamic_cast<ui::ScrollBar*>(&control)) {
    text = "|" + std::to_string(scroll->value()) + " of " + std::to_string(scroll->maximum()) + "|";
  }
  if (!control.enabled()) text = "(" + text + ")";
  if (control.has_focus()) text += "*";
  if (&control == control.form().default_button()) text += " Enter";
  if (&control == control.form().cancel_button()) text += " Esc";
  if (control.font().bold || control.font().points != 9)
    text += " " + std::to_string(control.font().points) + (control.font().bold ? "b" : "");
  if (control.colours() && control.colours() != control.form().colours()) text += Shade(control);
  return control.tool_tip().empty() ? text : text + " \"" + control.tool_tip() + "\"";
}

/// A text whose lines are set apart by something else.
inline std::string OnLines(std::string text, const std::string& between) {
  for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos;) text.replace(at, 2, between);
  return text;
}

/// What is visible inside, from top to bottom: controls that stand side by side in one line, from left to
/// right, and what is in a frame below its heading.
inline std::string Rows(const ui::Container& around, const std::string& indent) {
  // A frame stands where its heading is.
  const auto middle = [](const ui::Control* c) { return c->top() + std::min(c->height(), 400) / 2; };
  std::vector<ui::Control*> controls;
  for (ui::Control* control : around.controls())
    if (control->visible() && dynamic_cast<ui::Timer*>(control) == nullptr) controls.push_back(control);
  std::ranges::stable_sort(controls, {}, middle);
  std::string text;
  for (auto begin = controls.begin(); begin != controls.end();) {
    const auto* const frame = dynamic_cast<ui::Frame*>(*begin);
    const auto end = std::find_if(begin + 1, controls.end(), [&](const ui::Control* c) {
      return frame != nullptr || dynamic_cast<const ui::Frame*>(c) != nullptr ||
             middle(c) >= (*begin)->bounds().bottom();
    });
    std::ranges::stable_sort(begin, end, {}, &ui::Control::left);
    std::string row;
    for (; begin != end; ++begin) row += (row.empty() ? "" : "  ") + Face(**begin);
    text += indent + OnLines(row, "\n" + indent + "  ") + "\n";
    if (frame != nullptr) text += Rows(*frame, indent + "    ");
  }
  return text;
}

/// The title and everything in the window.
inline std::string Seen(const ui::Form& window) {
  return window.text() + Shade(window) + "\n" + (window.visible() ? Rows(window, "  ") : "  hidden\n");
}

/// What a screen reader says beyond what is seen, and the access key, of each control in the order of
/// tabbing.
inline std::string Spoken(const ui::Form& window) {
  std::string text;
  window.ForEach([&](ui::Control& control) {
    if (control.spoken_name() == control.text() && control.description().empty() && control.access_key() == 0)
      return;
    std::string line = control.name() + ": " + control.spoken_name();
    if (control.access_key() != 0) line += std::string(" (Alt+") + control.access_key() + ")";
    if (!control.description().empty()) line += " - " + control.description();
    text += "  " + OnLines(line, " / ") + "\n";
  });
  return text;
}

}  // namespace window_text

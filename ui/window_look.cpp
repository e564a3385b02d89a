#include "ui/window_look.h"

#include "ui/controls.h"
#include "ui/form.h"

namespace ui {
namespace {

void SetFontName(Control& control, const std::string& name) {
  Font font = control.font();
  font.name = name;
  control.SetFont(font);
}

bool KeepsSystemColours(const Control& control) {
  return dynamic_cast<const Button*>(&control) != nullptr ||
         dynamic_cast<const ProgressBar*>(&control) != nullptr;
}

}  // namespace

void SetControlsFontName(Form& window, const std::string& name) {
  SetFontName(window, name);
  window.ForEach([&](Control& control) { SetFontName(control, name); });
}

void SetControlsBackColor(Form& window, const Colours& colours) {
  window.SetColours(colours);
  window.ForEach([&](Control& control) {
    if (!KeepsSystemColours(control)) control.SetColours(colours);
  });
}

}  // namespace ui

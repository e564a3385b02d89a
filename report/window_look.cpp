#include "report/window_look.h"

#include "ui/controls.h"
#include "ui/form.h"

namespace report {
namespace {

void SetFontName(ui::Control& control, const std::string& name) {
  ui::Font font = control.font();
  font.name = name;
  control.SetFont(font);
}

bool KeepsSystemColours(const ui::Control& control) {
  return dynamic_cast<const ui::Button*>(&control) != nullptr ||
         dynamic_cast<const ui::ProgressBar*>(&control) != nullptr;
}

}  // namespace

void SetControlsFontName(ui::Form& window, const std::string& name) {
  SetFontName(window, name);
  window.ForEach([&](ui::Control& control) { SetFontName(control, name); });
}

void SetControlsBackColor(ui::Form& window, const ui::Colours& colours) {
  window.SetColours(colours);
  window.ForEach([&](ui::Control& control) {
    if (!KeepsSystemColours(control)) control.SetColours(colours);
  });
}

}  // namespace report

#include "app/main_window/button_hints.h"

#include <algorithm>
#include <utility>

#include "ui/front_end.h"

namespace app {
namespace {

constexpr std::chrono::milliseconds kRest{500};  ///< that the pointer rests before the hint comes
constexpr int kShown = 6'000;                    ///< milliseconds
constexpr ui::Twips kHeight = 640;
constexpr ui::Twips kDistance = 60;

}  // namespace

ButtonHints::ButtonHints(ui::Form& window)
    : window_(window), pop_up_(window.front_end()), delay_(&window, "HintDelay") {
  delay_.on_timer = [this] { Show(); };
}

void ButtonHints::Add(ui::Button& button, std::string hint) {
  button.SetDescription(std::move(hint));
  button.on_mouse_move = [this, &button] { Button_MouseMove(button); };
  button.on_mouse_leave = [this] { Button_MouseLeave(); };
  // A press may open something over the button, which then never hears that the pointer has left it.
  button.on_mouse_up = [this, press = button.on_mouse_up] {
    Button_MouseLeave();
    press();
  };
}

void ButtonHints::Button_MouseMove(const ui::Button& button) {
  if (under_pointer_ == &button) return;
  under_pointer_ = &button;
  pop_up_.Hide();
  delay_.Start(kRest);
}

void ButtonHints::Button_MouseLeave() {
  under_pointer_ = nullptr;
  delay_.Stop();
  pop_up_.Hide();
}

/// Below the button, or above it where the window ends below; never over it.
void ButtonHints::Show() {
  delay_.Stop();
  if (under_pointer_ == nullptr || !under_pointer_->reachable()) return;
  const std::string& text = under_pointer_->description();
  const ui::Twips text_width = window_.front_end().TextWidth(text, pop_up_.lblMessage.font());
  const ui::Twips wide = std::min(text_width + 300, ui::Twips{4'500});
  const ui::Rect button = PlaceInWindow(*under_pointer_);
  const bool fits_below = button.bottom() + kDistance + kHeight < window_.inner().height;
  const ui::Twips hint_top = fits_below ? button.bottom() + kDistance : button.top - kDistance - kHeight;
  const ui::Twips hint_left = std::max(ui::Twips{0}, std::min(button.left, window_.inner().width - wide));
  const ui::Twips border = (window_.width() - window_.inner().width) / 2;
  const ui::Twips title = window_.height() - window_.inner().height - border;
  pop_up_.PopUpInForm(window_, text, static_cast<std::int16_t>(wide), static_cast<std::int16_t>(kHeight),
                      kShown, static_cast<std::int16_t>(hint_top + title),
                      static_cast<std::int16_t>(hint_left + border));
}

ui::Rect ButtonHints::PlaceInWindow(const ui::Control& control) const {
  ui::Rect place = control.bounds();
  for (const ui::Control* around = control.parent(); around != &window_; around = around->parent()) {
    place.left += around->left();
    place.top += around->top();
  }
  return place;
}

}  // namespace app

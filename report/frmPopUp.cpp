#include "report/frmPopUp.h"

#include <algorithm>
#include <limits>

#include "ui/front_end.h"
#include "ui/window_look.h"

namespace report {
namespace {

/// Beyond 16 bits (some 2,184 pixels of a screen of 96 dots per inch) the nearest that fits.
std::int16_t Narrow(ui::Twips length) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(std::clamp<ui::Twips>(length, Limits::min(), Limits::max()));
}

}  // namespace

frmPopUp::frmPopUp(ui::FrontEnd& front_end) : Form(front_end, "frmPopUp", ui::FormStyle::kPopUp) {
  ui::SetControlsFontName(*this, ui::kWindowFont);
  ui::SetControlsBackColor(*this, ui::kNoteColours);
  lblMessage.on_mouse_up = [this] { lblMessage_MouseUp(); };
  Timer1.on_timer = [this] { Timer1_Timer(); };
}

void frmPopUp::ShowAt(const std::string& message, ui::Rect bounds, std::chrono::milliseconds interval) {
  lblMessage.SetText(message);
  SetBounds(bounds);
  lblMessage.SetBounds({0, 0, inner().width, inner().height});
  Timer1.Start(interval);
  Show();
}

void frmPopUp::PopUp(const std::string& strMessage, std::int16_t intWidth, std::int16_t intHeight,
                     std::uint16_t intInterval, std::int16_t intTop, std::int16_t intLeft) {
  ShowAt(strMessage, {intLeft, intTop, intWidth, intHeight}, std::chrono::milliseconds{intInterval});
}

void frmPopUp::PopUpCenterScreen(const std::string& strMessage, std::int16_t intWidth, std::int16_t intHeight,
                                 std::uint16_t intInterval) {
  const ui::Size screen = front_end().screen();
  PopUp(strMessage, intWidth, intHeight, intInterval, Narrow((screen.height - intHeight) / 2),
        Narrow((screen.width - intWidth) / 2));
}

void frmPopUp::PopUpInForm(const ui::Form& form, const std::string& strMessage, std::int16_t intWidth,
                           std::int16_t intHeight, std::uint16_t intInterval, std::int16_t intTop,
                           std::int16_t intLeft) {
  // On a second screen the sum may lie beyond 16 bits.
  ShowAt(strMessage, {form.left() + intLeft, form.top() + intTop, intWidth, intHeight},
         std::chrono::milliseconds{intInterval});
  lblMessage.SetWidth(intWidth);
}

void frmPopUp::WaitUntilHidden() {
  constexpr std::chrono::milliseconds kLookEvery{200};
  while (visible() && !front_end().quitting()) front_end().WaitForEvents(kLookEvery);
}

void frmPopUp::lblMessage_MouseUp() {
  Timer1.Stop();
  Hide();
}

void frmPopUp::Timer1_Timer() {
  Timer1.Stop();
  Hide();
}

}  // namespace report

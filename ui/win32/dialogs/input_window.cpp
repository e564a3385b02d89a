#include "ui/win32/dialogs/input_window.h"

#include <algorithm>

#include "ui/front_end.h"

namespace ui::win32 {
namespace {

constexpr Twips kMargin = 180;
constexpr Twips kLine = 330;
constexpr Twips kButtonWidth = 1300;
constexpr Twips kButtonHeight = 390;
constexpr Size kOuter{6600, 2550};  ///< with a question of two lines
constexpr Twips kLineOfText = 225;
constexpr Twips kTextWidth = 5700;  ///< of a line at least

}  // namespace

InputWindow::InputWindow(FrontEnd& front_end, const InputBox& box, const Form& owner)
    : Form(front_end, "input", FormStyle::kDialog) {
  const Size screen = front_end.screen();
  const Twips more_lines = std::max(front_end.TextWidth(box.prompt, prompt_.font()) / kTextWidth - 1, 0);
  const Twips height = kOuter.height + more_lines * kLineOfText;
  SetText(box.title);
  SetColours(owner.colours());
  SetBounds({std::clamp(box.left, 0, std::max(screen.width - kOuter.width, 0)),
             std::clamp(box.top, 0, std::max(screen.height - height, 0)), kOuter.width, height});
  prompt_.SetText(box.prompt);
  answer_.SetSpokenName(box.prompt);
  ok_.SetText("OK");
  cancel_.SetText("Cancel");
  SetDefaultButton(&ok_);
  SetCancelButton(&cancel_);
  on_resize = [this] { PlaceControls(); };
  ok_.on_mouse_up = [this] {
    accepted_ = true;
    Hide();
  };
  cancel_.on_mouse_up = [this] { Hide(); };
}

void InputWindow::PlaceControls() {
  const Twips width = inner().width - 2 * kMargin;
  const Twips buttons = inner().height - kMargin - kButtonHeight;
  const Twips answer = buttons - kMargin - kLine;
  prompt_.SetBounds({kMargin, kMargin, width, answer - kMargin - kMargin / 2});
  answer_.SetBounds({kMargin, answer, width, kLine});
  const Twips cancel = kMargin + width - kButtonWidth;
  ok_.SetBounds({cancel - kMargin - kButtonWidth, buttons, kButtonWidth, kButtonHeight});
  cancel_.SetBounds({cancel, buttons, kButtonWidth, kButtonHeight});
}

std::optional<std::string> InputWindow::Ask(Form& owner) {
  AttachPeer(front_end());  // now the size inside the border is known
  SetSmallest(inner());
  PlaceControls();
  answer_.SetFocus();
  ShowModal(owner);
  if (!accepted_) return std::nullopt;
  return answer_.text();
}

}  // namespace ui::win32

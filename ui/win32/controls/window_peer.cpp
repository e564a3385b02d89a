#include "ui/win32/controls/window_peer.h"

#include <commctrl.h>
#include <windowsx.h>

#include <array>

#include "ui/form.h"
#include "ui/win32/controls/form_peer.h"
#include "ui/win32/drawing/paint.h"
#include "ui/win32/drawing/scale.h"
#include "ui/win32/wide_text.h"

namespace ui::win32 {
namespace {

/// Under this property a window holds the control's name as a pointer to UTF-8 that ends in a zero, for tools
/// that drive the windows from outside.
constexpr wchar_t kNameProperty[] = L"Quorvane.Name";

HWND ContainerOf(const Control& control) {
  return control.parent() != nullptr ? HandleOf(*control.parent()) : nullptr;
}

int NumberFor(Control& control) {
  return control.parent() != nullptr ? FormPeerOf(control).NextControlNumber() : 0;
}

/// A control in a disabled frame is disabled itself, so that it looks like that. A disabled window needs no
/// such help.
bool IsEnabledInWindow(const Control& control) {
  const Control* around = &control;
  while (around->parent() != nullptr && around->enabled()) around = around->parent();
  return around->parent() == nullptr;
}

}  // namespace

HWND HandleOf(const Control& control) {
  const auto* peer = dynamic_cast<const WindowPeer*>(control.peer());
  return peer != nullptr ? peer->handle() : nullptr;
}

FormPeer& FormPeerOf(Control& control) { return static_cast<FormPeer&>(*control.form().peer()); }

WindowPeer::WindowPeer(Control& control, Toolkit& toolkit, const WindowKind& kind)
    : control_(control), toolkit_(toolkit), window_(kind, ContainerOf(control), NumberFor(control)) {
  SetPropW(handle(), kNameProperty, const_cast<char*>(control.name().c_str()));
  HandleFocus();
  HandlePointer();
  HandleColours();
}

WindowPeer::~WindowPeer() {
  if (handle() == nullptr) return;
  if (control_.parent() != nullptr) FormPeerOf(control_).tool_tips().Forget(handle());
  toolkit_.accessibility.Forget(handle());
  RemovePropW(handle(), kNameProperty);
}

void WindowPeer::HandleFocus() {
  window_.On(WM_SETFOCUS, [this](const Message& message) -> Answer {
    const LRESULT result = window_.Default(message);
    FocusArrived();
    return result;
  });
}

void WindowPeer::FocusArrived() {
  FormPeerOf(control_).scroller().BringIntoView(handle());
  control_.UserFocused();
}

RECT WindowPeer::Place() const {
  RECT place = ToPixels(control_.bounds(), dpi());
  if (control_.parent() != &control_.form()) return place;
  const POINT moved = FormPeerOf(control_).scroller().moved();
  OffsetRect(&place, static_cast<int>(-moved.x), static_cast<int>(-moved.y));
  return place;
}

void WindowPeer::HandlePointer() {
  window_.On(WM_MOUSEMOVE, [this](const Message&) -> Answer {
    PointerMoved();
    return std::nullopt;
  });
  window_.On(WM_MOUSELEAVE, [this](const Message&) -> Answer {
    pointer_.reset();
    control_.UserMovedPointerAway();
    return std::nullopt;
  });
}

/// The system sends WM_MOUSEMOVE also when a window has changed under a pointer that rests.
void WindowPeer::PointerMoved() {
  const DWORD spot = GetMessagePos();
  const POINT now{GET_X_LPARAM(spot), GET_Y_LPARAM(spot)};
  if (pointer_ && pointer_->x == now.x && pointer_->y == now.y) return;
  if (!pointer_) {
    TRACKMOUSEEVENT leave{sizeof leave, TME_LEAVE, handle(), 0};
    TrackMouseEvent(&leave);
  }
  pointer_ = now;
  control_.UserMovedPointer();
}

void WindowPeer::HandleColours() {
  for (const UINT asked :
       std::array<UINT, 4>{WM_CTLCOLORSTATIC, WM_CTLCOLORBTN, WM_CTLCOLOREDIT, WM_CTLCOLORLISTBOX}) {
    window_.OnNotice(asked, 0, [this](const Message& message) -> Answer {
      const std::optional<Colours> colours = ColoursToDraw();
      if (!colours) return std::nullopt;
      return reinterpret_cast<LRESULT>(UseColours(reinterpret_cast<HDC>(message.wparam), *colours));
    });
  }
}

void WindowPeer::MirrorText() {
  SetWindowTextW(handle(), ToCaption(control_.text(), control_.access_key()).c_str());
}

void WindowPeer::MirrorVisible() { ShowWindow(handle(), control_.visible() ? SW_SHOWNA : SW_HIDE); }

void WindowPeer::MirrorEnabled() {
  EnableWindow(handle(), IsEnabledInWindow(control_));
  const auto* container = dynamic_cast<const Container*>(&control_);
  if (container == nullptr || control_.parent() == nullptr) return;
  for (const Control* inside : container->controls()) {
    if (inside->peer() != nullptr) inside->peer()->Mirror(Property::kEnabled);
  }
}

void WindowPeer::MirrorBounds() {
  const RECT place = Place();
  SetWindowPos(handle(), nullptr, place.left, place.top, Width(place), Height(place),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void WindowPeer::MirrorHelp() {
  if (control_.parent() != nullptr) FormPeerOf(control_).tool_tips().Set(handle(), control_.tool_tip());
  toolkit_.accessibility.SetDescription(
      handle(), control_.description().empty() ? control_.tool_tip() : control_.description());
  MirrorText();
  MirrorSpokenName();
}

/// A control that is called what it shows tells that itself.
void WindowPeer::MirrorSpokenName() {
  std::string name = control_.spoken_name() == control_.text() ? "" : control_.spoken_name();
  if (name == told_name_) return;
  toolkit_.accessibility.SetName(handle(), name);
  told_name_ = std::move(name);
}

void WindowPeer::MirrorColours() {
  RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void WindowPeer::MirrorFont() { window_.Send(WM_SETFONT, reinterpret_cast<WPARAM>(font()), TRUE); }

std::optional<Colours> WindowPeer::ColoursToDraw() const { return ColoursAround(control_); }

/// A window that is not the active one gets its focus when it becomes that.
void WindowPeer::TakeFocus() {
  if (GetActiveWindow() == GetAncestor(handle(), GA_ROOT)) SetFocus(handle());
}

void WindowPeer::Repaint() {
  RedrawWindow(handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ERASENOW | RDW_ALLCHILDREN);
}

bool WindowPeer::Contains(const Message& mouse) const {
  RECT inside{};
  GetClientRect(handle(), &inside);
  return PtInRect(&inside, {GET_X_LPARAM(mouse.lparam), GET_Y_LPARAM(mouse.lparam)}) != 0;
}

}  // namespace ui::win32

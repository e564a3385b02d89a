#pragma once

#include "ui/win32/toolkit.h"

namespace ui::win32 {

/// Takes the keys that mean a window as a whole and not the control that has them: what Form::on_key is
/// offered, Tab, access keys, Enter, Escape and arrows between buttons. Returns whether the message needs
/// nothing more.
bool HandleKey(MSG& message, const Toolkit& toolkit);

}  // namespace ui::win32
